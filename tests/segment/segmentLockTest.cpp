// The cooperative lock: one byte at the segment's start, and one flag in the object.

#include "scriptedSegment.h"
#include "systemCallStandIns.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <initializer_list>

namespace {

using Bytes = std::initializer_list<unsigned char>;

class SegmentLock : public ScriptedSegment
{
protected:
    static Calls sleeps(int count)
    {
        return Calls(static_cast<std::size_t>(count), "usleep(100000)");
    }

    void failSomehow()
    {
        errno = EACCES;
        memory.setError("earlier");
    }
};

TEST_F(SegmentLock, AFreeByteIsTakenAtOnce)
{
    attachNow();
    failSomehow();
    EXPECT_TRUE(memory.lock());
    EXPECT_EQ(segment[0], 1);
    EXPECT_TRUE(memory.locked);
    expectNoError(memory);
    EXPECT_EQ(script.takeCalls(), Calls{});
    expectSegmentUntouchedFrom(1);

    failSomehow();
    EXPECT_TRUE(memory.unlock());
    EXPECT_EQ(segment[0], 0);
    EXPECT_FALSE(memory.locked);
    expectNoError(memory);
    EXPECT_EQ(script.takeCalls(), Calls{});
    expectSegmentUntouchedFrom(1);
}

TEST_F(SegmentLock, CanBeTakenAgainAndAgain)
{
    attachNow();
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(memory.lock());
        EXPECT_EQ(segment[0], 1);
        EXPECT_TRUE(memory.unlock());
        EXPECT_EQ(segment[0], 0);
    }
    EXPECT_EQ(script.takeCalls(), Calls{});
}

TEST_F(SegmentLock, AByteTakenForGoodIsGivenUpAfterTwentyFiveSleeps)
{
    attachNow();
    for (unsigned char const taken : Bytes{1, 2, 0x7F, 0x80, 0xFF}) {
        SCOPED_TRACE(static_cast<int>(taken));
        segment[0] = taken;
        EXPECT_FALSE(memory.lock());
        EXPECT_EQ(script.takeCalls(), sleeps(25));
        expectError(memory, -1, "lock: unable to get lock");
        EXPECT_FALSE(memory.locked);
        EXPECT_EQ(segment[0], taken);
        expectSegmentUntouchedFrom(1);
    }
    expectMapped();
}

TEST_F(SegmentLock, AByteFreedDuringTheWaitIsTakenAfterThatSleep)
{
    for (int freedIn = 1; freedIn <= 25; ++freedIn) {
        SCOPED_TRACE(freedIn);
        attachNow();
        segment[0] = 1;
        int slept = 0;
        script.whileSleeping([&](int) {
            ++slept;
            EXPECT_FALSE(memory.locked);
            EXPECT_EQ(segment[0], 1);
            if (slept == freedIn) {
                segment[0] = 0;
            }
        });
        EXPECT_TRUE(memory.lock());
        EXPECT_EQ(script.takeCalls(), sleeps(freedIn));
        EXPECT_EQ(segment[0], 1);
        EXPECT_TRUE(memory.locked);
        expectNoError(memory);

        script.shmdtGives().shmgetGives(7).statGives(64, 1);
        EXPECT_TRUE(memory.detach());
        script.takeCalls();
    }
}

TEST_F(SegmentLock, AnyOtherValueDuringTheWaitStillCountsAsTaken)
{
    attachNow();
    segment[0] = 1;
    script.whileSleeping([&](int sleep) { segment[0] = static_cast<unsigned char>(sleep + 100); });
    EXPECT_FALSE(memory.lock());
    EXPECT_EQ(script.takeCalls(), sleeps(25));
    EXPECT_EQ(segment[0], 125);
}

TEST_F(SegmentLock, AFreePeriodThatEndsWithinOneSleepGoesUnseen)
{
    attachNow();
    segment[0] = 1;
    script.whileSleeping([&](int) {
        segment[0] = 0;
        segment[0] = 1;
    });
    EXPECT_FALSE(memory.lock());
    EXPECT_EQ(script.takeCalls(), sleeps(25));
}

TEST_F(SegmentLock, IsNotReentrant)
{
    attachNow();
    ASSERT_TRUE(memory.lock());
    EXPECT_FALSE(memory.lock());
    expectError(memory, -1, "lock: already locked by us");
    EXPECT_EQ(script.takeCalls(), Calls{});
    EXPECT_TRUE(memory.locked);
    EXPECT_EQ(segment[0], 1);

    // The flag decides, not the byte: somebody freed it under us.
    segment[0] = 0;
    EXPECT_FALSE(memory.lock());
    expectError(memory, -1, "lock: already locked by us");
    EXPECT_EQ(segment[0], 0);

    EXPECT_TRUE(memory.unlock());
    expectNoError(memory);
}

TEST_F(SegmentLock, UnlockWithoutLockLeavesTheByteAlone)
{
    attachNow();
    for (unsigned char const byte : Bytes{0, 1, 0xFF}) {
        segment[0] = byte;
        EXPECT_FALSE(memory.unlock());
        expectError(memory, -1, "unlock: not locked by us");
        EXPECT_EQ(segment[0], byte);
        EXPECT_FALSE(memory.locked);
    }
    EXPECT_EQ(script.takeCalls(), Calls{});
}

TEST_F(SegmentLock, UnlockFreesWhateverTheByteHoldsByNow)
{
    attachNow();
    for (unsigned char const byte : Bytes{0, 1, 2, 0xFF}) {
        ASSERT_TRUE(memory.lock());
        segment[0] = byte;
        EXPECT_TRUE(memory.unlock());
        EXPECT_EQ(segment[0], 0);
    }
}

TEST_F(SegmentLock, NeedsAnAttachedObject)
{
    EXPECT_FALSE(memory.lock());
    expectError(memory, -1, "lock: not attached");
    EXPECT_FALSE(memory.unlock());
    expectError(memory, -1, "unlock: not attached");

    // Not being attached takes precedence over who holds the lock.
    memory.locked = true;
    EXPECT_FALSE(memory.lock());
    expectError(memory, -1, "lock: not attached");
    EXPECT_FALSE(memory.unlock());
    expectError(memory, -1, "unlock: not attached");
    EXPECT_TRUE(memory.locked);
    EXPECT_EQ(script.takeCalls(), Calls{});
}

TEST_F(SegmentLock, NeedsMoreThanAHeldKey)
{
    holdKeyNow();
    EXPECT_FALSE(memory.lock());
    expectError(memory, -1, "lock: not attached");
    EXPECT_FALSE(memory.unlock());
    expectError(memory, -1, "unlock: not attached");
    expectKeyHeld();
}

TEST_F(SegmentLock, WorksOnACreatedSegment)
{
    script.shmgetGives(7).shmatGives(segment.data());
    ASSERT_TRUE(memory.create(56, false, false));
    script.takeCalls();
    EXPECT_TRUE(memory.lock());
    EXPECT_EQ(segment[0], 1);
    EXPECT_TRUE(memory.unlock());
    EXPECT_EQ(segment[0], 0);
    expectSegmentUntouchedFrom(1);
}

} // namespace
