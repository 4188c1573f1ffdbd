#pragma once

#include "sender/outputText.h"

/// Appends the two lines that every text of the tool begins with.
void addBanner(OutputText& text);

/// Appends the purpose of the tool and the commands that it lists.
void addUsage(OutputText& text);
