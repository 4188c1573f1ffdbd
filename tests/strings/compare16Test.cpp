/// Equality of the 16-bit strings with raw units and with counted bytes.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace images16 {
namespace {

using namespace std::string_view_literals;

template <typename S>
class Compare16 : public testing::Test
{};
TYPED_TEST_SUITE(Compare16, MainImages, ImageName);

/// Raw text and counted text have no test of the first unit: two empty texts are equal.
TYPED_TEST(Compare16, aStaleFirstUnitDoesNotShowAgainstText)
{
    Laid<TypeParam> laid(u"abc");
    *laid = nullUnits;
    TypeParam const& stale = *laid;
    EXPECT_TRUE(stale == "");
    EXPECT_TRUE(stale == raw(u"").data());
    EXPECT_TRUE(TypeParam() == guarded::letters(65536).c_str());
    EXPECT_TRUE(TypeParam().isEqual(nullText, 0));
}

/// Of a raw text only as many bytes as the string has units are compared, so its first half.
TYPED_TEST(Compare16, equalityWithRawUnitsLooksAtTheFirstHalf)
{
    struct Row
    {
        Text string;
        Text raw;
        bool equal;
    };
    constexpr Row rows[] = {
        {u"", u"", true},
        {u"abcdef", u"abcdef", true},
        {u"abcdef", u"abcXYZ", true},
        {u"abcdef", u"abXdef", false},
        {u"abcdef", u"Abcdef", false},
        {u"abcdef", u"abcde", false},
        {u"abcdef", u"abcdefg", false},
        // An odd length ends in the middle of a unit: its low byte counts, its high byte does not.
        {u"abcde", u"ab\x0163XY", true},
        {u"abcde", u"abXde", false},
        {u"abcde", u"a\x0162\x63XY", false},
        {u"a", u"\x0161", true},
        {u"a", u"b", false},
        {u"ab", u"aX", true},
        {u"ab", u"\x0161X", false},
        {u"", u"a", false},
        {u"a", u"", false},
        // The raw text ends at its first zero, the string at its length.
        {u"a\0"sv, u"a\0"sv, false},
        {u"a\0"sv, u"ab"sv, true},
    };
    for (auto const& row : rows) {
        Laid<TypeParam> laid(row.string);
        TypeParam const& string = *laid;
        EXPECT_EQ(string == raw(row.raw).data(), row.equal)
            << shown(row.string) << " and " << shown(row.raw);
    }
    Laid<TypeParam> laid(u"");
    EXPECT_FALSE(*laid == nullUnits);
}

TEST(CompareLargest16, rawUnitsAreMeasuredUpTo1024)
{
    auto const text = letters(2000);
    Laid<_qvString<2500>> longer(text);
    EXPECT_FALSE(*longer == raw(text).data());
    Laid<_qvString<2500>> bounded(letters(1024));
    EXPECT_TRUE(*bounded == raw(text).data());
    Laid<_qvString_old<2500>> older(letters(1024));
    EXPECT_TRUE(*older == raw(text).data());
}

/// A byte from 0x80 up is negative and equals no unit, neither of the two that it widens to.
TYPED_TEST(Compare16, foldedEqualityWithCountedBytes)
{
    struct Row
    {
        Text units;
        std::string_view bytes;
        bool equal;
    };
    constexpr Row rows[] = {
        {u"", "", true},          {u"abc", "abc", true},
        {u"abc", "ABC", true},    {u"aBc", "AbC", true},
        {u"abc", "abd", false},   {u"a\0b"sv, "A\0B"sv, true},
        {u"\xE4", "\xE4", false}, {u"\xFFE4", "\xE4", false},
        {u"\x80", "\x80", false}, {u"\xFFFF", "\xFF", false},
        {u"\x0141", "A", false},  {u"\x0161", "a", false},
        {u"[", "{", false},       {u"\x7F", "\x7F", true},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(shown(row.units));
        Laid<TypeParam> laid(row.units);
        TypeParam const& string = *laid;
        auto const bytes = unterminated(row.bytes);
        auto const count = static_cast<int>(bytes.size());
        char const* const text = bytes.data();
        EXPECT_EQ(string.isEqual(text, count), row.equal);
        EXPECT_FALSE(string.isEqual(text, count + 1));
        EXPECT_FALSE(string.isEqual(text, count - 1));
        EXPECT_FALSE(string.isEqual(text, count + 65536));
    }
}

TYPED_TEST(Compare16, aFullTextAgainstRawUnitsThatDifferInTheLast)
{
    auto const text = letters(capacity<TypeParam> - 1);
    auto const string = stringOf<TypeParam>(text + u'x');
    EXPECT_EQ(string == raw(text + u'y').data(), capacity<TypeParam> <= 1024);
}

} // namespace
} // namespace images16
