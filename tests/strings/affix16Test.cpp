/// Starts and ends of the 16-bit strings.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace images16;
using namespace std::string_view_literals;

template <typename S>
class Affix16 : public testing::Test
{};
TYPED_TEST_SUITE(Affix16, MainImages, ImageName);

struct UnitRow
{
    Text text;
    Unit unit;
    bool starts;
    bool ends;
};

/// Exact, in spite of the plain names.
constexpr UnitRow unitRows[] = {
    {u"abc", u'a', true, false},
    {u"abc", u'A', false, false},
    {u"abc", u'c', false, true},
    {u"abc", u'C', false, false},
    {u"a", u'a', true, true},
    {u"", u'a', false, false},
    {u"", 0, false, false},
    {u"\0a\0"sv, 0, true, true},
    {u"\x0141x\xFFE4", 0x0141, true, false},
    {u"\x0141x\xFFE4", 0xFFE4, false, true},
    {u"\x0141x\xFFE4", 0x41, false, false},
    {u"\x0141x\xFFE4", 0xE4, false, false},
};

TYPED_TEST(Affix16, singleUnits)
{
    for (auto const& row : unitRows) {
        SCOPED_TRACE(shown(row.text) + " " + std::to_string(row.unit));
        Laid<TypeParam> laid(row.text);
        TypeParam const& string = *laid;
        EXPECT_EQ(string.startsWith(row.unit), row.starts);
        EXPECT_EQ(string.endsWith(row.unit), row.ends);
    }
    // A stale first unit of an empty string is no text.
    Laid<TypeParam> emptied(u"a");
    *emptied = nullUnits;
    EXPECT_FALSE(emptied->startsWith(Unit{u'a'}));
    EXPECT_FALSE(emptied->endsWith(Unit{u'a'}));
    EXPECT_FALSE(emptied->endsWith('a'));
    EXPECT_FALSE(emptied->startsWith("a"));
    EXPECT_FALSE(emptied->endsWith("a"));
}

/// A character is compared as a signed 32-bit value, so a high one ends no text.
TYPED_TEST(Affix16, endsWithACharacter)
{
    struct Row
    {
        Text text;
        char character;
        bool ends;
    };
    constexpr Row rows[] = {
        {u"abc", 'c', true},      {u"abc", 'C', false},       {u"abc", 'b', false},
        {u"", 'a', false},        {u"", '\0', false},         {u"a\0"sv, '\0', true},
        {u"\xE4", '\xE4', false}, {u"\xFFE4", '\xE4', false}, {u"\x0141", 'A', false},
        {u"\x7F", '\x7F', true},  {u"\xFFFF", '\xFF', false},
    };
    for (auto const& row : rows) {
        Laid<TypeParam> laid(row.text);
        TypeParam const& string = *laid;
        EXPECT_EQ(string.endsWith(row.character), row.ends) << shown(row.text);
    }
}

struct AffixRow
{
    Text text;
    char const* affix;
    bool starts;
    bool startsExactly;
    bool ends;
};

constexpr AffixRow affixRows[] = {
    {u"abcABC", "ab", true, true, false},
    {u"abcABC", "AB", true, false, false},
    {u"abcABC", "bc", false, false, true},
    {u"abcABC", "BC", false, false, true},
    {u"abcABC", "abcabc", true, false, true},
    {u"abcABC", "abcABC", true, true, true},
    {u"abcABC", "abcABCd", false, false, false},
    {u"abcABC", "xabcABC", false, false, false},
    {u"abc", "", false, false, false},
    {u"", "", false, false, false},
    {u"", "a", false, false, false},
    {u"abc", nullText, false, false, false},
    {u"", nullText, false, false, false},
    // The affix is widened by the sign.
    {u"\xFFE4x\xFFE4", "\xE4", true, true, true},
    {u"\xE4x\xE4", "\xE4", false, false, false},
    {u"\x0141x\x0141", "A", false, false, false},
    {u"\x0161x\x0161", "a", false, false, false},
    {u"aa", "a", true, true, true},
    {u"ab", "c", false, false, false},
};

TYPED_TEST(Affix16, texts)
{
    for (auto const& row : affixRows) {
        SCOPED_TRACE(shown(row.text) + " and " + (row.affix ? row.affix : "null"));
        Laid<TypeParam> laid(row.text);
        auto const before = laid.bytes();
        TypeParam const& string = *laid;
        EXPECT_EQ(string.startsWith(row.affix), row.starts);
        EXPECT_EQ(string.startsWithCaseSen(row.affix), row.startsExactly);
        EXPECT_EQ(string.endsWith(row.affix), row.ends);
        TypeParam const affix(row.affix);
        EXPECT_EQ(string.startsWith(affix), row.starts);
        EXPECT_EQ(string.startsWithCaseSen(affix), row.startsExactly);
        EXPECT_EQ(string.endsWith(affix), row.ends);
        EXPECT_EQ(laid.bytes(), before);
    }
}

/// Strings bring units along that no byte widens to.
TYPED_TEST(Affix16, stringsOfUnits)
{
    auto const string = stringOf<TypeParam>(u"\x0141\xE4"
                                            u"b\0c\x4101"sv);
    EXPECT_TRUE(string.startsWith(stringOf<TypeParam>(u"\x0141\xE4"
                                                      u"B")));
    EXPECT_FALSE(string.startsWithCaseSen(stringOf<TypeParam>(u"\x0141\xE4"
                                                              u"B")));
    EXPECT_TRUE(string.startsWithCaseSen(stringOf<TypeParam>(u"\x0141\xE4"
                                                             u"b\0"sv)));
    EXPECT_FALSE(string.startsWith(stringOf<TypeParam>(u"\x0161")));
    EXPECT_FALSE(string.startsWith(stringOf<TypeParam>(u"\x41")));
    EXPECT_TRUE(string.endsWith(stringOf<TypeParam>(u"\0C\x4101"sv)));
    EXPECT_FALSE(string.endsWith(stringOf<TypeParam>(u"\x4102")));
    EXPECT_TRUE(string.startsWith(string));
    EXPECT_TRUE(string.startsWithCaseSen(string));
    EXPECT_TRUE(string.endsWith(string));
}

/// An affix is clipped at the capacity, so a longer one can match a full text, exactly too.
TYPED_TEST(Affix16, clippedAffixes)
{
    auto const full = stringOf<TypeParam>(letters(capacity<TypeParam>));
    auto const longer = guarded::letters(capacity<TypeParam> + 3);
    EXPECT_TRUE(full.startsWith(longer.c_str()));
    EXPECT_TRUE(full.startsWithCaseSen(longer.c_str()));
    EXPECT_TRUE(full.endsWith(longer.c_str()));
    EXPECT_TRUE(full.startsWith(longer.c_str(), intCapacity<TypeParam>));
    EXPECT_FALSE(full.startsWith(longer.c_str(), intCapacity<TypeParam> + 1));

    // Of a length only the low 16 bits count.
    auto const text = stringOf<TypeParam>(u"abcxabc");
    EXPECT_TRUE(text.startsWith(guarded::letters(65539).c_str()));
    EXPECT_TRUE(text.startsWithCaseSen(guarded::letters(65539).c_str()));
    EXPECT_FALSE(text.startsWith(guarded::letters(65536).c_str()));
    EXPECT_FALSE(text.endsWith(guarded::letters(65536).c_str()));
    EXPECT_TRUE(text.endsWith(guarded::letters(65539).c_str()));
}

/// Counted bytes need no end.
TYPED_TEST(Affix16, startsWithCountedBytes)
{
    struct Row
    {
        std::string_view bytes;
        int count;
        bool starts;
    };
    constexpr Row rows[] = {
        {"ab"sv, 2, true},
        {"AB"sv, 2, true},
        {"abX"sv, 2, true},
        {"abX"sv, 3, false},
        {"ab\0\xE4"sv, 4, true},
        {"ab\0\xC4"sv, 4, false},
        {"ab"sv, 0, false},
        {"b"sv, 1, false},
        {"ab\0\xE4xyz"sv, 5, false},
        // The count is held against the length before it is cut to 16 bits.
        {"ab"sv, 65536, false},
        {"ab"sv, 65537, false},
        // A negative one passes, and its low 16 bits are read.
        {"ab"sv, -65535, true},
        {"xb"sv, -65535, false},
        {"ab"sv, -65536, false},
        {"aB"sv, -65534, true},
    };
    Laid<TypeParam> laid(u"ab\0\xFFE4"sv);
    TypeParam const& string = *laid;
    for (auto const& row : rows) {
        auto const bytes = unterminated(row.bytes);
        char const* const text = bytes.data();
        EXPECT_EQ(string.startsWith(text, row.count), row.starts) << row.bytes << ", " << row.count;
    }
    EXPECT_FALSE(string.startsWith(nullText, 0));
    EXPECT_FALSE(string.startsWith(nullText, 2));
    EXPECT_FALSE(string.startsWith(nullText, -1));
    TypeParam const empty;
    EXPECT_FALSE(empty.startsWith("", 0));
    EXPECT_FALSE(empty.startsWith("a", 1));

    auto const bytes = unterminated(guarded::letters(capacity<TypeParam>));
    char const* const text = bytes.data();
    EXPECT_TRUE(stringOf<TypeParam>(letters(capacity<TypeParam>)).startsWith(text, -1));
    EXPECT_FALSE(stringOf<TypeParam>(letters(capacity<TypeParam> - 1)).startsWith(text, -1));
}

/// The count is a gate only: what is compared is the whole text.
TYPED_TEST(Affix16, endsWithBehindACountedGate)
{
    struct Row
    {
        char const* text;
        int count;
        bool ends;
    };
    constexpr Row rows[] = {
        {"bc", 1, true},
        {"bc", 2, true},
        {"bc", 3, true},
        {"bc", 4, false},
        {"bc", 0, false},
        {"BC", 1, true},
        {"ab", 2, false},
        {"abc", 1, true},
        {"bc", -1, true},
        {"bc", 65537, false},
        {"bx", 1, false},
        {"c", 3, true},
        {nullText, 0, false},
        {nullText, 2, false},
        // Nothing ends every text.
        {"", 1, true},
        {"", 3, true},
        {"", 4, false},
        {"", 0, false},
    };
    Laid<TypeParam> laid(u"abc");
    TypeParam const& string = *laid;
    for (auto const& row : rows) {
        EXPECT_EQ(string.endsWith(row.text, row.count), row.ends)
            << (row.text ? row.text : "null") << ", " << row.count;
    }
    EXPECT_TRUE(stringOf<TypeParam>(u"x\xFFE4").endsWith("\xE4", 1));
    EXPECT_FALSE(stringOf<TypeParam>(u"x\xE4").endsWith("\xE4", 1));
    EXPECT_TRUE(string.endsWith(guarded::letters(65536).c_str(), 1));
    EXPECT_TRUE(string.endsWith(guarded::letters(65539).c_str(), 1));

    TypeParam const empty;
    EXPECT_FALSE(empty.endsWith("", 0));
    EXPECT_FALSE(empty.endsWith("", 1));
    EXPECT_FALSE(empty.endsWith("a", 1));

    auto const full = stringOf<TypeParam>(letters(capacity<TypeParam>));
    EXPECT_TRUE(full.endsWith(guarded::letters(capacity<TypeParam>).c_str(), 1));
}

} // namespace
