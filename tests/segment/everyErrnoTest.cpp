// Each system call under the segment refused with every error of its manual page, on each road that
// makes the call: error code, text, fields, lock byte, and the calls that were made.

#include "manualPageErrors.h"
#include "scriptedSegment.h"
#include "systemCallStandIns.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace {

std::string const findToAttach = "shmget(0x4EFCFF, 0, 0x1B0)";
std::string const findToCreate = "shmget(0x4EFCFF, 24, 0x7B6)";
std::string const findToLeave = "shmget(0x4EFCFF, 0, 0x124)";
std::string const map = "shmat(7, null, 0)";
std::string const query = "shmctl(7, IPC_STAT)";
std::string const queryNothing = "shmctl(-1, IPC_STAT)";
std::string const remove = "shmctl(7, IPC_RMID)";
std::string const unmap = "shmdt(base)";

class EveryErrno : public ScriptedSegment
{
protected:
    void expectErrorOf(std::string const& word, ManualPageError const& error)
    {
        expectError(memory, error.number, word + ": " + error.words);
    }

    void leaveToOthers()
    {
        script.shmgetGives(7).statGives(64, 1);
        EXPECT_TRUE(memory.detach());
        script.takeCalls();
        expectNoError(memory);
        expectIdle();
    }

    void attachAndLockNow()
    {
        attachNow();
        ASSERT_TRUE(memory.lock());
        script.whenUnmapping(
            [this] { EXPECT_EQ(segment[0], 0) << "unmapped with the lock taken"; });
    }

    void expectLeft(Calls const& calls)
    {
        EXPECT_TRUE(memory.detach());
        EXPECT_EQ(script.takeCalls(), calls);
        expectIdle();
        EXPECT_FALSE(memory.locked);
        EXPECT_EQ(segment[0], 0);
        expectSegmentUntouchedFrom(1);
    }
};

TEST_F(EveryErrno, AttachFindsNoSegment)
{
    for (ManualPageError const& error : shmgetErrors) {
        SCOPED_TRACE(error.words);
        script.shmgetFails(error.number).shmgetFails(error.number).statFails(EINVAL);
        EXPECT_FALSE(memory.attach());
        EXPECT_EQ(script.takeCalls(), (Calls{findToAttach, findToLeave, queryNothing}));
        if (error.number == ENOENT)
            expectError(memory, 5, "Shared Memory does not exist.");
        else if (error.number == EINVAL)
            expectError(memory, 2, "Shared Memory already exist, but size does not match.");
        else
            expectErrorOf("shmget", error);
        expectIdle();
        EXPECT_EQ(memory.totalSize, -1);
        expectSegmentUntouchedFrom(0);
    }
}

TEST_F(EveryErrno, AttachMapsNothing)
{
    for (ManualPageError const& error : shmatErrors) {
        SCOPED_TRACE(error.words);
        script.shmgetGives(7).shmatFails(error.number);
        EXPECT_FALSE(memory.attach());
        EXPECT_EQ(script.takeCalls(), (Calls{findToAttach, map}));
        expectErrorOf("attach (shmat)", error);
        expectKeyHeld();
        EXPECT_EQ(memory.totalSize, -1);
        expectSegmentUntouchedFrom(0);
        leaveToOthers();
    }
}

TEST_F(EveryErrno, AttachMeasuresNothing)
{
    for (ManualPageError const& error : shmctlErrors) {
        SCOPED_TRACE(error.words);
        script.shmgetGives(7).shmatGives(segment.data()).statFails(error.number);
        EXPECT_FALSE(memory.attach());
        EXPECT_EQ(script.takeCalls(), (Calls{findToAttach, map, query}));
        expectErrorOf("size query failed (shmctl)", error);
        expectMapped();
        EXPECT_FALSE(memory.locked);
        EXPECT_EQ(memory.totalSize, 0);
        EXPECT_EQ(memory.size(), -8);
        expectSegmentUntouchedFrom(0);
        script.shmdtGives();
        leaveToOthers();
    }
}

// The clean-up behind a failure may fail itself, and then has the last word.
TEST_F(EveryErrno, AttachFailsAndCannotCleanUp)
{
    for (ManualPageError const& first : shmgetErrors) {
        for (ManualPageError const& second : shmctlErrors) {
            if (second.number == EINVAL)
                continue; // the segment is gone, which is no failure: above
            SCOPED_TRACE(std::string(first.words) + ", then " + second.words);
            script.shmgetFails(first.number).shmgetGives(7).statFails(second.number);
            EXPECT_FALSE(memory.attach());
            EXPECT_EQ(script.takeCalls(), (Calls{findToAttach, findToLeave, query}));
            expectErrorOf("shmdt", second);
            expectIdle();
        }
    }
}

TEST_F(EveryErrno, CreateMakesNoSegment)
{
    for (bool const flag : {false, true}) {
        for (ManualPageError const& error : shmgetErrors) {
            if (error.number == EEXIST || error.number == EINVAL)
                continue; // roads of their own: below
            SCOPED_TRACE(testing::Message() << error.words << ", flags " << flag);
            script.shmgetFails(error.number).shmgetFails(ENOENT).statFails(EINVAL);
            EXPECT_FALSE(memory.create(16, flag, flag));
            EXPECT_EQ(script.takeCalls(), (Calls{findToCreate, findToLeave, queryNothing}));
            expectErrorOf("shmget", error);
            expectIdle();
            EXPECT_EQ(memory.totalSize, 24);
        }
        script.shmgetFails(EEXIST);
        EXPECT_FALSE(memory.create(16, flag, flag));
        EXPECT_EQ(script.takeCalls(), (Calls{findToCreate}));
        expectError(memory, 4, "Shared memory ID already exists.");
        expectKeyHeld();
        leaveToOthers();
    }
    expectSegmentUntouchedFrom(0);
}

// EINVAL puts the size in doubt: attach() is asked, and whatever refuses it, the size was it.
TEST_F(EveryErrno, CreateAsksAttachInVain)
{
    std::string const tooLarge =
        "Requested shared memory larger than system-imposed size restrictions.";
    for (bool const flag : {false, true}) {
        for (ManualPageError const& error : shmgetErrors) {
            SCOPED_TRACE(testing::Message() << error.words << ", flags " << flag);
            script.shmgetFails(EINVAL).shmgetFails(ENOENT).statFails(EINVAL);
            script.shmgetFails(error.number).shmgetFails(ENOENT).statFails(EINVAL);
            EXPECT_FALSE(memory.create(16, flag, flag));
            EXPECT_EQ(script.takeCalls(), (Calls{findToCreate, findToLeave, queryNothing,
                                                 findToAttach, findToLeave, queryNothing}));
            expectError(memory, 2, tooLarge);
            expectIdle();
        }
        for (ManualPageError const& error : shmatErrors) {
            SCOPED_TRACE(testing::Message() << error.words << ", flags " << flag);
            script.shmgetFails(EINVAL).shmgetFails(ENOENT).statFails(EINVAL);
            script.shmgetGives(7).shmatFails(error.number).shmgetGives(7).statGives(64, 1);
            EXPECT_FALSE(memory.create(16, flag, flag));
            EXPECT_EQ(script.takeCalls(), (Calls{findToCreate, findToLeave, queryNothing,
                                                 findToAttach, map, findToLeave, query}));
            expectError(memory, 2, tooLarge);
            expectIdle();
        }
        for (ManualPageError const& error : shmctlErrors) {
            SCOPED_TRACE(testing::Message() << error.words << ", flags " << flag);
            script.shmgetFails(EINVAL).shmgetFails(ENOENT).statFails(EINVAL);
            script.shmgetGives(7).shmatGives(segment.data()).statFails(error.number);
            script.shmdtGives().shmgetGives(7).statGives(64, 1);
            EXPECT_FALSE(memory.create(16, flag, flag));
            EXPECT_EQ(script.takeCalls(),
                      (Calls{findToCreate, findToLeave, queryNothing, findToAttach, map, query,
                             unmap, findToLeave, query}));
            expectError(memory, 2, tooLarge);
            expectIdle();
        }
    }
    expectSegmentUntouchedFrom(0);
}

TEST_F(EveryErrno, CreateMapsNothing)
{
    for (bool const flag : {false, true}) {
        for (ManualPageError const& error : shmatErrors) {
            SCOPED_TRACE(testing::Message() << error.words << ", flags " << flag);
            script.shmgetGives(7).shmatFails(error.number);
            EXPECT_FALSE(memory.create(16, flag, flag));
            EXPECT_EQ(script.takeCalls(), (Calls{findToCreate, map}));
            expectErrorOf("attach (shmat)", error);
            expectKeyHeld();
            EXPECT_EQ(memory.totalSize, 24);
            expectSegmentUntouchedFrom(0);
            leaveToOthers();
        }
    }
}

TEST_F(EveryErrno, DetachCannotUnmap)
{
    for (ManualPageError const& error : shmdtErrors) {
        attachAndLockNow();
        script.shmdtFails(error.number).shmgetGives(7).statGives(64, 1);
        expectLeft({unmap, findToLeave, query});
        expectError(memory, 5, "shmdt: not attached"); // the page names but EINVAL
    }
}

// Nobody looks at what this shmget says: the query tells.
TEST_F(EveryErrno, DetachFindsNoSegment)
{
    for (ManualPageError const& error : shmgetErrors) {
        SCOPED_TRACE(error.words);
        attachAndLockNow();
        script.shmdtGives().shmgetFails(error.number).statFails(EINVAL);
        expectLeft({unmap, findToLeave, queryNothing});
        expectNoError(memory);
    }
}

TEST_F(EveryErrno, DetachCannotQuery)
{
    for (ManualPageError const& error : shmctlErrors) {
        SCOPED_TRACE(error.words);
        attachAndLockNow();
        script.shmdtGives().shmgetGives(7).statFails(error.number);
        expectLeft({unmap, findToLeave, query});
        if (error.number == EINVAL)
            expectNoError(memory);
        else
            expectErrorOf("shmdt", error); // the word for it, by decision
    }
}

TEST_F(EveryErrno, DetachCannotRemove)
{
    for (ManualPageError const& error : shmctlErrors) {
        SCOPED_TRACE(error.words);
        attachAndLockNow();
        script.shmdtGives().shmgetGives(7).statGives(64, 0).removeFails(error.number);
        expectLeft({unmap, findToLeave, query, remove});
        if (error.number == EINVAL)
            expectNoError(memory);
        else
            expectErrorOf("shmctl", error);
    }
}

// A sleep that fails was one of the 25 all the same, and leaves no word in the error state.
TEST_F(EveryErrno, LockCannotSleep)
{
    for (ManualPageError const& error : usleepErrors) {
        SCOPED_TRACE(error.words);
        attachNow();
        segment[0] = 1;
        script.sleepsFail(error.number);
        EXPECT_FALSE(memory.lock());
        EXPECT_EQ(script.takeCalls(), Calls(25, "usleep(100000)"));
        expectError(memory, -1, "lock: unable to get lock");
        EXPECT_FALSE(memory.locked);
        EXPECT_EQ(segment[0], 1);

        int left = 3;
        script.whileSleeping([&](int) { segment[0] = --left > 0; });
        EXPECT_TRUE(memory.lock());
        EXPECT_EQ(script.takeCalls(), Calls(3, "usleep(100000)"));
        expectNoError(memory);
        script.whileSleeping(nullptr);
        script.shmdtGives();
        leaveToOthers();
        EXPECT_EQ(segment[0], 0);
    }
}

// The destructor has nobody to tell, but goes the same road and frees the lock.
TEST_F(EveryErrno, DestructorLeavesWhateverFails)
{
    auto const destroyLocked = [this](auto const& scriptLeaving, Calls const& calls) {
        segment[0] = 0;
        {
            qvSharedMemory object{Text250("qvClientSharedMemory")};
            script.shmgetGives(7).shmatGives(segment.data()).statGives(64, 1);
            EXPECT_TRUE(object.attach());
            EXPECT_TRUE(object.lock());
            script.takeCalls();
            scriptLeaving();
        }
        EXPECT_EQ(script.takeCalls(), calls);
        EXPECT_EQ(segment[0], 0);
        expectSegmentUntouchedFrom(1);
    };
    for (ManualPageError const& error : shmdtErrors)
        destroyLocked([&] { script.shmdtFails(error.number).shmgetGives(7).statGives(64, 1); },
                      {unmap, findToLeave, query});
    for (ManualPageError const& error : shmgetErrors)
        destroyLocked([&] { script.shmdtGives().shmgetFails(error.number).statFails(EINVAL); },
                      {unmap, findToLeave, queryNothing});
    for (ManualPageError const& error : shmctlErrors) {
        SCOPED_TRACE(error.words);
        destroyLocked([&] { script.shmdtGives().shmgetGives(7).statFails(error.number); },
                      {unmap, findToLeave, query});
        destroyLocked(
            [&] { script.shmdtGives().shmgetGives(7).statGives(64, 0).removeFails(error.number); },
            {unmap, findToLeave, query, remove});
    }
}

} // namespace
