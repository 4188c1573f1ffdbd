// attach(): every answer the system can give, step by step.

#include "scriptedSegment.h"
#include "systemCallStandIns.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <string>

namespace {

class SegmentAttach : public ScriptedSegment
{};

TEST_F(SegmentAttach, FindsMapsAndMeasures)
{
    script.shmgetGives(7).shmatGives(segment.data()).statGives(22996, 2);
    EXPECT_TRUE(memory.attach());
    EXPECT_EQ(script.takeCalls(),
              (Calls{"shmget(0x4EFCFF, 0, 0x1B0)", "shmat(7, null, 0)", "shmctl(7, IPC_STAT)"}));
    expectMapped();
    expectNoError(memory);
    EXPECT_FALSE(memory.locked);
    EXPECT_EQ(memory.totalSize, 22996);
    EXPECT_EQ(memory.size(), 22988);
    EXPECT_EQ(plainAddress(memory.data()), segment.data() + 8);
    // Neither the lock byte nor the record is looked after here.
    expectSegmentUntouchedFrom(0);
}

TEST_F(SegmentAttach, TakesIdZeroAsAnId)
{
    script.shmgetGives(0).shmatGives(segment.data()).statGives(64, 1);
    EXPECT_TRUE(memory.attach());
    EXPECT_EQ(script.takeCalls(),
              (Calls{"shmget(0x4EFCFF, 0, 0x1B0)", "shmat(0, null, 0)", "shmctl(0, IPC_STAT)"}));
    expectMapped();
}

TEST_F(SegmentAttach, CutsTheSizeToThirtyTwoSignedBits)
{
    struct Row
    {
        std::size_t segmentSize;
        std::int32_t totalSize;
        int size;
    };
    Row const rows[] = {
        {0, 0, -8},
        {1, 1, -7},
        {8, 8, 0},
        {0x7FFFFFFF, 2147483647, 2147483639},
        {0x80000000, INT32_MIN, 2147483640},
        {0x80000008, -2147483640, INT32_MIN},
        {0xFFFFFFFF, -1, -9},
        {0x100000000, 0, -8},
        {0x1000059D4, 22996, 22988},
        {0xFFFFFFFFFFFFFFFF, -1, -9},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.segmentSize);
        qvSharedMemory object{Text250("qvClientSharedMemory")};
        script.shmgetGives(7).shmatGives(segment.data()).statGives(row.segmentSize, 2);
        EXPECT_TRUE(object.attach());
        EXPECT_EQ(object.totalSize, row.totalSize);
        EXPECT_EQ(object.size(), row.size);
        script.shmdtGives().shmgetGives(7).statGives(row.segmentSize, 1);
        EXPECT_TRUE(object.detach());
        script.takeCalls();
    }
}

// A refused shmget leaves the key set while cleaning up, so the removal rule asks once more for
// the segment and queries whatever id came: three calls, for every kind of refusal.
TEST_F(SegmentAttach, RefusedShmgetIsWordedByItsError)
{
    struct Row
    {
        int refusal;
        int errorCode;
        char const* errorText;
    };
    Row const rows[] = {
        {ENOENT, 5, "Shared Memory does not exist."},
        {EINVAL, 2, "Shared Memory already exist, but size does not match."},
        {EACCES, 13, "shmget: Permission denied"},
        {EEXIST, 17, "shmget: File exists"},
        {ENOSPC, 28, "shmget: No space left on device"},
        {EPERM, 1, "shmget: Operation not permitted"},
        {41, 41, "shmget: Error 41."},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.refusal);
        script.shmgetFails(row.refusal).shmgetFails(row.refusal).statFails(EINVAL);
        EXPECT_FALSE(memory.attach());
        EXPECT_EQ(script.takeCalls(),
                  (Calls{"shmget(0x4EFCFF, 0, 0x1B0)", "shmget(0x4EFCFF, 0, 0x124)",
                         "shmctl(-1, IPC_STAT)"}));
        expectError(memory, row.errorCode, row.errorText);
        expectIdle();
        EXPECT_EQ(memory.totalSize, -1);
        EXPECT_EQ(memory.size(), -9);
        EXPECT_EQ(memory.data(), nullptr);
    }
}

TEST_F(SegmentAttach, CleaningUpAfterARefusalMayReplaceTheText)
{
    for (int const refusal : {ENOENT, EINVAL, ENOSPC}) {
        SCOPED_TRACE(refusal);
        script.shmgetFails(refusal).shmgetFails(EACCES).statFails(EACCES);
        EXPECT_FALSE(memory.attach());
        EXPECT_EQ(script.takeCalls().size(), 3U);
        expectError(memory, 13, "shmdt: Permission denied");
        expectIdle();
    }
}

TEST_F(SegmentAttach, CleaningUpAfterARefusalMayRemoveTheSegment)
{
    // Rights of reading are enough for the second shmget, and nobody is attached.
    script.shmgetFails(EACCES).shmgetGives(9).statGives(64, 0).removeFails(EPERM);
    EXPECT_FALSE(memory.attach());
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 0, 0x1B0)", "shmget(0x4EFCFF, 0, 0x124)",
                                         "shmctl(9, IPC_STAT)", "shmctl(9, IPC_RMID)"}));
    expectError(memory, 1, "shmctl: Operation not permitted");
    expectIdle();

    script.shmgetFails(EACCES).shmgetGives(9).statGives(64, 0).removeGives();
    EXPECT_FALSE(memory.attach());
    EXPECT_EQ(script.takeCalls().back(), "shmctl(9, IPC_RMID)");
    expectError(memory, 13, "shmget: Permission denied");

    script.shmgetFails(EACCES).shmgetGives(9).statGives(64, 1);
    EXPECT_FALSE(memory.attach());
    EXPECT_EQ(script.takeCalls().back(), "shmctl(9, IPC_STAT)");
    expectError(memory, 13, "shmget: Permission denied");
}

TEST_F(SegmentAttach, RefusedMappingHoldsTheKey)
{
    struct Row
    {
        int refusal;
        char const* errorText;
    };
    Row const rows[] = {
        {ENOMEM, "attach (shmat): Cannot allocate memory"},
        {EACCES, "attach (shmat): Permission denied"},
        // No errno has a text of its own here.
        {EINVAL, "attach (shmat): Invalid argument"},
        {ENOENT, "attach (shmat): No such file or directory"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.refusal);
        script.shmgetGives(7).shmatFails(row.refusal);
        EXPECT_FALSE(memory.attach());
        EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 0, 0x1B0)", "shmat(7, null, 0)"}));
        expectError(memory, row.refusal, row.errorText);
        expectKeyHeld();
        EXPECT_EQ(memory.totalSize, -1);

        // Only leaving gives the key back.
        script.shmgetGives(7).statGives(64, 1);
        EXPECT_TRUE(memory.detach());
        EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)"}));
        expectIdle();
    }
}

TEST_F(SegmentAttach, RefusedSizeQueryStaysMapped)
{
    for (int const refusal : {EACCES, EINVAL}) {
        SCOPED_TRACE(refusal);
        script.shmgetGives(7).shmatGives(segment.data()).statFails(refusal);
        EXPECT_FALSE(memory.attach());
        EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 0, 0x1B0)", "shmat(7, null, 0)",
                                             "shmctl(7, IPC_STAT)"}));
        expectError(memory, refusal,
                    refusal == EACCES ? "size query failed (shmctl): Permission denied"
                                      : "size query failed (shmctl): Invalid argument");
        expectMapped();
        EXPECT_EQ(memory.totalSize, 0);
        EXPECT_EQ(memory.size(), -8);

        // It works like any mapped segment, in spite of the false.
        EXPECT_EQ(plainAddress(memory.data()), segment.data() + 8);
        segment[0] = 0;
        EXPECT_TRUE(memory.lock());
        EXPECT_EQ(segment[0], 1);
        EXPECT_TRUE(memory.unlock());

        script.shmdtGives().shmgetGives(7).statGives(64, 1);
        EXPECT_TRUE(memory.detach());
        EXPECT_EQ(script.takeCalls(),
                  (Calls{"shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)"}));
        expectIdle();
    }
}

TEST_F(SegmentAttach, AttachedAgainLeavesFirst)
{
    attachNow();
    script.shmdtGives().shmgetGives(7).statGives(64, 1);
    script.shmgetGives(8).shmatGives(segment.data()).statGives(48, 2);
    EXPECT_TRUE(memory.attach());
    EXPECT_EQ(script.takeCalls(),
              (Calls{"shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)",
                     "shmget(0x4EFCFF, 0, 0x1B0)", "shmat(8, null, 0)", "shmctl(8, IPC_STAT)"}));
    expectMapped();
    expectNoError(memory);
    EXPECT_EQ(memory.totalSize, 48);
}

TEST_F(SegmentAttach, AttachedAgainAsTheLastOneFindsNothing)
{
    attachNow();
    script.shmdtGives().shmgetGives(7).statGives(64, 0).removeGives();
    script.shmgetFails(ENOENT).shmgetFails(ENOENT).statFails(EINVAL);
    EXPECT_FALSE(memory.attach());
    EXPECT_EQ(script.takeCalls(),
              (Calls{"shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)",
                     "shmctl(7, IPC_RMID)", "shmget(0x4EFCFF, 0, 0x1B0)",
                     "shmget(0x4EFCFF, 0, 0x124)", "shmctl(-1, IPC_STAT)"}));
    expectError(memory, 5, "Shared Memory does not exist.");
    expectIdle();
    // The size of the earlier mapping stays.
    EXPECT_EQ(memory.totalSize, 64);
    EXPECT_EQ(memory.size(), 56);
}

TEST_F(SegmentAttach, AttachedAgainReleasesTheLock)
{
    attachNow();
    ASSERT_TRUE(memory.lock());
    script.shmdtGives().shmgetGives(7).statGives(64, 1);
    script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 2);
    EXPECT_TRUE(memory.attach());
    EXPECT_EQ(script.takeCalls().size(), 6U);
    EXPECT_EQ(segment[0], 0);
    EXPECT_FALSE(memory.locked);
}

TEST_F(SegmentAttach, AFailureOfTheLeavingOutlivesASuccess)
{
    attachNow();
    script.shmdtFails(EINVAL).shmgetGives(7).statGives(64, 1);
    script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 2);
    EXPECT_TRUE(memory.attach());
    EXPECT_EQ(script.takeCalls().size(), 6U);
    expectMapped();
    expectError(memory, 5, "shmdt: not attached");
}

TEST_F(SegmentAttach, WorksWhileTheKeyIsHeld)
{
    holdKeyNow();
    script.shmgetGives(7).statGives(64, 1);
    script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 2);
    EXPECT_TRUE(memory.attach());
    EXPECT_EQ(script.takeCalls(),
              (Calls{"shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)",
                     "shmget(0x4EFCFF, 0, 0x1B0)", "shmat(7, null, 0)", "shmctl(7, IPC_STAT)"}));
    expectMapped();
    expectNoError(memory);
}

TEST_F(SegmentAttach, LeavesTheFlagOfTheLockToLockAndUnlock)
{
    memory.locked = true;
    script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 1);
    EXPECT_TRUE(memory.attach());
    EXPECT_EQ(script.takeCalls().size(), 3U);
    EXPECT_TRUE(memory.locked);
    expectSegmentUntouchedFrom(0);
}

// "QV_zero15310939_1234567" has a checksum whose low 24 bits are all zero. The system reads such
// a key as a private one, and the object takes it for no key at all.
TEST_F(SegmentAttach, AKeyOfZeroIsPassedOnAndNeverCleanedUp)
{
    qvSharedMemory object{Text250("zero15310939")};
    script.shmgetFails(ENOENT);
    EXPECT_FALSE(object.attach());
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x0, 0, 0x1B0)"}));
    expectError(object, 5, "Shared Memory does not exist.");

    script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 1);
    EXPECT_TRUE(object.attach());
    EXPECT_EQ(script.takeCalls(),
              (Calls{"shmget(0x0, 0, 0x1B0)", "shmat(7, null, 0)", "shmctl(7, IPC_STAT)"}));
    EXPECT_EQ(object.key, 0);
    EXPECT_TRUE(object.attached);

    script.shmdtGives();
    EXPECT_TRUE(object.detach());
    EXPECT_EQ(script.takeCalls(), (Calls{"shmdt(base)"}));
    EXPECT_FALSE(object.attached);
}

} // namespace
