#pragma once

#include "sender/outputText.h"

/// Appends what the tool is for and the commands that it lists.
void addUsage(OutputText& text);
