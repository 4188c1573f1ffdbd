// What the status program says of an outcome, and of a command line that is odd.
#include "sender/report.h"

#include "sender/advice.h"
#include "tests/usedStack.h"

#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using Kind = Outcome::Kind;

// What a function writes to standard output.
template <typename Function>
std::string shownBy(Function function)
{
    testing::internal::CaptureStdout();
    function();
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

std::string briefOf(Outcome const& outcome)
{
    useStack('\xA5');
    return shownBy([&] { showBrief(outcome); });
}

std::string jsonOf(char const* word, Outcome const& outcome, std::string_view shown)
{
    OutputText text;
    text.add(shown);
    useStack('\xA5');
    return shownBy([&] { showJson(word, outcome, text); });
}

// The part of the line behind the time.
std::string behindTheTime(std::string const& line)
{
    auto const at = line.find(", \"word\": ");
    return at == std::string::npos ? line : line.substr(at);
}

std::string adviceOn(std::vector<char const*> argv)
{
    argv.insert(argv.begin(), "qvNodeDispatchStatus");
    auto const argc = static_cast<int>(argv.size());
    Request const request = readCommand(argc, argv.data());
    testing::internal::CaptureStderr();
    advise(argc, argv.data(), request);
    return testing::internal::GetCapturedStderr();
}

std::string said(std::string const& advice)
{
    return "qvNodeDispatchStatus: " + advice + "\n";
}

} // namespace

TEST(ReportTest, isOneLineOnEqualNodes)
{
    EXPECT_EQ(briefOf({Kind::stored, {}}), "stored\n");
    EXPECT_EQ(briefOf({Kind::queueFull, "not shown"}), "queueFull: the queue is full\n");
}

TEST(ReportTest, isOneJsonObject)
{
    EXPECT_EQ(
        behindTheTime(jsonOf("abort", {Kind::stored, {}}, "banner\nCommand send.")),
        ", \"word\": \"abort\", \"outcome\": \"stored\", \"status\": 0, "
        "\"reason\": \"the command is in the queue\", \"text\": \"banner\\nCommand send.\"}\n");
    EXPECT_EQ(behindTheTime(jsonOf(nullptr, {Kind::usage, {}}, "")),
              ", \"word\": null, \"outcome\": \"usage\", \"status\": 1, "
              "\"reason\": \"there is no command\", \"text\": \"\"}\n");
}

TEST(ReportTest, hasTheReasonOfTheSegmentButNotTheWord)
{
    EXPECT_NE(jsonOf("abort", {Kind::lockFailed, "no \"lock\""}, "")
                  .find("\"reason\": \"no \\\"lock\\\"\","),
              std::string::npos);
    EXPECT_NE(jsonOf("x", {Kind::unknownCommand, "x"}, "")
                  .find("\"reason\": \"the command is not known\","),
              std::string::npos);
}

TEST(ReportTest, hasHostAndTime)
{
    std::time_t const before = std::time(nullptr);
    std::string const line = jsonOf("abort", {Kind::stored, {}}, "");
    std::time_t const after = std::time(nullptr);

    char host[256] = "";
    gethostname(host, sizeof host - 1);
    std::string const begin =
        "{\"schema\": 1, \"host\": \"" + std::string(host) + "\", \"time\": \"";
    ASSERT_EQ(line.substr(0, begin.size()), begin);
    std::tm time{};
    char const* const end = strptime(line.c_str() + begin.size(), "%Y-%m-%dT%H:%M:%SZ", &time);
    ASSERT_NE(end, nullptr);
    EXPECT_EQ(end - line.c_str() - static_cast<std::ptrdiff_t>(begin.size()), 20);
    std::time_t const told = timegm(&time);
    EXPECT_LE(before, told);
    EXPECT_LE(told, after);
}

// A word may be longer than what is kept back at once.
TEST(ReportTest, hasWordsOfAnyLength)
{
    for (std::size_t const length : {3900u, 3999u, 4000u, 4001u, 4096u, 9000u}) {
        std::string const word(length, 'w');
        EXPECT_EQ(behindTheTime(jsonOf(word.c_str(), {Kind::stored, {}}, "end")),
                  ", \"word\": \"" + word +
                      "\", \"outcome\": \"stored\", \"status\": 0, "
                      "\"reason\": \"the command is in the queue\", \"text\": \"end\"}\n")
            << length;
    }
}

TEST(ReportTest, isAscii)
{
    struct Row
    {
        char const* bytes;
        char const* told;
    };
    constexpr Row rows[] = {
        {"a\"b\\c\nd\te\x7F", "a\\\"b\\\\c\\nd\\u0009e\\u007f"},
        {"\xC3\xA4", "\\u00e4"},
        {"\xE2\x82\xAC", "\\u20ac"},
        {"\xF0\x9F\x98\x80", "\\ud83d\\ude00"},
        {"\xFF", "\\ufffd"},                       // begins nothing
        {"\x80", "\\ufffd"},                       // goes on with nothing
        {"\xC3", "\\ufffd"},                       // is cut
        {"\xC3(", "\\ufffd("},                     // goes on with something else
        {"\xC1\x81", "\\ufffd\\ufffd"},            // is longer than it need be
        {"\xE0\x80\x80", "\\ufffd\\ufffd\\ufffd"}, // likewise
        {"\xED\xA0\x80", "\\ufffd\\ufffd\\ufffd"}, // half a pair
        {"\xED\x9F\xBF", "\\ud7ff"},               // the last one ahead of those
        {"\xEE\x80\x80", "\\ue000"},               // the first one behind
        {"\xF4\x8F\xBF\xBF", "\\udbff\\udfff"},    // the last character
        {"\xF4\x90\x80\x80", "\\ufffd\\ufffd\\ufffd\\ufffd"},
    };
    for (Row const& row : rows)
        EXPECT_EQ(behindTheTime(jsonOf(row.bytes, {Kind::stored, {}}, ""))
                      .substr(0, 11 + std::strlen(row.told) + 1),
                  ", \"word\": \"" + std::string(row.told) + "\"")
            << row.told;
}

TEST(AdviceTest, namesTheNearestWord)
{
    struct Row
    {
        char const* typed;
        char const* meant;
    };
    constexpr Row rows[] = {
        {"abrot", "abort"},
        {"-abor", "abort"},
        {"borta", nullptr},
        {"ABORTX", "abort"},
        {"enabled", "enable"},
        {"isable", "disable"},
        {"IgnorCP", "IgnoreCPU"},
        {"IgnCPU", nullptr},
        {"ignorecpuxy", "IgnoreCPU"},
        {"ignorecpuxyz", nullptr},
        // The end of a word is not near to it, nor is its beginning.
        {"CPUInteractive", nullptr},
        {"seCPUInteractive", "UseCPUInteractive"},
        {"RestartMachineAfter", nullptr},
        {"xxxabort", nullptr},
        {"xxxUseWorking", nullptr},
        {"xxUseWorking", "UseWorking"},
        {"ehckjob", "checkjob"},
        {"hcekjob", "checkjob"},
        {"ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMN", nullptr},
        {"", nullptr},
        {"-", nullptr},
    };
    for (Row const& row : rows) {
        auto const expected =
            row.meant == nullptr ? "" : said("did you mean " + std::string(row.meant) + "?");
        EXPECT_EQ(adviceOn({row.typed}), expected) << row.typed;
    }
    EXPECT_EQ(adviceOn({"abort"}), "");
    EXPECT_EQ(adviceOn({"-Abort"}), "");
}

TEST(AdviceTest, saysWhatBecomesOfANumber)
{
    EXPECT_EQ(adviceOn({"EventFrameDone", "1"}), "");
    EXPECT_EQ(adviceOn({"-eventframedone", "65535"}), "");
    for (char const* const number : {"9", "12", "345", "6789", "10000"})
        EXPECT_EQ(adviceOn({"EventFrameDone", number}), "");
    // A letter at any place of a number of any length.
    for (std::size_t length = 1; length <= 5; ++length)
        for (std::size_t place = 0; place < length; ++place) {
            std::string number(length, '1');
            number[place] = 'x';
            EXPECT_NE(adviceOn({"EventFrameDone", number.c_str()}), "") << number;
            number[place] = '/';
            EXPECT_NE(adviceOn({"EventFrameDone", number.c_str()}), "") << number;
        }
    EXPECT_EQ(adviceOn({"EventFrameDone"}), said("EventFrameDone needs a number"));
    EXPECT_EQ(adviceOn({"EventFrameDone", "0"}), said("'0' is no number from 1 to 65535"));
    EXPECT_EQ(adviceOn({"EventFrameDone", ""}), said("'' is no number from 1 to 65535"));
    EXPECT_EQ(adviceOn({"EventFrameDone", "x"}), said("'x' is no number from 1 to 65535"));
    EXPECT_EQ(adviceOn({"EventFrameDone", "12x"}),
              said("'12x' is no number from 1 to 65535; sent as 12"));
    EXPECT_EQ(adviceOn({"EventFrameDone", "-1"}),
              said("'-1' is no number from 1 to 65535; sent as 65535"));
    EXPECT_EQ(adviceOn({"EventFrameDone", "65537"}),
              said("'65537' is no number from 1 to 65535; sent as 1"));
    EXPECT_EQ(adviceOn({"EventFrameDone", "65536"}), said("'65536' is no number from 1 to 65535"));
    EXPECT_EQ(adviceOn({"EventFrameDone", "000007"}),
              said("'000007' is no number from 1 to 65535; sent as 7"));
}

TEST(AdviceTest, namesWhatIsIgnored)
{
    EXPECT_EQ(adviceOn({"abort", "now"}), said("'now' is ignored"));
    EXPECT_EQ(adviceOn({"abort", "now", "then"}), said("'now' is ignored"));
    EXPECT_EQ(adviceOn({"EventFrameDone", "5", "6"}), said("'6' is ignored"));
    EXPECT_EQ(adviceOn({"abrot", "now"}), said("did you mean abort?") + said("'now' is ignored"));
}
