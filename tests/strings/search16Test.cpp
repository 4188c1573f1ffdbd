/// Searches of the 16-bit strings: positions, the first of several, containment and counts.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images16;
using namespace std::string_view_literals;

template <typename S>
class Search16 : public testing::Test
{};
TYPED_TEST_SUITE(Search16, MainImages, ImageName);

struct IndexRow
{
    Text text;
    Text needle;
    int start;
    int folded;
    int exact;
};

constexpr IndexRow indexRows[] = {
    {u"abcabc", u"bc", 0, 1, 1},
    {u"abcabc", u"BC", 2, 4, -1},
    {u"abcabc", u"bc", 1, 1, 1},
    {u"abcabc", u"bc", 4, 4, 4},
    {u"abcabc", u"bc", 5, -1, -1},
    {u"aBcAbC", u"Bc", 0, 1, 1},
    {u"aBcAbC", u"bC", 0, 1, 4},
    {u"abc", u"x", 0, -1, -1},
    {u"abc", u"C", 0, 2, -1},
    {u"abc", u"c", 2, 2, 2},
    {u"abc", u"c", 3, -1, -1},
    // Nothing is found nowhere.
    {u"abc", u"", 0, -1, -1},
    {u"", u"", 0, -1, -1},
    {u"", u"a", 0, -1, -1},
    // A needle as long as the text, and one that is longer.
    {u"abc", u"abc", 0, 0, 0},
    {u"abc", u"ABC", 0, 0, -1},
    {u"abc", u"abd", 0, -1, -1},
    {u"abc", u"abc", 1, -1, -1},
    {u"abc", u"abcd", 0, -1, -1},
    // There the start is not looked at.
    {u"abc", u"abc", -5, 0, 0},
    {u"abc", u"abc", INT_MIN, 0, 0},
    // A longer one is found nowhere, though a start below 0 leaves room for it.
    {u"abc", u"abcd", -1, -1, -1},
    {u"abc", u"abcd", INT_MIN, -1, -1},
    // A start at or behind the end does not restart.
    {u"abc", u"a", 100, -1, -1},
    {u"abc", u"a", 65536, -1, -1},
    {u"abc", u"a", INT_MAX, -1, -1},
    {u"abc", u"abc", INT_MAX, -1, -1},
    // Spans of the same sum are told apart.
    {u"adbcbc", u"bc", 0, 2, 2},
    {u"cbbc", u"bc", 0, 2, 2},
    {u"\x0201\x0102\x0102\x0201", u"\x0102\x0201", 0, 2, 2},
    {u"\x0100\xFFFFx", u"\xFFFFx", 0, 1, 1},
    // Units are compared whole, at whole units.
    {u"\x4142\x4344", u"\x4241", 0, -1, -1},
    {u"\x6100\x0062z", u"a", 0, -1, -1},
    {u"\x0141x", u"A", 0, -1, -1},
    {u"x\xFFE4\xE4", u"\xE4", 0, 2, 2},
    {u"x\xE4z", u"\xC4", 0, -1, -1},
    {u"a\0b\0"sv, u"b\0"sv, 0, 2, 2},
    {u"a\0b\0"sv, u"\0B"sv, 0, 1, -1},
    {u"aaab", u"aab", 0, 1, 1},
    {u"aaaaaaaaab", u"AB", 0, 8, -1},
};

TYPED_TEST(Search16, indexOfStrings)
{
    for (auto const& row : indexRows) {
        SCOPED_TRACE(shown(row.needle) + " in " + shown(row.text) + " from " +
                     std::to_string(row.start));
        Laid<TypeParam> laid(row.text);
        Laid<TypeParam> needle(row.needle, 0x33);
        auto const before = laid.bytes();
        TypeParam const& string = *laid;
        EXPECT_EQ(string.indexOf(*needle, row.start), row.folded);
        EXPECT_EQ(string.indexOfCaseSen(*needle, row.start), row.exact);
        EXPECT_EQ(laid.bytes(), before);
    }
}

/// Old text behind the end is not found.
TYPED_TEST(Search16, staleUnitsAreNotFound)
{
    Laid<TypeParam> laid(u"ab");
    laid.stale(2, u"cde");
    TypeParam const& string = *laid;
    EXPECT_EQ(string.indexOf(stringOf<TypeParam>(u"c"), 0), -1);
    EXPECT_EQ(string.indexOf(stringOf<TypeParam>(u"bc"), 0), -1);
    EXPECT_EQ(string.indexOfCaseSen(stringOf<TypeParam>(u"c"), 0), -1);
    EXPECT_EQ(string.indexOf(Unit{u'c'}, 0), -1);
    EXPECT_EQ(string.indexOfCaseSen(Unit{u'c'}, 0), -1);
    EXPECT_EQ(string.lastIndexOf(Unit{u'c'}, 2), -1);
    EXPECT_FALSE(string.contains('c'));
    EXPECT_EQ(string.count('c'), 0);
    EXPECT_EQ(string.countCaseSen('c'), 0);
    EXPECT_EQ(laid->indexOf("c"), -1);
}

TYPED_TEST(Search16, indexOfInAFullString)
{
    auto const text = std::u16string(capacity<TypeParam> - 3, u'a') + u"bCd";
    auto const full = stringOf<TypeParam>(text);
    int const n = intCapacity<TypeParam>;
    EXPECT_EQ(full.indexOf(stringOf<TypeParam>(u"Bcd"), 0), n - 3);
    EXPECT_EQ(full.indexOf(stringOf<TypeParam>(u"cD"), n - 2), n - 2);
    EXPECT_EQ(full.indexOf(stringOf<TypeParam>(u"cD"), n - 1), -1);
    EXPECT_EQ(full.indexOfCaseSen(stringOf<TypeParam>(u"bCd"), 0), n - 3);
    EXPECT_EQ(full.indexOfCaseSen(stringOf<TypeParam>(u"bcd"), 0), -1);
    EXPECT_EQ(full.indexOf(full, 0), 0);
    EXPECT_EQ(full.indexOfCaseSen(full, 0), 0);
    EXPECT_EQ(full.indexOf(stringOf<TypeParam>(upperOf(text)), 0), 0);
    EXPECT_EQ(full.indexOfCaseSen(stringOf<TypeParam>(upperOf(text)), 0), -1);
    EXPECT_EQ(full.indexOf(Unit{u'D'}, 0), n - 1);
    EXPECT_EQ(full.lastIndexOf(Unit{u'a'}, 0), 0);
    EXPECT_EQ(full.lastIndexOf(Unit{u'a'}, -1), n - 4);
}

/// The form for plain text widens by the sign, clips at the capacity and starts at 0.
TYPED_TEST(Search16, indexOfPlainText)
{
    Laid<TypeParam> laid(u"abC\xFFE4\xE4");
    EXPECT_EQ(laid->indexOf("b"), 1);
    EXPECT_EQ(laid->indexOf("BC"), 1);
    EXPECT_EQ(laid->indexOf("x"), -1);
    EXPECT_EQ(laid->indexOf(""), -1);
    EXPECT_EQ(laid->indexOf(nullText), -1);
    EXPECT_EQ(laid->indexOf("\xE4"), 3);
    EXPECT_EQ(laid->indexOf("abcdefghijklmnop"), -1);

    Laid<TypeParam> full(letters(capacity<TypeParam>));
    EXPECT_EQ(full->indexOf(guarded::letters(capacity<TypeParam> + 4).c_str()), 0);
    EXPECT_EQ(full->indexOf(guarded::letters(65536).c_str()), -1);
}

struct UnitRow
{
    Text text;
    Unit unit;
    int start;
    int folded;
    int exact;
    int last;
};

constexpr UnitRow unitRows[] = {
    {u"abcabc", u'b', 0, 1, 1, -1},
    {u"abcabc", u'b', 2, 4, 4, 1},
    {u"abcabc", u'b', 4, 4, 4, 4},
    {u"abcabc", u'b', 5, -1, -1, 4},
    {u"abcabc", u'B', 0, 1, -1, -1},
    // A start out of range means the beginning, and the end for the search that walks down.
    {u"abcabc", u'a', 6, 0, 0, 3},
    {u"abcabc", u'a', 500, 0, 0, 3},
    {u"abcabc", u'a', 65536, 0, 0, 3},
    {u"abcabc", u'a', INT_MAX, 0, 0, 3},
    {u"abcabc", u'a', -1, 0, 0, 3},
    {u"abcabc", u'a', INT_MIN, 0, 0, 3},
    {u"abcabc", u'a', 0, 0, 0, 0},
    {u"abcabc", u'c', -1, 2, 2, 5},
    {u"abcabc", u'c', 1, 2, 2, -1},
    {u"abcabc", u'x', 0, -1, -1, -1},
    {u"abcabc", u'x', -1, -1, -1, -1},
    {u"bab", u'a', 100, 1, 1, 1},
    {u"", u'a', 0, -1, -1, -1},
    {u"", 0, 0, -1, -1, -1},
    {u"a\0b"sv, 0, 0, 1, 1, -1},
    {u"a\0b"sv, 0, -1, 1, 1, 1},
    // Whole units, of which only ASCII letters fold.
    {u"\xC4\xE4", 0xE4, 0, 1, 1, -1},
    {u"a\x0141\x0161", 0x0161, 0, 2, 2, -1},
    {u"a\x0141", 0x41, -1, 0, -1, -1},
    {u"\x0141\x41", 0x41, -1, 1, 1, 1},
    {u"\xE4\xFFE4", 0xFFE4, -1, 1, 1, 1},
    {u"[{", u'{', -1, 1, 1, 1},
};

TYPED_TEST(Search16, indexOfUnits)
{
    for (auto const& row : unitRows) {
        SCOPED_TRACE(std::to_string(row.unit) + " in " + shown(row.text) + " from " +
                     std::to_string(row.start));
        Laid<TypeParam> laid(row.text);
        TypeParam const& string = *laid;
        EXPECT_EQ(string.indexOf(row.unit, row.start), row.folded);
        EXPECT_EQ(string.indexOfCaseSen(row.unit, row.start), row.exact);
        EXPECT_EQ(string.lastIndexOf(row.unit, row.start), row.last);
    }
}

struct SeveralRow
{
    Text needles[6];
    int position2; ///< of the first two needles alone
    int which2;
    int position6;
    int which6;
};

/// In "0123456bab"; in spite of the name the needle found last wins, unless one stands at the
/// start, which ends the walk.
constexpr SeveralRow severalRows[] = {
    {{u"7", u"3", u"", u"", u"", u""}, 3, 1, 3, 1},
    {{u"6", u"3", u"", u"", u"", u""}, 3, 1, 3, 1},
    {{u"3", u"6", u"", u"", u"", u""}, 6, 1, 6, 1},
    {{u"3", u"x", u"", u"", u"", u""}, 3, 0, 3, 0},
    {{u"x", u"y", u"z", u"", u"", u"q"}, -1, -1, -1, -1},
    {{u"", u"", u"", u"", u"", u""}, -1, -1, -1, -1},
    {{u"6", u"3", u"0", u"5", u"4", u"1"}, 3, 1, 0, 2},
    {{u"0", u"3", u"5", u"5", u"4", u"1"}, 0, 0, 0, 0},
    {{u"3", u"01", u"5", u"5", u"4", u"1"}, 0, 1, 0, 1},
    {{u"1", u"2", u"3", u"4", u"5", u"6"}, 2, 1, 6, 5},
    {{u"6", u"5", u"4", u"3", u"2", u"1"}, 5, 1, 1, 5},
    {{u"x", u"y", u"z", u"q", u"r", u"0"}, -1, -1, 0, 5},
    {{u"1", u"x", u"y", u"z", u"q", u"r"}, 1, 0, 1, 0},
    {{u"x", u"y", u"z", u"2", u"q", u"r"}, -1, -1, 2, 3},
    {{u"x", u"y", u"z", u"q", u"2", u"r"}, -1, -1, 2, 4},
    // Case is ignored.
    {{u"AB", u"BA", u"x", u"y", u"z", u"q"}, 7, 1, 7, 1},
};

TYPED_TEST(Search16, firstOfSeveral)
{
    auto const string = stringOf<TypeParam>(u"0123456bab");
    for (auto const& row : severalRows) {
        SCOPED_TRACE(shown(row.needles[0]) + ", " + shown(row.needles[1]));
        auto const a = stringOf<TypeParam>(row.needles[0]);
        auto const b = stringOf<TypeParam>(row.needles[1]);
        auto const c = stringOf<TypeParam>(row.needles[2]);
        auto const d = stringOf<TypeParam>(row.needles[3]);
        auto const e = stringOf<TypeParam>(row.needles[4]);
        auto const f = stringOf<TypeParam>(row.needles[5]);
        int which = 77;
        EXPECT_EQ(string.indexOfFirstOcc(a, b, &which), row.position2);
        EXPECT_EQ(which, row.which2);
        which = 77;
        EXPECT_EQ(string.indexOfFirstOcc(a, b, c, d, e, f, &which), row.position6);
        EXPECT_EQ(which, row.which6);
        EXPECT_EQ(string.indexOfFirstOcc(a, b, nullptr), row.position2);
        EXPECT_EQ(string.indexOfFirstOcc(a, b, c, d, e, f, nullptr), row.position6);
    }
    TypeParam const empty;
    int which = 77;
    EXPECT_EQ(empty.indexOfFirstOcc(string, empty, &which), -1);
    EXPECT_EQ(which, -1);
}

struct ContainsRow
{
    Text text;
    char const* needle;
    bool folded;
    bool exact;
    bool upperInput;
};

/// The needle is widened by the sign.
constexpr ContainsRow containsRows[] = {
    {u"abCabc", "bca", true, false, false},    {u"abCabc", "bCa", true, true, false},
    {u"abCabc", "BCA", true, false, true},     {u"abc", "x", false, false, false},
    {u"abc", "", false, false, false},         {u"", "", false, false, false},
    {u"", "a", false, false, false},           {u"abc", nullText, false, false, false},
    {u"", nullText, false, false, false},      {u"abc", "abcd", false, false, false},
    {u"x\xFFE4", "\xE4", true, true, true},    {u"x\xE4", "\xE4", false, false, false},
    {u"x\xFFE4z", "X\xE4", true, false, true}, {u"x\x0141", "A", false, false, false},
    {u"123", "23", true, true, true},          {u"abc", "ABC", true, false, true},
};

TYPED_TEST(Search16, containsTexts)
{
    for (auto const& row : containsRows) {
        SCOPED_TRACE(shown(row.text) + " and " + (row.needle ? row.needle : "null"));
        Laid<TypeParam> laid(row.text);
        auto const before = laid.bytes();
        TypeParam const& string = *laid;
        EXPECT_EQ(string.contains(row.needle), row.folded);
        EXPECT_EQ(string.containsCaseSen(row.needle), row.exact);
        EXPECT_EQ(string.containsUpperCaseInput(row.needle), row.upperInput);
        TypeParam const needle(row.needle);
        EXPECT_EQ(string.contains(needle), row.folded);
        EXPECT_EQ(string.containsCaseSen(needle), row.exact);
        EXPECT_EQ(string.containsUpperCaseInput(needle), row.upperInput);
        EXPECT_EQ(laid.bytes(), before);
    }
}

/// A needle is clipped at the capacity, so a longer one can match a full text.
TYPED_TEST(Search16, containsClipsItsNeedle)
{
    auto const full = stringOf<TypeParam>(upperOf(letters(capacity<TypeParam>)));
    auto needle = guarded::letters(capacity<TypeParam> + 4);
    EXPECT_TRUE(full.contains(needle.c_str()));
    EXPECT_FALSE(full.containsCaseSen(needle.c_str()));
    EXPECT_FALSE(full.contains(guarded::letters(65536).c_str()));
    for (char& byte : needle) {
        byte = static_cast<char>(byte - 32);
    }
    EXPECT_TRUE(full.containsCaseSen(needle.c_str()));
    EXPECT_TRUE(full.containsUpperCaseInput(needle.c_str()));
    EXPECT_TRUE(full.containsCaseSen(needle.data(), intCapacity<TypeParam> + 3));
}

TYPED_TEST(Search16, containsCountedBytes)
{
    Laid<TypeParam> laid(u"ab\0c\xFFE4"sv);
    TypeParam const& string = *laid;
    EXPECT_TRUE(string.containsCaseSen("bx", 1));
    EXPECT_FALSE(string.containsCaseSen("bx", 2));
    EXPECT_TRUE(string.containsCaseSen("b\0c", 3));
    EXPECT_FALSE(string.containsCaseSen("b\0d", 3));
    EXPECT_FALSE(string.containsCaseSen("B", 1));
    EXPECT_TRUE(string.containsCaseSen("\xE4", 1));
    EXPECT_FALSE(string.containsCaseSen("b", 0));
    EXPECT_FALSE(string.containsCaseSen("b", 65536));
    EXPECT_TRUE(string.containsCaseSen("bx", 65537));
    EXPECT_FALSE(string.containsCaseSen(nullText, 0));
    EXPECT_FALSE(string.containsCaseSen(nullText, 3));

    // A negative count is a large one: as many bytes as fit are read.
    auto const bytes = unterminated(guarded::letters(capacity<TypeParam>));
    auto const full = stringOf<TypeParam>(letters(capacity<TypeParam>));
    char const* const text = bytes.data();
    EXPECT_TRUE(full.containsCaseSen(text, -1));
    EXPECT_TRUE(full.containsCaseSen(text, 65535));
    EXPECT_FALSE(string.containsCaseSen(text, -1));
    EXPECT_FALSE(string.containsCaseSen(text, -65536));
}

struct CharacterRow
{
    Text text;
    char character;
    bool contained;
    int folded;
    int exact;
};

/// Only the containment of a high character finds its sign-extended unit; counts compare 32 bits,
/// where it equals no unit.
constexpr CharacterRow characterRows[] = {
    {u"abcabC", 'c', true, 2, 1},        {u"abcabC", 'C', true, 2, 1},
    {u"abc", 'x', false, 0, 0},          {u"", 'a', false, 0, 0},
    {u"a\0b\0"sv, '\0', true, 2, 2},     {u"x\xFFE4\xFFE4", '\xE4', true, 0, 0},
    {u"x\xE4", '\xE4', false, 0, 0},     {u"x\xFFC4", '\xE4', false, 0, 0},
    {u"\x0141\x0161", 'a', false, 0, 0}, {u"\x0141\x41", 'a', true, 1, 0},
    {u"[[{", '[', true, 2, 2},           {u"aaaaaaaaaa", 'A', true, 10, 0},
    {u"\xFFFF\xFF", '\xFF', true, 0, 0}, {u"\x7F", '\x7F', true, 1, 1},
    {u"\xFF80\x80", '\x80', true, 0, 0}, {u"", '\0', false, 0, 0},
};

TYPED_TEST(Search16, charactersInTheText)
{
    for (auto const& row : characterRows) {
        SCOPED_TRACE(shown(row.text) + " " + std::to_string(row.character));
        Laid<TypeParam> laid(row.text);
        TypeParam const& string = *laid;
        EXPECT_EQ(string.contains(row.character), row.contained);
        EXPECT_EQ(string.count(row.character), row.folded);
        EXPECT_EQ(string.countCaseSen(row.character), row.exact);
    }
    auto const full = stringOf<TypeParam>(std::u16string(capacity<TypeParam>, u'q'));
    EXPECT_EQ(full.count('Q'), intCapacity<TypeParam>);
    EXPECT_EQ(full.countCaseSen('q'), intCapacity<TypeParam>);
    EXPECT_EQ(full.countCaseSen('Q'), 0);
}

/// A long pattern is compared to its end: a span that differs in one place only is no hit.
TEST(SearchLong16, aNearMissIsNoHit)
{
    std::u16string const pattern = u"abcdefghijklmnopqrstuvwxyz-abcdefghijklmnopqrstuvwxyz";
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        SCOPED_TRACE(at);
        std::u16string miss = pattern;
        miss[at] = u'#';
        auto const text = stringOf<_qvString<250>>(miss + pattern);
        auto const wanted = stringOf<_qvString<250>>(pattern);
        EXPECT_EQ(text.indexOf(wanted, 0), 53);
        EXPECT_EQ(text.indexOfCaseSen(wanted, 0), 53);
        auto const missed = stringOf<_qvString<250>>(miss + miss);
        EXPECT_EQ(missed.indexOf(wanted, 0), -1);
        EXPECT_EQ(missed.indexOfCaseSen(wanted, 0), -1);
    }
}

} // namespace
