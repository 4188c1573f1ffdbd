/// Length upkeep of the 16-bit strings, clearing, and the string of one repeated unit.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images16;
using namespace std::string_view_literals;

template <typename S>
class State16 : public testing::Test
{};
TYPED_TEST_SUITE(State16, MainImages, ImageName);

TYPED_TEST(State16, clearKeepsTheSpareWord)
{
    for (Text const text : {u"abc"sv, u""sv}) {
        Laid<TypeParam> string(text);
        string->clear();
        EXPECT_EQ(string.bytes(), imageOf<TypeParam>(0, u"", 0, staleByte));
        EXPECT_TRUE(string.guardsStand());
    }
}

TYPED_TEST(State16, clearUnusedClearsBehindTheText)
{
    for (Text const text : {u"abc"sv, u""sv}) {
        Laid<TypeParam> string(text);
        string.stale(text.size(), u"stale");
        string->clearUnused();
        EXPECT_EQ(string.bytes(), imageOf<TypeParam>(text.size(), text, 0, staleByte));
        EXPECT_TRUE(string.guardsStand());
    }
    auto const full = letters(capacity<TypeParam>);
    Laid<TypeParam> string(full);
    string.stale(capacity<TypeParam>, u"z");
    string->clearUnused();
    EXPECT_EQ(string.bytes(), imageOf<TypeParam>(full.size(), full, 0, staleByte));
    EXPECT_TRUE(string.guardsStand());
}

/// Finds the end of a text that was written straight into the units.
TYPED_TEST(State16, calcLength)
{
    Laid<TypeParam> shorter(u"abcdef");
    shorter.stale(3, u"\0"sv);
    shorter->calcLength();
    EXPECT_TRUE(became(shorter, 3, u"abc\0ef\0"sv));

    Laid<TypeParam> longer(u"ab");
    longer.stale(2, u"cde\0"sv);
    longer->calcLength();
    EXPECT_TRUE(became(longer, 5, u"abcde\0"sv));

    Laid<TypeParam> empty(u"abc");
    empty.stale(0, u"\0"sv);
    empty->calcLength();
    EXPECT_TRUE(became(empty, 0, u"\0bc\0"sv));

    // A unit of which one byte is zero is no end.
    Laid<TypeParam> halves(u"");
    halves.stale(0, u"\x0100\xFF\xFF00\0"sv);
    halves->calcLength();
    EXPECT_TRUE(became(halves, 3, u"\x0100\xFF\xFF00\0"sv));
}

TYPED_TEST(State16, calcLengthOfAFullText)
{
    auto const text = letters(capacity<TypeParam>);
    Laid<TypeParam> string(u"");
    string.stale(0, text + u'z');
    string->calcLength();
    EXPECT_TRUE(became(string, capacity<TypeParam>, text + u'\0'));

    // The last unit below the capacity is looked at as well.
    Laid<TypeParam> last(text);
    last.stale(capacity<TypeParam> - 1, u"\0z"sv);
    last->calcLength();
    auto expected = text;
    expected.back() = u'\0';
    EXPECT_TRUE(became(last, capacity<TypeParam> - 1, expected + u'z'));

    // A length that no member would leave there does not matter.
    Laid<TypeParam> damaged(u"ab");
    damaged.layLength(65535);
    damaged->calcLength();
    EXPECT_TRUE(became(damaged, 2, u"ab\0"sv));
}

TYPED_TEST(State16, setLength)
{
    struct Row
    {
        int argument;
        std::size_t length;
        Text after;
    };
    // A longer length exposes the units that lie there; nothing else moves.
    constexpr Row rows[] = {
        {-1, 0, u"\0bcd\0xyz"sv},    {0, 0, u"\0bcd\0xyz"sv}, {-32768, 0, u"\0bcd\0xyz"sv},
        {2, 2, u"ab\0d\0xyz"sv},     {4, 4, u"abcd\0xyz"sv},  {6, 6, u"abcd\0x\0z"sv},
        {40000, 0, u"\0bcd\0xyz"sv}, // negative as a signed 16-bit value
    };
    for (auto const& row : rows) {
        Laid<TypeParam> string(u"abcd");
        string.stale(5, u"xyz");
        string->setLength(static_cast<short>(row.argument));
        EXPECT_TRUE(became(string, row.length, row.after)) << row.argument;
    }
}

TYPED_TEST(State16, setLengthStopsAtTheCapacity)
{
    auto const text = letters(capacity<TypeParam>);
    for (int const argument : {intCapacity<TypeParam>, intCapacity<TypeParam> + 1, 32767}) {
        Laid<TypeParam> string(u"");
        string.stale(0, text + u'z');
        string->setLength(static_cast<short>(argument));
        EXPECT_TRUE(became(string, capacity<TypeParam>, text + u'\0')) << argument;
    }
}

TEST(StateAt16, setLengthAboveTheCapacity)
{
    Laid<_qvString<250>> string(letters(250));
    string->setLength(300);
    EXPECT_EQ(guarded::lengthOf(*string), 250);
    string->setLength(-1);
    EXPECT_EQ(guarded::lengthOf(*string), 0);
}

/// The length alone decides, not the first unit.
TYPED_TEST(State16, hasDataAndIsEmpty)
{
    Laid<TypeParam> string(u"a");
    TypeParam const& asked = *string;
    EXPECT_TRUE(asked.hasData());
    EXPECT_FALSE(asked.isEmpty());
    *string = nullUnits;
    EXPECT_FALSE(asked.hasData());
    EXPECT_TRUE(asked.isEmpty());
    string.stale(0, u"\0"sv);
    string.layLength(1);
    EXPECT_TRUE(asked.hasData());
    EXPECT_FALSE(asked.isEmpty());
}

TYPED_TEST(State16, createCharString)
{
    struct Row
    {
        int count;
        std::size_t length; ///< when the capacity does not end it before
    };
    constexpr Row rows[] = {
        {0, 0},     {-1, 0},    {INT_MIN, 0}, {1, 1},       {3, 3},
        {10, 10},   {11, 11},   {2500, 2500}, {2501, 2501}, {65535, 65535},
        {65536, 0}, {65537, 1}, {65538, 2},   {131072, 0},  {INT_MAX, 65535},
    };
    for (Unit const unit : {Unit{u'x'}, Unit{0x0141}, Unit{0xFFE4}, Unit{0}}) {
        for (auto const& row : rows) {
            SCOPED_TRACE(row.count);
            Unit argument = unit;
            auto const string = TypeParam::createCharString(argument, row.count);
            std::u16string const text(std::min(row.length, capacity<TypeParam>), unit);
            EXPECT_EQ(guarded::bytesOf(string), imageOf<TypeParam>(text.size(), text, 0, 0));
            EXPECT_EQ(argument, unit);
        }
    }
}

// Compilers take several units at once and the rest apart: here one.
TEST(StateCases16, calcLengthFindsAZeroAtEveryPlace)
{
    for (unsigned zeroAt = 0; zeroAt <= 25; ++zeroAt) {
        _qvString<25> string;
        std::fill_n(string.text, 25, static_cast<unsigned short>('x'));
        string.text[zeroAt] = 0;
        string.calcLength();
        EXPECT_EQ(string.length, zeroAt);
    }
}

} // namespace
