#pragma once

#include "sender/outputText.h"

/// Appends the two lines that every text of the tool begins with.
void addBanner(OutputText& text);

/// Appends what the tool is for and the commands that it lists.
void addUsage(OutputText& text);
