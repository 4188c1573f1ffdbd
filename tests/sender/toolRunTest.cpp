// Whole runs of the tool in scenes that no real system plays on demand: which calls it makes, in
// which order, what it says of the answers, and what it leaves in the segment.

#include "tests/endToEnd/clientSegment.h"
#include "tests/endToEnd/toolText.h"
#include "tests/fuzz/stagedTool.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using endToEnd::Mailbox;
using endToEnd::sameBytes;
using qvTest::runTool;
using qvTest::SenderRun;
using qvTest::SenderScene;

using Steps = std::vector<std::string>;

std::string const find = "shmget(0x4EFCFF, 0, 0x1B0)";
std::string const map = "shmat(7, null, 0)";
std::string const measure = "shmctl(7, IPC_STAT)";
std::string const unmap = "shmdt(base)";
std::string const findAgain = "shmget(0x4EFCFF, 0, 0x124)";
std::string const countAttached = "shmctl(8, IPC_STAT)";
std::string const removeSegment = "shmctl(8, IPC_RMID)";
std::string const writeOut = "write";

// "abort" on a machine whose client is attached and whose system grants every call.
SenderScene sceneWith(Mailbox const& mailbox)
{
    SenderScene scene;
    scene.arguments = {"qvNodeDispatch", "abort"};
    scene.segment = mailbox.bytes();
    scene.sizeTold = scene.segment.size();
    scene.attachedToldOnLeaving = 1;
    return scene;
}

// The output of a failure, whose message runs straight on from the version.
std::string failed(std::string const& message)
{
    return endToEnd::banner + endToEnd::versionText + message;
}

// A status other than 0 would be one more step.
void expectRun(SenderScene const& scene, Steps const& steps, std::string const& output,
               Mailbox const& left)
{
    SenderRun const run = runTool(scene);
    EXPECT_EQ(run.steps, steps);
    EXPECT_EQ(run.output, output);
    EXPECT_TRUE(sameBytes(left.bytes(), run.segment));
}

} // namespace

// A program may be started without its own name; a recent system puts an empty one there.
TEST(ToolRun, TouchesNoSegmentWithoutAWord)
{
    for (std::vector<std::string> const& arguments :
         {std::vector<std::string>{}, {"qvNodeDispatch"}}) {
        SenderScene scene = sceneWith(Mailbox());
        scene.arguments = arguments;
        expectRun(scene, {writeOut}, endToEnd::usageOutput, Mailbox());
    }
}

TEST(ToolRun, TouchesNoSegmentForAnUnknownCommand)
{
    SenderScene scene = sceneWith(Mailbox());
    scene.arguments = {"qvNodeDispatch", "-nonsense"};
    expectRun(scene, {writeOut}, endToEnd::unknownOutput("nonsense"), Mailbox());
    scene.arguments = {"qvNodeDispatch", "EventFrameDone", "65536"};
    expectRun(scene, {writeOut}, endToEnd::unknownOutput("65536"), Mailbox());
}

// The text is written when the segment is left, in one go: nobody who reads it holds up the client.
TEST(ToolRun, WritesNothingBeforeItHasLeft)
{
    Steps const steps = {find, map, measure, unmap, findAgain, countAttached, writeOut};
    expectRun(sceneWith(Mailbox()), steps, endToEnd::storedOutput, Mailbox().message(2, 1));

    Mailbox const full = Mailbox().messageCount(30);
    expectRun(sceneWith(full), steps, endToEnd::queueFullOutput, full);

    Mailbox const otherFormat = Mailbox().stateMarker(3076);
    expectRun(sceneWith(otherFormat), steps, endToEnd::wrongFormatOutput("517", "3076", "1"),
              otherFormat);
}

// On a terminal the banner is to be seen before the wait for the lock, and before anything that a
// stopped terminal could hold up.
TEST(ToolRun, ShowsTheBannerOnATerminalBeforeItEnters)
{
    SenderScene scene = sceneWith(Mailbox());
    scene.onTerminal = true;
    expectRun(scene, {writeOut, find, map, measure, unmap, findAgain, countAttached, writeOut},
              endToEnd::storedOutput, Mailbox().message(2, 1));
    scene.arguments = {"qvNodeDispatch", "nonsense"};
    expectRun(scene, {writeOut}, endToEnd::unknownOutput("nonsense"), Mailbox());
    scene.arguments = {"qvNodeDispatch"};
    expectRun(scene, {writeOut}, endToEnd::usageOutput, Mailbox());
}

TEST(ToolRun, RemovesTheSegmentAsTheLastOneOut)
{
    SenderScene scene = sceneWith(Mailbox());
    scene.attachedToldOnLeaving = 0;
    expectRun(scene, {find, map, measure, unmap, findAgain, countAttached, removeSegment, writeOut},
              endToEnd::storedOutput, Mailbox().message(2, 1));
}

TEST(ToolRun, GivesUpAfter25SleepsAndLeavesTheLockTaken)
{
    Mailbox const taken = Mailbox().lockByte(1);
    Steps steps = {find, map, measure};
    steps.insert(steps.end(), 25, "usleep(100000)");
    steps.insert(steps.end(), {unmap, findAgain, countAttached, writeOut});
    expectRun(sceneWith(taken), steps, endToEnd::noLockOutput, taken);
}

// The size is judged as the segment class tells it, a signed number of 32 bits, whatever sizes the
// machine at hand would grant. The lock isn't touched for it.
TEST(ToolRun, JudgesTheSizeInSigned32Bits)
{
    struct Row
    {
        std::uint64_t sizeTold;
        char const* shown;
    };
    constexpr std::uint64_t turn = std::uint64_t{1} << 32;
    for (Row const& row : {Row{0, "-8"}, Row{22995, "22987"}, Row{0xF0000000, "-268435464"},
                           Row{turn + 100, "92"}, Row{turn + 22995, "22987"}}) {
        SCOPED_TRACE(row.sizeTold);
        SenderScene scene = sceneWith(Mailbox());
        scene.sizeTold = row.sizeTold;
        expectRun(scene, {find, map, measure, unmap, findAgain, countAttached, writeOut},
                  endToEnd::wrongSizeOutput(row.shown), Mailbox());
    }
    for (std::uint64_t const size : {std::uint64_t{0x7FFFFFFF}, turn + 22996}) {
        SCOPED_TRACE(size);
        SenderScene scene = sceneWith(Mailbox());
        scene.sizeTold = size;
        EXPECT_EQ(runTool(scene).output, endToEnd::storedOutput);
    }
}

// A mapping at address null is no record, and there is nothing to unmap.
TEST(ToolRun, TellsThatThereIsNoAddress)
{
    SenderScene scene = sceneWith(Mailbox().lockByte(1));
    scene.mappedAtNull = true;
    expectRun(scene, {find, map, measure, findAgain, countAttached, writeOut},
              failed("++++ Unable to access shared memory data! Not attached.\n"),
              Mailbox().lockByte(1));
}

// The size is judged ahead of the address.
TEST(ToolRun, TellsAWrongSizeThoughThereIsNoAddress)
{
    SenderScene scene = sceneWith(Mailbox());
    scene.mappedAtNull = true;
    scene.sizeTold = 22995;
    EXPECT_EQ(runTool(scene).output, endToEnd::wrongSizeOutput("22987"));
}

TEST(ToolRun, TellsWhichCallOfAttachingFailed)
{
    struct Row
    {
        SenderScene::Refusal SenderScene::*call;
        int error;
        Steps steps;
        char const* reason;
    };
    for (Row const& row : std::vector<Row>{
             {&SenderScene::lookUp,
              ENOENT,
              {find, findAgain, countAttached},
              "Shared Memory does not exist."},
             {&SenderScene::lookUp,
              EINVAL,
              {find, findAgain, countAttached},
              "Shared Memory already exist, but size does not match."},
             {&SenderScene::lookUp,
              EACCES,
              {find, findAgain, countAttached},
              "shmget: the system's words"},
             {&SenderScene::mapping,
              EINVAL,
              {find, map, findAgain, countAttached},
              "attach (shmat): the system's words"},
             {&SenderScene::sizeQuery,
              EINVAL,
              {find, map, measure, unmap, findAgain, countAttached},
              "size query failed (shmctl): the system's words"},
         }) {
        SCOPED_TRACE(row.reason);
        SenderScene scene = sceneWith(Mailbox());
        scene.systemText = "the system's words";
        scene.*row.call = row.error;
        Steps steps = row.steps;
        steps.push_back(writeOut);
        expectRun(scene, steps,
                  failed(std::string("++++ Unable to attach shared memory! ") + row.reason + "\n"),
                  Mailbox());
    }
}

TEST(ToolRun, SaysNothingOfWhatFailsOnLeaving)
{
    for (auto const call : {&SenderScene::unmapping, &SenderScene::lookUpOnLeaving,
                            &SenderScene::attachedQuery, &SenderScene::removal}) {
        for (int const error : {EINVAL, EACCES}) {
            SenderScene scene = sceneWith(Mailbox());
            scene.attachedToldOnLeaving = 0;
            scene.systemText = "not to be seen";
            scene.*call = error;
            SenderRun const run = runTool(scene);
            EXPECT_EQ(run.output, endToEnd::storedOutput);
            EXPECT_TRUE(sameBytes(Mailbox().message(2, 1).bytes(), run.segment));
            EXPECT_NE(run.steps.back(), "a status that is not 0");
        }
    }
}

// A failure's message is the format itself, so what the system says is read as one.
TEST(ToolRun, ReadsTheSystemsTextAsAFormat)
{
    SenderScene scene = sceneWith(Mailbox());
    scene.lookUp = ENOMEM;
    scene.systemText = "100%% full, %%d";
    EXPECT_EQ(runTool(scene).output,
              failed("++++ Unable to attach shared memory! shmget: 100% full, %d\n"));
}

TEST(ToolRun, PutsTheSystemsTextOnOneLine)
{
    SenderScene scene = sceneWith(Mailbox());
    scene.lookUp = ENOMEM;
    scene.systemText = "two\r\nlines\n";
    EXPECT_EQ(runTool(scene).output,
              failed("++++ Unable to attach shared memory! shmget: two  lines \n"));
}

// 45 characters stand ahead of the system's text. A message of 250 is cut there, and the newline is
// what is cut first.
TEST(ToolRun, EndsAMessageOf250CharactersWithoutANewline)
{
    struct Row
    {
        std::size_t textLength;
        std::string printed;
    };
    for (Row const& row : {
             Row{203, std::string(203, 'x') + "\n"},
             Row{204, std::string(204, 'x') + "\n"},
             Row{205, std::string(205, 'x')},
             Row{206, std::string(205, 'x')},
             Row{249, std::string(205, 'x')},
         }) {
        SCOPED_TRACE(row.textLength);
        SenderScene scene = sceneWith(Mailbox());
        scene.lookUp = ENOMEM;
        scene.systemText = std::string(row.textLength, 'x');
        EXPECT_EQ(runTool(scene).output,
                  failed("++++ Unable to attach shared memory! shmget: " + row.printed));
    }
}
