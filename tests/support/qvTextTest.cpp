// Integers and bools as 16-bit text, the character class of numeric input, the size estimate.

#include "qv/support/qvText.h"

#include "tests/support/units.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace {

using qvTest::shown;
using qvTest::units;

// Callers pass references where a plain value would do; the signatures stay as they know them.
static_assert(std::is_same_v<decltype(&int2Str), _qvString<25> (*)(int const&)>);
static_assert(std::is_same_v<decltype(&float2Str),
                             _qvString<25> (*)(float, int const&, unsigned short const&)>);
static_assert(std::is_same_v<decltype(&bool2str), _qvString<500> (*)(bool const&, bool const&)>);
static_assert(std::is_same_v<decltype(&qvIsDigit), bool (*)(unsigned short const&)>);
static_assert(sizeof(z_compressBound_copy(0UL)) == 8 &&
              std::is_unsigned_v<decltype(z_compressBound_copy(0UL))>);

TEST(Int2Str, GivesDecimalText)
{
    struct Row
    {
        int value;
        char const* text;
    };
    for (Row const row : {
             Row{0, "0"},
             Row{7, "7"},
             Row{-7, "-7"},
             Row{10, "10"},
             Row{1234567890, "1234567890"},
             Row{INT_MAX, "2147483647"},
             Row{INT_MIN, "-2147483648"},
         }) {
        _qvString<25> const text = int2Str(row.value);
        EXPECT_EQ(shown(text), row.text);
        EXPECT_TRUE(qvTest::zeroBehindText(text)) << row.value;
    }
}

// All of the object is laid down, the reserved word included.
TEST(Bool2Str, GivesADigitOrAWordInAnObjectOfZeros)
{
    struct Row
    {
        bool value;
        bool asWord;
        char const* text;
    };
    for (Row const row : {
             Row{true, false, "1"},
             Row{false, false, "0"},
             Row{true, true, "true"},
             Row{false, true, "false"},
         }) {
        _qvString<500> const text = bool2str(row.value, row.asWord);
        EXPECT_EQ(shown(text), row.text);
        _qvString<500> const expected = units<500>(row.text);
        EXPECT_EQ(std::memcmp(&text, &expected, 1006), 0) << row.text;
    }
}

TEST(QvIsDigit, TakesTheTenDigitsAndTheMinusSignOfAll65536Units)
{
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        bool const expected = unit == 45 || (unit >= 48 && unit <= 57);
        ASSERT_EQ(qvIsDigit(static_cast<unsigned short>(unit)), expected) << unit;
    }
    EXPECT_TRUE(qvIsDigit('-'));
    EXPECT_TRUE(qvIsDigit('0'));
    EXPECT_TRUE(qvIsDigit('7'));
    EXPECT_TRUE(qvIsDigit('9'));
    // The neighbours of the class, and a digit of another script.
    constexpr unsigned short outside[] = {'+', '.', '/', ':', ',', 0};
    for (unsigned short const unit : outside)
        EXPECT_FALSE(qvIsDigit(unit)) << unit;
    EXPECT_FALSE(qvIsDigit(0x0660));
    // Low bytes that look like digits do not make a digit.
    EXPECT_FALSE(qvIsDigit(0x0130));
    EXPECT_FALSE(qvIsDigit(0x012D));
    EXPECT_FALSE(qvIsDigit(0xFF35));
}

TEST(ZCompressBoundCopy, FollowsItsThreeRules)
{
    struct Row
    {
        unsigned long size;
        std::uint64_t estimate;
    };
    for (Row const row : {
             Row{0, 211},
             Row{1, 212},
             Row{4095, 4306},
             Row{4096, 4308},
             Row{16383, 16597},
             Row{16384, 16600},
             Row{1048576, 1049107},
             Row{52428799, 52445008},
             // From here on the estimate is smaller than the block; it falls at both limits.
             Row{52428800, 34952533},
             Row{52428801, 34952534},
             Row{52428802, 34952534},
             Row{104857599, 69905066},
             Row{104857600, 52428800},
             Row{104857601, 52428800},
             Row{200000000, 100000000},
             // Sizes beyond 32 bits, up to the largest.
             Row{4294967296, 2147483648},
             Row{0x8000000000000000, 0x4000000000000000},
             Row{0xFFFFFFFFFFFFFFFF, 0x7FFFFFFFFFFFFFFF},
         })
        EXPECT_EQ(z_compressBound_copy(row.size), row.estimate) << row.size;
}

} // namespace
