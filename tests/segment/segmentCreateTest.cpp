// create(): its refusals, the segment it makes, and its detour through attach() when the system
// finds fault with the size.

#include "scriptedSegment.h"
#include "systemCallStandIns.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <cstdint>
#include <string>

namespace {

constexpr char const* tooLarge =
    "Requested shared memory larger than system-imposed size restrictions.";
constexpr char const* existsAlready = "Shared memory ID already exists.";

class SegmentCreate : public ScriptedSegment
{
protected:
    void failSomehow()
    {
        EXPECT_EQ(memory.data(), nullptr);
        expectError(memory, -1, "Not attached.");
    }
};

TEST_F(SegmentCreate, MakesMapsAndFreesTheLockByte)
{
    for (bool const first : {false, true}) {
        for (bool const second : {false, true}) {
            SCOPED_TRACE(testing::Message() << first << second);
            segment.fill(untouched);
            qvSharedMemory object{Text250("qvClientSharedMemory")};
            object.locked = true;
            script.shmgetGives(7).shmatGives(segment.data());
            EXPECT_TRUE(object.create(56, first, second));
            EXPECT_EQ(script.takeCalls(),
                      (Calls{"shmget(0x4EFCFF, 64, 0x7B6)", "shmat(7, null, 0)"}));
            EXPECT_EQ(object.key, clientKey);
            EXPECT_EQ(plainAddress(object.base), segment.data());
            EXPECT_EQ(plainAddress(object.lockByte), segment.data());
            EXPECT_EQ(plainAddress(object.data()), segment.data() + 8);
            EXPECT_TRUE(object.attached);
            EXPECT_FALSE(object.locked);
            EXPECT_EQ(object.totalSize, 64);
            EXPECT_EQ(object.size(), 56);
            expectNoError(object);
            EXPECT_EQ(segment[0], 0);
            expectSegmentUntouchedFrom(1);

            script.shmdtGives().shmgetGives(7).statGives(64, 0).removeGives();
            EXPECT_TRUE(object.detach());
            EXPECT_EQ(script.takeCalls(), (Calls{"shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)",
                                                 "shmctl(7, IPC_STAT)", "shmctl(7, IPC_RMID)"}));
        }
    }
}

TEST_F(SegmentCreate, RefusesNoSizeWithoutAWord)
{
    for (int const size : {0, -1, -8, INT_MIN}) {
        SCOPED_TRACE(size);
        failSomehow();
        EXPECT_FALSE(memory.create(size, true, true));
        expectNoError(memory);
        expectIdle();
        EXPECT_EQ(memory.totalSize, -1);
        EXPECT_EQ(script.takeCalls(), Calls{});
    }
}

TEST_F(SegmentCreate, LooksAtTheSizeBeforeTheState)
{
    attachNow();
    EXPECT_FALSE(memory.create(0, false, false));
    expectNoError(memory);
    expectMapped();
}

TEST_F(SegmentCreate, RefusesWhileMapped)
{
    attachNow();
    EXPECT_FALSE(memory.create(16, false, false));
    expectError(memory, -1, "We are already attached to memory.");
    expectMapped();
    EXPECT_EQ(memory.totalSize, 64);
    EXPECT_EQ(script.takeCalls(), Calls{});
}

TEST_F(SegmentCreate, RefusesWhileTheKeyIsHeld)
{
    holdKeyNow();
    EXPECT_FALSE(memory.create(16, false, false));
    expectError(memory, -1, "We have already created memory.");
    expectKeyHeld();
    EXPECT_EQ(memory.totalSize, -1);
    EXPECT_EQ(script.takeCalls(), Calls{});
}

TEST_F(SegmentCreate, RefusedMappingHoldsKeyAndSize)
{
    memory.locked = true; // only a segment of our own making resets it
    script.shmgetGives(7).shmatFails(EINVAL);
    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 24, 0x7B6)", "shmat(7, null, 0)"}));
    expectError(memory, 22, "attach (shmat): Invalid argument");
    expectKeyHeld();
    EXPECT_EQ(memory.totalSize, 24);
    EXPECT_EQ(memory.size(), 16);
    EXPECT_TRUE(memory.locked);
}

TEST_F(SegmentCreate, RefusedMappingLeavesNoAddressBehind)
{
    // An object that is neither attached nor holding a key, and yet has an address.
    memory.base = segment.data();
    script.shmgetGives(7).shmatFails(ENOMEM);
    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(script.takeCalls().size(), 2U);
    expectKeyHeld();
}

TEST_F(SegmentCreate, AnExistingSegmentIsNotReused)
{
    script.shmgetFails(EEXIST);
    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 24, 0x7B6)"}));
    expectError(memory, 4, existsAlready);
    expectKeyHeld();
    EXPECT_EQ(memory.totalSize, 24);

    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(script.takeCalls(), Calls{});
    expectError(memory, -1, "We have already created memory.");

    script.shmgetGives(7).statGives(64, 1);
    EXPECT_TRUE(memory.detach());
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)"}));
    expectIdle();
    expectNoError(memory);
}

TEST_F(SegmentCreate, OtherRefusalsCleanUp)
{
    struct Row
    {
        int refusal;
        char const* errorText;
    };
    Row const rows[] = {
        {ENOSPC, "shmget: No space left on device"},
        {EACCES, "shmget: Permission denied"},
        {ENOENT, "shmget: No such file or directory"},
        {ENOMEM, "shmget: Cannot allocate memory"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.refusal);
        script.shmgetFails(row.refusal).shmgetFails(ENOENT).statFails(EINVAL);
        EXPECT_FALSE(memory.create(16, false, false));
        EXPECT_EQ(script.takeCalls(),
                  (Calls{"shmget(0x4EFCFF, 24, 0x7B6)", "shmget(0x4EFCFF, 0, 0x124)",
                         "shmctl(-1, IPC_STAT)"}));
        expectError(memory, row.refusal, row.errorText);
        expectIdle();
        EXPECT_EQ(memory.totalSize, 24);
    }
}

TEST_F(SegmentCreate, CleaningUpAfterARefusalMayReplaceTheText)
{
    script.shmgetFails(ENOSPC).shmgetGives(9).statFails(EACCES);
    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 24, 0x7B6)",
                                         "shmget(0x4EFCFF, 0, 0x124)", "shmctl(9, IPC_STAT)"}));
    expectError(memory, 13, "shmdt: Permission denied");
    expectIdle();
}

// The prefix is added in 32 bits and may wrap; the result reaches the system with its sign, as a
// size no system grants, and never as 2 GiB asked for by accident.
TEST_F(SegmentCreate, SizeWrapsAndKeepsItsSign)
{
    struct Row
    {
        int size;
        std::int32_t totalSize;
        char const* call;
    };
    Row const rows[] = {
        {1, 9, "shmget(0x4EFCFF, 9, 0x7B6)"},
        {22988, 22996, "shmget(0x4EFCFF, 22996, 0x7B6)"},
        {INT_MAX - 8, INT_MAX, "shmget(0x4EFCFF, 2147483647, 0x7B6)"},
        {INT_MAX - 7, INT_MIN, "shmget(0x4EFCFF, -2147483648, 0x7B6)"},
        {INT_MAX, -2147483641, "shmget(0x4EFCFF, -2147483641, 0x7B6)"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.size);
        script.shmgetFails(ENOSPC).shmgetFails(ENOENT).statFails(EINVAL);
        EXPECT_FALSE(memory.create(row.size, false, false));
        EXPECT_EQ(script.takeCalls().front(), row.call);
        EXPECT_EQ(memory.totalSize, row.totalSize);
        EXPECT_EQ(memory.size(), row.size);
    }
}

// The key is set by the time create() asks attach() for its opinion, so attach() starts with the
// removal rule: that is the pair of calls in front of its own shmget.
TEST_F(SegmentCreate, DoubtfulSizeWithNoSegmentIsTooLarge)
{
    for (int const refusal : {ENOENT, EINVAL, EACCES}) {
        SCOPED_TRACE(refusal);
        script.shmgetFails(EINVAL);
        script.shmgetFails(ENOENT).statFails(EINVAL);
        script.shmgetFails(refusal);
        script.shmgetFails(ENOENT).statFails(EINVAL);
        EXPECT_FALSE(memory.create(INT_MAX, false, false));
        EXPECT_EQ(script.takeCalls(),
                  (Calls{"shmget(0x4EFCFF, -2147483641, 0x7B6)", "shmget(0x4EFCFF, 0, 0x124)",
                         "shmctl(-1, IPC_STAT)", "shmget(0x4EFCFF, 0, 0x1B0)",
                         "shmget(0x4EFCFF, 0, 0x124)", "shmctl(-1, IPC_STAT)"}));
        expectError(memory, 2, tooLarge);
        expectIdle();
        EXPECT_EQ(memory.totalSize, -2147483641);
    }
}

TEST_F(SegmentCreate, DoubtfulSizeWithAnUnmappableSegmentIsTooLarge)
{
    script.shmgetFails(EINVAL);
    script.shmgetGives(7).statGives(64, 3);
    script.shmgetGives(7).shmatFails(ENOMEM);
    script.shmgetGives(7).statGives(64, 3);
    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(script.takeCalls(),
              (Calls{"shmget(0x4EFCFF, 24, 0x7B6)", "shmget(0x4EFCFF, 0, 0x124)",
                     "shmctl(7, IPC_STAT)", "shmget(0x4EFCFF, 0, 0x1B0)", "shmat(7, null, 0)",
                     "shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)"}));
    expectError(memory, 2, tooLarge);
    expectIdle();
    EXPECT_EQ(memory.totalSize, 24);
}

TEST_F(SegmentCreate, DoubtfulSizeWithAnUnmeasurableSegmentIsTooLarge)
{
    script.shmgetFails(EINVAL);
    script.shmgetGives(7).statGives(64, 3);
    script.shmgetGives(7).shmatGives(segment.data()).statFails(EACCES);
    script.shmdtGives().shmgetGives(7).statGives(64, 3);
    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(
        script.takeCalls(),
        (Calls{"shmget(0x4EFCFF, 24, 0x7B6)", "shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)",
               "shmget(0x4EFCFF, 0, 0x1B0)", "shmat(7, null, 0)", "shmctl(7, IPC_STAT)",
               "shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)"}));
    expectError(memory, 2, tooLarge);
    expectIdle();
    EXPECT_EQ(memory.totalSize, 0);
}

TEST_F(SegmentCreate, DoubtfulSizeIsReportedBeforeCleaningUp)
{
    // The last clean-up comes behind the text and may replace it.
    script.shmgetFails(EINVAL);
    script.shmgetGives(7).statGives(64, 3);
    script.shmgetGives(7).shmatFails(ENOMEM);
    script.shmgetGives(7).statFails(EACCES);
    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(script.takeCalls().size(), 7U);
    expectError(memory, 13, "shmdt: Permission denied");
    expectIdle();
}

TEST_F(SegmentCreate, DoubtfulSizeRemovesASegmentThatNobodyHas)
{
    script.shmgetFails(EINVAL);
    script.shmgetGives(7).statGives(64, 0).removeGives();
    script.shmgetFails(ENOENT);
    script.shmgetFails(ENOENT).statFails(EINVAL);
    EXPECT_FALSE(memory.create(16, false, false));
    EXPECT_EQ(script.takeCalls(),
              (Calls{"shmget(0x4EFCFF, 24, 0x7B6)", "shmget(0x4EFCFF, 0, 0x124)",
                     "shmctl(7, IPC_STAT)", "shmctl(7, IPC_RMID)", "shmget(0x4EFCFF, 0, 0x1B0)",
                     "shmget(0x4EFCFF, 0, 0x124)", "shmctl(-1, IPC_STAT)"}));
    expectError(memory, 2, tooLarge);
    expectIdle();
}

TEST_F(SegmentCreate, DoubtfulSizeWithASegmentMeansThatItExists)
{
    script.shmgetFails(EINVAL);
    script.shmgetGives(7).statGives(64, 1);
    script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 2);
    // Leaving goes wrong as well, and the report replaces what that says.
    script.shmdtFails(EINVAL).shmgetGives(7).statGives(64, 1);
    EXPECT_FALSE(memory.create(100, false, false));
    EXPECT_EQ(
        script.takeCalls(),
        (Calls{"shmget(0x4EFCFF, 108, 0x7B6)", "shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)",
               "shmget(0x4EFCFF, 0, 0x1B0)", "shmat(7, null, 0)", "shmctl(7, IPC_STAT)",
               "shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)"}));
    expectError(memory, 4, existsAlready);
    expectIdle();
    EXPECT_EQ(memory.totalSize, 64);
    expectSegmentUntouchedFrom(0);

    // The key is gone, so a second try is not refused.
    script.shmgetFails(EEXIST);
    EXPECT_FALSE(memory.create(100, false, false));
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 108, 0x7B6)"}));
    expectError(memory, 4, existsAlready);
}

TEST_F(SegmentCreate, AKeyOfZeroRefusesNoSecondTry)
{
    qvSharedMemory object{Text250("zero15310939")};
    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round);
        script.shmgetGives(7).shmatFails(ENOMEM);
        EXPECT_FALSE(object.create(16, false, false));
        EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x0, 24, 0x7B6)", "shmat(7, null, 0)"}));
        expectError(object, 12, "attach (shmat): Cannot allocate memory");
    }
    script.shmgetFails(EEXIST);
    EXPECT_FALSE(object.create(16, false, false));
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x0, 24, 0x7B6)"}));
    expectError(object, 4, existsAlready);

    script.shmgetGives(7).shmatGives(segment.data());
    EXPECT_TRUE(object.create(16, false, false));
    script.takeCalls();
    script.shmdtGives();
    EXPECT_TRUE(object.detach());
    EXPECT_EQ(script.takeCalls(), (Calls{"shmdt(base)"}));
}

} // namespace
