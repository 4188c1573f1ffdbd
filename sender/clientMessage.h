#pragma once

#include "qv/client/qvClientMailbox.h"

/// One message of the tool. Its `messageKind` is not a field: it is 2 in every entry.
struct ClientMessage
{
    ClientMessageType type;
    std::uint16_t value;
};
