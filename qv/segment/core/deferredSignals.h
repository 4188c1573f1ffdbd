#pragma once

#include <csignal>

namespace qvSegment {

/// Defers every signal that can be deferred; a pending one takes effect when the object is
/// destroyed. A tool that is ended or stopped with the lock byte set would leave the client's
/// mailbox locked for good, since the byte names no owner.
class DeferredSignals
{
public:
    DeferredSignals();
    ~DeferredSignals();

    DeferredSignals(DeferredSignals const&) = delete;
    DeferredSignals& operator=(DeferredSignals const&) = delete;

    /// @return True when a pending signal will end the process once this object is destroyed. One
    /// that is ignored or handled will not, nor one that was blocked before, nor one that only
    /// stops a process or does nothing unless it is handled.
    bool endsPending() const;

private:
    sigset_t previous_{}; // empty if the system refuses
};

} // namespace qvSegment
