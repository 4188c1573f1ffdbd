#pragma once

#include "sender/commandTable.h"

/// Says on standard error what is odd about a command line, and changes nothing.
/// @param argc At least 2.
void advise(int argc, char const* const* argv, Request const& request);
