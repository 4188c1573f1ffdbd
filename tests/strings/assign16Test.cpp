/// Assignment to the 16-bit strings of raw units and of standard strings: none of the forms clears
/// what is behind the new terminator.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace images16 {
namespace {

using namespace std::string_view_literals;

template <typename S>
class Assign16 : public testing::Test
{};
TYPED_TEST_SUITE(Assign16, MainImages, ImageName);

template <typename S>
class AssignCurrent16 : public testing::Test
{};
TYPED_TEST_SUITE(AssignCurrent16, CurrentImages, ImageName);

struct AssignRow
{
    char const* bytes;
    Text signExtended;
};

constexpr AssignRow assignRows[] = {
    {"", u""},           {"abc", u"abc"},         {"\x7F\x80", u"\x7F\xFF80"},
    {"\xE4", u"\xFFE4"}, {"a\xFFz", u"a\xFFFFz"},
};

TYPED_TEST(AssignCurrent16, ofAStandardStringBySignExtension)
{
    for (auto const& row : assignRows) {
        Laid<TypeParam> receiver(u"");
        *receiver = std::string(row.bytes);
        EXPECT_TRUE(
            became(receiver, row.signExtended.size(), std::u16string(row.signExtended) + u'\0'));
    }
    Laid<TypeParam> receiver(u"");
    *receiver = std::string("a\0b", 3);
    EXPECT_TRUE(became(receiver, 3, u"a\0b\0"sv));
}

/// What stood behind the shorter text stays.
TYPED_TEST(Assign16, ofShorterUnits)
{
    auto const units = raw(u"xy");
    Laid<TypeParam> fromUnits(u"abcdefgh");
    *fromUnits = units.data();
    EXPECT_TRUE(became(fromUnits, 2, u"xy\0defgh\0"sv));

    fromUnits->clearUnused();
    EXPECT_TRUE(areaIs(*fromUnits, 2, u"xy", 0));
    fromUnits->calcLength();
    EXPECT_TRUE(areaIs(*fromUnits, 2, u"xy", 0));
}

TYPED_TEST(AssignCurrent16, ofAShorterStandardString)
{
    Laid<TypeParam> receiver(u"abcdefgh");
    *receiver = std::string("xy");
    EXPECT_TRUE(became(receiver, 2, u"xy\0defgh\0"sv));
}

/// Null units empty the string without touching its text.
TYPED_TEST(Assign16, ofNullUnitsOnlyClearsTheLength)
{
    Laid<TypeParam> receiver(u"abc");
    *receiver = nullUnits;
    EXPECT_TRUE(became(receiver, 0, u"abc\0"sv));
}

TYPED_TEST(Assign16, ofUnitsAsTheyAre)
{
    for (Text const row : {u"a"sv, u"\x0141\xE4"sv, u"\xFF80\xFFFF\x0100"sv}) {
        auto const units = raw(row);
        Laid<TypeParam> receiver(u"");
        *receiver = units.data();
        EXPECT_TRUE(became(receiver, row.size(), std::u16string(row) + u'\0'));
    }
}

TYPED_TEST(AssignCurrent16, standardStringsAroundTheCapacity)
{
    for (std::size_t const size :
         {capacity<TypeParam> - 1, capacity<TypeParam>, capacity<TypeParam> + 1}) {
        auto const expected = cut<TypeParam>(letters(size));
        Laid<TypeParam> receiver(u"");
        *receiver = guarded::letters(size);
        EXPECT_TRUE(became(receiver, expected.size(), expected + u'\0')) << size;
    }
}

TYPED_TEST(Assign16, rawTextsAreMeasuredUpTo1024Units)
{
    for (std::size_t const size :
         {capacity<TypeParam> - 1, capacity<TypeParam>, capacity<TypeParam> + 1, std::size_t{1023},
          std::size_t{1024}, std::size_t{1025}, std::size_t{2000}}) {
        auto const units = raw(letters(size));
        auto const expected = cut<TypeParam>(letters(std::min<std::size_t>(size, 1024)));
        Laid<TypeParam> receiver(u"");
        *receiver = units.data();
        EXPECT_TRUE(became(receiver, expected.size(), expected + u'\0')) << size;
    }
}

TYPED_TEST(AssignCurrent16, standardStringLengthsWrapAt65536)
{
    Laid<TypeParam> none(u"xyz");
    *none = guarded::letters(65536);
    EXPECT_TRUE(became(none, 0, u"\0yz\0"sv));
    Laid<TypeParam> three(u"");
    *three = guarded::letters(65539);
    EXPECT_TRUE(became(three, 3, u"abc\0"sv));
}

/// A text that points into the receiver is still whole when it is copied.
TYPED_TEST(Assign16, ofItsOwnUnits)
{
    Laid<TypeParam> receiver(u"abcdef");
    *receiver = textAt(*receiver) + 1;
    EXPECT_TRUE(became(receiver, 5, u"bcdef\0\0"sv));
    *receiver = textAt(*receiver);
    EXPECT_TRUE(became(receiver, 5, u"bcdef\0\0"sv));
}

/// The same byte, by construction and by assignment, gives two texts.
TYPED_TEST(Assign16, constructionAndAssignmentWidenDifferently)
{
    TypeParam const constructed("\xE4");
    TypeParam assigned("x");
    assigned = "\xE4";
    EXPECT_TRUE(holds(constructed, u"\xFFE4"));
    EXPECT_TRUE(holds(assigned, u"\xE4"));
    EXPECT_FALSE(constructed == assigned);
    EXPECT_FALSE(constructed == "\xE4");
    EXPECT_TRUE(assigned == "\xE4");
}

} // namespace
} // namespace images16
