#pragma once

#include "sender/clientMessage.h"
#include "strings/qvString8.h"

#include <optional>

/// The string that carries a run: the word, then a number's text, then a failure message.
using WorkingText = _qvString8_allSize<250>;

/// Turns the command line into a message. `argc` is at least 2. The word, cut at 250 characters
/// and without one leading "-", is left in `word`; after "EventFrameDone" the number's text is.
/// Nothing for an unknown word, or for a number whose low 16 bits are 0; then `word` is what to
/// show.
std::optional<ClientMessage> readCommand(int argc, char const* const* argv, WorkingText& word);
