// Leaving: detach(), clearAll() and the destructor, which all unlock, unmap, and remove the
// segment when nobody is attached any more.

#include "scriptedSegment.h"
#include "systemCallStandIns.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>
#include <string>

namespace {

class SegmentLeave : public ScriptedSegment
{};

TEST_F(SegmentLeave, DetachFromIdleOnlyEmptiesTheErrorState)
{
    EXPECT_EQ(memory.data(), nullptr);
    expectError(memory, -1, "Not attached.");
    EXPECT_TRUE(memory.detach());
    expectNoError(memory);
    expectIdle();
    EXPECT_EQ(memory.totalSize, -1);
    EXPECT_EQ(script.takeCalls(), Calls{});
}

TEST_F(SegmentLeave, OthersKeepTheSegment)
{
    for (unsigned long const others : {1UL, 2UL, 4294967296UL}) {
        SCOPED_TRACE(others);
        attachNow();
        // The id of the second shmget counts, not the one that was mapped.
        script.shmdtGives().shmgetGives(9).statGives(64, others);
        EXPECT_TRUE(memory.detach());
        EXPECT_EQ(script.takeCalls(),
                  (Calls{"shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)", "shmctl(9, IPC_STAT)"}));
        expectIdle();
        expectNoError(memory);
    }
}

TEST_F(SegmentLeave, TheLastOneOutRemovesTheSegment)
{
    attachNow();
    script.shmdtGives().shmgetGives(9).statGives(64, 0).removeGives();
    EXPECT_TRUE(memory.detach());
    EXPECT_EQ(script.takeCalls(), (Calls{"shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)",
                                         "shmctl(9, IPC_STAT)", "shmctl(9, IPC_RMID)"}));
    expectIdle();
    expectNoError(memory);

    // Nothing is left to do a second time.
    EXPECT_TRUE(memory.detach());
    EXPECT_EQ(script.takeCalls(), Calls{});
}

TEST_F(SegmentLeave, DetachIsTrueWhateverFailsUnderneath)
{
    struct Row
    {
        char const* what;
        int unmapError;  // 0: shmdt succeeds
        int findError;   // 0: the second shmget gives id 9
        int statError;   // 0: the query succeeds with nobody attached
        int removeError; // 0: the removal succeeds
        int errorCode;
        char const* errorText;
    };
    Row const rows[] = {
        {"all well", 0, 0, 0, 0, 0, ""},
        {"mapping gone", EINVAL, 0, 0, 0, 5, "shmdt: not attached"},
        {"no unmapping", EACCES, 0, 0, 0, 13, "shmdt: Permission denied"},
        {"no unmapping, no entry", ENOENT, 0, 0, 0, 2, "shmdt: No such file or directory"},
        {"segment gone", 0, ENOENT, EINVAL, 0, 0, ""},
        {"segment gone at query", 0, 0, EINVAL, 0, 0, ""},
        {"no query", 0, 0, EACCES, 0, 13, "shmdt: Permission denied"},
        {"query says removed", 0, 0, EIDRM, 0, 43, "shmdt: Identifier removed"},
        {"no finding, no query", 0, EACCES, EACCES, 0, 13, "shmdt: Permission denied"},
        {"segment gone at removal", 0, 0, 0, EINVAL, 0, ""},
        {"no removal", 0, 0, 0, EPERM, 1, "shmctl: Operation not permitted"},
        {"removed by another", 0, 0, 0, EIDRM, 43, "shmctl: Identifier removed"},
        {"mapping gone, segment gone", EINVAL, ENOENT, EINVAL, 0, 5, "shmdt: not attached"},
        {"mapping gone, gone at removal", EINVAL, 0, 0, EINVAL, 5, "shmdt: not attached"},
        {"mapping gone, no query", EINVAL, 0, EACCES, 0, 13, "shmdt: Permission denied"},
        {"mapping gone, no removal", EINVAL, 0, 0, EPERM, 1, "shmctl: Operation not permitted"},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.what);
        attachNow();
        Calls expected{"shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)"};
        row.unmapError == 0 ? script.shmdtGives() : script.shmdtFails(row.unmapError);
        row.findError == 0 ? script.shmgetGives(9) : script.shmgetFails(row.findError);
        expected.push_back(row.findError == 0 ? "shmctl(9, IPC_STAT)" : "shmctl(-1, IPC_STAT)");
        if (row.statError != 0) {
            // No removal may rest on a count that was never given.
            script.statFails(row.statError);
        } else {
            script.statGives(64, 0);
            row.removeError == 0 ? script.removeGives() : script.removeFails(row.removeError);
            expected.emplace_back("shmctl(9, IPC_RMID)");
        }
        EXPECT_TRUE(memory.detach());
        EXPECT_EQ(script.takeCalls(), expected);
        expectError(memory, row.errorCode, row.errorText);
        expectIdle();
    }
}

TEST_F(SegmentLeave, ClearAllDoesTheSameAsDetachButKeepsTheErrorState)
{
    attachNow();
    errno = EACCES;
    memory.setError("earlier");
    script.shmdtGives().shmgetGives(7).statGives(64, 0).removeGives();
    memory.clearAll();
    EXPECT_EQ(script.takeCalls(), (Calls{"shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)",
                                         "shmctl(7, IPC_STAT)", "shmctl(7, IPC_RMID)"}));
    expectError(memory, 13, "earlier: Permission denied");
    expectIdle();

    memory.clearAll();
    EXPECT_EQ(script.takeCalls(), Calls{});
    expectError(memory, 13, "earlier: Permission denied");
}

TEST_F(SegmentLeave, ClearAllEmptiesTheErrorStateWhenItReleasesTheLock)
{
    attachNow();
    ASSERT_TRUE(memory.lock());
    errno = EACCES;
    memory.setError("earlier");
    script.shmdtGives().shmgetGives(7).statGives(64, 1);
    memory.clearAll();
    EXPECT_EQ(script.takeCalls().size(), 3U);
    expectNoError(memory);
    EXPECT_FALSE(memory.locked);
    EXPECT_EQ(segment[0], 0);
    expectIdle();
}

TEST_F(SegmentLeave, ClearAllLeavesSizeAndLockByteAsTheyWere)
{
    attachNow();
    script.shmdtGives().shmgetGives(7).statGives(48, 1);
    memory.clearAll();
    EXPECT_EQ(script.takeCalls().size(), 3U);
    // Not the 48 that the query of the leaving reported.
    EXPECT_EQ(memory.totalSize, 64);
    EXPECT_EQ(memory.size(), 56);
    EXPECT_EQ(plainAddress(memory.lockByte), segment.data());
    EXPECT_EQ(memory.modeWord, 1);
    EXPECT_EQ(textOf(memory.name), "QV_qvClientSharedMemory_1234567");
    EXPECT_EQ(textOf(memory.globalName), "Global\\QV_qvClientSharedMemory_1234567");
}

TEST_F(SegmentLeave, ClearAllLeavesTheFlagOfTheLockWhenNotAttached)
{
    attachNow();
    ASSERT_TRUE(memory.lock());
    memory.attached = false;
    script.shmdtGives().shmgetGives(7).statGives(64, 1);
    memory.clearAll();
    EXPECT_EQ(script.takeCalls().size(), 3U);
    EXPECT_TRUE(memory.locked);
    EXPECT_EQ(segment[0], 1);
}

TEST_F(SegmentLeave, ClearAllDoesNotFreeAnothersLock)
{
    attachNow();
    segment[0] = 1;
    script.shmdtGives().shmgetGives(7).statGives(64, 1);
    memory.clearAll();
    EXPECT_EQ(script.takeCalls().size(), 3U);
    EXPECT_EQ(segment[0], 1);
}

TEST_F(SegmentLeave, DetachWhileLockedReleasesBeforeUnmapping)
{
    attachNow();
    ASSERT_TRUE(memory.lock());
    int byteAtUnmapping = -1;
    script.whenUnmapping([&] { byteAtUnmapping = segment[0]; });
    script.shmdtGives().shmgetGives(7).statGives(64, 1);
    EXPECT_TRUE(memory.detach());
    EXPECT_EQ(script.takeCalls().size(), 3U);
    EXPECT_EQ(byteAtUnmapping, 0);
    EXPECT_FALSE(memory.locked);
    expectNoError(memory);
    expectSegmentUntouchedFrom(1);
}

TEST_F(SegmentLeave, FromKeyHeldNothingIsUnmapped)
{
    holdKeyNow();
    script.shmgetGives(7).statGives(64, 0).removeGives();
    EXPECT_TRUE(memory.detach());
    EXPECT_EQ(script.takeCalls(),
              (Calls{"shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)", "shmctl(7, IPC_RMID)"}));
    expectIdle();
    expectNoError(memory);
}

TEST_F(SegmentLeave, DestructorReachesIdleFromAnywhere)
{
    {
        qvSharedMemory const idle{Text250("qvClientSharedMemory")};
    }
    EXPECT_EQ(script.takeCalls(), Calls{});

    {
        qvSharedMemory keyHeld{Text250("qvClientSharedMemory")};
        script.shmgetGives(7).shmatFails(ENOMEM);
        EXPECT_FALSE(keyHeld.attach());
        script.takeCalls();
        script.shmgetGives(7).statGives(64, 1);
    }
    EXPECT_EQ(script.takeCalls(), (Calls{"shmget(0x4EFCFF, 0, 0x124)", "shmctl(7, IPC_STAT)"}));

    segment[0] = 0;
    {
        qvSharedMemory lockedOne{Text250("qvClientSharedMemory")};
        script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 1);
        EXPECT_TRUE(lockedOne.attach());
        EXPECT_TRUE(lockedOne.lock());
        EXPECT_EQ(segment[0], 1);
        script.takeCalls();
        script.shmdtGives().shmgetGives(7).statGives(64, 0).removeGives();
    }
    EXPECT_EQ(script.takeCalls(), (Calls{"shmdt(base)", "shmget(0x4EFCFF, 0, 0x124)",
                                         "shmctl(7, IPC_STAT)", "shmctl(7, IPC_RMID)"}));
    EXPECT_EQ(segment[0], 0);
}

} // namespace
