#pragma once

#include "sender/clientMessage.h"
#include "sender/workingText.h"

#include <optional>

/// Turns the command line into a message. `argc` is at least 2. The word, cut at 250 characters
/// and without one leading "-", is left in `word`; after "EventFrameDone" the number's text is.
/// Nothing for an unknown word, or for a number whose low 16 bits are 0; then `word` is what to
/// show.
std::optional<ClientMessage> readCommand(int argc, char const* const* argv, WorkingText& word);
