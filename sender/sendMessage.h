#pragma once

#include "sender/clientMessage.h"

/// Appends one message to the queue of the client on this machine, prints the outcome and leaves
/// the segment. At most one entry; no retry, and no waiting but for the segment's lock.
void sendMessage(ClientMessage const& message);
