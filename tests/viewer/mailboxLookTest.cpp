// What a look does while it holds the lock. The test steps in where the lock is given back.
#include "qv/segment/qvSharedMemory.h"
#include "tests/endToEnd/clientSegment.h"
#include "viewer/mailboxVerdict.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <functional>

namespace {

void nothing() {}

std::function<void()> beforeAttach = nothing;
std::function<void()> beforeUnlock = nothing;
std::function<void()> afterUnlock = nothing;

endToEnd::ClientHolder* client = nullptr;
int lockByteAtSignal = -1;
int attachError = 0;

class MailboxLookTest : public testing::Test
{
protected:
    void SetUp() override { client = &holder; }
    void TearDown() override
    {
        beforeAttach = beforeUnlock = afterUnlock = nothing;
        client = nullptr;
        attachError = 0;
    }

    endToEnd::ClientHolder holder{endToEnd::Mailbox().message(2, 1)};
};

} // namespace

extern "C" {

bool __real__ZN14qvSharedMemory6unlockEv(qvSharedMemory* segment);

bool __wrap__ZN14qvSharedMemory6unlockEv(qvSharedMemory* segment)
{
    beforeUnlock();
    bool const result = __real__ZN14qvSharedMemory6unlockEv(segment);
    afterUnlock();
    return result;
}

bool __real__ZN14qvSharedMemory6attachEv(qvSharedMemory* segment);

bool __wrap__ZN14qvSharedMemory6attachEv(qvSharedMemory* segment)
{
    beforeAttach();
    if (attachError == 0)
        return __real__ZN14qvSharedMemory6attachEv(segment);
    errno = attachError;
    segment->setError("shmget");
    return false;
}
}

namespace {

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

TEST_F(MailboxLookTest, readsNothingOnceTheLockIsFree)
{
    afterUnlock = [] { client->fill(endToEnd::Mailbox().recordMarker(1).messageCount(9)); };
    MailboxLook const look = lookAtMailbox(true);
    EXPECT_TRUE(look.format.isRight());
    EXPECT_EQ(look.messageCount, 1);
    EXPECT_EQ(look.entryCount(), 1);
}

// The class's own codes are values of errno too: 5 is EIO there.
TEST_F(MailboxLookTest, segmentGoneBeforeTheLockIsMissing)
{
    beforeAttach = [] { client->removeKey(); };
    MailboxLook const look = lookAtMailbox(true);
    EXPECT_EQ(look.error, LookError::missing);
    EXPECT_STREQ(look.errorText.asChar(), "Shared Memory does not exist.");
    EXPECT_EQ(judgeMailbox(look).status(), 2);
}

TEST_F(MailboxLookTest, segmentThatTheSystemRefusesIsNotMissing)
{
    attachError = EIO;
    MailboxLook const look = lookAtMailbox(true);
    EXPECT_EQ(look.error, LookError::refused);
    EXPECT_STREQ(look.errorText.asChar(), "shmget: Input/output error");
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

} // namespace
