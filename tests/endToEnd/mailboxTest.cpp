// What the tool makes of the client's record: its size, its format markers, and its queue.
#include "tests/endToEnd/clientSegment.h"
#include "tests/endToEnd/process.h"
#include "tests/endToEnd/toolText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

using namespace endToEnd;

namespace {

// One byte, found by its place in the record.
unsigned char recordByte(Bytes const& segment, std::size_t offset)
{
    return segment.at(prefixSize + offset);
}

void expectRefused(Mailbox const& mailbox, std::string const& output)
{
    ClientHolder client(mailbox);
    expectOutput(runTool({"abort"}), output);
    EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
}

void expectAccepted(Mailbox mailbox)
{
    ClientHolder client(mailbox);
    expectOutput(runTool({"enable"}), storedOutput);
    EXPECT_TRUE(sameBytes(mailbox.message(2, 2).bytes(), client.segment()));
}

} // namespace

TEST(MailboxSize, OneByteShortIsRefused)
{
    expectRefused(Mailbox(22987), wrongSizeOutput("22987"));
}

TEST(MailboxSize, TheRecordItselfAndAnythingLargerPasses)
{
    for (std::size_t const size : {22988u, 22989u, 23000u, 65536u, 1000000u}) {
        SCOPED_TRACE(size);
        expectAccepted(Mailbox(size));
    }
}

// The size told leaves out the prefix, also where the segment is shorter than the prefix.
TEST(MailboxSize, TinySegments)
{
    struct Row
    {
        std::size_t segmentSize;
        std::string shown;
    };
    for (Row const& row : std::vector<Row>{
             {1, "-7"}, {7, "-1"}, {8, "0"}, {9, "1"}, {4096, "4088"}, {22988, "22980"}}) {
        SCOPED_TRACE(row.segmentSize);
        ClientHolder client = ClientHolder::ofSegmentSize(row.segmentSize);
        ASSERT_EQ(client.refusal(), "");
        expectOutput(runTool({"abort"}), wrongSizeOutput(row.shown));
        EXPECT_EQ(client.segment(), Bytes(row.segmentSize, 0));
    }
}

// The size is kept as a signed 32-bit number, so a segment beyond that shows what is left of it.
TEST(MailboxSize, SizesBeyond32BitsAreCut)
{
    struct Row
    {
        std::size_t segmentSize;
        std::string shown;
    };
    for (Row const& row : std::vector<Row>{{(std::size_t{1} << 32) + 100, "92"},
                                           {(std::size_t{1} << 32) + 22995, "22987"},
                                           {std::size_t{0xF0000000}, "-268435464"}}) {
        SCOPED_TRACE(row.segmentSize);
        ClientHolder client = ClientHolder::ofSegmentSize(row.segmentSize);
        // Not every machine allows a segment of this size, even an empty one.
        if (client.refusal().empty())
            expectOutput(runTool({"abort"}), wrongSizeOutput(row.shown));
        else
            RecordProperty("sizeNotTried", client.refusal());
    }
}

// A size that doesn't fit is found before anything else is looked at, the lock included.
TEST(MailboxSize, IsJudgedBeforeTheLock)
{
    expectRefused(Mailbox(22987).lockByte(1).recordMarker(0), wrongSizeOutput("22987"));
    ClientHolder client(Mailbox(100).lockByte(1));
    EXPECT_LT(runTool({"abort"}).seconds, 2.0);
}

TEST(MailboxFormat, RecordMarker)
{
    expectRefused(Mailbox().recordMarker(0), wrongFormatOutput("0", "3077", "1"));
    expectRefused(Mailbox().recordMarker(516), wrongFormatOutput("516", "3077", "1"));
    expectRefused(Mailbox().recordMarker(518), wrongFormatOutput("518", "3077", "1"));
    // All 32 bits count.
    expectRefused(Mailbox().recordMarker(517 + 0x10000), wrongFormatOutput("66053", "3077", "1"));
    expectRefused(Mailbox().recordMarker(517 + 0x1000000),
                  wrongFormatOutput("16777733", "3077", "1"));
    // Compared as an unsigned number, printed as a signed one.
    expectRefused(Mailbox().recordMarker(0x7FFFFFFF), wrongFormatOutput("2147483647", "3077", "1"));
    expectRefused(Mailbox().recordMarker(0x80000000),
                  wrongFormatOutput("-2147483648", "3077", "1"));
    expectRefused(Mailbox().recordMarker(0xFFFFFFFF), wrongFormatOutput("-1", "3077", "1"));
}

TEST(MailboxFormat, StateMarker)
{
    expectRefused(Mailbox().stateMarker(0), wrongFormatOutput("517", "0", "1"));
    expectRefused(Mailbox().stateMarker(3076), wrongFormatOutput("517", "3076", "1"));
    expectRefused(Mailbox().stateMarker(3078), wrongFormatOutput("517", "3078", "1"));
    expectRefused(Mailbox().stateMarker(3077 & 0xFF), wrongFormatOutput("517", "5", "1"));
    // Sixteen bits without a sign.
    expectRefused(Mailbox().stateMarker(0xFFFF), wrongFormatOutput("517", "65535", "1"));
}

TEST(MailboxFormat, StateFlagZeroIsRefused)
{
    expectRefused(Mailbox().stateFlag(0), wrongFormatOutput("517", "3077", "0"));
}

TEST(MailboxFormat, AnyOtherStateFlagPasses)
{
    for (unsigned int const flag : {1u, 2u, 256u, 32768u, 65535u}) {
        SCOPED_TRACE(flag);
        expectAccepted(Mailbox().stateFlag(static_cast<std::uint16_t>(flag)));
    }
}

// All three pairs are shown, whichever failed.
TEST(MailboxFormat, SeveralWrongAtOnce)
{
    expectRefused(Mailbox().recordMarker(3).stateMarker(2).stateFlag(0),
                  wrongFormatOutput("3", "2", "0"));
    expectRefused(Mailbox().recordMarker(0).stateMarker(0).stateFlag(0),
                  wrongFormatOutput("0", "0", "0"));
    expectRefused(Mailbox().recordMarker(1).stateMarker(2), wrongFormatOutput("1", "2", "1"));
    expectRefused(Mailbox().stateMarker(1).stateFlag(65535),
                  wrongFormatOutput("517", "1", "65535"));
    expectRefused(Mailbox().recordMarker(0xFFFFFFFF).stateMarker(65535).stateFlag(65535),
                  wrongFormatOutput("-1", "65535", "65535"));
}

// A client that has made its segment and not yet written to it is no client yet.
TEST(MailboxFormat, FreshSegmentOfZeros)
{
    ClientHolder client(Bytes(prefixSize + clientRecordSize, 0));
    expectOutput(runTool({"abort"}), wrongFormatOutput("0", "0", "0"));
    EXPECT_EQ(client.segment(), Bytes(prefixSize + clientRecordSize, 0));
}

// The format is looked at first: a record of another build has no queue to speak of.
TEST(MailboxFormat, IsJudgedBeforeTheQueue)
{
    expectRefused(Mailbox().stateFlag(0).messageCount(30), wrongFormatOutput("517", "3077", "0"));
}

TEST(MailboxQueue, FirstEntryByOffset)
{
    ClientHolder client{Mailbox()};
    Bytes const before = client.segment();
    expectOutput(runTool({"EventFrameDone", "4660"}), storedOutput);
    Bytes const after = client.segment();
    EXPECT_EQ(recordByte(after, 2001), 1);
    EXPECT_EQ(recordByte(after, 2002), 2);
    EXPECT_EQ(recordByte(after, 2032), 5);
    EXPECT_EQ(recordByte(after, 2062), 0x34);
    EXPECT_EQ(recordByte(after, 2063), 0x12);
    Bytes expected = before;
    for (std::size_t const offset : {2001u, 2002u, 2032u, 2062u, 2063u})
        expected[prefixSize + offset] = after[prefixSize + offset];
    EXPECT_TRUE(sameBytes(expected, after));
}

TEST(MailboxQueue, LastEntryByOffset)
{
    ClientHolder client{Mailbox().messageCount(29)};
    Bytes const before = client.segment();
    expectOutput(runTool({"EventFrameDone", "65535"}), storedOutput);
    Bytes const after = client.segment();
    EXPECT_EQ(recordByte(after, 2001), 30);
    EXPECT_EQ(recordByte(after, 2031), 2);
    EXPECT_EQ(recordByte(after, 2061), 5);
    EXPECT_EQ(recordByte(after, 2120), 0xFF);
    EXPECT_EQ(recordByte(after, 2121), 0xFF);
    Bytes expected = before;
    for (std::size_t const offset : {2001u, 2031u, 2061u, 2120u, 2121u})
        expected[prefixSize + offset] = after[prefixSize + offset];
    EXPECT_TRUE(sameBytes(expected, after));
}

TEST(MailboxQueue, CountsWithRoom)
{
    for (unsigned int const count : {0u, 1u, 2u, 15u, 28u, 29u}) {
        SCOPED_TRACE(count);
        expectAccepted(Mailbox().messageCount(static_cast<unsigned char>(count)));
    }
}

// The count is a byte without a sign: 128 and above are full queues and not empty ones.
TEST(MailboxQueue, FullFrom30To255)
{
    for (unsigned int const count : {30u, 31u, 32u, 127u, 128u, 129u, 254u, 255u}) {
        SCOPED_TRACE(count);
        expectRefused(Mailbox().messageCount(static_cast<unsigned char>(count)), queueFullOutput);
    }
}

TEST(MailboxQueue, ASecondRunAddsASecondEntry)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    expectOutput(runTool({"abort"}), storedOutput);
    expectOutput(runTool({"abort"}), storedOutput);
    EXPECT_TRUE(sameBytes(mailbox.message(2, 1).message(2, 1).bytes(), client.segment()));
}

TEST(MailboxQueue, TwoWordsForTheOneCode)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    expectOutput(runTool({"restart"}), storedOutput);
    expectOutput(runTool({"RestartClientExe"}), storedOutput);
    EXPECT_TRUE(sameBytes(mailbox.message(2, 8).message(2, 8).bytes(), client.segment()));
}

TEST(MailboxQueue, FillsUpAndThenRefuses)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    for (std::uint16_t number = 1; number <= 30; ++number) {
        auto const value = static_cast<std::uint16_t>(number * 1000);
        expectOutput(runTool({"EventFrameDone", std::to_string(value)}), storedOutput);
        mailbox.message(5, value);
        ASSERT_TRUE(sameBytes(mailbox.bytes(), client.segment())) << "after message " << number;
    }
    for (int again = 0; again < 3; ++again) {
        expectOutput(runTool({"abort"}), queueFullOutput);
        ASSERT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
    }
}

// Room made by the client is used again, from where its count says.
TEST(MailboxQueue, GoesOnAfterTheClientHasDrained)
{
    Mailbox mailbox;
    mailbox.messageCount(30);
    ClientHolder client(mailbox);
    expectOutput(runTool({"abort"}), queueFullOutput);
    client.fill(mailbox.messageCount(0));
    expectOutput(runTool({"disable"}), storedOutput);
    EXPECT_TRUE(sameBytes(mailbox.message(2, 3).bytes(), client.segment()));
}
