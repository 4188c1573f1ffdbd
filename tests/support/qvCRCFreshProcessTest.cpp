// What the CRC-32 table is before its first use. Every test looks at it from a process of its own,
// so this program must hold no test that builds the table in the program itself.

#include "qv/support/qvCRC.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <iterator>
#include <sys/ptrace.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Byte = unsigned char;

template <typename Body>
void inAFreshProcess(Body const& body)
{
    ASSERT_FALSE(qvCRCulTableInitialized) << "the table was built before this test";
    pid_t const child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        body();
        _exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "see the failures above";
}

void expectTableOfZeros()
{
    EXPECT_FALSE(qvCRCulTableInitialized);
    for (unsigned i = 0; i < 256; ++i) {
        EXPECT_EQ(qvCRCulTable[i], 0U) << i;
    }
}

void expectTableBuilt()
{
    EXPECT_TRUE(qvCRCulTableInitialized);
    EXPECT_EQ(qvCRCulTable[0], 0U);
    EXPECT_EQ(qvCRCulTable[1], 0x77073096U);
    EXPECT_EQ(qvCRCulTable[255], 0x2D02EF8DU);
}

TEST(QvCRCFreshProcess, StartsWithoutATable)
{
    inAFreshProcess([] { expectTableOfZeros(); });
}

TEST(QvCRCFreshProcess, PartialDoesNotBuildTheTable)
{
    inAFreshProcess([] {
        Byte const blocks[][4] = {{0, 0, 0, 0}, {0xFF, 0xFF, 0xFF, 0xFF}, {'1', '2', '3', '4'}};
        for (auto const& block : blocks) {
            unsigned int state = 0xFFFFFFFFU;
            qvCRCPartial(&state, &block[0], 1);
            EXPECT_EQ(state, 0x00FFFFFFU);
            qvCRCPartial(&state, &block[1], 2);
            EXPECT_EQ(state, 0x000000FFU);
            qvCRCPartial(&state, &block[3], 1);
            EXPECT_EQ(state, 0U);

            state = 0xFFFFFFFFU;
            qvCRCPartial(&state, &block[0], 4);
            EXPECT_EQ(state, 0U);
        }
        expectTableOfZeros();
    });
}

TEST(QvCRCFreshProcess, ACallWithoutBytesBuildsTheTable)
{
    inAFreshProcess([] {
        EXPECT_EQ(qvCRCCalc(nullptr, 0), 0U);
        expectTableBuilt();
    });
}

TEST(QvCRCFreshProcess, TheFirstCallGivesTheRightResult)
{
    inAFreshProcess([] {
        Byte const digits[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
        EXPECT_EQ(qvCRCCalc(&digits[0], 9), 0xCBF43926U);
        expectTableBuilt();
    });
}

TEST(QvCRCFreshProcess, InitializeBuildsTheTable)
{
    inAFreshProcess([] {
        qvCRCInitialize();
        expectTableBuilt();
    });
}

TEST(QvCRCFreshProcess, TheOthersLeaveTheTableAlone)
{
    inAFreshProcess([] {
        Byte const digits[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
        EXPECT_EQ(qvCRCCalc64(&digits[0], 9), 0xE9C6D914C4B8D9CAU);
        EXPECT_EQ(qvCRCCalc16(&digits[0], 9), 0x31C3);
        EXPECT_EQ(qvCRCCalc8(&digits[0], 9, false), 0x31);
        EXPECT_EQ(qvCRCReflect(1, 32), 0x80000000U);
        expectTableOfZeros();
    });
}

// A table that is called complete is used as it stands.
TEST(QvCRCFreshProcess, TheFlagAloneDecidesWhetherToBuild)
{
    inAFreshProcess([] {
        qvCRCulTableInitialized = true;
        Byte const digits[] = {'1', '2', '3', '4'};
        EXPECT_EQ(qvCRCCalc(&digits[0], 4), 0xFFFFFFFFU);
        for (unsigned i = 0; i < 256; ++i) {
            EXPECT_EQ(qvCRCulTable[i], 0U);
        }
    });
}

// --- Other threads see the table at any moment ---

struct TableView
{
    unsigned int entries[256];
    bool initialized;
};

TableView viewOf(pid_t process)
{
    TableView view{};
    iovec const here[] = {{&view.entries, sizeof view.entries}, {&view.initialized, 1}};
    iovec const there[] = {{&qvCRCulTable, sizeof qvCRCulTable}, {&qvCRCulTableInitialized, 1}};
    ssize_t const size = process_vm_readv(process, &here[0], 2, &there[0], 2, 0);
    EXPECT_EQ(size, static_cast<ssize_t>(sizeof view.entries + 1));
    return view;
}

unsigned int finalEntry(unsigned int index)
{
    for (int bit = 0; bit < 8; ++bit)
        index = (index >> 1) ^ ((index & 1) != 0 ? 0xEDB88320U : 0);
    return index;
}

/// Runs a body in a fresh process, one instruction after the other, and looks at its table between
/// them.
template <typename Body, typename Look>
void eachInstruction(Body const& body, Look const& look)
{
    pid_t const child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            _exit(2);
        raise(SIGSTOP);
        body();
        _exit(0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSTOPPED(status)) << "the system grants no tracing";
    while (!::testing::Test::HasFailure() && WIFSTOPPED(status)) {
        look(viewOf(child));
        ASSERT_EQ(ptrace(PTRACE_SINGLESTEP, child, nullptr, nullptr), 0);
        ASSERT_EQ(waitpid(child, &status, 0), child);
    }
    if (WIFSTOPPED(status)) {
        kill(child, SIGKILL);
        waitpid(child, &status, 0);
    }
}

TEST(QvCRCFreshProcess, NoEntryEverHasAValueInBetween)
{
    int built = 0;
    bool initialized = false;
    eachInstruction([] { qvCRCInitialize(); },
                    [&](TableView const& view) {
                        built = 0;
                        initialized = view.initialized;
                        for (unsigned i = 0; i < 256; ++i) {
                            if (view.entries[i] == finalEntry(i))
                                ++built;
                            else
                                ASSERT_EQ(view.entries[i], 0U) << i;
                        }
                        ASSERT_TRUE(!initialized || built == 256) << built;
                    });
    EXPECT_EQ(built, 256);
    EXPECT_TRUE(initialized);
}

TEST(QvCRCFreshProcess, BuildingAgainChangesNothingAtAnyMoment)
{
    bool initialized = false;
    eachInstruction(
        [] {
            qvCRCInitialize();
            qvCRCInitialize();
        },
        [&](TableView const& view) {
            ASSERT_TRUE(!initialized || view.initialized);
            initialized = view.initialized;
            for (unsigned i = 0; initialized && i < 256; ++i)
                ASSERT_EQ(view.entries[i], finalEntry(i)) << i;
        });
    EXPECT_TRUE(initialized);
}

using Clock = std::chrono::steady_clock;

constexpr auto patience = std::chrono::milliseconds{500};
constexpr Byte nineDigits[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
constexpr unsigned int nineDigitsSum = 0xCBF43926U;

/// Two threads that wait for each other awake, so that they go on at the same moment on two cores.
class Meeting
{
public:
    void await()
    {
        int const myRound = round_.load();
        if (arrived_.fetch_add(1) == 1) {
            arrived_ = 0;
            ++round_;
        }
        for (int look = 1; round_.load() == myRound; ++look) {
            if (look % 10'000 == 0)
                std::this_thread::yield();
        }
    }

private:
    std::atomic<int> arrived_{0};
    std::atomic<int> round_{0};
};

TEST(QvCRCFreshProcess, FirstCallsThatFallTogetherGiveRightResults)
{
    inAFreshProcess([] {
        Meeting start;
        Meeting end;
        bool lastRound = false; // changed only while the other thread waits at the start
        std::atomic<int> wrongSums{0};
        auto const firstCallOfTheLastRound = [&] {
            start.await();
            if (qvCRCCalc(&nineDigits[0], sizeof nineDigits) != nineDigitsSum)
                ++wrongSums;
            bool const last = lastRound;
            end.await();
            return last;
        };
        std::thread other([&] {
            while (!firstCallOfTheLastRound())
                ;
        });
        auto const deadline = Clock::now() + patience;
        int round = 0;
        do {
            lastRound = ++round == 20'000 || Clock::now() > deadline;
            std::fill(std::begin(qvCRCulTable), std::end(qvCRCulTable), 0U);
            qvCRCulTableInitialized = false;
        } while (!firstCallOfTheLastRound());
        other.join();
        EXPECT_EQ(wrongSums, 0);
    });
}

TEST(QvCRCFreshProcess, BuildingAgainDisturbsNoReader)
{
    inAFreshProcess([] {
        qvCRCInitialize();
        std::atomic<bool> done{false};
        std::thread builder([&] {
            while (!done)
                qvCRCInitialize();
        });
        int wrongSums = 0;
        auto const deadline = Clock::now() + patience;
        for (int round = 0; round < 20 || Clock::now() < deadline; ++round) {
            for (int i = 0; i < 1000; ++i)
                wrongSums += qvCRCCalc(&nineDigits[0], sizeof nineDigits) != nineDigitsSum;
        }
        done = true;
        builder.join();
        EXPECT_EQ(wrongSums, 0);
    });
}

} // namespace
