#pragma once

#include "sender/commandTable.h"

/// Warns on standard error of oddities in a command line. Changes nothing.
/// @param argc At least 2.
void advise(int argc, char const* const* argv, Request const& request);
