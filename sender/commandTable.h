#pragma once

#include "sender/clientMessage.h"
#include "sender/workingText.h"

#include <optional>
#include <span>
#include <string_view>

/// A word that the tool accepts, with its message and its line of the usage text.
struct Command
{
    std::string_view word; ///< Compared ignoring case.
    char const* label;     ///< The word in the usage text, blanks included; null: not listed there.
    ClientMessage message; ///< The value of a `frameDone` is the second argument instead.
    char const* meaning = nullptr; ///< For the usage text; null: the name of the command code.
};

/// All words, in the order in which they are compared and listed.
std::span<Command const> allCommands();

/// A command line that was read.
struct Request
{
    /// The message to send; none for an unknown word, or for a number whose low 16 bits are 0.
    std::optional<ClientMessage> message;
    /// The word, cut at 250 characters and without one leading "-"; behind "EventFrameDone" the
    /// number's text. It is shown when the command is unknown.
    WorkingText text;
};

/// Reads the command line. `argc` is at least 2.
Request readCommand(int argc, char const* const* argv);
