/// Searches of all strings: positions, the first of several, containment and counts.

#include "tests/strings/laid.h"

#include <climits>
#include <random>

namespace strings {
namespace {

using namespace std::string_view_literals;

class Search : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Search, testing::ValuesIn(allImages()), imageName);

struct PatternRow
{
    Text text;
    Text pattern;
    int start;
    int folded;
    int exact;
};

constexpr PatternRow patternRows[] = {
    {u"abcabc", u"bc", 0, 1, 1},
    {u"abcabc", u"BC", 0, 1, -1},
    {u"abcabc", u"bc", 1, 1, 1},
    {u"abcabc", u"bc", 2, 4, 4},
    {u"abcabc", u"BC", 2, 4, -1},
    {u"abcabc", u"bc", 4, 4, 4},
    {u"abCABc", u"cab", 0, 2, -1},
    {u"abCABc", u"CAB", 0, 2, 2},
    {u"aBcAbC", u"Bc", 0, 1, 1},
    {u"aBcAbC", u"bC", 0, 1, 4},
    {u"abc", u"x", 0, -1, -1},
    {u"abc", u"C", 0, 2, -1},
    {u"abc", u"c", 2, 2, 2},
    // A start from which the pattern cannot fit fails: it neither clamps nor starts over.
    {u"abc", u"c", 3, -1, -1},
    {u"abc", u"a", 100, -1, -1},
    {u"abc", u"a", 65536, -1, -1},
    {u"abc", u"a", INT_MAX, -1, -1},
    {u"abcabc", u"bc", 5, -1, -1},
    {u"abcabc", u"bc", 6, -1, -1},
    {u"abcabc", u"bc", 100, -1, -1},
    {u"abcabc", u"bc", INT_MAX - 1, -1, -1},
    {u"abcabc", u"bc", INT_MAX, -1, -1},
    // A pattern of the text's own length is compared once, whatever a start below 1 says.
    {u"abc", u"abc", 0, 0, 0},
    {u"abc", u"ABC", 0, 0, -1},
    {u"abc", u"abd", 0, -1, -1},
    {u"abc", u"xbc", 0, -1, -1},
    {u"abc", u"abc", 1, -1, -1},
    {u"abc", u"abc", -1, 0, 0},
    {u"abc", u"abc", -5, 0, 0},
    {u"abc", u"ABC", -7, 0, -1},
    {u"abc", u"abc", INT_MIN, 0, 0},
    {u"abc", u"abc", INT_MAX, -1, -1},
    // A longer one is found nowhere, though a start below 0 leaves room for it.
    {u"abc", u"abcd", 0, -1, -1},
    {u"abc", u"abcd", -1, -1, -1},
    {u"abc", u"abcd", INT_MIN, -1, -1},
    {u"ab", u"abc", 0, -1, -1},
    // An empty pattern is found nowhere.
    {u"abc", u"", 0, -1, -1},
    {u"abc", u"", 2, -1, -1},
    {u"abc", u"", -1, -1, -1},
    {u"", u"", 0, -1, -1},
    {u"", u"a", 0, -1, -1},
    // First match, also where it overlaps a false beginning.
    {u"aaab", u"aab", 0, 1, 1},
    {u"ababac", u"abac", 0, 2, 2},
    {u"aaaaaa", u"aa", 3, 3, 3},
    {u"aaaaaa", u"aa", 4, 4, 4},
    {u"aaaaaaaaab", u"AB", 0, 8, -1},
    // Spans of the same sum are told apart.
    {u"bcad", u"ad", 0, 2, 2},
    {u"bc", u"ad", 0, -1, -1},
    {u"bcbc", u"ad", 0, -1, -1},
    {u"BCaD", u"ad", 0, 2, -1},
    {u"adbcbc", u"bc", 0, 2, 2},
    {u"cbbc", u"bc", 0, 2, 2},
    {u"\x01\xFF\x02\xFE\xFF\x01", u"\xFF\x01", 0, 4, 4},
    {u"\x80\x80\x01", u"\x80\x01", 0, 1, 1},
    {u"\x0201\x0102\x0102\x0201", u"\x0102\x0201", 0, 2, 2},
    {u"\x0100\xFFFFx", u"\xFFFFx", 0, 1, 1},
    // Only ASCII letters have a case.
    {u"\xE4"
     u"bc",
     u"\xC4", 0, -1, -1},
    {u"x\xE4", u"\xE4", 0, 1, 1},
    {u"x\xE4z", u"\xC4", 0, -1, -1},
    {u"a[c", u"{", 0, -1, -1},
    {u"@`", u"`", 0, 1, 1},
    // Units are compared whole, at whole units.
    {u"\x4142\x4344", u"\x4241", 0, -1, -1},
    {u"\x6100\x0062z", u"a", 0, -1, -1},
    {u"\x0141x", u"A", 0, -1, -1},
    {u"x\xFFE4\xE4", u"\xE4", 0, 2, 2},
    // Zeros are characters.
    {u"a\0b\0c"sv, u"\0c"sv, 0, 3, 3},
    {u"a\0b"sv, u"\0B"sv, 0, 1, -1},
    {u"a\0"sv, u"\0"sv, 0, 1, 1},
    {u"a\0b\0"sv, u"b\0"sv, 0, 2, 2},
    {u"a\0b\0"sv, u"\0B"sv, 0, 1, -1},
};

TEST_P(Search, patterns)
{
    for (auto const& row : patternRows) {
        if (!image.fits(row.text, row.pattern))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + shown(row.pattern) + " from " +
                     std::to_string(row.start));
        Laid const text(image, row.text);
        Laid const pattern(image, row.pattern, 0x33);
        auto const before = text.bytes();
        EXPECT_EQ(text->indexOf(pattern, row.start), row.folded);
        EXPECT_EQ(text->indexOfCaseSen(pattern, row.start), row.exact);
        if (row.start == 0) {
            EXPECT_EQ(text->contains(pattern), row.folded != -1);
            EXPECT_EQ(text->containsCaseSen(pattern), row.exact != -1);
        }
        EXPECT_EQ(text.bytes(), before);
    }
}

/// A text whose spans nearly match in every block, in two places by turns, with the pattern last.
std::u16string nearly(std::u16string const& pattern, std::size_t turns)
{
    auto first = pattern;
    auto second = pattern;
    first[1] = second[2] = u'#';
    std::u16string text;
    for (std::size_t i = 0; i < turns; ++i)
        text += i % 2 == 0 ? first : second;
    return text + pattern;
}

/// Each search of a pair would go wrong with what the other one wanted of a first unit.
TEST_P(Search, goesOnBehindSpansThatNearlyMatch)
{
    std::u16string const patterns[] = {u"{AB}", u"QAB}", u"[AB]", u"\xE4QB}", u"aAB{"};
    for (std::size_t const turns : {1u, 2u, 3u, 4u, 5u, 6u, 8u, 11u, 16u, 40u}) {
        for (auto const& units : patterns) {
            auto const written = nearly(units, turns);
            if (!image.fits(written))
                continue;
            SCOPED_TRACE(shown(units) + " behind " + std::to_string(turns));
            Laid const text(image, written);
            Laid const pattern(image, units);
            auto const at = static_cast<int>(4 * turns);
            EXPECT_EQ(text->indexOf(pattern, 0), at);
            EXPECT_EQ(text->indexOfCaseSen(pattern, 0), at);
            EXPECT_EQ(text->containsUpperCaseInput(pattern), units[0] != u'a');
            EXPECT_TRUE(text->contains(pattern));
        }
    }
}

/// The start has nothing to do with the places in the pattern.
TEST_P(Search, startsFurtherOnThanThePatternIsLong)
{
    for (std::size_t const place : {12u, 40u}) {
        auto const written = std::u16string(place, u'x') + u"ab";
        if (!image.fits(written))
            continue;
        Laid const text(image, written);
        Laid const pattern(image, u"ab");
        auto const at = static_cast<int>(place);
        for (int start = 0; start <= at; ++start) {
            EXPECT_EQ(text->indexOf(pattern, start), at) << start;
            EXPECT_EQ(text->indexOfCaseSen(pattern, start), at) << start;
        }
    }
}

TEST_P(Search, oldTextBehindTheEndIsNotFound)
{
    Laid text(image, u"ab");
    text.stale(2, u"cab");
    for (Text const pattern : {u"bc"sv, u"abc"sv, u"c"sv}) {
        EXPECT_EQ(text->indexOf(stringOf(image, pattern), 0), -1);
        EXPECT_EQ(text->indexOfCaseSen(stringOf(image, pattern), 0), -1);
        EXPECT_EQ(text->indexOfCaseSen(stringOf(image, pattern), 1), -1);
    }
    EXPECT_EQ(text->indexOf(u'c', 0), -1);
    EXPECT_EQ(text->indexOfCaseSen(u'c', 0), -1);
    EXPECT_EQ(text->lastIndexOf(u'a', -1), 0);
    EXPECT_EQ(text->lastIndexOf(u'c', -1), -1);
    EXPECT_EQ(text->lastIndexOf(u'c', 2), -1);
    EXPECT_EQ(text->count('a'), 1);
    EXPECT_EQ(text->countCaseSen('a'), 1);
    EXPECT_EQ(text->count('c'), 0);
    EXPECT_EQ(text->countCaseSen('c'), 0);
    EXPECT_FALSE(text->contains('c'));
    EXPECT_FALSE(text->contains("bc"));
    EXPECT_FALSE(text->containsUpperCaseInput("C"));
}

TEST_P(Search, aStaleFirstUnitOfAnEmptyStringIsNotFound)
{
    Laid text(image, u"");
    text.stale(0, u"a");
    EXPECT_EQ(text->indexOf(u'a', 0), -1);
    EXPECT_EQ(text->indexOfCaseSen(u'a', 0), -1);
    EXPECT_EQ(text->lastIndexOf(u'a', -1), -1);
    EXPECT_EQ(text->lastIndexOf(u'a', 0), -1);
    EXPECT_EQ(text->indexOf(stringOf(image, u"a"), 0), -1);
    EXPECT_EQ(text->count('a'), 0);
    EXPECT_EQ(text->countCaseSen('a'), 0);
    EXPECT_FALSE(text->contains('a'));
    EXPECT_FALSE(text->contains("a"));
}

TEST_P(Search, theWholeOfAFullStringIsSearched)
{
    auto const last = image.intCapacity() - 1;
    std::u16string periodic(image.capacity, u'a');
    periodic.back() = u'b';
    Laid const text(image, periodic);
    EXPECT_EQ(text->indexOf(stringOf(image, u"AAB"), 0), last - 2);
    EXPECT_EQ(text->indexOfCaseSen(stringOf(image, u"aab"), 0), last - 2);
    EXPECT_EQ(text->indexOfCaseSen(stringOf(image, u"aab"), last - 2), last - 2);
    EXPECT_EQ(text->indexOf(stringOf(image, u"aab"), last - 1), -1);
    EXPECT_EQ(text->indexOf(*text, 0), 0);
    EXPECT_EQ(text->indexOfCaseSen(*text, 0), 0);
    EXPECT_EQ(text->indexOf(stringOf(image, upperOf(periodic)), 0), 0);
    EXPECT_EQ(text->indexOfCaseSen(stringOf(image, upperOf(periodic)), 0), -1);
    EXPECT_EQ(text->indexOf(u'B', 0), last);
    EXPECT_EQ(text->indexOf(u'B', last), last);
    EXPECT_EQ(text->lastIndexOf(u'b', -1), last);
    EXPECT_EQ(text->lastIndexOf(u'a', last + 1), last - 1);
    EXPECT_EQ(text->lastIndexOf(u'a', 0), 0);
    EXPECT_EQ(text->count('A'), last);
    EXPECT_EQ(text->countCaseSen('A'), 0);
    EXPECT_EQ(text->countCaseSen('a'), last);
    EXPECT_TRUE(text->contains(narrowed(periodic).c_str()));
}

TEST_P(Search, theEndOfAFullStringIsFoundInEitherCase)
{
    Laid const text(image, std::u16string(image.capacity - 3, u'a') + u"bCd");
    int const n = image.intCapacity();
    EXPECT_EQ(text->indexOf(stringOf(image, u"Bcd"), 0), n - 3);
    EXPECT_EQ(text->indexOf(stringOf(image, u"cD"), n - 2), n - 2);
    EXPECT_EQ(text->indexOf(stringOf(image, u"cD"), n - 1), -1);
    EXPECT_EQ(text->indexOfCaseSen(stringOf(image, u"bCd"), 0), n - 3);
    EXPECT_EQ(text->indexOfCaseSen(stringOf(image, u"bcd"), 0), -1);
    EXPECT_EQ(text->lastIndexOf(u'a', -1), n - 4);
}

/// Random texts over few units, so that many spans nearly match, beside a plain search.
TEST_P(Search, agreesWithAPlainSearch)
{
    constexpr auto alphabet = u"aAbB\xE4\x00\x7F"sv;
    std::mt19937 random(8);
    auto const randomText = [&](std::size_t length) {
        std::u16string text(length, u'?');
        for (Unit& unit : text)
            unit = alphabet[random() % alphabet.size()];
        return text;
    };
    for (int round = 0; round < 2000; ++round) {
        auto const text = randomText(random() % (std::min<std::size_t>(image.capacity, 40) + 1));
        auto const pattern = randomText(1 + random() % 4);
        auto const start = random() % (text.size() + 2);
        auto const plain = [start](std::u16string const& in, std::u16string const& what) {
            auto const at = in.find(what, start);
            return at == std::u16string::npos ? -1 : static_cast<int>(at);
        };
        auto const string = stringOf(image, text);
        auto const wanted = stringOf(image, pattern);
        int const from = static_cast<int>(start);
        ASSERT_EQ(string->indexOf(wanted, from), plain(upperOf(text), upperOf(pattern)));
        ASSERT_EQ(string->indexOfCaseSen(wanted, from), plain(text, pattern));
    }
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

/// An unusable start of a search for one unit starts over instead of failing: at the beginning, and
/// at the end for the search that walks down.
constexpr UnitRow unitRows[] = {
    {u"abcabc", u'b', 0, 1, 1, -1},
    {u"abcabc", u'b', 2, 4, 4, 1},
    {u"abcabc", u'b', 4, 4, 4, 4},
    {u"abcabc", u'b', 5, -1, -1, 4},
    {u"abcabc", u'B', 0, 1, -1, -1},
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
    {u"bab", u'a', 0, 1, 1, -1},
    {u"bab", u'a', 100, 1, 1, 1},
    {u"bab", u'b', 0, 0, 0, 0},
    {u"bab", u'b', 1, 2, 2, 0},
    {u"bab", u'b', 2, 2, 2, 2},
    {u"bab", u'b', 3, 0, 0, 2},
    {u"bab", u'b', -1, 0, 0, 2},
    {u"bab", u'b', INT_MAX, 0, 0, 2},
    {u"bab", u'b', INT_MIN, 0, 0, 2},
    {u"bab", u'a', 2, -1, -1, 1},
    {u"bab", u'A', 0, 1, -1, -1},
    {u"bAb", u'a', 0, 1, -1, -1},
    {u"bAb", u'A', 2, -1, -1, 1},
    {u"bab", u'x', 0, -1, -1, -1},
    {u"abcb", u'b', -1, 1, 1, 3},
    {u"abcb", u'b', 1, 1, 1, 1},
    {u"abcb", u'b', 2, 3, 3, 1},
    {u"abcb", u'b', 3, 3, 3, 3},
    {u"abcb", u'b', 4, 1, 1, 3},
    {u"", u'a', 0, -1, -1, -1},
    {u"", u'a', -1, -1, -1, -1},
    {u"", 0, 0, -1, -1, -1},
    {u"a\0b"sv, 0, 0, 1, 1, -1},
    {u"a\0b"sv, 0, -1, 1, 1, 1},
    // Whole units, of which only ASCII letters fold.
    {u"x\xE4", 0xE4, 0, 1, 1, -1},
    {u"x\xE4", 0xC4, -1, -1, -1, -1},
    {u"@", u'`', 0, -1, -1, -1},
    {u"[{", u'{', -1, 1, 1, 1},
    {u"\xC4\xE4", 0xE4, 0, 1, 1, -1},
    {u"a\x0141\x0161", 0x0161, 0, 2, 2, -1},
    {u"a\x0141", 0x41, -1, 0, -1, -1},
    {u"\x0141\x41", 0x41, -1, 1, 1, 1},
    {u"\xE4\xFFE4", 0xFFE4, -1, 1, 1, 1},
};

TEST_P(Search, units)
{
    for (auto const& row : unitRows) {
        if (!image.fits(row.text))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + std::to_string(row.unit) + " from " +
                     std::to_string(row.start));
        Laid const text(image, row.text);
        EXPECT_EQ(text->indexOf(row.unit, row.start), row.folded);
        EXPECT_EQ(text->indexOfCaseSen(row.unit, row.start), row.exact);
        EXPECT_EQ(text->lastIndexOf(row.unit, row.start), row.last);
    }
}

struct SeveralRow
{
    Text text;
    Text patterns[6];
    int position2; ///< of the first two patterns alone
    int which2;
    int position6;
    int which6;
};

/// The last listed pattern that was found counts, not the leftmost one; only position 0 ends the
/// search at once.
constexpr SeveralRow severalRows[] = {
    {u"abcdef", {u"b", u"d", u"", u"", u"", u""}, 3, 1, 3, 1},
    {u"abcdef", {u"d", u"b", u"", u"", u"", u""}, 1, 1, 1, 1},
    {u"abcdef", {u"D", u"x", u"", u"", u"", u""}, 3, 0, 3, 0},
    {u"abcdef", {u"x", u"B", u"", u"", u"", u""}, 1, 1, 1, 1},
    {u"abcdef", {u"x", u"y", u"", u"", u"", u""}, -1, -1, -1, -1},
    {u"abcdef", {u"a", u"b", u"", u"", u"", u""}, 0, 0, 0, 0},
    {u"abcdef", {u"b", u"A", u"", u"", u"", u""}, 0, 1, 0, 1},
    {u"abcdef", {u"", u"c", u"", u"", u"", u""}, 2, 1, 2, 1},
    {u"abcdef", {u"c", u"", u"", u"", u"", u""}, 2, 0, 2, 0},
    {u"abcdef", {u"", u"", u"", u"", u"", u""}, -1, -1, -1, -1},
    {u"abcdef", {u"f", u"f", u"", u"", u"", u""}, 5, 1, 5, 1},
    {u"abcdef", {u"abcdef", u"b", u"", u"", u"", u""}, 0, 0, 0, 0},
    {u"abcdef", {u"f", u"e", u"d", u"c", u"b", u"x"}, 4, 1, 1, 4},
    {u"abcdef", {u"b", u"c", u"d", u"e", u"f", u"x"}, 2, 1, 5, 4},
    {u"abcdef", {u"x", u"x", u"x", u"x", u"x", u"E"}, -1, -1, 4, 5},
    {u"abcdef", {u"x", u"y", u"", u"z", u"", u"q"}, -1, -1, -1, -1},
    {u"abcdef", {u"b", u"c", u"A", u"d", u"e", u"f"}, 2, 1, 0, 2},
    {u"abcdef", {u"a", u"b", u"c", u"d", u"e", u"f"}, 0, 0, 0, 0},
    {u"abcdef", {u"f", u"e", u"d", u"c", u"b", u"ab"}, 4, 1, 0, 5},
    {u"abcdef", {u"x", u"cd", u"x", u"x", u"x", u"x"}, 2, 1, 2, 1},
    {u"0123456bab", {u"7", u"3", u"", u"", u"", u""}, 3, 1, 3, 1},
    {u"0123456bab", {u"6", u"3", u"", u"", u"", u""}, 3, 1, 3, 1},
    {u"0123456bab", {u"3", u"6", u"", u"", u"", u""}, 6, 1, 6, 1},
    {u"0123456bab", {u"3", u"x", u"", u"", u"", u""}, 3, 0, 3, 0},
    {u"0123456bab", {u"x", u"y", u"z", u"", u"", u"q"}, -1, -1, -1, -1},
    {u"0123456bab", {u"", u"", u"", u"", u"", u""}, -1, -1, -1, -1},
    {u"0123456bab", {u"6", u"3", u"0", u"5", u"4", u"1"}, 3, 1, 0, 2},
    {u"0123456bab", {u"0", u"3", u"5", u"5", u"4", u"1"}, 0, 0, 0, 0},
    {u"0123456bab", {u"3", u"01", u"5", u"5", u"4", u"1"}, 0, 1, 0, 1},
    {u"0123456bab", {u"1", u"2", u"3", u"4", u"5", u"6"}, 2, 1, 6, 5},
    {u"0123456bab", {u"6", u"5", u"4", u"3", u"2", u"1"}, 5, 1, 1, 5},
    {u"0123456bab", {u"x", u"y", u"z", u"q", u"r", u"0"}, -1, -1, 0, 5},
    {u"0123456bab", {u"1", u"x", u"y", u"z", u"q", u"r"}, 1, 0, 1, 0},
    {u"0123456bab", {u"x", u"y", u"z", u"2", u"q", u"r"}, -1, -1, 2, 3},
    {u"0123456bab", {u"x", u"y", u"z", u"q", u"2", u"r"}, -1, -1, 2, 4},
    // Case is ignored.
    {u"0123456bab", {u"AB", u"BA", u"x", u"y", u"z", u"q"}, 7, 1, 7, 1},
    {u"", {u"abc", u"", u"", u"", u"", u""}, -1, -1, -1, -1},
};

TEST_P(Search, firstOfSeveral)
{
    for (auto const& row : severalRows) {
        if (!image.fits(row.text))
            continue;
        SCOPED_TRACE(shown(row.patterns[0]) + ", " + shown(row.patterns[1]));
        auto const text = stringOf(image, row.text);
        auto const a = stringOf(image, row.patterns[0]);
        auto const b = stringOf(image, row.patterns[1]);
        auto const c = stringOf(image, row.patterns[2]);
        auto const d = stringOf(image, row.patterns[3]);
        auto const e = stringOf(image, row.patterns[4]);
        auto const f = stringOf(image, row.patterns[5]);
        int which = 77;
        EXPECT_EQ(text->indexOfFirstOcc(a, b, &which), row.position2);
        EXPECT_EQ(which, row.which2);
        which = 77;
        EXPECT_EQ(text->indexOfFirstOcc(a, b, c, d, e, f, &which), row.position6);
        EXPECT_EQ(which, row.which6);
        EXPECT_EQ(text->indexOfFirstOcc(a, b, nullptr), row.position2);
        EXPECT_EQ(text->indexOfFirstOcc(a, b, c, d, e, f, nullptr), row.position6);
    }
}

struct CountRow
{
    Text text;
    char character;
    int folded;
    int exact;
};

constexpr CountRow countRows[] = {
    {u"aAbA", 'a', 3, 1},       {u"aAbA", 'A', 3, 2},        {u"aAbA", 'b', 1, 1},
    {u"aAbA", 'B', 1, 0},       {u"aAbA", 'x', 0, 0},        {u"", 'a', 0, 0},
    {u"", '\0', 0, 0},          {u"a\0\0b"sv, '\0', 2, 2},   {u"[{[", '[', 2, 2},
    {u"aaaaaa", 'A', 6, 0},     {u"abcabC", 'c', 2, 1},      {u"abcabC", 'C', 2, 1},
    {u"abc", 'x', 0, 0},        {u"a\0b\0"sv, '\0', 2, 2},   {u"[[{", '[', 2, 2},
    {u"\x7F", '\x7F', 1, 1},    {u"aaaaaaaaaa", 'A', 10, 0}, {u"\x0141\x0161", 'a', 0, 0},
    {u"\x0141\x41", 'a', 1, 0},
};

TEST_P(Search, countsACharacter)
{
    for (auto const& row : countRows) {
        if (!image.fits(row.text))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + row.character);
        Laid const text(image, row.text);
        EXPECT_EQ(text->count(row.character), row.folded);
        EXPECT_EQ(text->countCaseSen(row.character), row.exact);
        EXPECT_EQ(text->contains(row.character), row.folded != 0);
    }
}

struct ContainsRow
{
    Text text;
    char const* pattern;
    bool folded;
    bool exact;
    bool upperInput;
};

constexpr ContainsRow containsRows[] = {
    {u"Hello", "ell", true, true, false},      {u"Hello", "ELL", true, false, true},
    {u"Hello", "Hello", true, true, false},    {u"Hello", "HELLO", true, false, true},
    {u"Hello", "Hellos", false, false, false}, {u"Hello", "", false, false, false},
    {u"Hello", nullText, false, false, false}, {u"", "", false, false, false},
    {u"", nullText, false, false, false},      {u"", "a", false, false, false},
    {u"ab1", "B1", true, false, true},         {u"ab1", "b1", true, true, false},
    {u"abCabc", "bca", true, false, false},    {u"abCabc", "bCa", true, true, false},
    {u"abCabc", "BCA", true, false, true},     {u"abc", "x", false, false, false},
    {u"abc", "abcd", false, false, false},     {u"123", "23", true, true, true},
    {u"abc", "ABC", true, false, true},        {u"x\x0141", "A", false, false, false},
};

TEST_P(Search, containsZeroTerminatedText)
{
    for (auto const& row : containsRows) {
        if (!image.fits(row.text))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + (row.pattern ? row.pattern : "null"));
        Laid const text(image, row.text);
        auto const before = text.bytes();
        EXPECT_EQ(text->contains(row.pattern), row.folded);
        EXPECT_EQ(text->containsCaseSen(row.pattern), row.exact);
        EXPECT_EQ(text->containsUpperCaseInput(row.pattern), row.upperInput);
        std::string_view const bytes = row.pattern ? row.pattern : "";
        auto const pattern = stringOf(image, std::u16string(bytes.begin(), bytes.end()));
        EXPECT_EQ(text->contains(pattern), row.folded);
        EXPECT_EQ(text->containsCaseSen(pattern), row.exact);
        EXPECT_EQ(text->containsUpperCaseInput(pattern), row.upperInput);
        EXPECT_EQ(text.bytes(), before);
    }
}

/// A pattern longer than the capacity is cut before the search, so it can match in full.
TEST_P(Search, longPatternsAreCutAtTheCapacity)
{
    auto const lower = letters(image.capacity);
    Laid const text(image, lower);
    Laid const upper(image, upperOf(lower));
    auto const longer = narrowed(lower) + "##";
    auto const longerUpper = narrowed(upperOf(lower)) + "##";
    EXPECT_TRUE(text->contains(longer.c_str()));
    EXPECT_TRUE(text->contains(longerUpper.c_str()));
    EXPECT_TRUE(text->containsCaseSen(longer.c_str()));
    EXPECT_FALSE(text->containsCaseSen(longerUpper.c_str()));
    EXPECT_TRUE(upper->containsCaseSen(longerUpper.c_str()));
    EXPECT_FALSE(upper->containsCaseSen(longer.c_str()));
    EXPECT_TRUE(text->containsUpperCaseInput(longerUpper.c_str()));
    EXPECT_TRUE(text->containsCaseSen(longer.c_str(), image.intCapacity() + 1));
    EXPECT_TRUE(text->containsCaseSen(longer.c_str(), image.intCapacity() + 2));
    EXPECT_FALSE(text->contains(("#" + narrowed(lower)).c_str()));
}

/// Only the low 16 bits of a pattern's length count.
TEST_P(Search, patternLengthsWrapAt65536)
{
    Laid const text(image, u"xaax");
    EXPECT_FALSE(text->contains(std::string(65535, 'a').c_str()));
    EXPECT_FALSE(text->contains(std::string(65536, 'a').c_str()));
    EXPECT_TRUE(text->contains(std::string(65538, 'a').c_str()));
    EXPECT_FALSE(text->contains(std::string(65539, 'a').c_str()));
    EXPECT_TRUE(text->containsCaseSen(std::string(65538, 'a').c_str()));
    EXPECT_TRUE(text->containsUpperCaseInput(std::string(65538, 'A').c_str()));
    EXPECT_FALSE(
        stringOf(image, letters(image.capacity))->contains(narrowed(letters(65536)).c_str()));
}

TEST_P(Search, containsCountedBytes)
{
    Laid const text(image, u"a\0bc"sv);
    auto const bytes = unterminated("\0b"sv);
    EXPECT_TRUE(text->containsCaseSen(bytes.data(), 2));
    EXPECT_TRUE(text->containsCaseSen(bytes.data(), 1));
    EXPECT_FALSE(text->containsCaseSen(unterminated("\0B"sv).data(), 2));
    EXPECT_FALSE(text->containsCaseSen(unterminated("\0c"sv).data(), 2));
    EXPECT_TRUE(text->containsCaseSen("bx", 1));
    EXPECT_FALSE(text->containsCaseSen("bx", 2));
    EXPECT_FALSE(text->containsCaseSen("B", 1));
    EXPECT_FALSE(text->containsCaseSen(bytes.data(), 0));
    for (int const count : {0, 3})
        EXPECT_FALSE(text->containsCaseSen(nullText, count));
    // The count is taken modulo 65536 and then cut at the capacity.
    EXPECT_FALSE(text->containsCaseSen(bytes.data(), 65536));
    EXPECT_TRUE(text->containsCaseSen("bx", 65537));
    EXPECT_TRUE(text->containsCaseSen(bytes.data(), 65538));
    EXPECT_TRUE(text->containsCaseSen(bytes.data(), -65534));
    EXPECT_FALSE(text->containsCaseSen(bytes.data(), -65536));

    // A negative count is a large one: as many bytes as fit are read.
    auto const full = unterminated(narrowed(letters(image.capacity)));
    Laid const whole(image, letters(image.capacity));
    int const n = image.intCapacity();
    for (int const count : {-1, n - 1, n, n + 1, 65535}) {
        SCOPED_TRACE(count);
        EXPECT_TRUE(whole->containsCaseSen(full.data(), count));
    }
    EXPECT_FALSE(text->containsCaseSen(full.data(), -1));
    EXPECT_FALSE(text->containsCaseSen(full.data(), -65536));
}

class SearchBytes : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, SearchBytes, testing::ValuesIn(bytePairImages()), imageName);

/// The members for a `char` know no high character in 16 bits.
TEST_P(SearchBytes, everyPairOfBytes)
{
    Laid text(image, u".?.");
    Laid pattern(image, u"?");
    for (Unit a = 0; a < 256; ++a) {
        text.stale(1, {&a, 1});
        for (Unit b = 0; b < 256; ++b) {
            // A full stop already stands at both ends of the text.
            if (b == u'.')
                continue;
            pattern.stale(0, {&b, 1});
            AnyString const& in = *text;
            auto const c = static_cast<char>(b);
            bool const isChar = image.unitSize == 1 || b < 0x80;
            int const exact = a == b ? 1 : -1;
            int const folded = upperOf(a) == upperOf(b) ? 1 : -1;
            int const upper = upperOf(a) == b ? 1 : -1;
            bool const fine =
                in.indexOf(pattern, 0) == folded && in.indexOfCaseSen(pattern, 0) == exact &&
                in.indexOf(b, 0) == folded && in.indexOfCaseSen(b, 0) == exact &&
                in.lastIndexOf(b, -1) == exact && in.contains(pattern) == (folded == 1) &&
                in.containsCaseSen(pattern) == (exact == 1) &&
                in.containsUpperCaseInput(pattern) == (upper == 1) &&
                (!isChar ||
                 (in.count(c) == (folded == 1 ? 1 : 0) &&
                  in.countCaseSen(c) == (exact == 1 ? 1 : 0) && in.contains(c) == (folded == 1)));
            ASSERT_TRUE(fine) << "bytes " << +a << " and " << +b;
        }
    }
}

/// A long pattern is compared to its end: a span that differs in one place only is no hit.
TEST(SearchLong, aNearMissIsNoHit)
{
    auto const alphabet = letters(26) + u'-';
    for (Image const* image : allImages()) {
        if (image->capacity != 250)
            continue;
        for (auto const& pattern : {alphabet + letters(26), alphabet + alphabet + letters(12)}) {
            int const length = static_cast<int>(pattern.size());
            for (std::size_t at = 0; at < pattern.size(); ++at) {
                SCOPED_TRACE(at);
                auto miss = pattern;
                miss[at] = u'#';
                auto const wanted = stringOf(*image, pattern);
                auto const text = stringOf(*image, miss + pattern);
                EXPECT_EQ(text->indexOf(wanted, 0), length);
                EXPECT_EQ(text->indexOfCaseSen(wanted, 0), length);
                auto const missed = stringOf(*image, miss + miss);
                EXPECT_EQ(missed->indexOf(wanted, 0), -1);
                EXPECT_EQ(missed->indexOfCaseSen(wanted, 0), -1);
            }
        }
    }
}

} // namespace
} // namespace strings
