// What the fronts of the tool are told of a message: scripts see it as a status and in JSON.
#include "sender/sendMessage.h"

#include "tests/endToEnd/clientSegment.h"
#include "tests/fuzz/stagedTool.h"
#include "tests/usedStack.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <optional>
#include <string>
#include <vector>

namespace {

using endToEnd::Mailbox;
using qvTest::SenderScene;
using Kind = Outcome::Kind;

SenderScene sceneOf(Mailbox const& mailbox)
{
    SenderScene scene;
    scene.segment = mailbox.bytes();
    scene.sizeTold = scene.segment.size();
    scene.attachedToldOnLeaving = 1;
    scene.systemText = "the system's words";
    return scene;
}

/// What is told, the same whatever the stack held. A number, fields and a reason are told only of
/// the outcomes that have them.
Outcome sent(SenderScene const& scene)
{
    std::optional<Outcome> outcome;
    for (char const left : {'\xA5', '\0', '\x5A'}) {
        useStack(left);
        outcome = qvTest::sendInScene(scene, {ClientMessageType{2}, 1});
        if (!outcome) {
            ADD_FAILURE() << "not sent";
            return {Kind::usage, "not sent"};
        }
        auto const kind = outcome->kind;
        bool const hasReason = kind != Kind::stored && kind != Kind::queueFull &&
                               kind != Kind::wrongSize && kind != Kind::wrongFormat;
        EXPECT_EQ(outcome->reason.hasData(), hasReason);
        EXPECT_EQ(outcome->size != 0, kind == Kind::wrongSize);
        bool const hasFields = outcome->format.recordMarker != 0 ||
                               outcome->format.stateMarker != 0 || outcome->format.stateFlag != 0;
        EXPECT_EQ(hasFields, kind == Kind::wrongFormat);
    }
    return *outcome;
}

} // namespace

TEST(SendMessage, tellsWhyAttachingFailed)
{
    struct Row
    {
        SenderScene::Refusal SenderScene::*call;
        int error;
        Kind kind;
        std::string reason;
    };
    for (Row const& row : std::vector<Row>{
             {&SenderScene::lookUp, ENOENT, Kind::noSegment, "Shared Memory does not exist."},
             {&SenderScene::lookUp, EINVAL, Kind::attachFailed,
              "Shared Memory already exist, but size does not match."},
             {&SenderScene::lookUp, EACCES, Kind::noRight, "shmget: the system's words"},
             // The class's own code for a missing segment is this number.
             {&SenderScene::lookUp, EIO, Kind::attachFailed, "shmget: the system's words"},
             {&SenderScene::lookUp, ENFILE, Kind::attachFailed, "shmget: the system's words"},
             {&SenderScene::mapping, EACCES, Kind::noRight, "attach (shmat): the system's words"},
             {&SenderScene::mapping, ENOMEM, Kind::attachFailed,
              "attach (shmat): the system's words"},
         }) {
        SCOPED_TRACE(row.reason);
        SenderScene scene = sceneOf(Mailbox());
        scene.*row.call = row.error;
        Outcome const outcome = sent(scene);
        EXPECT_EQ(outcome.kind, row.kind);
        EXPECT_EQ(std::string(outcome.reason.asChar()), row.reason);
    }
}

TEST(SendMessage, tellsWhatCameOfTheRecord)
{
    EXPECT_EQ(sent(sceneOf(Mailbox())).kind, Kind::stored);
    EXPECT_EQ(sent(sceneOf(Mailbox().messageCount(29))).kind, Kind::stored);
    EXPECT_EQ(sent(sceneOf(Mailbox().messageCount(30))).kind, Kind::queueFull);

    Outcome const locked = sent(sceneOf(Mailbox().lockByte(1)));
    EXPECT_EQ(locked.kind, Kind::lockFailed);
    EXPECT_TRUE(locked.reason.hasData());

    SenderScene scene = sceneOf(Mailbox());
    scene.sizeTold = 100;
    Outcome const small = sent(scene);
    EXPECT_EQ(small.kind, Kind::wrongSize);
    EXPECT_EQ(small.size, 92);

    scene = sceneOf(Mailbox());
    scene.mappedAtNull = true;
    EXPECT_EQ(sent(scene).kind, Kind::accessFailed);
}

TEST(SendMessage, tellsAllFieldsOfAnotherFormat)
{
    Outcome const outcome =
        sent(sceneOf(Mailbox().recordMarker(0x01020304).stateMarker(0x0506).stateFlag(0)));
    EXPECT_EQ(outcome.kind, Kind::wrongFormat);
    EXPECT_EQ(outcome.format.recordMarker, 0x01020304u);
    EXPECT_EQ(outcome.format.stateMarker, 0x0506);
    EXPECT_EQ(outcome.format.stateFlag, 0);
}
