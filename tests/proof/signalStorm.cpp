// Ten thousand runs of the tool, each met by a signal at a moment of chance.
//
//     signalStorm [SEED [RUNS]]
//
// A signal may end or stop a run anywhere but with the lock taken or the entry half written. One
// that came under the lock finds the command sent, and then the run says so, or not sent at all.
#include "tests/endToEnd/clientSegment.h"
#include "tests/proof/figures.h"
#include "tests/proof/laidSegment.h"
#include "tests/setUpFailure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <random>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

using namespace endToEnd;
using proof::figure;
using proof::LaidSegment;
using Clock = std::chrono::steady_clock;

namespace {

constexpr std::array signals{SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGTSTP};

// The user's terminal.
class Terminal
{
public:
    Terminal() : ownEnd(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
        if (grantpt(ownEnd) != 0 || unlockpt(ownEnd) != 0)
            qvTest::failSetUp("no terminal to be had");
        toolsEnd = open(ptsname(ownEnd), O_RDWR | O_NOCTTY);
    }

    Terminal(Terminal const&) = delete;
    Terminal& operator=(Terminal const&) = delete;

    ~Terminal()
    {
        close(toolsEnd);
        close(ownEnd);
    }

    // All that was written since the last time.
    std::string text() const
    {
        std::string whole;
        std::array<char, 4096> part;
        for (ssize_t count; (count = read(ownEnd, part.data(), part.size())) > 0;)
            whole.append(part.data(), static_cast<std::size_t>(count));
        return whole;
    }

    int toolsEnd;

private:
    int ownEnd;
};

// In a group of its own, since a stop from the terminal takes effect only where somebody could
// continue the group. What this program was started with must not show in the tool.
pid_t startTool(Terminal const& terminal)
{
    pid_t const process = fork();
    if (process != 0)
        return process;
    setpgid(0, 0);
    for (int const number : signals)
        signal(number, SIG_DFL);
    dup2(terminal.toolsEnd, STDOUT_FILENO);
    execl(QV_TOOL_PATH, QV_TOOL_PATH, "EventFrameDone", "4660", nullptr);
    _exit(127);
}

int awaitChange(pid_t process)
{
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, WUNTRACED), process);
    return status;
}

// Long enough for most runs, short enough that most signals meet one.
Clock::duration usualTime(LaidSegment& segment, Terminal const& terminal)
{
    std::array<Clock::duration, 15> times{};
    for (auto& time : times) {
        auto const start = Clock::now();
        EXPECT_EQ(awaitChange(startTool(terminal)), 0);
        time = Clock::now() - start;
        segment.layAgain();
    }
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    return times[times.size() / 2];
}

} // namespace

TEST(SignalStorm, LeavesNoLockTakenAndNoHalfEntry)
{
    unsigned const seed = proof::argument(1, 20261121);
    unsigned const runs = proof::argument(2, 10000);
    figure("seed") = static_cast<long>(seed);
    figure("runs") = static_cast<long>(runs);
    long& endedBySignal = figure("endedBySignal");
    long& stopped = figure("stopped");
    long& sentUnderLock = figure("sentUnderLock");
    long& stored = figure("stored");
    long& storedThenEnded = figure("storedThenEnded");

    Bytes const before = Mailbox().messageCount(4).bytes();
    Bytes const after = Mailbox().messageCount(4).message(5, 4660).bytes();
    LaidSegment segment(before);
    Terminal const terminal;
    auto const longest = usualTime(segment, terminal);
    std::mt19937 generator(seed);
    std::uniform_int_distribution<Clock::rep> moment(0, longest.count());

    for (unsigned run = 0; run < runs; ++run) {
        SCOPED_TRACE(testing::Message() << "run " << run << " with seed " << seed);
        int const number = signals[generator() % signals.size()];
        // Spinning hits a microsecond, sleeping doesn't. The lock is taken for so short a time that
        // chance hardly finds it, so every second signal waits for the sight of it.
        bool const isAimed = run % 2 != 0;
        pid_t const tool = startTool(terminal);
        auto const end =
            Clock::now() + (isAimed ? longest * 2 : Clock::duration(moment(generator)));
        while (Clock::now() < end && !(isAimed && segment.isLockTaken()))
            ;
        kill(tool, number);
        bool const isSentUnderLock = segment.isLockTaken();
        sentUnderLock += isSentUnderLock;

        int status = awaitChange(tool);
        if (WIFSTOPPED(status)) {
            ASSERT_EQ(WSTOPSIG(status), number);
            ASSERT_FALSE(segment.isLockTaken()) << "stopped with the lock taken";
            ++stopped;
            kill(tool, SIGCONT);
            status = awaitChange(tool);
        }
        Bytes const left = segment.bytes();
        ASSERT_EQ(left.at(0), 0) << "lock byte left taken";
        bool const isStored = left == after;
        ASSERT_TRUE(isStored || sameBytes(before, left)) << "half an entry";
        bool const saidSo = terminal.text().find("Command send.") != std::string::npos;
        if (WIFSIGNALED(status)) {
            ASSERT_EQ(WTERMSIG(status), number);
            ++endedBySignal;
            storedThenEnded += isStored;
            if (isSentUnderLock) {
                ASSERT_EQ(saidSo, isStored);
            }
        } else {
            ASSERT_EQ(status, 0);
            ASSERT_TRUE(isStored);
            ASSERT_TRUE(saidSo);
        }
        stored += isStored;
        ASSERT_TRUE(segment.isOursAlone());
        segment.layAgain();
    }
    EXPECT_GT(endedBySignal, 0);
    EXPECT_GT(stored, 0);
}
