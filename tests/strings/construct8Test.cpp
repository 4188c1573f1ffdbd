/// The constructors of the current 8-bit string that no other has, and high bytes: what each writes
/// and clears of storage full of 0xAA, and which bytes keep what the storage held.

#include "tests/strings/laid.h"
#include "tests/strings/rows8.h"

namespace guarded {
namespace {

template <typename S>
class Construct8 : public testing::Test
{};
TYPED_TEST_SUITE(Construct8, MainStrings8, ImageName);

TYPED_TEST(Construct8, textKeepsHighBytesAndEndsAtItsFirstZero)
{
    Guarded<TypeParam> const string("\x80\xFF\x01\0zzz");
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>("\x80\xFF\x01"));
    Guarded<TypeParam> const counted(oddText.data(), 5);
    EXPECT_EQ(counted.bytes(), clearedImage<TypeParam>(oddText));
}

TYPED_TEST(Construct8, nullUnitsAreTheEmptyString)
{
    Guarded<TypeParam> const string(static_cast<unsigned short const*>(nullptr));
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(""));
    EXPECT_TRUE(string.guardsStand());
}

TYPED_TEST(Construct8, unitsAreCountedUpTo1024WhateverTheCapacity)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    for (std::size_t const count :
         {std::size_t{0}, std::size_t{1}, capacity - 1, capacity, capacity + 1, std::size_t{1023},
          std::size_t{1024}, std::size_t{1025}, std::size_t{2000}, std::size_t{70000}}) {
        SCOPED_TRACE(count);
        std::string const expected = letters(count).substr(0, 1024);
        std::vector<unsigned short> units;
        for (char const letter : letters(count)) {
            units.push_back(static_cast<unsigned short>(letter));
        }
        units.push_back(0);
        Guarded<TypeParam> const string(static_cast<unsigned short const*>(units.data()));
        EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(cut<TypeParam>(expected)));
        EXPECT_TRUE(string.guardsStand());
    }
}

TYPED_TEST(Construct8, unitBehindThe1024thIsNotRead)
{
    // No terminator follows: an address sanitizer sees the read of one unit too many.
    std::vector<unsigned short> const units(1024, 'u');
    Guarded<TypeParam> const string(units.data());
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(cut<TypeParam>(std::string(1024, 'u'))));
}

TYPED_TEST(Construct8, unitIsStoredAsItsLowByte)
{
    // 0x0100 is not the end of the source although its low byte is zero.
    unsigned short const units[] = {0x1241, 0x0100, 0xFFFF, 0x00E4, 0x2080, 0, 'z'};
    Guarded<TypeParam> const string(static_cast<unsigned short const*>(units));
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(std::string_view{"A\0\xFF\xE4\x80", 5}));
}

TYPED_TEST(Construct8, overlayWritesTextAndTerminatorAndNothingElse)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    for (std::size_t const length :
         {std::size_t{0}, std::size_t{1}, std::size_t{3}, capacity - 1, capacity}) {
        SCOPED_TRACE(length);
        Guarded<TypeParam> source;
        source.lay(letters(length), 0x55);
        Guarded<TypeParam> const string(source->asUni());
        EXPECT_EQ(string.bytes(), keptImage<TypeParam>(letters(length)));
        EXPECT_TRUE(string.guardsStand());
    }
}

TEST(ConstructLargest8, twoThousandUnitsIntoFiveThousandGive1024)
{
    std::vector<unsigned short> units(2000, 'u');
    units.push_back(0);
    _qvString8_allSize<5000> const string(static_cast<unsigned short const*>(units.data()));
    EXPECT_TRUE(holds(string, std::string(1024, 'u')));
}

class ConstructHigh8 : public strings::OverImages
{};
INSTANTIATE_TEST_SUITE_P(, ConstructHigh8, testing::ValuesIn(strings::images8()),
                         strings::imageName);

TEST_P(ConstructHigh8, highBytesAreKept)
{
    strings::Laid string(image, u"");
    string->construct("a\xE4");
    EXPECT_EQ(string.bytes(), imageOf(image, 2, u"a\xE4", 0, staleByte));
    string->construct("\xFF\0\x80z\0", 5);
    EXPECT_EQ(string.bytes(), imageOf(image, 5, {u"\xFF\0\x80z\0", 5}, 0, staleByte));
}

} // namespace
} // namespace guarded
