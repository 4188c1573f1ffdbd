// Every constructor of the 8-bit string, placed on storage full of 0xAA: what it writes, what it
// clears, and which bytes keep what the storage held.

#include "tests/strings/core8Rows.h"

namespace {

using namespace guarded;

template <typename S>
class Core8Construct : public testing::Test
{};
TYPED_TEST_SUITE(Core8Construct, MainStrings8, ImageName);

TYPED_TEST(Core8Construct, DefaultClearsLengthAndTextButNotThePad)
{
    Guarded<TypeParam> const string;
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(""));
    EXPECT_TRUE(string.guardsStand());
}

TYPED_TEST(Core8Construct, NullTextIsTheEmptyString)
{
    Guarded<TypeParam> const string(static_cast<char const*>(nullptr));
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(""));
    EXPECT_TRUE(string.guardsStand());
}

TYPED_TEST(Core8Construct, TextIsMeasuredIn16BitsAndCutAtTheCapacity)
{
    for (SourceRow const& row : sourceRows<TypeParam>()) {
        SCOPED_TRACE(row.given);
        std::string const source = letters(row.given);
        Guarded<TypeParam> const string(source.c_str());
        EXPECT_EQ(string.bytes(),
                  clearedImage<TypeParam>(cut<TypeParam>(source.substr(0, row.counted))));
        EXPECT_TRUE(string.guardsStand());
    }
}

TYPED_TEST(Core8Construct, TextKeepsHighBytesAndEndsAtItsFirstZero)
{
    Guarded<TypeParam> const string("\x80\xFF\x01\0zzz");
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>("\x80\xFF\x01"));
}

TYPED_TEST(Core8Construct, CountIsTakenByItsLow16BitsAndCutAtTheCapacity)
{
    std::string const source = longSource<TypeParam>();
    for (CountRow const& row : countRows<TypeParam>()) {
        SCOPED_TRACE(row.given);
        Guarded<TypeParam> const string(source.c_str(), row.given);
        EXPECT_EQ(string.bytes(),
                  clearedImage<TypeParam>(cut<TypeParam>(source.substr(0, row.counted))));
        EXPECT_TRUE(string.guardsStand());
    }
}

TYPED_TEST(Core8Construct, CountedTextKeepsZerosInsideAndNeedsNoTerminator)
{
    Guarded<TypeParam> const string(oddText.data(), 5);
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(oddText));

    std::vector<char> const unterminated{'a', 'b', 'c'};
    Guarded<TypeParam> const three(unterminated.data(), 3);
    EXPECT_EQ(three.bytes(), clearedImage<TypeParam>("abc"));
}

TYPED_TEST(Core8Construct, NullUnitsAreTheEmptyString)
{
    Guarded<TypeParam> const string(static_cast<unsigned short const*>(nullptr));
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(""));
    EXPECT_TRUE(string.guardsStand());
}

TYPED_TEST(Core8Construct, UnitsAreCountedUpTo1024WhateverTheCapacity)
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

TYPED_TEST(Core8Construct, UnitBehindThe1024thIsNotRead)
{
    // No terminator follows: an address sanitizer sees the read of one unit too many.
    std::vector<unsigned short> const units(1024, 'u');
    Guarded<TypeParam> const string(units.data());
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(cut<TypeParam>(std::string(1024, 'u'))));
}

TYPED_TEST(Core8Construct, UnitIsStoredAsItsLowByte)
{
    // 0x0100 is not the end of the source although its low byte is zero.
    unsigned short const units[] = {0x1241, 0x0100, 0xFFFF, 0x00E4, 0x2080, 0, 'z'};
    Guarded<TypeParam> const string(static_cast<unsigned short const*>(units));
    EXPECT_EQ(string.bytes(), clearedImage<TypeParam>(std::string_view{"A\0\xFF\xE4\x80", 5}));
}

TYPED_TEST(Core8Construct, OverlayWritesTextAndTerminatorAndNothingElse)
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

TYPED_TEST(Core8Construct, CopyMovesEveryByteThePadIncluded)
{
    Guarded<TypeParam> source;
    source.lay("abc", 0x55);
    Guarded<TypeParam> const string(static_cast<TypeParam const&>(*source));
    EXPECT_EQ(string.bytes(), keptImage<TypeParam>("abc", 0x55));
    EXPECT_EQ(source.bytes(), keptImage<TypeParam>("abc", 0x55));
    EXPECT_TRUE(string.guardsStand());
}

/// The pad of a result is not laid down, so everything but the pad is compared.
template <typename S>
void expectRepeated(S const& result, std::size_t length, char character)
{
    Bytes bytes = bytesOf(result);
    bytes.resize(ImageOf<S>::spareAt);
    Bytes expected = clearedImage<S>(std::string(length, character));
    expected.resize(ImageOf<S>::spareAt);
    EXPECT_EQ(bytes, expected);
}

TYPED_TEST(Core8Construct, CreateCharStringRepeatsUpToTheCapacity)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    int const full = static_cast<int>(capacity);
    struct Row
    {
        int count;
        std::size_t length;
    };
    // Below 1 the sign decides; above, the low 16 bits and then the capacity.
    for (Row const& row :
         {Row{INT_MIN, 0}, Row{-65535, 0}, Row{-1, 0}, Row{0, 0}, Row{1, 1}, Row{2, 2},
          Row{full - 1, capacity - 1}, Row{full, capacity}, Row{full + 1, capacity},
          Row{65535, capacity}, Row{65536, 0}, Row{65537, 1}, Row{65538, 2}, Row{65541, 5},
          Row{131075, 3}, Row{INT_MAX, capacity}}) {
        SCOPED_TRACE(row.count);
        char character = 'x';
        expectRepeated(TypeParam::createCharString(character, row.count), row.length, 'x');
        EXPECT_EQ(character, 'x');
    }
}

TYPED_TEST(Core8Construct, CreateCharStringTakesAnyByte)
{
    char high = '\xE4';
    expectRepeated(TypeParam::createCharString(high, 3), 3, '\xE4');
    char zero = '\0';
    expectRepeated(TypeParam::createCharString(zero, 4), 4, '\0');
}

TEST(Core8ConstructCases, TenCharactersIntoSixKeepTheFirstSix)
{
    _qvString8_allSize<6> const string("abcdefghij");
    EXPECT_TRUE(holds(string, "abcdef"));
}

TEST(Core8ConstructCases, SevenCharactersFillASevenAndTheirTerminatorIsTheLastByte)
{
    Guarded<_qvString8_allSize<7>> const string("abcdefg");
    EXPECT_EQ(string.bytes(), (Bytes{7, 0, 'a', 'b', 'c', 'd', 'e', 'f', 'g', 0}));
}

// Short texts are copied and short rests cleared in pieces of several sizes: each length counts.
TEST(Core8ConstructCases, EveryLengthIsCopiedAndTheRestCleared)
{
    using S = _qvString8_allSize<250>;
    for (std::size_t length = 0; length <= 250; ++length) {
        Guarded<S> const string(letters(length).c_str());
        EXPECT_EQ(string.bytes(), clearedImage<S>(letters(length))) << length;
        EXPECT_TRUE(string.guardsStand());
    }
}

// A long rest is cleared from an aligned byte on, whatever the bytes ahead of it.
TEST(Core8ConstructCases, ALongRestIsClearedBehindEveryLength)
{
    using S = _qvString8_allSize<5000>;
    for (std::size_t length = 0; length <= 70; ++length) {
        Guarded<S> const string(letters(length).c_str());
        EXPECT_EQ(string.bytes(), clearedImage<S>(letters(length))) << length;
        EXPECT_TRUE(string.guardsStand());
    }
}

TEST(Core8ConstructCases, LengthIsStoredLowByteFirst)
{
    Guarded<_qvString8_allSize<500>> const string(letters(300).c_str());
    EXPECT_EQ(string.bytes()[0], 0x2C);
    EXPECT_EQ(string.bytes()[1], 0x01);
}

TEST(Core8ConstructCases, TwoThousandUnitsIntoFiveThousandGive1024)
{
    std::vector<unsigned short> units(2000, 'u');
    units.push_back(0);
    _qvString8_allSize<5000> const string(static_cast<unsigned short const*>(units.data()));
    EXPECT_TRUE(holds(string, std::string(1024, 'u')));
}

} // namespace
