// The tool and the client that is shipped as an example, together: what one sends the other shows,
// also when many send at once.
#include "tests/endToEnd/clientSegment.h"
#include "tests/endToEnd/process.h"
#include "tests/endToEnd/toolText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <sys/shm.h>
#include <vector>

using namespace endToEnd;

namespace {

std::string const readyText = "standInClient: ready";

struct Named
{
    std::string word;
    std::string displayName;
};

// No display name here is a part of another one.
std::array<Named, 8> const senders = {{{"enable", "Enable"},
                                       {"disable", "Disable"},
                                       {"UseWorking", "Respect working hours"},
                                       {"IgnoreWorking", "Ignore working hours"},
                                       {"ReloadAllConfig", "Reload all config"},
                                       {"UpdateServiceCfg", "Update service config"},
                                       {"ShowProcessTree", "Show process tree"},
                                       {"DevDebug", "Dev Debug"}}};

Process startReadyClient(int messages, int seconds)
{
    Process client = startStandInClient(messages, seconds);
    EXPECT_TRUE(client.waitForOutput(readyText, 10)) << "the client isn't ready";
    return client;
}

// What the client printed for its entries: all lines but its own remarks.
std::vector<std::string> entryLines(std::string const& output)
{
    std::vector<std::string> lines;
    std::istringstream text(output);
    for (std::string line; std::getline(text, line);)
        if (!line.empty() && line.rfind("standInClient:", 0) != 0)
            lines.push_back(line);
    return lines;
}

// The lock byte as the neighbours see it. One that was left set stays set; one that a living
// process holds is free again a moment later.
bool lockByteComesFree()
{
    void* const address = shmat(shmget(clientKey, 0, 0), nullptr, SHM_RDONLY);
    if (reinterpret_cast<std::intptr_t>(address) == -1)
        return false;
    auto const* lockByte = static_cast<unsigned char const volatile*>(address);
    bool isFree = false;
    double const limit = secondsNow() + 2;
    while (!(isFree = *lockByte == 0) && secondsNow() < limit)
        nap(0.0005);
    shmdt(address);
    return isFree;
}

} // namespace

TEST(StandInClient, ShowsTheEntryItReceived)
{
    Process client = startReadyClient(1, 20);
    EXPECT_EQ(client.outputSoFar().rfind(readyText, 0), 0u) << "not the first line";
    expectOutput(runTool({"ReloadAllConfig"}), storedOutput);
    RunResult const run = client.finish();
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    std::vector<std::string> const lines = entryLines(run.output);
    ASSERT_EQ(lines.size(), 1u) << run.output;
    EXPECT_NE(lines[0].find("Reload all config"), std::string::npos) << lines[0];
    EXPECT_FALSE(clientSegmentExists());
}

TEST(StandInClient, ShowsEntriesInTheOrderOfSending)
{
    Process client = startReadyClient(static_cast<int>(senders.size()), 20);
    for (Named const& sender : senders)
        expectOutput(runTool({sender.word}), storedOutput);
    RunResult const run = client.finish();
    std::vector<std::string> const lines = entryLines(run.output);
    ASSERT_EQ(lines.size(), senders.size()) << run.output;
    for (std::size_t i = 0; i < senders.size(); ++i)
        EXPECT_NE(lines[i].find(senders[i].displayName), std::string::npos) << lines[i];
}

TEST(StandInClient, EndsByItselfWhenItsTimeIsOver)
{
    Process client = startReadyClient(100, 1);
    RunResult const run = client.finish();
    EXPECT_EQ(run.status, 0);
    EXPECT_GE(run.seconds, 0.9);
    EXPECT_LT(run.seconds, 10);
    EXPECT_FALSE(clientSegmentExists());
    expectOutput(runTool({"abort"}), noSegmentOutput);
}

TEST(StandInClient, RemovesItsSegmentWhenItIsTold)
{
    for (int const number : {SIGINT, SIGTERM}) {
        SCOPED_TRACE(number);
        Process client = startReadyClient(100, 60);
        EXPECT_TRUE(clientSegmentExists());
        client.signal(number);
        RunResult const run = client.finish();
        EXPECT_LT(run.seconds, 10);
        EXPECT_EQ(run.errors, "");
        EXPECT_FALSE(clientSegmentExists());
    }
}

// Eight at a time, each next one as soon as one has ended. The lock is a plain byte, so two may
// take it in the same moment and one message overwrite another: such losses are counted and told,
// not failed. What must not happen is a line the client can't name, an outcome of another text, a
// crash, a hang, or a lock that stays taken.
TEST(StandInClient, ManySendersAtOnce)
{
    int const runsPerSender = 300;
    double const secondsAtMost = 5;

    Process client = startReadyClient(1000000, 120);
    std::array<std::optional<Process>, senders.size()> running;
    std::array<int, senders.size()> started{};
    int stored = 0, full = 0, withoutLock = 0;
    double const begin = secondsNow();

    auto const conclude = [&](std::optional<Process>& run) {
        RunResult const result = run->finish();
        run.reset();
        EXPECT_EQ(result.status, 0) << "ended by signal " << result.endedBySignal;
        EXPECT_EQ(result.errors, "");
        if (result.output == storedOutput)
            ++stored;
        else if (result.output == queueFullOutput)
            ++full;
        else if (result.output == noLockOutput)
            ++withoutLock;
        else
            ADD_FAILURE() << "unknown outcome: " << result.output;
    };

    for (bool busy = true; busy;) {
        busy = false;
        for (std::size_t i = 0; i < senders.size(); ++i) {
            if (running[i] && running[i]->hasEnded())
                conclude(running[i]);
            if (!running[i] && started[i] < runsPerSender && secondsNow() - begin < secondsAtMost) {
                running[i].emplace(startTool({senders[i].word}));
                ++started[i];
            }
            busy = busy || running[i];
        }
        nap(0.0001);
    }
    double const seconds = secondsNow() - begin;

    EXPECT_TRUE(lockByteComesFree());
    // One more goes through, so the client is alive and the queue in order; then it has drained
    // all.
    double const limit = secondsNow() + 5;
    while (runTool({"abort"}).output != storedOutput && secondsNow() < limit)
        nap(0.05);
    EXPECT_TRUE(client.waitForOutput("Abort", 5)) << "the client no longer listens";
    EXPECT_TRUE(lockByteComesFree());
    client.signal(SIGTERM);
    RunResult const ended = client.finish();
    EXPECT_EQ(ended.errors, "");
    EXPECT_FALSE(clientSegmentExists());

    int received = 0;
    for (std::string const& line : entryLines(ended.output)) {
        bool const known = std::any_of(senders.begin(), senders.end(), [&](Named const& sender) {
            return line.find(sender.displayName) != std::string::npos;
        });
        if (known)
            ++received;
        else
            EXPECT_NE(line.find("Abort"), std::string::npos) << "corrupt entry: " << line;
    }
    EXPECT_GT(stored, 0);
    EXPECT_GT(received, 0);
    std::cout << "commands stored " << stored << ", received " << received << ", lost "
              << stored - received << ", queue full " << full << ", without the lock "
              << withoutLock << ", in " << seconds << " s\n";
    RecordProperty("stored", stored);
    RecordProperty("received", received);
    RecordProperty("full", full);
    RecordProperty("withoutLock", withoutLock);
}
