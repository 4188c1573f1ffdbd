/// Counting and containment in the 8-bit strings, on the current image and on both older ones.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace images8;
using namespace std::string_view_literals;

template <typename S>
class Contains8 : public testing::Test
{};
TYPED_TEST_SUITE(Contains8, AllImages, ImageName);

struct CountRow
{
    std::string_view text;
    char character;
    int folded;
    int exact;
};

constexpr CountRow countRows[] = {
    {"aAbA", 'a', 3, 1}, {"aAbA", 'A', 3, 2},      {"aAbA", 'b', 1, 1},
    {"aAbA", 'B', 1, 0}, {"aAbA", 'x', 0, 0},      {"", 'a', 0, 0},
    {"", '\0', 0, 0},    {"a\0\0b"sv, '\0', 2, 2}, {"\xE4\xC4\xE4", '\xE4', 2, 2},
    {"[{[", '[', 2, 2},  {"aaaaaa", 'A', 6, 0},
};

TYPED_TEST(Contains8, counts)
{
    for (auto const& row : countRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + row.character);
        Laid<TypeParam> text(row.text);
        TypeParam const& string = *text;
        EXPECT_EQ(string.count(row.character), row.folded);
        EXPECT_EQ(string.countCaseSen(row.character), row.exact);
        EXPECT_EQ(string.contains(row.character), row.folded != 0);
    }
}

struct ContainsRow
{
    std::string_view text;
    char const* pattern;
    bool folded;
    bool exact;
    bool upperInput;
};

constexpr ContainsRow containsRows[] = {
    {"Hello", "ell", true, true, false},      {"Hello", "ELL", true, false, true},
    {"Hello", "Hello", true, true, false},    {"Hello", "HELLO", true, false, true},
    {"Hello", "Hellos", false, false, false}, {"Hello", "", false, false, false},
    {"Hello", nullptr, false, false, false},  {"", "", false, false, false},
    {"", nullptr, false, false, false},       {"", "a", false, false, false},
    {"a-\xE4", "-\xE4", true, true, true},    {"\xE4", "\xC4", false, false, false},
    {"ab1", "B1", true, false, true},         {"ab1", "b1", true, true, false},
};

TYPED_TEST(Contains8, containsZeroTerminatedText)
{
    for (auto const& row : containsRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + (row.pattern ? row.pattern : "null"));
        Laid<TypeParam> text(row.text);
        TypeParam const& string = *text;
        auto const bytes = text.bytes();
        EXPECT_EQ(string.contains(row.pattern), row.folded);
        EXPECT_EQ(string.containsCaseSen(row.pattern), row.exact);
        EXPECT_EQ(string.containsUpperCaseInput(row.pattern), row.upperInput);
        EXPECT_EQ(
            string.containsUpperCaseInput(stringOf<TypeParam>(row.pattern ? row.pattern : "")),
            row.upperInput);
        EXPECT_EQ(text.bytes(), bytes);
    }
}

/// A pattern longer than the capacity is cut before the search, so it can match in full.
TYPED_TEST(Contains8, longPatternsAreCutAtTheCapacity)
{
    auto const letters = guarded::letters(capacity<TypeParam>);
    Laid<TypeParam> text(letters);
    auto const longer = letters + "##";
    EXPECT_TRUE(text->contains(longer.c_str()));
    EXPECT_TRUE(text->contains(upperOf(longer).c_str()));
    EXPECT_TRUE(text->containsCaseSen(longer.c_str()));
    EXPECT_FALSE(text->containsCaseSen(upperOf(longer).c_str()));
    EXPECT_TRUE(text->containsUpperCaseInput(upperOf(longer).c_str()));
    EXPECT_TRUE(text->containsCaseSen(longer.c_str(), intCapacity<TypeParam> + 1));
    EXPECT_FALSE(text->contains(("#" + letters).c_str()));
}

/// Only the low 16 bits of a pattern's length count.
TYPED_TEST(Contains8, patternLengthsWrapAt65536)
{
    Laid<TypeParam> text("xaax");
    EXPECT_FALSE(text->contains(std::string(65535, 'a').c_str()));
    EXPECT_FALSE(text->contains(std::string(65536, 'a').c_str()));
    EXPECT_TRUE(text->contains(std::string(65538, 'a').c_str()));
    EXPECT_FALSE(text->contains(std::string(65539, 'a').c_str()));
    EXPECT_TRUE(text->containsCaseSen(std::string(65538, 'a').c_str()));
    EXPECT_TRUE(text->containsUpperCaseInput(std::string(65538, 'A').c_str()));
}

TYPED_TEST(Contains8, countedPatterns)
{
    Laid<TypeParam> text("a\0bc"sv);
    auto const bytes = unterminated("\0b"sv);
    EXPECT_TRUE(text->containsCaseSen(bytes.data(), 2));
    EXPECT_TRUE(text->containsCaseSen(bytes.data(), 1));
    EXPECT_FALSE(text->containsCaseSen(unterminated("\0B"sv).data(), 2));
    EXPECT_FALSE(text->containsCaseSen(bytes.data(), 0));
    EXPECT_FALSE(text->containsCaseSen(nullText, 0));
    // The count is taken modulo 65536 and then cut at the capacity.
    EXPECT_FALSE(text->containsCaseSen(bytes.data(), 65536));
    EXPECT_TRUE(text->containsCaseSen(bytes.data(), 65538));
    EXPECT_TRUE(text->containsCaseSen(bytes.data(), -65534));
    EXPECT_TRUE(text->containsCaseSen(textAt(*text), 4));

    auto const letters = guarded::letters(capacity<TypeParam>);
    auto const full = unterminated(letters);
    Laid<TypeParam> whole(letters);
    int const n = intCapacity<TypeParam>;
    for (int const count : {-1, n - 1, n, n + 1, 65535}) {
        SCOPED_TRACE(count);
        EXPECT_TRUE(whole->containsCaseSen(full.data(), count));
    }
}

} // namespace
