#include "qv/segment/core/deferredSignals.h"

namespace qvSegment {

namespace {

/// Whether a signal ends the process: its default action does, and nobody ignores or handles it.
bool ends(int number)
{
    switch (number) {
    case SIGCHLD:
    case SIGCONT:
    case SIGTSTP:
    case SIGTTIN:
    case SIGTTOU:
    case SIGURG:
    case SIGWINCH:
        return false;
    default:
        break;
    }
    struct sigaction present;
    return sigaction(number, nullptr, &present) == 0 && present.sa_handler == SIG_DFL;
}

} // namespace

bool DeferredSignals::endsPending() const
{
    sigset_t pending;
    if (sigpending(&pending) != 0)
        return false;
    for (int number = 1; number < NSIG; ++number)
        if (sigismember(&pending, number) == 1 && sigismember(&previous_, number) == 0 &&
            ends(number))
            return true;
    return false;
}

} // namespace qvSegment
