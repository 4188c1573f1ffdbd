// A standard output that takes nothing. The text is lost then, and nothing else: the command is in
// the queue, the lock is free, the status is 0.
#include "tests/endToEnd/clientSegment.h"
#include "tests/endToEnd/process.h"
#include "tests/endToEnd/toolText.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace endToEnd;

namespace {

RunOptions with(StandardOutput output, int ignoredSignal = 0)
{
    RunOptions options;
    options.output = output;
    options.ignoredSignal = ignoredSignal;
    return options;
}

void expectStoredInSilence(RunOptions const& options)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    expectOutput(runTool({"abort"}, options), "");
    EXPECT_TRUE(sameBytes(mailbox.message(2, 1).bytes(), client.segment()));
    EXPECT_EQ(clientSegmentAttachCount(), 1);
}

void expectRefusedInSilence(RunOptions const& options)
{
    for (Mailbox const& mailbox :
         {Mailbox(22987), Mailbox().stateFlag(0), Mailbox().messageCount(30)}) {
        ClientHolder client(mailbox);
        expectOutput(runTool({"abort"}, options), "");
        EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
    }
    expectOutput(runTool({"abort"}, options), "");
    expectOutput(runTool({"nonsense"}, options), "");
    expectOutput(runTool({}, options), "");
}

} // namespace

TEST(Output, Closed)
{
    expectStoredInSilence(with(StandardOutput::closed));
    expectRefusedInSilence(with(StandardOutput::closed));
}

TEST(Output, DeviceFull)
{
    expectStoredInSilence(with(StandardOutput::fullDevice));
    expectRefusedInSilence(with(StandardOutput::fullDevice));
}

TEST(Output, PipeWithoutReaderAndSignalIgnored)
{
    expectStoredInSilence(with(StandardOutput::pipeWithoutReader, SIGPIPE));
    expectRefusedInSilence(with(StandardOutput::pipeWithoutReader, SIGPIPE));
}

// The signal of the broken pipe may end the tool, as it ends any program, but never with the lock
// taken or the entry half written.
TEST(Output, PipeWithoutReader)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    RunResult const run = runTool({"abort"}, with(StandardOutput::pipeWithoutReader));
    EXPECT_TRUE(run.status == 0 || run.endedBySignal == SIGPIPE);
    EXPECT_EQ(run.errors, "");
    EXPECT_TRUE(sameBytes(mailbox.message(2, 1).bytes(), client.segment()));
    EXPECT_EQ(clientSegmentAttachCount(), 1);
}

// A reader that has stopped reading, a pager say, may hold up the tool, but not the client: text is
// kept back until the lock is free and the segment left.
TEST(Output, ReaderThatDoesNotReadStopsNoClient)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    Process tool = startTool({"abort"}, with(StandardOutput::fullPipe));
    Bytes const expected = mailbox.message(2, 1).bytes();
    double const limit = secondsNow() + 5;
    while (client.segment() != expected && secondsNow() < limit)
        nap(0.001);
    EXPECT_TRUE(sameBytes(expected, client.segment()));
    // It waits to get its text away, and does so outside.
    nap(0.1);
    EXPECT_EQ(clientSegmentAttachCount(), 1);
    EXPECT_FALSE(tool.hasEnded());
    expectOutput(tool.finish(), storedOutput);
    EXPECT_TRUE(sameBytes(expected, client.segment()));
}

TEST(Output, Terminal)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    RunOptions const onTerminal = with(StandardOutput::terminal);
    expectOutput(runTool({"abort"}, onTerminal), storedOutput);
    EXPECT_TRUE(sameBytes(mailbox.message(2, 1).bytes(), client.segment()));

    client.fill(Mailbox().messageCount(30));
    expectOutput(runTool({"abort"}, onTerminal), queueFullOutput);
    client.fill(Mailbox().stateFlag(0));
    expectOutput(runTool({"abort"}, onTerminal), wrongFormatOutput("517", "3077", "0"));
    EXPECT_EQ(client.lockByte(), 0);
    expectOutput(runTool({}, onTerminal), usageOutput);
}

// What was said before the wait for the lock is to be seen during it.
TEST(Output, TerminalShowsTheBannerDuringTheWait)
{
    Mailbox mailbox;
    ClientHolder client(mailbox.lockByte(1));
    Process tool = startTool({"abort"}, with(StandardOutput::terminal));
    EXPECT_TRUE(tool.waitForOutput(banner, 5));
    nap(0.1);
    EXPECT_EQ(tool.outputSoFar(), banner);
    EXPECT_FALSE(tool.hasEnded());
    client.setLockByte(0);
    expectOutput(tool.finish(), storedOutput);
    EXPECT_TRUE(sameBytes(mailbox.lockByte(0).message(2, 1).bytes(), client.segment()));
}

// A user who presses ^S stops the tool, but not the client: it waits ahead of the segment, and a
// signal ends it there.
TEST(Output, StoppedTerminalKeepsTheToolAwayFromTheClient)
{
    Mailbox const mailbox;
    ClientHolder client(mailbox);
    Process tool = startTool({"abort"}, with(StandardOutput::stoppedTerminal));
    nap(0.3);
    EXPECT_FALSE(tool.hasEnded());
    EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
    EXPECT_EQ(clientSegmentAttachCount(), 1);
    tool.signal(SIGINT);
    EXPECT_EQ(tool.finish().endedBySignal, SIGINT);
    EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
}

// One that is stopped during the wait holds up the words alone: the entry is stored, the lock free,
// the segment left.
TEST(Output, TerminalStoppedDuringTheWaitStopsNoClient)
{
    for (bool const continues : {true, false}) {
        Mailbox mailbox;
        ClientHolder client(mailbox.lockByte(1));
        Process tool = startTool({"abort"}, with(StandardOutput::terminal));
        ASSERT_TRUE(tool.waitForOutput(banner, 5));
        tool.stopTerminal();
        client.setLockByte(0);
        Bytes const expected = mailbox.lockByte(0).message(2, 1).bytes();
        double const limit = secondsNow() + 5;
        while ((client.segment() != expected || clientSegmentAttachCount() != 1) &&
               secondsNow() < limit)
            nap(0.001);
        EXPECT_TRUE(sameBytes(expected, client.segment()));
        EXPECT_EQ(clientSegmentAttachCount(), 1);
        nap(0.1);
        EXPECT_FALSE(tool.hasEnded());
        if (continues) {
            tool.continueTerminal();
            expectOutput(tool.finish(), storedOutput);
        } else {
            tool.signal(SIGINT);
            EXPECT_EQ(tool.finish().endedBySignal, SIGINT);
        }
    }
}
