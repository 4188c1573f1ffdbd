#include "qv/segment/core/deferredSignals.h"

#ifdef __linux__
#include <cstring>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace qvSegment {

namespace {

#ifdef __linux__

// Everything here is a call of the kernel. A C library keeps signals for its threads (glibc 32 and
// 33, musl 34 too, which is glibc's SIGRTMIN), and its own calls neither block nor show them. Yet
// they end a process with one thread like any other signal.
constexpr std::size_t setSize = (NSIG - 1) / 8;

/// The kernel's description of a signal's action: on most processors the handler comes first.
struct KernelAction
{
#ifdef __mips__
    unsigned flags;
#endif
    void (*handler)(int);
    unsigned char rest[64];
};

void block(sigset_t& previous)
{
    sigset_t all;
    std::memset(&all, 0xFF, sizeof all);
    syscall(SYS_rt_sigprocmask, SIG_BLOCK, &all, &previous, setSize);
}

void restore(sigset_t const& previous)
{
    syscall(SYS_rt_sigprocmask, SIG_SETMASK, &previous, nullptr, setSize);
}

bool findPending(sigset_t& pending)
{
    return syscall(SYS_rt_sigpending, &pending, setSize) == 0;
}

bool hasDefaultAction(int number)
{
    KernelAction present{};
    return syscall(SYS_rt_sigaction, number, nullptr, &present, setSize) == 0 &&
           present.handler == SIG_DFL;
}

#else

void block(sigset_t& previous)
{
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_BLOCK, &all, &previous);
}

void restore(sigset_t const& previous)
{
    sigprocmask(SIG_SETMASK, &previous, nullptr);
}

bool findPending(sigset_t& pending)
{
    return sigpending(&pending) == 0;
}

bool hasDefaultAction(int number)
{
    struct sigaction present;
    return sigaction(number, nullptr, &present) == 0 && present.sa_handler == SIG_DFL;
}

#endif

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
    return hasDefaultAction(number);
}

} // namespace

DeferredSignals::DeferredSignals()
{
    block(previous_);
}

DeferredSignals::~DeferredSignals()
{
    restore(previous_);
}

bool DeferredSignals::endsPending() const
{
    sigset_t pending{};
    if (!findPending(pending))
        return false;
    for (int number = 1; number < NSIG; ++number)
        if (sigismember(&pending, number) == 1 && sigismember(&previous_, number) == 0 &&
            ends(number))
            return true;
    return false;
}

} // namespace qvSegment
