// What a look does while it holds the lock. The test steps in where the lock is given back.
#include "viewer/mailboxLook.h"

#include "qv/segment/qvSharedMemory.h"
#include "tests/endToEnd/clientSegment.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

namespace {

std::function<void()> beforeUnlock;

endToEnd::ClientHolder* client = nullptr;
int lockByteAtSignal = -1;

class MailboxLookTest : public testing::Test
{
protected:
    void SetUp() override { client = &holder; }
    void TearDown() override
    {
        beforeUnlock = nullptr;
        client = nullptr;
    }

    endToEnd::ClientHolder holder{endToEnd::Mailbox().message(2, 1)};
};

} // namespace

extern "C" {

bool __real__ZN14qvSharedMemory6unlockEv(qvSharedMemory* segment);

bool __wrap__ZN14qvSharedMemory6unlockEv(qvSharedMemory* segment)
{
    beforeUnlock();
    return __real__ZN14qvSharedMemory6unlockEv(segment);
}
}

TEST_F(MailboxLookTest, holdsTheLockWhileReading)
{
    int held = -1;
    beforeUnlock = [&] { held = client->lockByte(); };
    MailboxLook const look = lookAtMailbox(true);
    EXPECT_EQ(held, 1);
    EXPECT_EQ(client->lockByte(), 0);
    EXPECT_TRUE(look.lockedByUs);
    EXPECT_EQ(look.entryCount(), 1);
}

TEST_F(MailboxLookTest, signalsWaitUntilTheLockIsFree)
{
    auto* const previous = std::signal(SIGTERM, [](int) { lockByteAtSignal = client->lockByte(); });
    beforeUnlock = [] {
        std::raise(SIGTERM);
        EXPECT_EQ(lockByteAtSignal, -1);
    };
    lookAtMailbox(true);
    EXPECT_EQ(lockByteAtSignal, 0);
    std::signal(SIGTERM, previous);
}

TEST_F(MailboxLookTest, isNeverTheLastOneOut)
{
    beforeUnlock = [] { client->leave(); };
    lookAtMailbox(true);
    EXPECT_TRUE(endToEnd::clientSegmentExists());
    EXPECT_EQ(endToEnd::clientSegmentAttachCount(), 0);
}
