/// Prefixes and suffixes of the 8-bit strings, on the current image and on both older ones.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images8;
using namespace std::string_view_literals;

template <typename S>
class Affix8 : public testing::Test
{};
TYPED_TEST_SUITE(Affix8, AllImages, ImageName);

struct AffixRow
{
    std::string_view text;
    std::string_view affix;
    bool starts;
    bool startsExact;
    bool ends;
};

constexpr AffixRow affixRows[] = {
    {"abc", "a", true, true, false},
    {"abc", "A", true, false, false},
    {"abc", "AB", true, false, false},
    {"abc", "abc", true, true, true},
    {"abc", "ABC", true, false, true},
    {"abc", "abcd", false, false, false},
    {"abc", "xabc", false, false, false},
    {"abc", "bc", false, false, true},
    {"abc", "BC", false, false, true},
    {"abc", "c", false, false, true},
    {"abc", "b", false, false, false},
    {"aBa", "Ab", true, false, false},
    {"aBa", "bA", false, false, true},
    // Nothing has no beginning and no end, and is none.
    {"abc", "", false, false, false},
    {"", "", false, false, false},
    {"", "a", false, false, false},
    {"\xE4"
     "b\xE4",
     "\xE4", true, true, true},
    {"\xE4"
     "b\xE4",
     "\xC4", false, false, false},
    {"[x[", "{", false, false, false},
};

TYPED_TEST(Affix8, stringsAndTexts)
{
    for (auto const& row : affixRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::string(row.affix));
        Laid<TypeParam> text(row.text);
        Laid<TypeParam> affix(row.affix, 0x11);
        TypeParam const& string = *text;
        auto const before = text.bytes();
        EXPECT_EQ(string.startsWith(*affix), row.starts);
        EXPECT_EQ(string.startsWithCaseSen(*affix), row.startsExact);
        EXPECT_EQ(string.endsWith(*affix), row.ends);

        std::string const terminated(row.affix);
        EXPECT_EQ(string.startsWith(terminated.c_str()), row.starts);
        EXPECT_EQ(string.startsWithCaseSen(terminated.c_str()), row.startsExact);
        EXPECT_EQ(string.endsWith(terminated.c_str()), row.ends);

        int const length = static_cast<int>(row.affix.size());
        EXPECT_EQ(string.startsWith(unterminated(row.affix).data(), length),
                  row.starts && length != 0);
        if (row.affix.size() <= row.text.size()) {
            EXPECT_EQ(string.endsWith(terminated.c_str(), length), row.ends);
        }
        EXPECT_EQ(text.bytes(), before);
    }
}

TYPED_TEST(Affix8, zerosInsideAreCharacters)
{
    Laid<TypeParam> text("a\0bc\0"sv);
    EXPECT_TRUE(text->startsWith(stringOf<TypeParam>("A\0B"sv)));
    EXPECT_FALSE(text->startsWith(stringOf<TypeParam>("A\0C"sv)));
    EXPECT_TRUE(text->startsWithCaseSen(stringOf<TypeParam>("a\0b"sv)));
    EXPECT_FALSE(text->startsWithCaseSen(stringOf<TypeParam>("a\0B"sv)));
    EXPECT_TRUE(text->endsWith(stringOf<TypeParam>("C\0"sv)));
    EXPECT_FALSE(text->endsWith(stringOf<TypeParam>("C"sv)));
    EXPECT_TRUE(text->startsWith(unterminated("A\0B"sv).data(), 3));
    EXPECT_TRUE(text->endsWith('\0'));
    EXPECT_FALSE(text->startsWith('\0'));
}

TYPED_TEST(Affix8, nullTextsAreNoAffix)
{
    for (auto const text : {"abc"sv, ""sv}) {
        Laid<TypeParam> string(text);
        EXPECT_FALSE(string->startsWith(nullText));
        EXPECT_FALSE(string->startsWithCaseSen(nullText));
        EXPECT_FALSE(string->endsWith(nullText));
        EXPECT_FALSE(string->endsWith(nullText, 0));
        for (int const count : {-1, 0, 1, 3, 65537}) {
            EXPECT_FALSE(string->startsWith(nullText, count));
        }
    }
}

TYPED_TEST(Affix8, aStaleFirstByteOfAnEmptyStringIsNoAffix)
{
    Laid<TypeParam> empty("");
    empty.stale(0, "a");
    EXPECT_FALSE(empty->startsWith('a'));
    EXPECT_FALSE(empty->endsWith('a'));
    EXPECT_FALSE(empty->startsWith("a"));
    EXPECT_FALSE(empty->startsWith("a", 1));
    EXPECT_FALSE(empty->startsWithCaseSen("a"));
    EXPECT_FALSE(empty->endsWith("a"));
    EXPECT_FALSE(empty->endsWith("a", 1));
    EXPECT_FALSE(stringOf<TypeParam>("a").startsWith(*empty));
    EXPECT_FALSE(stringOf<TypeParam>("a").startsWithCaseSen(*empty));
    EXPECT_FALSE(stringOf<TypeParam>("a").endsWith(*empty));
}

/// Unlike a text of one character, a character is compared exactly.
TYPED_TEST(Affix8, singleCharactersAreExact)
{
    Laid<TypeParam> text("aB\xE4");
    text.stale(3, "z");
    EXPECT_TRUE(text->startsWith('a'));
    EXPECT_FALSE(text->startsWith('A'));
    EXPECT_TRUE(text->startsWith("A"));
    EXPECT_FALSE(text->startsWith('B'));
    EXPECT_TRUE(text->endsWith('\xE4'));
    EXPECT_FALSE(text->endsWith('\xC4'));
    EXPECT_FALSE(text->endsWith('B'));
    EXPECT_FALSE(text->endsWith('z'));
    EXPECT_FALSE(stringOf<TypeParam>("ab").endsWith('B'));
    EXPECT_FALSE(stringOf<TypeParam>("").startsWith('\0'));
    EXPECT_FALSE(stringOf<TypeParam>("").endsWith('\0'));
    EXPECT_TRUE(stringOf<TypeParam>("\0b"sv).startsWith('\0'));
}

TYPED_TEST(Affix8, aStringIsItsOwnAffix)
{
    Laid<TypeParam> text("aB");
    EXPECT_TRUE(text->startsWith(*text));
    EXPECT_TRUE(text->startsWithCaseSen(*text));
    EXPECT_TRUE(text->endsWith(*text));
    EXPECT_TRUE(text->startsWith(textAt(*text)));
    EXPECT_TRUE(text->startsWithCaseSen(textAt(*text)));
    EXPECT_TRUE(text->endsWith(textAt(*text) + 1));
    EXPECT_TRUE(text->startsWith(textAt(*text), 2));
    EXPECT_TRUE(text->endsWith(textAt(*text) + 1, 1));
}

/// The folded forms cut a text at the capacity before they compare it; the exact one does not.
TYPED_TEST(Affix8, longTextsAgainstAFullString)
{
    auto const letters = guarded::letters(capacity<TypeParam>);
    Laid<TypeParam> full(letters);
    auto const longer = letters + "gh";
    EXPECT_TRUE(full->startsWith(longer.c_str()));
    EXPECT_TRUE(full->startsWith(upperOf(longer).c_str()));
    EXPECT_TRUE(full->endsWith(longer.c_str()));
    EXPECT_FALSE(full->startsWithCaseSen(longer.c_str()));
    EXPECT_TRUE(full->startsWithCaseSen(letters.c_str()));
    EXPECT_FALSE(full->startsWith(longer.c_str(), intCapacity<TypeParam> + 1));
    EXPECT_TRUE(full->startsWith(longer.c_str(), intCapacity<TypeParam>));
    EXPECT_FALSE(full->endsWith(letters.c_str(), intCapacity<TypeParam> + 1));
    EXPECT_TRUE(full->endsWith(letters.c_str(), intCapacity<TypeParam>));
}

/// Only the low 16 bits of a text's length count.
TYPED_TEST(Affix8, textLengthsWrapAt65536)
{
    Laid<TypeParam> text("aaa");
    struct Row
    {
        std::size_t length;
        bool affix;
    };
    for (auto const& row : {Row{65535, false}, Row{65536, false}, Row{65537, true},
                            Row{65539, true}, Row{65540, false}}) {
        SCOPED_TRACE(row.length);
        std::string const affix(row.length, 'a');
        EXPECT_EQ(text->startsWith(affix.c_str()), row.affix);
        EXPECT_EQ(text->startsWithCaseSen(affix.c_str()), row.affix);
        EXPECT_EQ(text->endsWith(affix.c_str()), row.affix);
    }
}

struct CountRow
{
    int count;
    bool starts;
};

/// A count passes when its low 16 bits less 1 are below the length, and those bits are compared.
/// The bytes of the text are "abX" against a receiver "ABc": two of them match.
constexpr CountRow countRows[] = {
    {0, false},          {1, true},      {2, true},       {3, false},       {4, false},
    {-1, false},         {-2, false},    {-65533, false}, {-65534, true},   {-65535, true},
    {-65536, false},     {65535, false}, {65536, false},  {65537, true},    {65538, true},
    {65539, false},      {65540, false}, {65541, false},  {INT_MAX, false}, {INT_MIN, false},
    {INT_MIN + 1, true},
};

TYPED_TEST(Affix8, countedBeginnings)
{
    Laid<TypeParam> text("ABc");
    auto const bytes = unterminated("abX");
    for (auto const& row : countRows) {
        SCOPED_TRACE(row.count);
        EXPECT_EQ(text->startsWith(bytes.data(), row.count), row.starts);
        EXPECT_FALSE(Laid<TypeParam>("")->startsWith(bytes.data(), row.count));
    }
}

/// The count of endsWith only opens the gate; how much is compared comes from the text itself.
TYPED_TEST(Affix8, theCountOfAnEndIsOnlyAGate)
{
    Laid<TypeParam> text("abcd");
    EXPECT_TRUE(text->endsWith("CD", 1));
    EXPECT_TRUE(text->endsWith("CD", 2));
    EXPECT_TRUE(text->endsWith("CD", 4));
    EXPECT_TRUE(text->endsWith("d", 4));
    EXPECT_TRUE(text->endsWith("abcd", 1));
    EXPECT_FALSE(text->endsWith("dc", 1));
    EXPECT_FALSE(text->endsWith("abc", 3));
    EXPECT_FALSE(text->endsWith("cd", 0));
    EXPECT_FALSE(text->endsWith("cd", 5));
    EXPECT_FALSE(text->endsWith("cd", INT_MAX));
    EXPECT_FALSE(text->endsWith("", 1));
    EXPECT_FALSE(text->endsWith("", 4));
    EXPECT_FALSE(text->endsWith("", 0));
}

/// The gate is the same 16-bit comparison that all other affixes pass.
TYPED_TEST(Affix8, theGateOfAnEndLooksAt16Bits)
{
    Laid<TypeParam> text("abcd");
    EXPECT_FALSE(text->endsWith("cd", -1));
    EXPECT_FALSE(text->endsWith("cd", 65536));
    EXPECT_FALSE(text->endsWith("cd", INT_MIN));
    EXPECT_TRUE(text->endsWith("cd", 65537));
    EXPECT_TRUE(text->endsWith("cd", 65540));
    EXPECT_FALSE(text->endsWith("cd", 65541));
    EXPECT_TRUE(text->endsWith("cd", -65535));
}

template <typename S>
class AffixBytes8 : public testing::Test
{};
TYPED_TEST_SUITE(AffixBytes8, BytePairImages, ImageName);

TYPED_TEST(AffixBytes8, everyPairOfBytes)
{
    Laid<TypeParam> text("?");
    Laid<TypeParam> affix("?");
    for (int i = 0; i < 256; ++i) {
        for (int j = 0; j < 256; ++j) {
            auto const a = static_cast<unsigned char>(i);
            auto const b = static_cast<unsigned char>(j);
            text.layText(0, a);
            affix.layText(0, b);
            TypeParam const& string = *text;
            char const c[] = {static_cast<char>(b), '\0'};
            bool const exact = i == j;
            bool const folded = upperOf(a) == upperOf(b);
            // A zero byte is a character of a string, and the end of a text.
            bool const inText = folded && j != 0;
            bool const fine =
                string.startsWith(*affix) == folded && string.startsWithCaseSen(*affix) == exact &&
                string.endsWith(*affix) == folded && string.startsWith(c[0]) == exact &&
                string.endsWith(c[0]) == exact && string.startsWith(c) == inText &&
                string.startsWith(c, 1) == folded && string.endsWith(c) == inText &&
                string.endsWith(c, 1) == inText && string.startsWithCaseSen(c) == (exact && j != 0);
            ASSERT_TRUE(fine) << "bytes " << i << " and " << j;
        }
    }
}

} // namespace
