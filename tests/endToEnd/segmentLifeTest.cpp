// How the tool finds the client's segment, and in what state it leaves it behind.
#include "tests/endToEnd/clientSegment.h"
#include "tests/endToEnd/process.h"
#include "tests/endToEnd/toolText.h"

#include <gtest/gtest.h>

#include <string>
#include <sys/shm.h>
#include <vector>

using namespace endToEnd;

namespace {

// All segments there are, under whatever key.
int segmentsInTheSystem()
{
    shm_info info{};
    // This query answers through a structure other than the one its prototype names.
    if (shmctl(0, SHM_INFO, reinterpret_cast<shmid_ds*>(&info)) < 0)
        return -1;
    return info.used_ids;
}

RunOptions const withoutPrivilege = [] {
    RunOptions options;
    options.withoutSegmentPrivilege = true;
    return options;
}();

} // namespace

TEST(SegmentLife, NoSegment)
{
    ASSERT_FALSE(clientSegmentExists());
    expectOutput(runTool({"abort"}), noSegmentOutput);
    expectOutput(runTool({"-EventFrameDone", "7"}), noSegmentOutput);
}

TEST(SegmentLife, NothingIsCreated)
{
    int const before = segmentsInTheSystem();
    for (std::string const word : {"abort", "checkjob", "nonsense"})
        runTool({word});
    runTool({});
    EXPECT_FALSE(clientSegmentExists());
    EXPECT_EQ(segmentsInTheSystem(), before);
}

TEST(SegmentLife, StaysWhileTheClientIsAttached)
{
    Mailbox const mailbox;
    ClientHolder client(mailbox);
    for (int run = 0; run < 3; ++run) {
        expectOutput(runTool({"abort"}), storedOutput);
        EXPECT_TRUE(clientSegmentExists());
        EXPECT_EQ(clientSegmentAttachCount(), 1);
    }
}

// The last one out removes the segment, with all that is in it.
TEST(SegmentLife, GoesWhenNobodyElseIsAttached)
{
    ClientHolder client{Mailbox()};
    client.leave();
    ASSERT_EQ(clientSegmentAttachCount(), 0);
    expectOutput(runTool({"abort"}), storedOutput);
    EXPECT_FALSE(clientSegmentExists());
    EXPECT_TRUE(client.segment().empty());
    expectOutput(runTool({"abort"}), noSegmentOutput);
}

// Whatever the outcome was, leaving is leaving.
TEST(SegmentLife, GoesAfterEveryRefusalToo)
{
    struct Row
    {
        Mailbox mailbox;
        std::string output;
    };
    for (Row const& row :
         std::vector<Row>{{Mailbox(22987), wrongSizeOutput("22987")},
                          {Mailbox().stateFlag(0), wrongFormatOutput("517", "3077", "0")},
                          {Mailbox().messageCount(30), queueFullOutput}}) {
        ClientHolder client(row.mailbox);
        client.leave();
        expectOutput(runTool({"abort"}), row.output);
        EXPECT_FALSE(clientSegmentExists());
    }
}

TEST(SegmentLife, StaysAfterEveryRefusalWhileTheClientIsAttached)
{
    for (Mailbox const& mailbox :
         {Mailbox(22987), Mailbox().stateFlag(0), Mailbox().messageCount(30)}) {
        ClientHolder client(mailbox);
        runTool({"abort"});
        EXPECT_TRUE(clientSegmentExists());
        EXPECT_EQ(clientSegmentAttachCount(), 1);
        EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
    }
}

// A client that is about to end has given its key back already.
TEST(SegmentLife, KeyGivenBackByTheClientIsNoSegment)
{
    Mailbox const mailbox;
    ClientHolder client(mailbox);
    client.removeKey();
    expectOutput(runTool({"abort"}), noSegmentOutput);
    EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
}

TEST(SegmentLife, ANewSegmentIsFoundUnderTheSameKey)
{
    for (int life = 0; life < 3; ++life) {
        Mailbox mailbox;
        ClientHolder client(mailbox);
        expectOutput(runTool({"abort"}), storedOutput);
        EXPECT_TRUE(sameBytes(mailbox.message(2, 1).bytes(), client.segment()));
    }
    expectOutput(runTool({"abort"}), noSegmentOutput);
}

// Entering asks for reading and writing by owner and group, 0660, and for nothing more.
TEST(SegmentLife, PermissionToReadAndWriteIsEnough)
{
    for (unsigned int const mode : {0660u, 0666u}) {
        SCOPED_TRACE(mode);
        Mailbox mailbox;
        ClientHolder client(mailbox);
        client.setMode(mode);
        expectOutput(runTool({"abort"}, withoutPrivilege), storedOutput);
        EXPECT_TRUE(sameBytes(mailbox.message(2, 1).bytes(), client.segment()));
    }
}

TEST(SegmentLife, NoPermission)
{
    for (unsigned int const mode : {0000u, 0440u, 0444u, 0220u}) {
        SCOPED_TRACE(mode);
        Mailbox const mailbox;
        ClientHolder client(mailbox);
        client.setMode(mode);
        expectOutput(runTool({"abort"}, withoutPrivilege), notPermittedOutput);
        EXPECT_TRUE(clientSegmentExists());
        EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
    }
}

// The rule of the last one out asks for reading only: a segment that is closed to the tool but
// readable, with nobody attached, goes all the same. One that isn't readable either can't even be
// asked how many are attached, and stays.
TEST(SegmentLife, NoPermissionAndNobodyAttached)
{
    struct Row
    {
        unsigned int mode;
        bool stays;
    };
    for (Row const& row : std::vector<Row>{{0444, false}, {0000, true}}) {
        SCOPED_TRACE(row.mode);
        ClientHolder client{Mailbox()};
        client.setMode(row.mode);
        client.leave();
        expectOutput(runTool({"abort"}, withoutPrivilege), notPermittedOutput);
        EXPECT_EQ(clientSegmentExists(), row.stays);
    }
}
