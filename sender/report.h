#pragma once

#include "sender/outcome.h"
#include "sender/outputText.h"

/// Writes one outcome as a JSON object and a newline, in ASCII characters. A byte that belongs to
/// no UTF-8 character becomes U+FFFD.
/// @param word The word as it was typed; null when there was none.
/// @param text The tool's whole text.
void showJson(char const* word, Outcome const& outcome, OutputText const& text);

/// Writes one line that is the same on equal nodes: the outcome's name, and why nothing was stored.
void showBrief(Outcome const& outcome);
