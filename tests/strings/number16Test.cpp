/// Numbers as text in the 16-bit strings, and text as a number.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace images16 {
namespace {

using namespace std::string_view_literals;

template <typename S>
class Number16 : public testing::Test
{};
TYPED_TEST_SUITE(Number16, MainImages, ImageName);

template <typename S>
class NumberCurrent16 : public testing::Test
{};
TYPED_TEST_SUITE(NumberCurrent16, CurrentImages, ImageName);

void expectBehindX(std::string_view digits, Seen const& receiver,
                   testing::AssertionResult const& guards)
{
    SCOPED_TRACE(digits);
    auto const expected = widened("x" + std::string(digits)).substr(0, receiver.capacity);
    EXPECT_TRUE(became(receiver, guards, expected.size(), expected + u'\0'));
}

/// Appends to "x" and expects that text with `digits` behind it, cut at the capacity.
template <typename S, typename Change>
void expectAppended(std::string_view digits, Change const& change)
{
    Laid<S> receiver(u"x");
    change(*receiver);
    expectBehindX(digits, guarded::seen(*receiver), receiver.guardsStand());
}

TYPED_TEST(Number16, addNr)
{
    struct Row
    {
        long long value;
        std::string_view digits;
    };
    constexpr Row rows[] = {
        {0, "0"},         {-5, "-5"},
        {12345, "12345"}, {LLONG_MAX, "9223372036854775807"},
        {-1, "-1"},       {LLONG_MIN, "-9223372036854775808"},
    };
    for (auto const& row : rows) {
        expectAppended<TypeParam>(row.digits, [&](TypeParam& s) { s.addNr(row.value); });
    }
}

TYPED_TEST(NumberCurrent16, addNrOfOtherTypes)
{
    using S = TypeParam;
    expectAppended<S>("18446744073709551615", [](S& s) { s.addNr(ULLONG_MAX); });
    expectAppended<S>("0", [](S& s) { s.addNr(0ULL); });
    expectAppended<S>("-2147483648", [](S& s) { s.addNr(INT_MIN); });
    expectAppended<S>("2147483647", [](S& s) { s.addNr(INT_MAX); });
    expectAppended<S>("0", [](S& s) { s.addNr(0); });
    expectAppended<S>("4294967295", [](S& s) { s.addNr(UINT_MAX); });
    expectAppended<S>("7", [](S& s) { s.addNr(7U); });
    expectAppended<S>("255", [](S& s) { s.addNr(static_cast<unsigned char>(255)); });
    expectAppended<S>("65", [](S& s) { s.addNr(static_cast<unsigned char>('A')); });
    expectAppended<S>("0", [](S& s) { s.addNr(static_cast<unsigned char>(0)); });
}

TEST(NumberAt16, aLongNumberLosesItsLowDigits)
{
    Laid<_qvString<10>> current(u"");
    current->addNr(ULLONG_MAX);
    EXPECT_TRUE(became(current, 10, u"1844674407\0"sv));
    Laid<_qvString<15>> odd(u"");
    odd->addNr(ULLONG_MAX);
    EXPECT_TRUE(became(odd, 15, u"184467440737095\0"sv));
    Laid<_qvString<25>> whole(u"");
    whole->addNr(ULLONG_MAX);
    EXPECT_TRUE(became(whole, 20, u"18446744073709551615\0"sv));
    Laid<_qvString_old<10>> older(u"");
    older->addNr(LLONG_MIN);
    EXPECT_TRUE(became(older, 10, u"-922337203\0"sv));

    Laid<_qvString<10>> almost(u"abcdefgh");
    almost->addNr(-123LL);
    EXPECT_TRUE(became(almost, 10, u"abcdefgh-1\0"sv));
    Laid<_qvString<10>> full(u"abcdefghij");
    full.stale(10, u"z");
    full->addNr(7LL);
    EXPECT_TRUE(became(full, 10, u"abcdefghij\0"sv));
    Laid<_qvString<10>> padded(u"abcdefgh");
    padded->addNr(7LL, static_cast<unsigned char>(4));
    EXPECT_TRUE(became(padded, 10, u"abcdefgh00\0"sv));
    Laid<_qvString<10>> aligned(u"abcdefgh");
    aligned->addNrSpacing(12345LL, static_cast<signed char>(-8));
    EXPECT_TRUE(became(aligned, 10, u"abcdefgh12\0"sv));
}

/// Zeros stand in front of the sign. Behind column 20 the number gives way, whatever the capacity.
TYPED_TEST(Number16, addNrWithAWidth)
{
    struct Row
    {
        long long value;
        unsigned char width;
        std::string_view digits;
    };
    constexpr Row rows[] = {
        {7, 4, "0007"},
        {12345, 4, "12345"},
        {-5, 4, "00-5"},
        {-5, 2, "-5"},
        {-5, 3, "0-5"},
        {12345, 0, "12345"},
        {12345, 5, "12345"},
        {12345, 6, "012345"},
        {0, 3, "000"},
        {0, 1, "0"},
        {12345, 20, "00000000000000012345"},
        {12345, 21, "00000000000000001234"},
        {12345, 22, "00000000000000000123"},
        {12345, 25, "00000000000000000000"},
        {12345, 30, "00000000000000000000"},
        {12345, 255, "00000000000000000000"},
        {-5, 21, "0000000000000000000-"},
        {LLONG_MIN, 20, "-9223372036854775808"},
        {LLONG_MIN, 21, "0-922337203685477580"},
        {LLONG_MIN, 255, "00000000000000000000"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.width));
        expectAppended<TypeParam>(row.digits, [&](TypeParam& s) { s.addNr(row.value, row.width); });
    }
}

TYPED_TEST(Number16, fromNrIsACleanString)
{
    struct Row
    {
        long long value;
        std::string_view digits;
    };
    constexpr Row rows[] = {
        {42, "42"},
        {0, "0"},
        {-7, "-7"},
        {LLONG_MIN, "-9223372036854775808"},
    };
    for (auto const& row : rows) {
        auto const digits = cut<TypeParam>(widened(row.digits));
        EXPECT_EQ(guarded::bytesOf(TypeParam::fromNr(row.value)),
                  imageOf<TypeParam>(digits.size(), digits, 0, 0))
            << row.digits;
    }
}

TYPED_TEST(Number16, addNrSpacing)
{
    struct Row
    {
        long long value;
        signed char width;
        std::string_view digits;
    };
    constexpr Row rows[] = {
        {12345, -8, "   12345"}, {12345, 8, "12345   "}, {12345, 3, "12345"}, {12345, 0, "12345"},
        {12345, -3, "12345"},    {-5, 4, "-5  "},        {-5, -4, "  -5"},    {0, 0, "0"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.width));
        expectAppended<TypeParam>(row.digits,
                                  [&](TypeParam& s) { s.addNrSpacing(row.value, row.width); });
    }
}

TYPED_TEST(Number16, addNrSpacingInTheWidestFields)
{
    auto const n = capacity<TypeParam>;
    auto const left = u"7" + std::u16string(std::min<std::size_t>(n, 127) - 1, u' ');
    Laid<TypeParam> padded(u"");
    padded->addNrSpacing(7LL, static_cast<signed char>(127));
    EXPECT_TRUE(became(padded, left.size(), left + u'\0'));

    auto const right = std::u16string(std::min<std::size_t>(n, 128) - 1, u' ') + u"7";
    Laid<TypeParam> aligned(u"");
    aligned->addNrSpacing(7LL, static_cast<signed char>(-128));
    EXPECT_TRUE(became(aligned, right.size(), right + u'\0'));
}

struct ParseRow
{
    Text text;
    bool valid;
    int checked;
    int unchecked;
};

/// Without a place for the answer nothing is checked, and a unit above 255 is its low byte.
constexpr ParseRow parseRows[] = {
    {u"12", true, 12, 12},
    {u"-12", true, -12, -12},
    {u"007", true, 7, 7},
    {u"-", true, 0, 0},
    {u"", true, 0, 0},
    {u"0", true, 0, 0},
    {u"2147483647", true, 2147483647, 2147483647},
    {u"12x", false, 0, 12},
    {u"x12", false, 0, 0},
    {u"+5", false, 0, 5},
    {u" 12", false, 0, 12},
    {u"12 ", false, 0, 12},
    {u"1-2", false, 0, 1},
    {u"--1", false, 0, 0},
    {u"1.5", false, 0, 1},
    {u"1\0"
     u"2"sv,
     false, 0, 1},
    {u"\x0131", false, 0, 1},
    {u"1\x0132\x33", false, 0, 123},
    {u"12\x0100", false, 0, 12},
    {u"\x012D\x35", false, 0, -5},
    {u"1\xB2", false, 0, 1},
    {u"\xFF31", false, 0, 1},
    {u"\x0660", false, 0, 0},
    {u"/", false, 0, 0},
    {u":", false, 0, 0},
};

TYPED_TEST(Number16, toInt)
{
    for (auto const& row : parseRows) {
        SCOPED_TRACE(shown(row.text));
        Laid<TypeParam> laid(row.text);
        auto const before = laid.bytes();
        TypeParam const& string = *laid;
        bool ok = !row.valid;
        EXPECT_EQ(string.toInt(&ok), row.checked);
        EXPECT_EQ(ok, row.valid);
        EXPECT_EQ(string.toInt(nullptr), row.unchecked);
        EXPECT_EQ(laid.bytes(), before);
    }
}

/// The low 32 bits of a number above INT_MAX.
TYPED_TEST(Number16, toIntTakesTheLowBits)
{
    struct Row
    {
        std::string digits;
        int number;
    };
    for (Row const& row : {Row{"2147483648", -2147483647 - 1}, Row{"9999999999", 1410065407}}) {
        bool ok = false;
        EXPECT_EQ(stringOf<TypeParam>(widened(row.digits)).toInt(&ok), row.number);
        EXPECT_TRUE(ok);
    }
}

/// Only units in use count: neither stale digits behind the end nor those of an emptied string.
TYPED_TEST(Number16, toIntLeavesStaleDigits)
{
    Laid<TypeParam> laid(u"12");
    laid.stale(2, u"34");
    bool ok = false;
    EXPECT_EQ(laid->toInt(&ok), 12);
    EXPECT_TRUE(ok);
    EXPECT_EQ(laid->toInt(nullptr), 12);
    *laid = nullUnits;
    EXPECT_EQ(laid->toInt(&ok), 0);
    EXPECT_TRUE(ok);
    EXPECT_EQ(laid->toInt(nullptr), 0);
}

/// All units are checked, but no more than 249 are read.
TYPED_TEST(Number16, toIntReads249Units)
{
    if constexpr (capacity<TypeParam> >= 250) {
        auto const zeros = std::u16string(248, u'0');
        bool ok = false;
        EXPECT_EQ(stringOf<TypeParam>(zeros + u"7").toInt(&ok), 7);
        EXPECT_TRUE(ok);
        EXPECT_EQ(stringOf<TypeParam>(zeros + u"78").toInt(&ok), 7);
        EXPECT_TRUE(ok);
        EXPECT_EQ(stringOf<TypeParam>(zeros + u"78").toInt(nullptr), 7);
        EXPECT_EQ(stringOf<TypeParam>(zeros + u"7x").toInt(&ok), 0);
        EXPECT_FALSE(ok);
        EXPECT_EQ(stringOf<TypeParam>(zeros + u"7x").toInt(nullptr), 7);
    } else {
        auto const digits = std::u16string(capacity<TypeParam> - 1, u'0') + u"9";
        bool ok = false;
        EXPECT_EQ(stringOf<TypeParam>(digits).toInt(&ok), 9);
        EXPECT_TRUE(ok);
    }
}

} // namespace
} // namespace images16
