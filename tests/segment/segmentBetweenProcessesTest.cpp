// Real segments of the real system, shared with a second process.

#include "qv/support/qvSystem.h"
#include "scriptedSegment.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstring>
#include <functional>
#include <string>
#include <sys/shm.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

// A place in one process that the other one waits for. A dead partner ends the wait as well.
class Signpost
{
public:
    Signpost() { EXPECT_EQ(pipe(ends), 0); }
    ~Signpost()
    {
        close(ends[0]);
        close(ends[1]);
    }
    Signpost(Signpost const&) = delete;
    Signpost& operator=(Signpost const&) = delete;

    void pass() { EXPECT_EQ(write(ends[1], "x", 1), 1); }

    void await()
    {
        char byte = 0;
        EXPECT_EQ(read(ends[0], &byte, 1), 1);
    }

private:
    int ends[2]{};
};

class SegmentBetweenProcesses : public ::testing::Test
{
protected:
    // A name of this test's own: never the one under which a living client may be found.
    Text250 const name{("qvSegmentTest-" + std::to_string(getpid()) + "-" +
                        ::testing::UnitTest::GetInstance()->current_test_info()->name())
                           .c_str()};

    void TearDown() override
    {
        // Leave nothing behind, whatever went wrong.
        if (int const id = findSegment(); id >= 0) {
            shmctl(id, IPC_RMID, nullptr);
        }
    }

    key_t key() const
    {
        qvSharedMemory const probe{name};
        // An attach would disturb the test, so the key is taken from the name as attach does it.
        return static_cast<key_t>(crc32Of(textOf(probe.name)) & 0xFFFFFFU);
    }

    int findSegment() const { return shmget(key(), 0, 0); }

    unsigned long attachCount() const
    {
        shmid_ds state{};
        EXPECT_EQ(shmctl(findSegment(), IPC_STAT, &state), 0);
        return state.shm_nattch;
    }

    static pid_t startProcess(std::function<void()> const& body)
    {
        pid_t const child = fork();
        if (child == 0) {
            body();
            // Neither destructors of this process nor the framework's report: only the verdict.
            _exit(::testing::Test::HasFailure() ? 1 : 0);
        }
        return child;
    }

    static void expectSuccess(pid_t child)
    {
        int status = -1;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0) << "the second process failed";
    }

private:
    static unsigned crc32Of(std::string const& text)
    {
        unsigned state = 0xFFFFFFFFU;
        for (char const c : text) {
            state ^= static_cast<unsigned char>(c);
            for (int bit = 0; bit < 8; ++bit) {
                state = (state >> 1) ^ ((state & 1U) != 0 ? 0xEDB88320U : 0U);
            }
        }
        return ~state;
    }
};

TEST_F(SegmentBetweenProcesses, ARecordIsWrittenHereAndReadThere)
{
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(1000, false, false));
    expectNoError(owner);
    auto* record = static_cast<char*>(owner.data());
    for (int i = -7; i < 1000; ++i) {
        ASSERT_EQ(record[i], 0) << "a new segment is zeros, byte " << i;
    }
    std::strcpy(record, "from the owner");

    expectSuccess(startProcess([&] {
        qvSharedMemory guest{name};
        EXPECT_TRUE(guest.attach());
        expectNoError(guest);
        EXPECT_EQ(guest.size(), 1000);
        auto* seen = static_cast<char*>(guest.data());
        EXPECT_STREQ(seen, "from the owner");
        std::strcpy(seen + 500, "from the guest");
        seen[999] = '!';
        EXPECT_TRUE(guest.detach());
        expectNoError(guest);
    }));
    EXPECT_STREQ(record + 500, "from the guest");
    EXPECT_EQ(record[999], '!');

    // The guest left, and the segment stands, for its owner is still attached.
    EXPECT_GE(findSegment(), 0);
    EXPECT_EQ(attachCount(), 1U);
    EXPECT_TRUE(owner.detach());
    EXPECT_EQ(findSegment(), -1);
}

TEST_F(SegmentBetweenProcesses, ACreatedSegmentIsOpenToAll)
{
    mode_t const mask = umask(077);
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(16, false, false));
    umask(mask);
    shmid_ds state{};
    ASSERT_EQ(shmctl(findSegment(), IPC_STAT, &state), 0);
    EXPECT_EQ(state.shm_perm.mode & 0777U, 0666U);
    EXPECT_EQ(state.shm_segsz, 24U);
}

TEST_F(SegmentBetweenProcesses, AGuestThatLeavesLastRemovesTheSegment)
{
    Signpost guestIsIn;
    Signpost ownerIsOut;
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(16, false, false));
    pid_t const guestProcess = startProcess([&] {
        // The fork inherited the owner's mapping; as a guest this process must not count twice.
        shmdt(plainAddress(owner.base));
        qvSharedMemory guest{name};
        EXPECT_TRUE(guest.attach());
        guestIsIn.pass();
        ownerIsOut.await();
        EXPECT_GE(findSegment(), 0);
        EXPECT_TRUE(guest.detach());
        expectNoError(guest);
        EXPECT_EQ(findSegment(), -1);
    });
    guestIsIn.await();
    EXPECT_TRUE(owner.detach());
    expectNoError(owner);
    EXPECT_GE(findSegment(), 0);
    ownerIsOut.pass();
    expectSuccess(guestProcess);
    EXPECT_EQ(findSegment(), -1);
}

TEST_F(SegmentBetweenProcesses, ASegmentThatNobodyHasGoesWithItsFirstVisitor)
{
    ASSERT_GE(shmget(key(), 64, IPC_CREAT | IPC_EXCL | 0666), 0);
    {
        qvSharedMemory visitor{name};
        EXPECT_TRUE(visitor.attach());
        EXPECT_EQ(visitor.size(), 56);
    }
    EXPECT_EQ(findSegment(), -1);
}

TEST_F(SegmentBetweenProcesses, AttachingTwiceAsTheOnlyOneFindsNothingTheSecondTime)
{
    ASSERT_GE(shmget(key(), 64, IPC_CREAT | IPC_EXCL | 0666), 0);
    qvSharedMemory visitor{name};
    EXPECT_TRUE(visitor.attach());
    EXPECT_FALSE(visitor.attach());
    expectError(visitor, 5, "Shared Memory does not exist.");
    EXPECT_EQ(findSegment(), -1);
}

TEST_F(SegmentBetweenProcesses, AttachingTwiceIsFineWhileAnotherOneStays)
{
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(56, false, false));
    qvSharedMemory guest{name};
    EXPECT_TRUE(guest.attach());
    EXPECT_TRUE(guest.attach());
    expectNoError(guest);
    EXPECT_EQ(attachCount(), 2U);
}

TEST_F(SegmentBetweenProcesses, NothingIsFoundUnderAFreeName)
{
    qvSharedMemory guest{name};
    EXPECT_FALSE(guest.attach());
    expectError(guest, 5, "Shared Memory does not exist.");
    EXPECT_EQ(guest.size(), -9);
}

TEST_F(SegmentBetweenProcesses, AnExistingSegmentIsNeitherReusedNorHarmed)
{
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(56, false, false));
    std::strcpy(static_cast<char*>(owner.data()), "kept");
    ASSERT_TRUE(owner.lock());
    for (int const size : {56, 16, 100}) {
        SCOPED_TRACE(size);
        qvSharedMemory second{name};
        EXPECT_FALSE(second.create(size, false, false));
        expectError(second, 4, "Shared memory ID already exists.");
        EXPECT_FALSE(second.attached);
    }
    EXPECT_STREQ(static_cast<char*>(owner.data()), "kept");
    EXPECT_EQ(*owner.lockByte, 1);
    EXPECT_EQ(attachCount(), 1U);
}

TEST_F(SegmentBetweenProcesses, TheLargestSizeNeverMakesASegment)
{
    qvSharedMemory owner{name};
    EXPECT_FALSE(owner.create(INT_MAX, false, false));
    EXPECT_FALSE(owner.attached);
    EXPECT_EQ(findSegment(), -1);
}

TEST_F(SegmentBetweenProcesses, AWaiterGetsTheLockThatAnotherProcessGivesBack)
{
    Signpost locked;
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(56, false, false));
    Clock::time_point const start = Clock::now();
    pid_t const holder = startProcess([&] {
        qvSharedMemory guest{name};
        EXPECT_TRUE(guest.attach());
        EXPECT_TRUE(guest.lock());
        locked.pass();
        qvSleep(250);
        EXPECT_TRUE(guest.unlock());
    });
    locked.await();
    EXPECT_TRUE(owner.lock());
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(250));
    EXPECT_EQ(*owner.lockByte, 1);
    EXPECT_TRUE(owner.unlock());
    expectSuccess(holder);
}

TEST_F(SegmentBetweenProcesses, ADeadHolderLeavesTheByteTakenForGood)
{
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(56, false, false));
    expectSuccess(startProcess([&] {
        qvSharedMemory guest{name};
        EXPECT_TRUE(guest.attach());
        EXPECT_TRUE(guest.lock());
        _exit(::testing::Test::HasFailure() ? 1 : 0);
    }));
    EXPECT_EQ(*owner.lockByte, 1);
    Clock::time_point const start = Clock::now();
    EXPECT_FALSE(owner.lock());
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(2500));
    expectError(owner, -1, "lock: unable to get lock");
    EXPECT_EQ(*owner.lockByte, 1);
    // Attaching looks at no lock byte.
    qvSharedMemory other{name};
    EXPECT_TRUE(other.attach());
    EXPECT_EQ(*other.lockByte, 1);
}

TEST_F(SegmentBetweenProcesses, LeavingWhileLockedFreesTheByteForTheOthers)
{
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(56, false, false));
    expectSuccess(startProcess([&] {
        qvSharedMemory guest{name};
        EXPECT_TRUE(guest.attach());
        EXPECT_TRUE(guest.lock());
        EXPECT_TRUE(guest.detach());
    }));
    EXPECT_EQ(*owner.lockByte, 0);
    EXPECT_TRUE(owner.lock());
}

TEST_F(SegmentBetweenProcesses, AChildThatLeavesFreesTheLockOfItsParent)
{
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(56, false, false));
    ASSERT_TRUE(owner.lock());
    expectSuccess(startProcess([&] {
        EXPECT_EQ(attachCount(), 2U);
        EXPECT_TRUE(owner.locked);
        EXPECT_TRUE(owner.detach());
        expectNoError(owner);
    }));
    EXPECT_EQ(attachCount(), 1U);
    EXPECT_TRUE(owner.locked);
    EXPECT_EQ(*owner.lockByte, 0);
    qvSharedMemory guest{name};
    EXPECT_TRUE(guest.attach());
    EXPECT_TRUE(guest.lock());
}

TEST_F(SegmentBetweenProcesses, AHandledSignalEndsOneSleepOfAWaiter)
{
    qvSharedMemory owner{name};
    ASSERT_TRUE(owner.create(56, false, false));
    *owner.lockByte = 1;
    struct sigaction ignored
    {};
    ignored.sa_handler = [](int) {};
    struct sigaction before
    {};
    ASSERT_EQ(sigaction(SIGALRM, &ignored, &before), 0);
    itimerval const everyTenMs{{0, 10'000}, {0, 10'000}};
    ASSERT_EQ(setitimer(ITIMER_REAL, &everyTenMs, nullptr), 0);
    Clock::time_point const start = Clock::now();
    EXPECT_FALSE(owner.lock());
    EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(2500));
    itimerval const never{};
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &before, nullptr);
    expectError(owner, -1, "lock: unable to get lock");
}

} // namespace
