#pragma once

#include "qv/segment/core/deferredSignals.h"
#include "sender/clientMessage.h"
#include "sender/outcome.h"

#include <optional>

/// Appends one message to the queue of the client on this machine, words the outcome and leaves the
/// segment. At most one entry; no retry, and it waits only for the segment's lock.
/// @param untilTold Holds signals back until the caller has shown the text: none may end the run
/// with the lock taken. A signal that would end it before the lock is obtained prevents the
/// sending.
/// @param text The outcome's text is appended.
/// @return Nothing when the sending was prevented: nothing is stored or worded then.
std::optional<Outcome> sendMessage(ClientMessage const& message,
                                   qvSegment::DeferredSignals const& untilTold, OutputText& text);
