/// Decimal numbers to text and back in the current 8-bit string.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace images8 {
namespace {

using namespace std::string_view_literals;

template <typename S>
class Number8 : public testing::Test
{};
TYPED_TEST_SUITE(Number8, guarded::MainStrings8, ImageName);

/// What is appended keeps as many of its first characters as there is room for.
void expectBoth(std::string_view before, std::string_view appended, guarded::Seen const& receiver,
                testing::AssertionResult const& guards)
{
    SCOPED_TRACE(std::string(before) + " and " + std::string(appended));
    auto const expected =
        (std::string(before) + std::string(appended)).substr(0, receiver.capacity);
    EXPECT_TRUE(became(receiver, guards, expected.size(), expected + '\0'));
}

template <typename S, typename... Arguments>
void expectAppended(std::string_view before, std::string_view appended, Arguments const&... value)
{
    Laid<S> receiver(before);
    receiver->addNr(value...);
    expectBoth(before, appended, guarded::seen(*receiver), receiver.guardsStand());
}

TYPED_TEST(Number8, appendsInts)
{
    expectAppended<TypeParam>("", "0", 0);
    expectAppended<TypeParam>("", "7", 7);
    expectAppended<TypeParam>("n=", "-12", -12);
    expectAppended<TypeParam>("abcd", "123456", 123456);
    expectAppended<TypeParam>("", "2147483647", INT_MAX);
    expectAppended<TypeParam>("", "-2147483648", INT_MIN);
    expectAppended<TypeParam>("abcdef", "1", 1);
}

TYPED_TEST(Number8, appendsLongLongs)
{
    expectAppended<TypeParam>("", "0", 0LL);
    expectAppended<TypeParam>("x", "-1", -1LL);
    expectAppended<TypeParam>("", "9223372036854775807", LLONG_MAX);
    expectAppended<TypeParam>("", "-9223372036854775808", LLONG_MIN);
    expectAppended<TypeParam>("ab", "10000000000", 10000000000LL);
}

TYPED_TEST(Number8, appendsUnsignedLongLongs)
{
    expectAppended<TypeParam>("", "0", 0ULL);
    expectAppended<TypeParam>("", "18446744073709551615", ULLONG_MAX);
    expectAppended<TypeParam>("a", "9223372036854775808", 9223372036854775808ULL);
}

TYPED_TEST(Number8, aFullStringGetsOnlyItsTerminator)
{
    auto const text = guarded::letters(capacity<TypeParam>);
    auto const expectKept = [&text](auto const& append) {
        Laid<TypeParam> receiver(text);
        receiver.stale(capacity<TypeParam>, "z");
        append(*receiver);
        EXPECT_TRUE(became(receiver, capacity<TypeParam>, text + '\0'));
    };
    expectKept([](TypeParam& s) { s.addNr(1); });
    expectKept([](TypeParam& s) { s.addNr(1LL); });
    expectKept([](TypeParam& s) { s.addNr(1ULL); });
    expectKept([](TypeParam& s) { s.addNr(1, 5); });
    expectKept([](TypeParam& s) { s.addNr(1LL, 255); });
}

template <typename S, typename... Arguments>
constexpr bool addsNr = requires(S& string, Arguments... value)
{
    string.addNr(value...);
};

/// For an unsigned int, and for a width of an unsigned long long, no overload stands ready: a call
/// would have to choose between conversions.
TYPED_TEST(Number8, takesNoOtherNumbers)
{
    EXPECT_TRUE((addsNr<TypeParam, int>));
    EXPECT_TRUE((addsNr<TypeParam, unsigned long long>));
    EXPECT_TRUE((addsNr<TypeParam, long long, unsigned char>));
    EXPECT_FALSE((addsNr<TypeParam, unsigned int>));
    EXPECT_FALSE((addsNr<TypeParam, unsigned long long, unsigned char>));
}

struct WidthRow
{
    std::string_view before;
    int value;
    int width;
    std::string_view appended;
};

/// The zeros stand in front of a sign too, and a narrow width adds none.
constexpr WidthRow widthRows[] = {
    {"n=", 5, 3, "005"},       {"", -5, 4, "00-5"},
    {"", 1234, 2, "1234"},     {"", 1234, 4, "1234"},
    {"", 1234, 5, "01234"},    {"", 0, 0, "0"},
    {"", 0, 1, "0"},           {"", 0, 2, "00"},
    {"ab", -5, 4, "00-5"},     {"ab", 12345, 6, "012345"},
    {"abcdef", 1, 5, "00001"}, {"", INT_MIN, 12, "0-2147483648"},
    {"", -1, 2, "-1"},         {"a", 42, 4, "0042"},
};

TYPED_TEST(Number8, padsWithZeros)
{
    for (auto const& row : widthRows) {
        auto const width = static_cast<unsigned char>(row.width);
        expectAppended<TypeParam>(row.before, row.appended, row.value, width);
        expectAppended<TypeParam>(row.before, row.appended, static_cast<long long>(row.value),
                                  width);
    }
}

TYPED_TEST(Number8, theWidestPadding)
{
    auto const widest = static_cast<unsigned char>(255);
    expectAppended<TypeParam>("", std::string(254, '0') + "7", 7, widest);
    expectAppended<TypeParam>("", std::string(235, '0') + "-9223372036854775808", LLONG_MIN,
                              widest);
    expectAppended<TypeParam>("ab", std::string(253, '0') + "-1", -1LL, widest);
}

TEST(NumberCut8, theLowDigitsAreTheOnesLost)
{
    Laid<_qvString8_allSize<6>> receiver("ab");
    receiver->addNr(12345, 6);
    EXPECT_TRUE(became(receiver, 6, "ab0123\0"sv));

    Laid<_qvString8_allSize<6>> nearlyFull("abcd");
    nearlyFull->addNr(123456);
    EXPECT_TRUE(became(nearlyFull, 6, "abcd12\0"sv));

    EXPECT_TRUE(guarded::holds(_qvString8_allSize<6>::fromNr(-123456), "-12345"));
    EXPECT_TRUE(guarded::holds(_qvString8_allSize<7>::fromNr(-123456), "-123456"));
}

TYPED_TEST(Number8, fromNrGivesANewString)
{
    struct Row
    {
        long long value;
        std::string_view text;
    };
    for (auto const& row :
         {Row{0, "0"}, Row{42, "42"}, Row{-123456, "-123456"},
          Row{LLONG_MAX, "9223372036854775807"}, Row{LLONG_MIN, "-9223372036854775808"}}) {
        auto const expected = cut<TypeParam>(row.text);
        EXPECT_TRUE(areaIs(TypeParam::fromNr(row.value), expected.size(), expected, 0));
    }
}

struct ParseRow
{
    std::string_view text;
    bool valid;
    int checked;
    int unchecked;
};

/// Under the check only digits pass, and a minus in front; without it the library parses as it
/// does.
constexpr ParseRow parseRows[] = {
    {"12", true, 12, 12},
    {"-12", true, -12, -12},
    {"007", true, 7, 7},
    {"-", true, 0, 0},
    {"", true, 0, 0},
    {"0", true, 0, 0},
    {"-0", true, 0, 0},
    {"+5", false, 0, 5},
    {" 12", false, 0, 12},
    {"12 ", false, 0, 12},
    {"1-2", false, 0, 1},
    {"--1", false, 0, 0},
    {"0x10", false, 0, 0},
    {"12a", false, 0, 12},
    {"a12", false, 0, 0},
    {"1.5", false, 0, 1},
    {"12-", false, 0, 12},
    {"1\0"
     "2"sv,
     false, 0, 1},
    {"12\0"sv, false, 0, 12},
    {"\0"sv, false, 0, 0},
    {"1\xB2", false, 0, 1},
    {"\xFF", false, 0, 0},
    {"\t-7", false, 0, -7},
    {"/", false, 0, 0},
    {":", false, 0, 0},
    {"999999", true, 999999, 999999},
};

TYPED_TEST(Number8, parsesDecimalText)
{
    for (auto const& row : parseRows) {
        SCOPED_TRACE(row.text);
        Laid<TypeParam> text(row.text);
        auto const before = text.bytes();
        bool ok = !row.valid;
        EXPECT_EQ(text->toInt(&ok), row.checked);
        EXPECT_EQ(ok, row.valid);
        ok = !row.valid;
        EXPECT_EQ(text->toInt64(&ok), row.checked);
        EXPECT_EQ(ok, row.valid);
        EXPECT_EQ(text->toInt(nullptr), row.unchecked);
        EXPECT_EQ(text->toInt64(nullptr), row.unchecked);
        EXPECT_EQ(text.bytes(), before);
    }
}

TYPED_TEST(Number8, checksEveryByteValue)
{
    for (int i = 0; i < 256; ++i) {
        SCOPED_TRACE(i);
        char const byte = static_cast<char>(static_cast<unsigned char>(i));
        bool const digit = i >= '0' && i <= '9';
        char const first[] = {byte, '1'};
        char const second[] = {'1', byte};
        bool ok = false;
        static_cast<void>(stringOf<TypeParam>(std::string_view(first, 2)).toInt(&ok));
        EXPECT_EQ(ok, digit || i == '-');
        static_cast<void>(stringOf<TypeParam>(std::string_view(second, 2)).toInt64(&ok));
        EXPECT_EQ(ok, digit);
    }
}

TYPED_TEST(Number8, parsesLongNumbers)
{
    struct Row
    {
        std::string_view text;
        long long value;
    };
    for (auto const& row :
         {Row{"2147483647", INT_MAX}, Row{"-2147483648", INT_MIN}, Row{"4294967296", 4294967296LL},
          Row{"999999999999999999", 999999999999999999LL},
          Row{"-99999999999999999", -99999999999999999LL},
          Row{"-999999999999999999", -999999999999999999LL},
          Row{"1000000000000000001", 1000000000000000001LL}, Row{"9223372036854775807", LLONG_MAX},
          Row{"-9223372036854775808", LLONG_MIN}}) {
        if (!fits<TypeParam>(row.text)) {
            continue;
        }
        SCOPED_TRACE(row.text);
        auto text = stringOf<TypeParam>(row.text);
        bool ok = false;
        EXPECT_EQ(text.toInt64(&ok), row.value);
        EXPECT_TRUE(ok);
        EXPECT_EQ(text.toInt64(nullptr), row.value);
    }
}

/// A value out of range passes the check. Its low 32 bits count, and beyond a long of 64 bits those
/// of the end that it comes to.
TYPED_TEST(Number8, outOfRangeGivesTheLowBits)
{
    struct Row
    {
        char const* text;
        int number;
        long long longNumber;
    };
    for (Row const& row :
         {Row{"2147483648", -2147483647 - 1, 2147483648},
          Row{"-2147483649", 2147483647, -2147483649}, Row{"4294967296", 0, 4294967296},
          Row{"99999999999", 1215752191, 99999999999},
          Row{"9223372036854775808", -1, 9223372036854775807},
          Row{"99999999999999999999", -1, 9223372036854775807},
          Row{"-99999999999999999999", 0, -9223372036854775807 - 1}}) {
        if (!fits<TypeParam>(row.text)) {
            continue;
        }
        SCOPED_TRACE(row.text);
        bool ok = false;
        EXPECT_EQ(stringOf<TypeParam>(row.text).toInt(&ok), row.number);
        EXPECT_TRUE(ok);
        EXPECT_EQ(stringOf<TypeParam>(row.text).toInt64(&ok), row.longNumber);
        EXPECT_TRUE(ok);
    }
}

/// The check looks at the characters in use, the conversion at the stored text.
TYPED_TEST(Number8, staleDigitsAreRead)
{
    TypeParam emptied("42");
    emptied = nullText;
    bool ok = false;
    EXPECT_EQ(emptied.toInt(&ok), 42);
    EXPECT_TRUE(ok);
    EXPECT_EQ(emptied.toInt64(&ok), 42);
    EXPECT_EQ(emptied.toInt(nullptr), 42);

    Laid<TypeParam> shortened("4");
    shortened.stale(1, "2x\0"sv);
    ok = false;
    EXPECT_EQ(shortened->toInt(&ok), 42);
    EXPECT_TRUE(ok);

    TypeParam ended("42");
    ended.setLength(1);
    EXPECT_EQ(ended.toInt(&ok), 4);
}

TYPED_TEST(Number8, numbersComeBackFromTheirText)
{
    for (long long const value : {0LL, 1LL, -1LL, 99999LL, -99999LL}) {
        bool ok = false;
        EXPECT_EQ(TypeParam::fromNr(value).toInt64(&ok), value);
        EXPECT_TRUE(ok);
    }
}

/// Without a terminator the number ends with the capacity, whatever digits follow in the object,
/// and whatever was converted before.
TEST(NumberCut8, endsAtTheCapacityWithoutATerminator)
{
    _qvString8_allSize<8> eight("12345678");
    eight.text[8] = '9';
    _qvString8_allSize<7> seven("7654321");
    seven.text[7] = '0';
    // Each second one finds the first one's digits where it copies its own.
    int const longer = eight.toInt(nullptr);
    int const shorter = seven.toInt(nullptr);
    long long const longer64 = eight.toInt64(nullptr);
    long long const shorter64 = seven.toInt64(nullptr);
    EXPECT_EQ(longer, 12345678);
    EXPECT_EQ(shorter, 7654321);
    EXPECT_EQ(longer64, 12345678);
    EXPECT_EQ(shorter64, 7654321);
    bool ok = false;
    EXPECT_EQ(eight.toInt(&ok), 12345678);
    EXPECT_TRUE(ok);
    ok = false;
    EXPECT_EQ(seven.toInt64(&ok), 7654321);
    EXPECT_TRUE(ok);
}

} // namespace
} // namespace images8
