#pragma once

#include <cstdint>

/// How the client reads the value of a message.
enum class MessageType : unsigned char
{
    command = 2,   ///< A command code; `qvC::qvClientCommandName` has its display name.
    checkJob = 3,  ///< Send 'Check Job' to the server; the value is 9 and no command code.
    frameDone = 5, ///< A number whose meaning belongs to the client.
};

/// One message of the tool. Its `messageKind` is not a field: it is 2 in every entry.
struct ClientMessage
{
    MessageType type;
    std::uint16_t value;
};
