// Kills the tool at every single instruction between its entering the segment and its leaving it.
// Nothing holds SIGKILL back, so the lock may stay taken; but whatever the moment, what is left
// behind is one of the few states that the order of the stores allows. For x86-64.
#include "tests/endToEnd/clientSegment.h"
#include "tests/proof/figures.h"
#include "tests/proof/laidSegment.h"
#include "tests/setUpFailure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <set>
#include <string>
#include <sys/personality.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace endToEnd;
using proof::figure;
using proof::LaidSegment;

namespace {

using Address = long; // as the system hands out a register

// One run of the tool, halted as soon as it has the segment mapped and taken on by instructions.
class SteppedTool
{
public:
    SteppedTool() : process(fork())
    {
        if (process == 0)
            becomeTool();
        awaitStop(); // behind its exec
        if (ptrace(PTRACE_SETOPTIONS, process, nullptr,
                   PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) != 0) {
            kill(process, SIGKILL);
            qvTest::failSetUp("ptrace");
        }
        while (!isAtSystemCall(SYS_shmat))
            resume(PTRACE_SYSCALL);
        resume(PTRACE_SYSCALL); // to the end of that call
    }

    SteppedTool(SteppedTool const&) = delete;
    SteppedTool& operator=(SteppedTool const&) = delete;

    ~SteppedTool()
    {
        kill(process, SIGKILL);
        waitpid(process, nullptr, 0); // behind this its mapping is gone as well
    }

    // Where the instruction stands that comes next.
    Address next() const { return ptrace(PTRACE_PEEKUSER, process, registerPlace, nullptr); }

    void step() { resume(PTRACE_SINGLESTEP); }

    // On to the first time that the instruction there comes next.
    void runTo(Address instruction)
    {
        ptrace(PTRACE_POKEUSER, process, watchedPlace, instruction);
        ptrace(PTRACE_POKEUSER, process, watchPlace, watchExecution);
        resume(PTRACE_CONT);
        ptrace(PTRACE_POKEUSER, process, watchPlace, 0L);
    }

private:
    // Every run takes the same road: same addresses, same text, nobody to read it.
    [[noreturn]] static void becomeTool()
    {
        personality(ADDR_NO_RANDOMIZE);
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        execl(QV_TOOL_PATH, QV_TOOL_PATH, "EventFrameDone", "4660", nullptr);
        _exit(127);
    }

    void resume(__ptrace_request how)
    {
        ptrace(how, process, nullptr, nullptr);
        awaitStop();
    }

    void awaitStop() const
    {
        int status = 0;
        if (waitpid(process, &status, 0) != process || !WIFSTOPPED(status))
            qvTest::failSetUp("the tool ended before it left the segment");
    }

    bool isAtSystemCall(unsigned long number) const
    {
        __ptrace_syscall_info info{};
        ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof info, &info);
        return info.op == PTRACE_SYSCALL_INFO_ENTRY && info.entry.nr == number;
    }

    // The processor watches one address for us: its first debug register, switched by the seventh.
    static constexpr std::size_t registerPlace = offsetof(user, regs.rip);
    static constexpr std::size_t watchedPlace = offsetof(user, u_debugreg);
    static constexpr std::size_t watchPlace = watchedPlace + 7 * sizeof(long);
    static constexpr long watchExecution = 1;

    pid_t process;
};

// The instructions from entering the segment to leaving it, as one run goes through them.
std::vector<Address> instructionsOfARun()
{
    std::vector<Address> instructions;
    for (SteppedTool tool; clientSegmentAttachCount() == 2; tool.step())
        instructions.push_back(tool.next());
    return instructions;
}

// Takes fresh runs to ahead of their first, second, third ... instruction.
class Approach
{
public:
    explicit Approach(std::vector<Address> const& oneRun) : run(oneRun) {}

    // Stepping all the way would take the square of the time, so a run goes in one go to the last
    // instruction that it hasn't met before.
    void take(SteppedTool& tool, std::size_t point)
    {
        if (seen.insert(run[point]).second)
            landmark = point;
        if (landmark > 0)
            tool.runTo(run[landmark]);
        for (std::size_t i = landmark; i < point; ++i)
            tool.step();
        ASSERT_EQ(tool.next(), run[point]) << "run " << point << " took another road";
    }

private:
    std::vector<Address> const& run;
    std::set<Address> seen;
    std::size_t landmark = 0;
};

// A state that the segment may be left in, and the figure that counts it.
struct State
{
    std::string name;
    Bytes segment;
};

using Road = std::vector<State>;

// The road with one more state: the last one after these bytes were stored.
Road then(Road road, std::string const& name, std::size_t place, Bytes const& stored)
{
    Bytes segment = road.back().segment;
    std::copy(stored.begin(), stored.end(), segment.begin() + static_cast<std::ptrdiff_t>(place));
    road.push_back({name, segment});
    return road;
}

// Kills a fresh run ahead of its first, second, third ... instruction. The states come in the order
// of the road, all of them, and nothing comes that isn't on it.
void killAtEveryInstruction(Road const& road)
{
    LaidSegment segment(road.front().segment);
    std::vector<Address> const run = instructionsOfARun();
    segment.layAgain();

    Approach approach(run);
    std::size_t reached = 0;
    for (std::size_t point = 0; point < run.size(); ++point) {
        {
            SteppedTool tool;
            ASSERT_NO_FATAL_FAILURE(approach.take(tool, point));
        }
        ASSERT_TRUE(segment.isOursAlone()) << "ahead of instruction " << point;
        Bytes const left = segment.bytes();
        if (left != road[reached].segment && reached + 1 < road.size())
            ++reached;
        ASSERT_TRUE(sameBytes(road[reached].segment, left))
            << "ahead of instruction " << point << ", for '" << road[reached].name << "'";
        ++figure("points");
        ++figure(road[reached].name);
        segment.layAgain();
    }
    EXPECT_EQ(reached + 1, road.size()) << "'" << road[reached].name << "' was the last state seen";
}

// Death leaves the bytes as they are, so one run tells what deaths at its instructions would leave:
// the short form of the above.
void lookAtEveryInstruction(Road const& road)
{
    LaidSegment segment(road.front().segment);
    std::size_t reached = 0;
    for (SteppedTool tool; clientSegmentAttachCount() == 2; tool.step()) {
        Bytes const present = segment.bytes();
        if (present != road[reached].segment && reached + 1 < road.size())
            ++reached;
        ASSERT_TRUE(sameBytes(road[reached].segment, present)) << road[reached].name;
    }
    EXPECT_EQ(reached + 1, road.size()) << "'" << road[reached].name << "' was the last state seen";
}

// Entry 5, behind four that stand already. No byte of it is there before its time.
Road roadOfStoring()
{
    std::size_t const count = prefixSize + 2001, kind = prefixSize + 2006, type = prefixSize + 2036,
                      value = prefixSize + 2070;
    Road road{{"untouched", Mailbox().messageCount(4).bytes()}};
    road = then(road, "lockTaken", 0, {1});
    road = then(road, "entryIncomplete", count, {5});
    road = then(road, "entryIncomplete", kind, {2});
    road = then(road, "entryIncomplete", type, {5});
    road = then(road, "entryLocked", value, {0x34, 0x12});
    return then(road, "entryFree", 0, {0});
}

// What is laid down, and nothing but the lock taken for a while.
Road roadOfRefusing(Mailbox const& mailbox)
{
    Road road{{"untouched", mailbox.bytes()}};
    road = then(road, "lockTaken", 0, {1});
    return then(road, "untouched", 0, {0});
}

TEST(DeathAtEveryInstruction, WhileItStores)
{
    Road const road = roadOfStoring();
    ASSERT_TRUE(sameBytes(Mailbox().messageCount(4).message(5, 4660).bytes(), road.back().segment));
    killAtEveryInstruction(road);
}

TEST(DeathAtEveryInstruction, WhileItFindsTheQueueFull)
{
    killAtEveryInstruction(roadOfRefusing(Mailbox().messageCount(30)));
}

TEST(DeathAtEveryInstruction, WhileItFindsAWrongMarker)
{
    killAtEveryInstruction(roadOfRefusing(Mailbox().stateMarker(3076)));
}

TEST(StateAtEveryInstruction, WhileItStores)
{
    lookAtEveryInstruction(roadOfStoring());
}

TEST(StateAtEveryInstruction, WhileItFindsTheQueueFull)
{
    lookAtEveryInstruction(roadOfRefusing(Mailbox().messageCount(30)));
}

// The instructions of a run that store, the lock's taking first and its giving back last.
std::vector<std::size_t> storesOfARun(LaidSegment const& segment)
{
    std::vector<std::size_t> stores;
    Bytes previous = segment.bytes();
    std::size_t point = 0;
    for (SteppedTool tool; clientSegmentAttachCount() == 2; tool.step(), ++point) {
        Bytes const present = segment.bytes();
        if (present != previous)
            stores.push_back(point);
        previous = present;
    }
    return stores;
}

// A neighbour that breaks the lock writes another count, ahead of each instruction from some that
// come before the count is read until the entry is whole. The count is read once, so the entry is
// whole in one slot all the same.
TEST(StateAtEveryInstruction, ANeighboursCountTearsNoEntry)
{
    std::size_t const count = prefixSize + 2001;
    Bytes const before = Mailbox().messageCount(4).bytes();
    Bytes const aheadOfReading = Mailbox().messageCount(20).message(5, 4660).bytes();
    Bytes const aheadOfRaising = Mailbox().messageCount(4).message(5, 4660).bytes();
    Bytes behindRaising = aheadOfRaising;
    behindRaising.at(count) = 20;

    LaidSegment segment(before);
    std::vector<Address> const run = instructionsOfARun();
    segment.layAgain();
    std::vector<std::size_t> const stores = storesOfARun(segment);
    segment.layAgain();
    ASSERT_EQ(stores.size(), 6u); // the lock, the count, the entry's three bytes or words, the lock
    std::size_t const first = stores[1] - 30, last = stores[4];
    Approach approach(run);
    std::set<Bytes> met;
    for (std::size_t point = first; point <= last; ++point) {
        {
            SteppedTool tool;
            ASSERT_NO_FATAL_FAILURE(approach.take(tool, point));
            segment.store(count, 20);
            tool.runTo(run.back());
        }
        Bytes const left = segment.bytes();
        ASSERT_TRUE(left == aheadOfReading || left == behindRaising ||
                    sameBytes(aheadOfRaising, left))
            << "ahead of instruction " << point;
        met.insert(left);
        ++figure("countsWritten");
        segment.layAgain();
    }
    EXPECT_EQ(met.size(), 3u);
}

} // namespace
