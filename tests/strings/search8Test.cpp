/// Position search of the 8-bit strings, on the current image and on both older ones.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>
#include <string_view>

namespace {

using namespace images8;
using namespace std::string_view_literals;

template <typename S>
class Search8 : public testing::Test
{};
TYPED_TEST_SUITE(Search8, AllImages, ImageName);

struct PatternRow
{
    std::string_view text;
    std::string_view pattern;
    int start;
    int folded;
    int exact;
};

constexpr PatternRow patternRows[] = {
    {"abcabc", "bc", 0, 1, 1},
    {"abcabc", "BC", 0, 1, -1},
    {"abcabc", "bc", 1, 1, 1},
    {"abcabc", "bc", 2, 4, 4},
    {"abcabc", "bc", 4, 4, 4},
    {"abCABc", "cab", 0, 2, -1},
    {"abCABc", "CAB", 0, 2, 2},
    // A start from which the pattern cannot fit fails: it neither clamps nor starts over.
    {"abcabc", "bc", 5, -1, -1},
    {"abcabc", "bc", 6, -1, -1},
    {"abcabc", "bc", 100, -1, -1},
    {"abcabc", "bc", INT_MAX - 1, -1, -1},
    {"abcabc", "bc", INT_MAX, -1, -1},
    // A pattern of the text's own length is compared once, whatever a start below 1 says.
    {"abc", "abc", 0, 0, 0},
    {"abc", "ABC", 0, 0, -1},
    {"abc", "abd", 0, -1, -1},
    {"abc", "xbc", 0, -1, -1},
    {"abc", "abc", 1, -1, -1},
    {"abc", "abc", -1, 0, 0},
    {"abc", "ABC", -7, 0, -1},
    {"abc", "abc", INT_MIN, 0, 0},
    // A longer one is found nowhere, though a start below 0 leaves room for it.
    {"abc", "abcd", -1, -1, -1},
    {"abc", "abcd", INT_MIN, -1, -1},
    {"abc", "abc", INT_MAX, -1, -1},
    // An empty pattern is found nowhere.
    {"abc", "", 0, -1, -1},
    {"abc", "", 2, -1, -1},
    {"abc", "", -1, -1, -1},
    {"", "", 0, -1, -1},
    {"", "a", 0, -1, -1},
    {"ab", "abc", 0, -1, -1},
    // First match, also where it overlaps a false beginning.
    {"aaab", "aab", 0, 1, 1},
    {"ababac", "abac", 0, 2, 2},
    {"aaaaaa", "aa", 3, 3, 3},
    {"aaaaaa", "aa", 4, 4, 4},
    // Equal sums, different bytes.
    {"bcad", "ad", 0, 2, 2},
    {"bc", "ad", 0, -1, -1},
    {"bcbc", "ad", 0, -1, -1},
    {"BCaD", "ad", 0, 2, -1},
    {"\x01\xFF\x02\xFE\xFF\x01", "\xFF\x01", 0, 4, 4},
    {"\x80\x80\x01", "\x80\x01", 0, 1, 1},
    // Only ASCII letters have a case.
    {"\xE4"
     "bc",
     "\xC4", 0, -1, -1},
    {"x\xE4", "\xE4", 0, 1, 1},
    {"a[c", "{", 0, -1, -1},
    {"@`", "`", 0, 1, 1},
    // Zeros are characters.
    {"a\0b\0c"sv, "\0c"sv, 0, 3, 3},
    {"a\0b"sv, "\0B"sv, 0, 1, -1},
    {"a\0"sv, "\0"sv, 0, 1, 1},
};

TYPED_TEST(Search8, patterns)
{
    for (auto const& row : patternRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::string(row.pattern) + " from " +
                     std::to_string(row.start));
        Laid<TypeParam> text(row.text);
        Laid<TypeParam> pattern(row.pattern, 0x11);
        auto const bytes = text.bytes();
        TypeParam const& string = *text;
        EXPECT_EQ(string.indexOf(*pattern, row.start), row.folded);
        EXPECT_EQ(string.indexOfCaseSen(*pattern, row.start), row.exact);
        if (row.start == 0) {
            EXPECT_EQ(string.contains(*pattern), row.folded != -1);
            EXPECT_EQ(string.containsCaseSen(*pattern), row.exact != -1);
        }
        EXPECT_EQ(text.bytes(), bytes);
    }
}

TYPED_TEST(Search8, oldTextBehindTheEndIsNotFound)
{
    Laid<TypeParam> text("ab");
    text.stale(2, "cab");
    EXPECT_EQ(text->indexOf(stringOf<TypeParam>("bc"), 0), -1);
    EXPECT_EQ(text->indexOf(stringOf<TypeParam>("abc"), 0), -1);
    EXPECT_EQ(text->indexOf(stringOf<TypeParam>("c"), 0), -1);
    EXPECT_EQ(text->indexOfCaseSen(stringOf<TypeParam>("c"), 1), -1);
    EXPECT_EQ(text->indexOf('c', 0), -1);
    EXPECT_EQ(text->indexOfCaseSen('c', 0), -1);
    EXPECT_EQ(text->lastIndexOf('a', -1), 0);
    EXPECT_EQ(text->lastIndexOf('c', -1), -1);
    EXPECT_EQ(text->count('a'), 1);
    EXPECT_EQ(text->countCaseSen('a'), 1);
    EXPECT_FALSE(text->contains('c'));
    EXPECT_FALSE(text->contains("bc"));
    EXPECT_FALSE(text->containsUpperCaseInput("C"));
}

TYPED_TEST(Search8, theWholeOfAFullStringIsSearched)
{
    auto const last = intCapacity<TypeParam> - 1;
    std::string periodic(capacity<TypeParam>, 'a');
    periodic.back() = 'b';
    Laid<TypeParam> text(periodic);
    EXPECT_EQ(text->indexOf(stringOf<TypeParam>("AAB"), 0), last - 2);
    EXPECT_EQ(text->indexOfCaseSen(stringOf<TypeParam>("aab"), 0), last - 2);
    EXPECT_EQ(text->indexOfCaseSen(stringOf<TypeParam>("aab"), last - 2), last - 2);
    EXPECT_EQ(text->indexOf(stringOf<TypeParam>("aab"), last - 1), -1);
    EXPECT_EQ(text->indexOf(*text, 0), 0);
    EXPECT_EQ(text->indexOfCaseSen(*text, 0), 0);
    EXPECT_EQ(text->indexOf(stringOf<TypeParam>(upperOf(periodic)), 0), 0);
    EXPECT_EQ(text->indexOfCaseSen(stringOf<TypeParam>(upperOf(periodic)), 0), -1);
    EXPECT_EQ(text->indexOf('B', 0), last);
    EXPECT_EQ(text->indexOf('B', last), last);
    EXPECT_EQ(text->lastIndexOf('b', -1), last);
    EXPECT_EQ(text->lastIndexOf('a', last + 1), last - 1);
    EXPECT_EQ(text->count('A'), last);
    EXPECT_EQ(text->countCaseSen('A'), 0);
    EXPECT_EQ(text->countCaseSen('a'), last);
    EXPECT_TRUE(text->contains(periodic.c_str()));
}

/// Random texts over few bytes, so that many spans nearly match, beside a plain search.
TYPED_TEST(Search8, agreesWithAPlainSearch)
{
    constexpr auto alphabet = "aAbB\xE4\x00\x7F"sv;
    std::mt19937 random(8);
    auto const randomText = [&](std::size_t length) {
        std::string text(length, '?');
        for (char& byte : text) {
            byte = alphabet[random() % alphabet.size()];
        }
        return text;
    };
    for (int round = 0; round < 2000; ++round) {
        auto const text =
            randomText(random() % (std::min<std::size_t>(capacity<TypeParam>, 40) + 1));
        auto const pattern = randomText(1 + random() % 4);
        auto const start = random() % (text.size() + 2);
        auto const plain = [start](std::string const& in, std::string const& what) {
            auto const at = in.find(what, start);
            return at == std::string::npos ? -1 : static_cast<int>(at);
        };
        auto const string = stringOf<TypeParam>(text);
        auto const wanted = stringOf<TypeParam>(pattern);
        int const from = static_cast<int>(start);
        ASSERT_EQ(string.indexOf(wanted, from), plain(upperOf(text), upperOf(pattern)));
        ASSERT_EQ(string.indexOfCaseSen(wanted, from), plain(text, pattern));
    }
}

struct CharacterRow
{
    std::string_view text;
    char character;
    int start;
    int folded;
    int exact;
    int last;
};

/// An unusable start of a search for one character starts over instead of failing.
constexpr CharacterRow characterRows[] = {
    {"bab", 'a', 0, 1, 1, -1},      {"bab", 'a', 100, 1, 1, 1},
    {"bab", 'b', 0, 0, 0, 0},       {"bab", 'b', 1, 2, 2, 0},
    {"bab", 'b', 2, 2, 2, 2},       {"bab", 'b', 3, 0, 0, 2},
    {"bab", 'b', -1, 0, 0, 2},      {"bab", 'b', INT_MAX, 0, 0, 2},
    {"bab", 'b', INT_MIN, 0, 0, 2}, {"bab", 'a', 2, -1, -1, 1},
    {"bab", 'A', 0, 1, -1, -1},     {"bAb", 'a', 0, 1, -1, -1},
    {"bAb", 'A', 2, -1, -1, 1},     {"bab", 'x', 0, -1, -1, -1},
    {"abcb", 'b', -1, 1, 1, 3},     {"abcb", 'b', 1, 1, 1, 1},
    {"abcb", 'b', 2, 3, 3, 1},      {"abcb", 'b', 3, 3, 3, 3},
    {"abcb", 'b', 4, 1, 1, 3},      {"", 'a', 0, -1, -1, -1},
    {"", 'a', -1, -1, -1, -1},      {"", '\0', 0, -1, -1, -1},
    {"a\0b"sv, '\0', 0, 1, 1, -1},  {"a\0b"sv, '\0', -1, 1, 1, 1},
    {"x\xE4", '\xE4', 0, 1, 1, -1}, {"x\xE4", '\xC4', -1, -1, -1, -1},
    {"@", '`', 0, -1, -1, -1},
};

TYPED_TEST(Search8, characters)
{
    for (auto const& row : characterRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + row.character + " from " +
                     std::to_string(row.start));
        Laid<TypeParam> text(row.text);
        TypeParam const& string = *text;
        EXPECT_EQ(string.indexOf(row.character, row.start), row.folded);
        EXPECT_EQ(string.indexOfCaseSen(row.character, row.start), row.exact);
        EXPECT_EQ(string.lastIndexOf(row.character, row.start), row.last);
    }
}

TYPED_TEST(Search8, aStaleFirstByteOfAnEmptyStringIsNotFound)
{
    Laid<TypeParam> text("");
    text.stale(0, "a");
    EXPECT_EQ(text->indexOf('a', 0), -1);
    EXPECT_EQ(text->indexOfCaseSen('a', 0), -1);
    EXPECT_EQ(text->lastIndexOf('a', -1), -1);
    EXPECT_EQ(text->lastIndexOf('a', 0), -1);
    EXPECT_EQ(text->indexOf(stringOf<TypeParam>("a"), 0), -1);
    EXPECT_EQ(text->count('a'), 0);
    EXPECT_EQ(text->countCaseSen('a'), 0);
    EXPECT_FALSE(text->contains('a'));
    EXPECT_FALSE(text->contains("a"));
}

struct FirstOfTwoRow
{
    std::string_view first;
    std::string_view second;
    int position;
    int which;
};

/// The last listed pattern that was found counts, not the leftmost one; only position 0 ends the
/// search at once.
constexpr FirstOfTwoRow firstOfTwoRows[] = {
    {"b", "d", 3, 1},   {"d", "b", 1, 1}, {"D", "x", 3, 0}, {"x", "B", 1, 1},
    {"x", "y", -1, -1}, {"a", "b", 0, 0}, {"b", "A", 0, 1}, {"", "c", 2, 1},
    {"c", "", 2, 0},    {"", "", -1, -1}, {"f", "f", 5, 1}, {"abcdef", "b", 0, 0},
};

TYPED_TEST(Search8, firstOfTwo)
{
    auto const text = stringOf<TypeParam>("abcdef");
    for (auto const& row : firstOfTwoRows) {
        SCOPED_TRACE(std::string(row.first) + ", " + std::string(row.second));
        auto const first = stringOf<TypeParam>(row.first);
        auto const second = stringOf<TypeParam>(row.second);
        int which = 77;
        EXPECT_EQ(text.indexOfFirstOcc(first, second, &which), row.position);
        EXPECT_EQ(which, row.which);
        EXPECT_EQ(text.indexOfFirstOcc(first, second, nullptr), row.position);
    }
}

struct FirstOfSixRow
{
    std::string_view patterns[6];
    int position;
    int which;
};

constexpr FirstOfSixRow firstOfSixRows[] = {
    {{"f", "e", "d", "c", "b", "x"}, 1, 4},  {{"b", "c", "d", "e", "f", "x"}, 5, 4},
    {{"x", "x", "x", "x", "x", "E"}, 4, 5},  {{"x", "y", "", "z", "", "q"}, -1, -1},
    {{"b", "c", "A", "d", "e", "f"}, 0, 2},  {{"a", "b", "c", "d", "e", "f"}, 0, 0},
    {{"f", "e", "d", "c", "b", "ab"}, 0, 5}, {{"x", "cd", "x", "x", "x", "x"}, 2, 1},
};

TYPED_TEST(Search8, firstOfSix)
{
    auto const text = stringOf<TypeParam>("abcdef");
    for (auto const& row : firstOfSixRows) {
        auto const pattern = [&row](int i) { return stringOf<TypeParam>(row.patterns[i]); };
        int which = 77;
        EXPECT_EQ(text.indexOfFirstOcc(pattern(0), pattern(1), pattern(2), pattern(3), pattern(4),
                                       pattern(5), &which),
                  row.position);
        EXPECT_EQ(which, row.which);
        EXPECT_EQ(text.indexOfFirstOcc(pattern(0), pattern(1), pattern(2), pattern(3), pattern(4),
                                       pattern(5), nullptr),
                  row.position);
    }
}

/// The current image alone has searches for the low byte of a 16-bit unit, and they are exact.
template <typename S>
class SearchUnit8 : public testing::Test
{};
TYPED_TEST_SUITE(SearchUnit8, guarded::MainStrings8, ImageName);

struct UnitRow
{
    std::string_view text;
    unsigned short unit;
    int start;
    int first;
    int last;
};

constexpr UnitRow unitRows[] = {
    {"bab", 'a', 0, 1, -1},      {"bab", 'A', 0, -1, -1},     {"bab", 'A', -1, -1, -1},
    {"bab", 0x0161, 0, 1, -1},   {"bab", 0xFF61, -1, 1, 1},   {"bab", 'b', 1, 2, 0},
    {"bab", 'b', 2, 2, 2},       {"bab", 'b', 3, 0, 2},       {"bab", 'b', -1, 0, 2},
    {"bab", 'b', INT_MIN, 0, 2}, {"bab", 'b', INT_MAX, 0, 2}, {"bab", 'a', 2, -1, 1},
    {"x\xE4", 0x00E4, 0, 1, -1}, {"x\xE4", 0x12E4, -1, 1, 1}, {"x\xE4", 0x00C4, -1, -1, -1},
    {"", 'a', 0, -1, -1},        {"", 'a', -1, -1, -1},       {"a\0b"sv, 0x0100, 0, 1, -1},
};

TYPED_TEST(SearchUnit8, lowBytes)
{
    for (auto const& row : unitRows) {
        SCOPED_TRACE(std::string(row.text) + ", unit " + std::to_string(row.unit) + " from " +
                     std::to_string(row.start));
        Laid<TypeParam> text(row.text);
        TypeParam const& string = *text;
        EXPECT_EQ(string.indexOf(row.unit, row.start), row.first);
        EXPECT_EQ(string.lastIndexOf(row.unit, row.start), row.last);
    }
}

template <typename S>
class SearchBytes8 : public testing::Test
{};
TYPED_TEST_SUITE(SearchBytes8, BytePairImages, ImageName);

TYPED_TEST(SearchBytes8, everyPairOfBytes)
{
    Laid<TypeParam> text(".?.");
    Laid<TypeParam> pattern("?");
    for (int i = 0; i < 256; ++i) {
        for (int j = 0; j < 256; ++j) {
            // A full stop already stands at both ends of the text.
            if (j == '.') {
                continue;
            }
            auto const a = static_cast<unsigned char>(i);
            auto const b = static_cast<unsigned char>(j);
            text.layText(1, a);
            pattern.layText(0, b);
            TypeParam const& in = *text;
            TypeParam const& what = *pattern;
            char const c = static_cast<char>(b);
            int const exact = i == j ? 1 : -1;
            int const folded = upperOf(a) == upperOf(b) ? 1 : -1;
            int const upper = upperOf(a) == b ? 1 : -1;
            bool const fine =
                in.indexOf(what, 0) == folded && in.indexOfCaseSen(what, 0) == exact &&
                in.indexOf(c, 0) == folded && in.indexOfCaseSen(c, 0) == exact &&
                in.lastIndexOf(c, -1) == exact && in.count(c) == (folded == 1 ? 1 : 0) &&
                in.countCaseSen(c) == (exact == 1 ? 1 : 0) && in.contains(c) == (folded == 1) &&
                in.contains(what) == (folded == 1) && in.containsCaseSen(what) == (exact == 1) &&
                in.containsUpperCaseInput(what) == (upper == 1);
            ASSERT_TRUE(fine) << "bytes " << i << " and " << j;
        }
    }
}

/// A long pattern is compared to its end: a span that differs in one place only is no hit.
TEST(SearchLong8, aNearMissIsNoHit)
{
    std::string const pattern =
        "abcdefghijklmnopqrstuvwxyz-abcdefghijklmnopqrstuvwxyz-abcdefghijkl";
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        SCOPED_TRACE(at);
        std::string miss = pattern;
        miss[at] = '#';
        _qvString8_allSize<250> const text((miss + pattern).c_str());
        _qvString8_allSize<250> const wanted(pattern.c_str());
        EXPECT_EQ(text.indexOf(wanted, 0), 66);
        EXPECT_EQ(text.indexOfCaseSen(wanted, 0), 66);
        _qvString8_allSize<250> const missed((miss + miss).c_str());
        EXPECT_EQ(missed.indexOf(wanted, 0), -1);
        EXPECT_EQ(missed.indexOfCaseSen(wanted, 0), -1);
    }
}

} // namespace
