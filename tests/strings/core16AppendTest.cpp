/// Appends of the 16-bit strings: how each of them widens, where it is clipped, and what happens
/// when a string is appended to itself.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images16;
using namespace std::string_view_literals;

template <typename S>
class Append16 : public testing::Test
{};
TYPED_TEST_SUITE(Append16, MainImages, ImageName);

std::u16string ended(std::u16string text)
{
    text += u'\0';
    return text;
}

struct WidenRow
{
    char const* bytes;
    Text byZeros;
    Text bySign;
};

constexpr WidenRow widenRows[] = {
    {"", u"xy", u"xy"},
    {"a", u"xya", u"xya"},
    {"abc", u"xyabc", u"xyabc"},
    {"\x7F\x80\xFF", u"xy\x7F\x80\xFF", u"xy\x7F\xFF80\xFFFF"},
    {"\xE4z", u"xy\xE4z", u"xy\xFFE4z"},
};

/// The asymmetry is meant: one way widens by zeros, its neighbour by the sign.
TYPED_TEST(Append16, ofText)
{
    for (auto const& row : widenRows) {
        Laid<TypeParam> added(u"xy");
        added->add(row.bytes);
        EXPECT_TRUE(became(added, row.byZeros.size(), ended(std::u16string(row.byZeros))));

        Laid<TypeParam> appended(u"xy");
        *appended += row.bytes;
        EXPECT_TRUE(became(appended, row.bySign.size(), ended(std::u16string(row.bySign))));

        Laid<TypeParam> receiver(u"xy");
        TypeParam const& left = *receiver;
        auto const before = receiver.bytes();
        TypeParam const combined = left.combined(row.bytes);
        EXPECT_TRUE(
            areaIs(combined, row.byZeros.size(), ended(std::u16string(row.byZeros)), staleByte));
        EXPECT_EQ(receiver.bytes(), before);
    }
}

/// With nothing to add no terminator is written, except by the operator.
TYPED_TEST(Append16, ofNothing)
{
    auto const untouched = [](auto const& change) {
        Laid<TypeParam> receiver(u"ab");
        receiver.stale(2, u"zz");
        change(*receiver);
        EXPECT_TRUE(became(receiver, 2, u"abzz"sv));
    };
    auto const empty = stringOf<TypeParam>(u"");
    auto const units = raw(u"x");
    untouched([](TypeParam& s) { s.add(nullText); });
    untouched([](TypeParam& s) { s.add(""); });
    untouched([](TypeParam& s) { s.add(guarded::letters(65536).c_str()); });
    untouched([](TypeParam& s) { s.add(nullUnits, 0U); });
    untouched([](TypeParam& s) { s.add(nullUnits, 5U); });
    untouched([&](TypeParam& s) { s.add(units.data(), 0U); });
    untouched([&](TypeParam& s) { s.add(empty); });
    untouched([](TypeParam& s) { s += nullText; });
    untouched([](TypeParam& s) { s += nullUnits; });

    auto const terminated = [](auto const& change) {
        Laid<TypeParam> receiver(u"ab");
        receiver.stale(2, u"zz");
        change(*receiver);
        EXPECT_TRUE(became(receiver, 2, u"ab\0z"sv));
    };
    auto const none = raw(u"");
    terminated([](TypeParam& s) { s += ""; });
    terminated([](TypeParam& s) { s += guarded::letters(65536).c_str(); });
    terminated([&](TypeParam& s) { s += none.data(); });
    terminated([&](TypeParam& s) { s += empty; });
}

TYPED_TEST(Append16, ofCharactersAndUnits)
{
    struct Row
    {
        char character;
        Text after;
    };
    constexpr Row rows[] = {{'a', u"xya\0"sv},
                            {'\0', u"xy\0\0"sv},
                            {'\x7F', u"xy\x7F\0"sv},
                            {'\x80', u"xy\xFF80\0"sv},
                            {'\xE4', u"xy\xFFE4\0"sv}};
    for (auto const& row : rows) {
        Laid<TypeParam> receiver(u"xy");
        *receiver += row.character;
        EXPECT_TRUE(became(receiver, 3, row.after));

        Laid<TypeParam> left(u"xy");
        auto const before = left.bytes();
        TypeParam const sum = *left + row.character;
        EXPECT_TRUE(areaIs(sum, 3, row.after, staleByte));
        EXPECT_EQ(left.bytes(), before);
    }
    for (Unit const unit : {Unit{u'a'}, Unit{0}, Unit{0xE4}, Unit{0x0141}, Unit{0xFFFF}}) {
        Laid<TypeParam> receiver(u"xy");
        *receiver += unit;
        EXPECT_TRUE(became(receiver, 3, std::u16string{u'x', u'y', unit, u'\0'}));
    }
}

TYPED_TEST(Append16, ofUnitsAsTheyAre)
{
    auto const units = raw(u"\xE4\x0141\xFFE4");
    Laid<TypeParam> counted(u"xy");
    counted->add(units.data(), 3U);
    EXPECT_TRUE(became(counted, 5, u"xy\xE4\x0141\xFFE4\0"sv));

    Laid<TypeParam> measured(u"xy");
    *measured += units.data();
    EXPECT_TRUE(became(measured, 5, u"xy\xE4\x0141\xFFE4\0"sv));

    // A count passes zeros, a measured text ends there.
    auto const zeros = raw(u"a\0b"sv);
    Laid<TypeParam> passing(u"xy");
    passing->add(zeros.data(), 3U);
    EXPECT_TRUE(became(passing, 5, u"xya\0b\0"sv));
    Laid<TypeParam> ending(u"xy");
    *ending += zeros.data();
    EXPECT_TRUE(became(ending, 3, u"xya\0"sv));
}

TYPED_TEST(Append16, ofStrings)
{
    for (Text const row : {u"a"sv, u"abc"sv, u"a\0b"sv, u"\x0141\xFFE4"sv}) {
        auto const other = stringOf<TypeParam>(row);
        auto const expected = ended(u"xy" + std::u16string(row));
        Laid<TypeParam> added(u"xy");
        added->add(other);
        EXPECT_TRUE(became(added, 2 + row.size(), expected));

        Laid<TypeParam> appended(u"xy");
        *appended += other;
        EXPECT_TRUE(became(appended, 2 + row.size(), expected));

        Laid<TypeParam> left(u"xy");
        auto const before = left.bytes();
        TypeParam const sum = *left + other;
        EXPECT_TRUE(areaIs(sum, 2 + row.size(), expected, staleByte));
        TypeParam const& constant = *left;
        TypeParam const combined = constant.combined(other);
        EXPECT_TRUE(areaIs(combined, 2 + row.size(), expected, staleByte));
        EXPECT_EQ(left.bytes(), before);
    }
}

/// A result is a copy of every byte of its left side, the spare word included.
TYPED_TEST(Append16, resultsCarryTheSpareWord)
{
    Laid<TypeParam> left(u"xy");
    auto const expected = imageOf<TypeParam>(3, u"xya\0"sv, staleByte, staleByte);
    auto const other = stringOf<TypeParam>(u"a");
    EXPECT_EQ(guarded::bytesOf(*left + 'a'), expected);
    EXPECT_EQ(guarded::bytesOf(*left + other), expected);
    EXPECT_EQ(guarded::bytesOf(left->combined("a")), expected);
    EXPECT_EQ(guarded::bytesOf(left->combined(other)), expected);
    // With nothing added the copy is exact, up to the terminator that a sum writes again.
    left.stale(2, u"z");
    auto const nothing = stringOf<TypeParam>(u"");
    EXPECT_EQ(guarded::bytesOf(left->combined("")), left.bytes());
    EXPECT_EQ(guarded::bytesOf(left->combined(nullText)), left.bytes());
    auto const terminated = imageOf<TypeParam>(2, u"xy\0"sv, staleByte, staleByte);
    EXPECT_EQ(guarded::bytesOf(*left + nothing), terminated);
    EXPECT_EQ(guarded::bytesOf(left->combined(nothing)), terminated);
}

/// Every append around the capacity: what fits is kept, the end of the new text is lost.
TYPED_TEST(Append16, clipsAtTheCapacity)
{
    auto const n = capacity<TypeParam>;
    for (std::size_t const size : {n - 3, n - 1, n}) {
        for (std::size_t const more : {std::size_t{1}, std::size_t{3}, std::size_t{9}}) {
            SCOPED_TRACE(std::to_string(size) + " and " + std::to_string(more));
            std::u16string const start(size, u'#');
            auto const expected = ended(cut<TypeParam>(start + letters(more)));
            auto const bytes = guarded::letters(more);
            auto const units = raw(letters(more));
            auto const other = stringOf<TypeParam>(letters(more));
            auto const check = [&](auto const& change) {
                Laid<TypeParam> receiver(start);
                change(*receiver);
                EXPECT_TRUE(became(receiver, expected.size() - 1, expected));
            };
            check([&](TypeParam& s) { s.add(bytes.c_str()); });
            check([&](TypeParam& s) { s += bytes.c_str(); });
            check([&](TypeParam& s) { s.add(units.data(), static_cast<unsigned>(more)); });
            check([&](TypeParam& s) { s += units.data(); });
            check([&](TypeParam& s) { s.add(other); });
            check([&](TypeParam& s) { s += other; });
            check([&](TypeParam& s) { s = s + other; });
            check([&](TypeParam& s) { s = s.combined(other); });
            check([&](TypeParam& s) { s = s.combined(bytes.c_str()); });
        }
    }
}

TYPED_TEST(Append16, singleUnitsStopAtTheCapacity)
{
    auto const almost = letters(capacity<TypeParam> - 1);
    Laid<TypeParam> last(almost);
    *last += 'x';
    EXPECT_TRUE(became(last, capacity<TypeParam>, ended(almost + u"x")));
    *last += 'y';
    *last += Unit{u'z'};
    EXPECT_TRUE(became(last, capacity<TypeParam>, ended(almost + u"x")));

    Laid<TypeParam> unit(almost);
    *unit += Unit{0x0141};
    EXPECT_TRUE(became(unit, capacity<TypeParam>, ended(almost + u"\x0141")));

    // A full string is not even given its terminator again.
    auto const full = letters(capacity<TypeParam>);
    Laid<TypeParam> receiver(full);
    receiver.stale(capacity<TypeParam>, u"z");
    *receiver += 'x';
    *receiver += Unit{u'x'};
    EXPECT_TRUE(became(receiver, capacity<TypeParam>, full + u'z'));
    TypeParam const sum = *receiver + 'x';
    EXPECT_TRUE(areaIs(sum, capacity<TypeParam>, full + u'z', staleByte));
}

/// An append without room still ends the text, unlike that of a single unit.
TYPED_TEST(Append16, moreThanAUnitEndsAFullStringAgain)
{
    auto const full = letters(capacity<TypeParam>);
    auto const units = raw(u"x");
    auto const other = stringOf<TypeParam>(u"x");
    auto const check = [&](auto const& change) {
        Laid<TypeParam> receiver(full);
        receiver.stale(capacity<TypeParam>, u"z");
        change(*receiver);
        EXPECT_TRUE(became(receiver, capacity<TypeParam>, ended(full)));
    };
    check([](TypeParam& s) { s.add("x"); });
    check([&](TypeParam& s) { s.add(units.data(), 1U); });
    check([&](TypeParam& s) { s.add(other); });
    check([](TypeParam& s) { s += "x"; });
    check([&](TypeParam& s) { s += units.data(); });
    check([&](TypeParam& s) { s += other; });
    check([](TypeParam& s) { s += s; });
    check([&](TypeParam& s) { s = s + other; });
    check([&](TypeParam& s) { s = s.combined(other); });
    check([](TypeParam& s) { s = s.combined("x"); });
}

TYPED_TEST(Append16, largeCounts)
{
    // A count is no 16-bit value here; only the sum with the length has 32 bits.
    auto const units = unterminated(letters(capacity<TypeParam>));
    for (unsigned const count : {65536U, 65541U, static_cast<unsigned>(INT_MAX), UINT_MAX - 2U}) {
        Laid<TypeParam> receiver(u"xy");
        receiver->add(units.data(), count);
        auto const expected = cut<TypeParam>(u"xy" + letters(capacity<TypeParam>));
        EXPECT_TRUE(became(receiver, capacity<TypeParam>, ended(expected)));
    }
    // Of a text's length the low 16 bits count.
    auto const wrapped = guarded::letters(65539);
    Laid<TypeParam> added(u"xy");
    added->add(wrapped.c_str());
    EXPECT_TRUE(became(added, 5, u"xyabc\0"sv));
    Laid<TypeParam> appended(u"xy");
    *appended += wrapped.c_str();
    EXPECT_TRUE(became(appended, 5, u"xyabc\0"sv));
}

TYPED_TEST(Append16, rawTextsAreMeasuredUpTo1024Units)
{
    auto const units = raw(letters(2000));
    Laid<TypeParam> receiver(u"");
    *receiver += units.data();
    auto const expected = cut<TypeParam>(letters(1024));
    EXPECT_TRUE(became(receiver, expected.size(), ended(expected)));
}

/// The length of the argument is read again after each unit, so a string that is appended to itself
/// by the operator repeats until it is full; the other forms double it.
TYPED_TEST(Append16, ofItself)
{
    std::u16string repeated;
    while (repeated.size() < capacity<TypeParam>) {
        repeated += u"abc";
    }
    Laid<TypeParam> filled(u"abc");
    *filled += *filled;
    EXPECT_TRUE(became(filled, capacity<TypeParam>, ended(cut<TypeParam>(repeated))));

    Laid<TypeParam> doubled(u"abc");
    doubled->add(*doubled);
    EXPECT_TRUE(became(doubled, 6, u"abcabc\0"sv));

    Laid<TypeParam> left(u"abc");
    EXPECT_TRUE(holds(*left + *left, u"abcabc"));
    EXPECT_TRUE(holds(left->combined(*left), u"abcabc"));
    EXPECT_TRUE(became(left, 3, u"abc\0"sv));

    Laid<TypeParam> ownUnits(u"abc");
    *ownUnits += textAt(*ownUnits);
    EXPECT_TRUE(became(ownUnits, 6, u"abcabc\0"sv));
    Laid<TypeParam> countedUnits(u"abc");
    countedUnits->add(textAt(*countedUnits) + 1, 2U);
    EXPECT_TRUE(became(countedUnits, 5, u"abcbc\0"sv));
    Laid<TypeParam> ownUnit(u"abc");
    *ownUnit += textAt(*ownUnit)[1];
    EXPECT_TRUE(became(ownUnit, 4, u"abcb\0"sv));
}

TYPED_TEST(Append16, ofItselfWhenEmptyOrFull)
{
    Laid<TypeParam> empty(u"");
    empty.stale(0, u"z");
    empty->add(*empty);
    EXPECT_TRUE(became(empty, 0, u"z"sv));
    *empty += *empty;
    EXPECT_TRUE(became(empty, 0, u"\0"sv));

    auto const text = letters(capacity<TypeParam>);
    Laid<TypeParam> full(text);
    *full += *full;
    full->add(*full);
    EXPECT_TRUE(became(full, capacity<TypeParam>, ended(text)));

    // More than half full: the copy is clipped.
    auto const most = letters(capacity<TypeParam> - 2);
    Laid<TypeParam> clipped(most);
    clipped->add(*clipped);
    EXPECT_TRUE(became(clipped, capacity<TypeParam>, ended(most + u"ab")));
    EXPECT_TRUE(holds(stringOf<TypeParam>(most) + stringOf<TypeParam>(most), most + u"ab"));
}

TEST(AppendAt16, theExampleOfThreeUnitsInTen)
{
    Laid<_qvString<10>> current(u"abc");
    *current += *current;
    EXPECT_TRUE(became(current, 10, u"abcabcabca\0"sv));
    Laid<_qvString_old<10>> older(u"abc");
    *older += *older;
    EXPECT_TRUE(became(older, 10, u"abcabcabca\0"sv));
}

} // namespace
