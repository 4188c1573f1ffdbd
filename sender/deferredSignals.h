#pragma once

#include <csignal>

/// Defers the signals by which users and shells end a program for as long as it lives; a pending
/// one takes effect as usual when it goes. A tool that dies with the lock byte set would leave
/// the client's mailbox locked for good, since the byte names no owner.
class DeferredSignals
{
public:
    DeferredSignals()
    {
        sigset_t ending;
        sigemptyset(&ending);
        for (int const number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE})
            sigaddset(&ending, number);
        sigprocmask(SIG_BLOCK, &ending, &previous_);
    }

    ~DeferredSignals() { sigprocmask(SIG_SETMASK, &previous_, nullptr); }

    DeferredSignals(DeferredSignals const&) = delete;
    DeferredSignals& operator=(DeferredSignals const&) = delete;

private:
    sigset_t previous_;
};
