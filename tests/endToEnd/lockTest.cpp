// The lock byte between the tool and its neighbours: waiting for it, giving up, and never leaving
// it taken, whatever signal arrives.
#include "tests/endToEnd/clientSegment.h"
#include "tests/endToEnd/process.h"
#include "tests/endToEnd/toolText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <random>
#include <string>
#include <vector>

using namespace endToEnd;

namespace {

// Starts the tool on a segment whose lock is taken, and returns once it sits in its wait. It is
// attached a few microseconds before it looks at the lock, and while it attaches the system counts
// it twice.
Process startWaitingTool(std::vector<std::string> const& arguments, RunOptions const& options = {})
{
    Process tool = startTool(arguments, options);
    double const limit = secondsNow() + 5;
    while (clientSegmentAttachCount() < 2 && secondsNow() < limit)
        nap(0.001);
    nap(0.05);
    EXPECT_EQ(clientSegmentAttachCount(), 2) << "the tool isn't attached";
    EXPECT_FALSE(tool.hasEnded()) << "the tool didn't wait for the lock";
    return tool;
}

} // namespace

TEST(Lock, IsFreeAfterEveryOutcome)
{
    for (Mailbox const& mailbox :
         {Mailbox(), Mailbox().recordMarker(1), Mailbox().messageCount(30)}) {
        ClientHolder client(mailbox);
        runTool({"abort"});
        EXPECT_EQ(client.lockByte(), 0);
    }
}

// 25 naps of a tenth of a second, and then it says so and goes. The byte is another's: it stays.
TEST(Lock, TakenForGood)
{
    Mailbox mailbox;
    ClientHolder client(mailbox.lockByte(1));
    RunResult const run = runTool({"abort"});
    expectOutput(run, noLockOutput);
    EXPECT_GE(run.seconds, 2.4);
    EXPECT_LT(run.seconds, 15);
    EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
    EXPECT_EQ(clientSegmentAttachCount(), 1);
}

// Taken is whatever isn't 0. Nobody is attached here: the holder died, as it were, with the lock
// taken, and a tool that gives up is still the last one out. The format isn't looked at.
TEST(Lock, TakenForGoodByADeadHolder)
{
    ClientHolder client(Mailbox().lockByte(255).recordMarker(0));
    client.leave();
    RunResult const run = runTool({"abort"});
    expectOutput(run, noLockOutput);
    EXPECT_GE(run.seconds, 2.4);
    EXPECT_FALSE(clientSegmentExists());
}

TEST(Lock, FreedDuringTheWait)
{
    for (unsigned int const value : {1u, 2u, 128u, 255u}) {
        SCOPED_TRACE(value);
        Mailbox mailbox;
        ClientHolder client(mailbox.lockByte(static_cast<unsigned char>(value)));
        Process tool = startWaitingTool({"checkjob"});
        nap(0.1);
        EXPECT_FALSE(tool.hasEnded());
        EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
        client.setLockByte(0);
        RunResult const run = tool.finish();
        expectOutput(run, storedOutput);
        EXPECT_LT(run.seconds, 2.4);
        EXPECT_TRUE(sameBytes(mailbox.lockByte(0).message(3, 9).bytes(), client.segment()));
    }
}

// What the holder writes before it lets go is what counts.
TEST(Lock, RecordIsReadAfterTheLockIsTaken)
{
    Mailbox mailbox;
    ClientHolder client(mailbox.lockByte(1).recordMarker(0).messageCount(30));
    Process tool = startWaitingTool({"abort"});
    client.fill(mailbox.recordMarker(517).messageCount(4));
    client.setLockByte(0);
    expectOutput(tool.finish(), storedOutput);
    EXPECT_TRUE(sameBytes(mailbox.lockByte(0).message(2, 1).bytes(), client.segment()));
}

// Whoever asks a waiting run to end gets his wish, and the command isn't sent. The signal waits
// until the lock was obtained and given back: it would leave the byte set for good. So do those
// that a C library keeps for its threads, from 32 to 34 (SIGRTMIN to another one).
TEST(Lock, CommandOfARunThatWasEndedIsNotSent)
{
    for (int const number : {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGPIPE, SIGALRM, SIGUSR1, SIGXCPU,
                             32, 33, 34, SIGRTMAX}) {
        SCOPED_TRACE(number);
        Mailbox mailbox;
        ClientHolder client(mailbox.lockByte(1));
        Process tool = startWaitingTool({"RestartMachine"});
        tool.signal(number);
        nap(0.02);
        EXPECT_FALSE(tool.hasEnded());
        client.setLockByte(0);
        RunResult const run = tool.finish();
        EXPECT_EQ(run.endedBySignal, number);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, "");
        EXPECT_TRUE(sameBytes(mailbox.lockByte(0).bytes(), client.segment()));
        EXPECT_EQ(clientSegmentAttachCount(), 1);
    }
}

// A run that was ended leaves like any other: the last one out removes the segment. The tool is
// stopped while the client frees the lock and goes.
TEST(Lock, RunThatWasEndedRemovesTheSegmentAsTheLastOneOut)
{
    ClientHolder client(Mailbox().lockByte(1));
    Process tool = startWaitingTool({"abort"});
    tool.signal(SIGSTOP);
    tool.signal(SIGTERM);
    client.setLockByte(0);
    client.leave();
    tool.signal(SIGCONT);
    EXPECT_EQ(tool.finish().endedBySignal, SIGTERM);
    EXPECT_FALSE(clientSegmentExists());
}

// A signal that would not end the run changes nothing: nohup's, one that whoever started the tool
// has blocked, and those that do nothing by default.
TEST(Lock, SignalsThatDoNotEndTheRunLetItSend)
{
    struct Row
    {
        int number;
        bool isIgnored;
        bool isBlocked;
    };
    for (Row const& row : std::vector<Row>{{SIGHUP, true, false},
                                           {SIGTERM, true, false},
                                           {34, true, false},
                                           {SIGINT, false, true},
                                           {34, false, true},
                                           {SIGCHLD, false, false},
                                           {SIGURG, false, false},
                                           {SIGWINCH, false, false},
                                           {SIGCONT, false, false}}) {
        SCOPED_TRACE(row.number);
        Mailbox mailbox;
        ClientHolder client(mailbox.lockByte(1));
        RunOptions options;
        options.ignoredSignal = row.isIgnored ? row.number : 0;
        options.blockedSignal = row.isBlocked ? row.number : 0;
        Process tool = startWaitingTool({"abort"}, options);
        tool.signal(row.number);
        nap(0.02);
        client.setLockByte(0);
        expectOutput(tool.finish(), storedOutput);
        EXPECT_TRUE(sameBytes(mailbox.lockByte(0).message(2, 1).bytes(), client.segment()));
    }
}

// One that only stops the tool lets it send first: it would stop with the lock taken.
TEST(Lock, StopSignalsWaitUntilTheCommandIsSent)
{
    for (int const number : {SIGTSTP, SIGTTIN, SIGTTOU}) {
        SCOPED_TRACE(number);
        Mailbox mailbox;
        ClientHolder client(mailbox.lockByte(1));
        Process tool = startWaitingTool({"abort"});
        tool.signal(number);
        nap(0.02);
        client.setLockByte(0);
        Bytes const expected = mailbox.lockByte(0).message(2, 1).bytes();
        double const limit = secondsNow() + 5;
        while (client.segment() != expected && secondsNow() < limit)
            nap(0.001);
        EXPECT_TRUE(sameBytes(expected, client.segment()));
        // Only a stopped one is told to go on: a leak sanitizer that stops itself can't bear more.
        while (!tool.hasEnded() && secondsNow() < limit) {
            if (tool.hasStopped())
                tool.signal(SIGCONT);
            nap(0.01);
        }
        expectOutput(tool.finish(), storedOutput);
    }
}

// A signal that arrives behind that finds the command stored. The run says so before it ends, and
// leaves as always.
TEST(Lock, RunThatHasStoredSaysSoBeforeASignalEndsIt)
{
    for (bool const isLastOut : {false, true}) {
        Mailbox mailbox;
        ClientHolder client(mailbox);
        if (isLastOut)
            client.leave();
        RunOptions options;
        options.signalOnLeaving = SIGTERM;
        RunResult const run = runTool({"abort"}, options);
        EXPECT_EQ(run.endedBySignal, SIGTERM);
        EXPECT_EQ(run.output, storedOutput);
        EXPECT_EQ(clientSegmentExists(), !isLastOut);
        if (!isLastOut) {
            EXPECT_TRUE(sameBytes(mailbox.message(2, 1).bytes(), client.segment()));
        }
    }
}

// One that arrives during a wait in vain takes effect too, when the tool has given up and said so.
TEST(Lock, SignalsTakeEffectAfterAWaitInVain)
{
    ClientHolder client(Mailbox().lockByte(1));
    Process tool = startWaitingTool({"abort"});
    tool.signal(SIGTERM);
    RunResult const run = tool.finish();
    EXPECT_EQ(run.endedBySignal, SIGTERM);
    EXPECT_EQ(run.output, noLockOutput);
    EXPECT_GE(run.seconds, 2.4);
    EXPECT_EQ(client.lockByte(), 1);
}

// Wherever a run is cut off: the lock is free, and the entry is there whole or not at all.
TEST(Lock, TerminatedAtRandomMoments)
{
    Mailbox const before;
    Bytes const after = Mailbox().message(5, 4660).bytes();
    ClientHolder client(before);

    std::vector<std::string> const arguments{"EventFrameDone", "4660"};
    double longest = 0;
    for (int run = 0; run < 5; ++run) {
        longest = std::max(longest, runTool(arguments).seconds);
        client.fill(before);
    }

    std::mt19937 generator(20240517);
    std::uniform_real_distribution<double> moment(0, std::min(longest, 0.02));
    int terminated = 0, stored = 0, completed = 0;
    double const limit = secondsNow() + 2;
    for (int run = 0; run < 400 && secondsNow() < limit; ++run) {
        Process tool = startTool(arguments);
        // Spinning hits a microsecond, sleeping doesn't.
        double const end = secondsNow() + moment(generator);
        while (secondsNow() < end)
            ;
        tool.signal(SIGTERM);
        RunResult const result = tool.finish();
        Bytes const segment = client.segment();
        ASSERT_EQ(segment.at(0), 0) << "lock byte left set in run " << run;
        bool const isStored = segment == after;
        ASSERT_TRUE(isStored || sameBytes(before.bytes(), segment))
            << "half a message in run " << run;
        if (result.endedBySignal == 0) {
            expectOutput(result, storedOutput);
            EXPECT_TRUE(isStored);
            ++completed;
        } else {
            ASSERT_EQ(result.endedBySignal, SIGTERM);
            ++terminated;
        }
        ASSERT_EQ(result.errors, "");
        stored += isStored;
        client.fill(before);
    }
    EXPECT_EQ(clientSegmentAttachCount(), 1);
    EXPECT_GT(terminated, 0);
    RecordProperty("terminated", terminated);
    RecordProperty("completed", completed);
    RecordProperty("stored", stored);
}
