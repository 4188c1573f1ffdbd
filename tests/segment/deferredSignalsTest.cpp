// Which signals wait while the lock is held: all that can.

#include "qv/segment/core/deferredSignals.h"

#include <gtest/gtest.h>

#include <csignal>

namespace {

bool isBlocked(int number)
{
    sigset_t blocked;
    sigprocmask(SIG_SETMASK, nullptr, &blocked);
    return sigismember(&blocked, number) == 1;
}

TEST(DeferredSignals, AreAllButTheTwoThatNobodyCanDefer)
{
    {
        qvSegment::DeferredSignals const deferred;
        for (int number = 1; number < 32; ++number)
            EXPECT_EQ(isBlocked(number), number != SIGKILL && number != SIGSTOP) << number;
        for (int number = 32; number <= SIGRTMAX; ++number)
            EXPECT_TRUE(isBlocked(number)) << number;
    }
    for (int number = 1; number <= SIGRTMAX; ++number)
        EXPECT_FALSE(isBlocked(number)) << number;
}

TEST(DeferredSignals, LeaveThoseBlockedThatWereSo)
{
    sigset_t own;
    sigemptyset(&own);
    sigaddset(&own, SIGUSR2);
    sigprocmask(SIG_BLOCK, &own, nullptr);
    {
        qvSegment::DeferredSignals const deferred;
    }
    EXPECT_TRUE(isBlocked(SIGUSR2));
    EXPECT_FALSE(isBlocked(SIGUSR1));
    sigprocmask(SIG_UNBLOCK, &own, nullptr);
}

} // namespace
