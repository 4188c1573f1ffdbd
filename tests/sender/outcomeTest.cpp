// What scripts are told of each outcome. No run comes to all of them: a record without an address
// is one that no system plays.
#include "sender/outcome.h"

#include "sender/outputText.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

using Kind = Outcome::Kind;
using Row = std::tuple<std::string, int, std::string>;

Row row(Kind kind)
{
    OutcomeRow const& found = rowOf(kind);
    return {found.name, found.status, found.sentence};
}

} // namespace

TEST(OutcomeTest, hasItsNameStatusAndSentence)
{
    EXPECT_EQ(row(Kind::stored), Row("stored", 0, "the command is in the queue"));
    EXPECT_EQ(row(Kind::usage), Row("usage", 1, "there is no command"));
    EXPECT_EQ(row(Kind::unknownCommand), Row("unknownCommand", 1, "the command is not known"));
    EXPECT_EQ(row(Kind::noSegment), Row("noSegment", 2, "no client runs here"));
    EXPECT_EQ(row(Kind::noRight), Row("noRight", 2, "this user may not send to the client"));
    EXPECT_EQ(row(Kind::attachFailed),
              Row("attachFailed", 6, "the client's segment cannot be attached"));
    EXPECT_EQ(row(Kind::clientDead), Row("clientDead", 2, "the client is dead"));
    EXPECT_EQ(row(Kind::wrongSize), Row("wrongSize", 3, "the record has another size"));
    EXPECT_EQ(row(Kind::accessFailed), Row("accessFailed", 6, "the record cannot be reached"));
    EXPECT_EQ(row(Kind::lockFailed), Row("lockFailed", 4, "the lock stayed taken"));
    EXPECT_EQ(row(Kind::wrongFormat), Row("wrongFormat", 3, "the record has another format"));
    EXPECT_EQ(row(Kind::queueFull), Row("queueFull", 5, "the queue is full"));
}

TEST(OutcomeTest, recordWithoutAddressHasItsText)
{
    OutputText text;
    add(text, {Kind::accessFailed, "Not attached."});
    EXPECT_EQ(text.pending(), " 8.3.05++++ Unable to access shared memory data! Not attached.\n");
}
