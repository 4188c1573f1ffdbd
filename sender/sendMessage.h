#pragma once

#include "sender/clientMessage.h"
#include "sender/outcome.h"

/// Appends one message to the queue of the client on this machine, prints the outcome and leaves
/// the segment. At most one entry; no retry, and no waiting but for the segment's lock.
/// @return The outcome that was printed.
Outcome sendMessage(ClientMessage const& message);
