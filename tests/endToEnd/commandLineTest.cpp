// What the tool makes of its arguments: banner, usage, the words, and the number of EventFrameDone.
#include "tests/endToEnd/clientSegment.h"
#include "tests/endToEnd/process.h"
#include "tests/endToEnd/toolText.h"
#include "tests/model/commandWords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

using namespace endToEnd;
using qvTest::Command;
using qvTest::commands;

namespace {

std::string inUpperCase(std::string word)
{
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return word;
}

std::string inLowerCase(std::string word)
{
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return word;
}

// AbOrT: capital and small letters in turn.
std::string inMixedCase(std::string const& word)
{
    std::string mixed = inLowerCase(word);
    std::string const upper = inUpperCase(word);
    for (std::size_t i = 0; i < word.size(); i += 2)
        mixed[i] = upper[i];
    return mixed;
}

std::string shortened(std::string const& argument)
{
    return argument.size() <= 60 ? argument : argument.substr(0, 60) + "...";
}

// An accepted command leaves exactly one more entry, and not one other byte of the segment changes.
void expectStored(ClientHolder& client, std::vector<std::string> const& arguments,
                  unsigned char type, std::uint16_t value)
{
    SCOPED_TRACE("arguments begin with " + shortened(arguments.at(0)) +
                 (arguments.size() > 1 ? " " + shortened(arguments[1]) : ""));
    Mailbox mailbox;
    client.fill(mailbox);
    expectOutput(runTool(arguments), storedOutput);
    EXPECT_TRUE(sameBytes(mailbox.message(type, value).bytes(), client.segment()));
}

void expectUnknown(ClientHolder& client, std::vector<std::string> const& arguments,
                   std::string const& shown)
{
    SCOPED_TRACE("arguments begin with " + shortened(arguments.at(0)) +
                 (arguments.size() > 1 ? " " + shortened(arguments[1]) : ""));
    Mailbox const mailbox;
    client.fill(mailbox);
    expectOutput(runTool(arguments), unknownOutput(shown));
    EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
}

} // namespace

TEST(CommandLine, BannerStandsFirstLetterByLetter)
{
    std::string const line(64, '-');
    EXPECT_EQ(runTool({"nonsense"}).output, line + "\n" + "qvNodeDispatch " + " 8.3.05" + "      " +
                                                "(c) qvNodeDispatch contributors" + "\n" +
                                                "Unknown command nonsense\n");
}

TEST(CommandLine, UsageWithoutArguments)
{
    expectOutput(runTool({}), usageOutput);
}

// A caller may pass no argument at all, not even the program's name.
TEST(CommandLine, UsageWithoutProgramName)
{
    expectOutput(Process::withEmptyArgumentVector(QV_TOOL_PATH).finish(), usageOutput);
}

TEST(CommandLine, EveryWordWithAndWithoutDashInAnyCase)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    for (Command const& command : commands) {
        for (std::string const& word : {command.word, inUpperCase(command.word),
                                        inLowerCase(command.word), inMixedCase(command.word)}) {
            expectStored(client, {word}, command.type, command.value);
            expectStored(client, {"-" + word}, command.type, command.value);
        }
    }
}

// The usage text writes these labels with a capital, and what it shows must work.
TEST(CommandLine, LabelsOfTheUsageTextAreWords)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    expectStored(client, {"-Checkjob"}, 3, 9);
    expectStored(client, {"-Abortdisable"}, 2, 15);
    expectStored(client, {"-Shutdown"}, 2, 28);
    expectStored(client, {"-AbOrT"}, 2, 1);
}

TEST(CommandLine, AllWordsInOneQueue)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    for (Command const& command : commands) {
        expectOutput(runTool({"-" + command.word}), storedOutput);
        mailbox.message(command.type, command.value);
    }
    expectOutput(runTool({"-EventFrameDone", "4660"}), storedOutput);
    mailbox.message(5, 4660);
    EXPECT_EQ(int{mailbox.messageCount()}, 21);
    EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
}

TEST(CommandLine, OtherArgumentsAreIgnored)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    expectStored(client, {"abort", "77"}, 2, 1);
    expectStored(client, {"-checkjob", "enable", "disable"}, 3, 9);
    expectStored(client, {"restart", ""}, 2, 8);
    expectStored(client, {"EventFrameDone", "12", "13", "abort"}, 5, 12);
    expectUnknown(client, {"nonsense", "abort"}, "nonsense");
}

TEST(CommandLine, UnknownWords)
{
    struct Row
    {
        std::string argument;
        std::string shown;
    };
    Mailbox mailbox;
    ClientHolder client(mailbox);
    for (Row const& row : std::vector<Row>{
             {"abor", "abor"},
             {"aborts", "aborts"},
             {"abort ", "abort "},
             {" abort", " abort"},
             {"-nonsense", "nonsense"},
             // One dash goes, the second stays.
             {"--abort", "-abort"},
             {"---", "--"},
             {"--", "-"},
             // Emptying the word leaves the stored dash where it was, and that is what is printed.
             {"-", "-"},
             {"", ""},
             {"- abort", " abort"},
             // Never a format of its own.
             {"%s%n%d", "%s%n%d"},
             {"-%s %x", "%s %x"},
             {"\xC4\xE4", "\xC4\xE4"},
             // Letters of ASCII fold and no other byte does, though it may lie one bit away.
             {"\xE1"
              "bort",
              "\xE1"
              "bort"},
             {"abor\xF4", "abor\xF4"},
             {"abor\x14", "abor\x14"},
             {"None", "None"},
             {"2", "2"},
         })
        expectUnknown(client, {row.argument}, row.shown);
}

TEST(CommandLine, LongWordsAreCutAt250Characters)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    std::string const fits(250, 'x');
    expectUnknown(client, {fits}, fits);
    expectUnknown(client, {fits + "y"}, fits);
    expectUnknown(client, {fits + std::string(5000, 'y')}, fits);
    // The dash takes one of the 250 places and is gone afterwards.
    expectUnknown(client, {"-" + fits}, fits.substr(1));
    expectUnknown(client, {"-" + fits.substr(1)}, fits.substr(1));
    // 250 characters of which the first five spell a word are still 250 characters.
    std::string const longer = "abort" + std::string(245, ' ');
    expectUnknown(client, {longer + "  "}, longer);
}

// The length of an argument is kept in 16 bits.
TEST(CommandLine, LengthOfTheWordCountsModulo65536)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    std::string const round(65536, 'z');
    expectStored(client, {"abort" + round}, 2, 1);
    expectStored(client, {"-abort" + round}, 2, 1);
    expectStored(client, {"CHECKJOB" + round}, 3, 9);
    expectUnknown(client, {round}, "");
    expectUnknown(client, {"abor" + round}, "abor");
    expectUnknown(client, {std::string(65535, 'z')}, std::string(250, 'z'));
}

TEST(CommandLine, EventFrameDoneTakesItsNumberModulo65536)
{
    struct Row
    {
        std::string number;
        std::uint16_t value;
    };
    Mailbox mailbox;
    ClientHolder client(mailbox);
    for (Row const& row : std::vector<Row>{
             {"1", 1},
             {"255", 255},
             {"256", 256},
             {"4660", 4660},
             {"65535", 65535},
             {"65537", 1},
             {"70000", 4464},
             // No dash is taken off the number: it is the sign.
             {"-1", 65535},
             {"-5", 65531},
             {"-70000", 61072},
             {"2147483647", 65535},
             {"12abc", 12},
             {"7.9", 7},
             {"+7", 7},
             {" 42", 42},
             {"\t\n 42", 42},
             {"007", 7},
             {"9 8", 9},
             // 250 characters are read and no more.
             {std::string(249, '0') + "7", 7},
             {std::string(249, '0') + "72", 7},
             // A length of 65537 is a length of 1.
             {"7" + std::string(65536, '5'), 7},
         })
        expectStored(client, {"EventFrameDone", row.number}, 5, row.value);
    expectStored(client, {"-eventframedone", "3"}, 5, 3);
    expectStored(client, {"EVENTFRAMEDONE", "3"}, 5, 3);
    expectStored(client, {"eVeNtFrAmEdOnE", "3"}, 5, 3);
}

// The low 16 bits of a long of 64 bits, which a number that is out of its range comes to the end
// of.
TEST(CommandLine, EventFrameDoneBeyondTheRangeOfInt)
{
    struct Row
    {
        std::string number;
        std::uint16_t value; // 0: unknown
    };
    Mailbox mailbox;
    ClientHolder client(mailbox);
    for (Row const& row : std::vector<Row>{{"2147483648", 0},
                                           {"2147483649", 1},
                                           {"4294967297", 1},
                                           {"-4294967299", 65533},
                                           {"9223372036854775807", 65535},
                                           {"9223372036854775808", 65535},
                                           {"18446744073709551617", 65535},
                                           {"99999999999999999999999", 65535},
                                           {"-9223372036854775807", 1},
                                           {"-9223372036854775808", 0},
                                           {"-18446744073709551617", 0},
                                           {"-99999999999999999999999", 0}}) {
        SCOPED_TRACE(row.number);
        if (row.value != 0)
            expectStored(client, {"EventFrameDone", row.number}, 5, row.value);
        else
            expectUnknown(client, {"EventFrameDone", row.number}, row.number);
    }
}

TEST(CommandLine, EventFrameDoneWithoutAValueIsUnknown)
{
    Mailbox mailbox;
    ClientHolder client(mailbox);
    // Without a number it is the word itself that is read as one, and shown.
    expectUnknown(client, {"EventFrameDone"}, "EventFrameDone");
    expectUnknown(client, {"-EventFrameDone"}, "EventFrameDone");
    expectUnknown(client, {"-eventFRAMEdone"}, "eventFRAMEdone");
    for (std::string const number :
         {"0", "abc", "65536", "131072", "-65536", "-0", "", "-", "--1", "- 1", "0x10", ".5", "%d"})
        expectUnknown(client, {"EventFrameDone", number}, number);

    std::string const zeros(250, '0');
    expectUnknown(client, {"EventFrameDone", zeros + "7"}, zeros);
    expectUnknown(client, {"EventFrameDone", std::string(65536, '7')}, "");
}

// A run that entered this segment would remove it on its way out, since nobody else is attached.
TEST(CommandLine, UsageAndUnknownWordsLookForNoSegment)
{
    Mailbox const mailbox;
    ClientHolder client(mailbox);
    client.leave();
    expectOutput(runTool({}), usageOutput);
    expectOutput(runTool({"nonsense"}), unknownOutput("nonsense"));
    expectOutput(runTool({"-"}), unknownOutput("-"));
    expectOutput(runTool({""}), unknownOutput(""));
    expectOutput(runTool({"EventFrameDone"}), unknownOutput("EventFrameDone"));
    expectOutput(runTool({"EventFrameDone", "65536"}), unknownOutput("65536"));
    EXPECT_TRUE(clientSegmentExists());
    EXPECT_TRUE(sameBytes(mailbox.bytes(), client.segment()));
}
