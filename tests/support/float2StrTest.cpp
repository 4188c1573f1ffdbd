// Floats as text: the digits are those of single precision, a carry stays in the fraction, and a
// negative number shows its sign in both halves.

#include "qv/support/qvText.h"
#include "tests/model/floatTextModel.h"
#include "tests/support/units.h"

#include <gtest/gtest.h>

#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <limits>
#include <random>
#include <string>

namespace {

using qvTest::shown;

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float smallest = std::numeric_limits<float>::denorm_min();

// Sanitizers make the sweep slow; they get a part of it.
#if defined(__SANITIZE_ADDRESS__)
#define QV_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(undefined_behavior_sanitizer)
#define QV_SANITIZED 1
#endif
#endif
#ifdef QV_SANITIZED
constexpr int patterns = 250'000;
#else
constexpr int patterns = 2'000'000;
#endif

struct Row
{
    float value;
    int decimals;
    char const* text;
};

template <std::size_t Count>
void expectRows(Row const (&rows)[Count])
{
    for (Row const& row : rows) {
        _qvString<25> const text = float2Str(row.value, row.decimals, '.');
        EXPECT_EQ(shown(text), row.text) << row.value << ", " << row.decimals;
        EXPECT_TRUE(qvTest::zeroBehindText(text)) << row.text;
    }
}

TEST(Float2Str, GivesFixedPointText)
{
    expectRows({
        {3.14159F, 2, "3.14"},
        {0.0F, 2, "0.00"},
        {0.001F, 2, "0.00"},
        {0.125F, 3, "0.125"},
        {1.05F, 2, "1.05"},
        {100.0F, 2, "100.00"},
        {12.34F, 5, "12.34000"},
        {0.3F, 1, "0.3"},
        {16777216.0F, 2, "16777216.00"},
        {2147483520.0F, 3, "2147483520.000"},
    });
}

TEST(Float2Str, DoesNotCarryIntoTheIntegerPart)
{
    expectRows({
        {1.999F, 2, "1.100"},
        {9.9999F, 3, "9.1000"},
        {0.99999994F, 1, "0.10"},
    });
}

TEST(Float2Str, ShowsTheSignOfBothHalves)
{
    expectRows({
        {-1.5F, 1, "-1.-5"},
        // The sign takes the place of a zero.
        {-1.05F, 2, "-1.-5"},
        {-1.005F, 3, "-1.0-5"},
        {-0.5F, 1, "0.-5"},
        // A fraction that rounds to zero has no sign, and neither has a negative zero.
        {-0.25F, 0, "0.0"},
        {-0.0F, 3, "0.000"},
        {-7.0F, 2, "-7.00"},
    });
}

TEST(Float2Str, KeepsOneDigitOfFractionWithoutDecimals)
{
    expectRows({
        {0.0F, 0, "0.0"},
        {3.2F, 0, "3.0"},
        {3.7F, 0, "3.1"},
        {0.5F, 0, "0.1"},
        {-0.5F, 0, "0.-1"},
        {2.5F, -1, "2.1"},
        {2.5F, INT_MIN, "2.1"},
        {8388607.5F, 0, "8388607.1"},
    });
}

TEST(Float2Str, ShowsSinglePrecision)
{
    expectRows({
        {1234567.89F, 2, "1234567.88"},
        {1.005F, 2, "1.00"},
        {0.123456789F, 8, "0.12345679"},
        {0.123456789F, 9, "0.123456792"},
        // The half is added in double precision: in single precision the sum would be 1.
        {0.49999997F, 0, "0.0"},
    });
}

TEST(Float2Str, GivesTheLowestIntegerForWhatDoesNotFit)
{
    expectRows({
        {notANumber, 2, "-2147483648.00"},
        {-notANumber, 2, "-2147483648.00"},
        {notANumber, 0, "-2147483648.0"},
        {infinity, 2, "-2147483648.00"},
        {-infinity, 2, "-2147483648.00"},
        {-infinity, 0, "-2147483648.0"},
        // The limits of 32 bits: the last that fits, and what follows it.
        {-2147483648.0F, 2, "-2147483648.00"},
        {-2147483904.0F, 1, "-2147483648.-2560"},
        {2147483648.0F, 0, "-2147483648.0"},
        // The rest is what the value is above or below that integer, its low 32 bits.
        {3e9F, 0, "-2147483648.852516352"},
        {-3e9F, 0, "-2147483648.-852516352"},
        {-3e9F, 2, "-2147483648.647708672"},
        {1e10F, 2, "-2147483648.-727318528"},
        {3.4e38F, 0, "-2147483648.0"},
    });
}

TEST(Float2Str, KeepsTheLow32BitsOfALongFraction)
{
    expectRows({
        {0.1F, 9, "0.100000000"},
        {0.1F, 10, "0.1000000000"},
        {0.25F, 9, "0.250000000"},
        {0.25F, 10, "0.-1794967296"},
        {-0.25F, 10, "0.1794967296"},
        {0.5F, 10, "0.0705032704"},
        {0.5F, 12, "0.001783791616"},
        {-1.5F, 12, "-1.0-1783791616"},
        {0.123456789F, 12, "0.0-1097261056"},
        {-123456.79F, 12, "-123456.001211498496"},
    });
}

TEST(Float2Str, GivesZerosForAFractionBeyond64Bits)
{
    expectRows({
        {1.5F, 19, "1.0000000000000000000"},
        {1.5F, 20, "1.00000000000000000000"},
        {0.7F, 20, "0.00000000000000000000"},
        // From 39 decimals on the factor is infinite: infinite times nothing is no number.
        {1.0F, 38, "1.00000000000000000000000"},
        {1.0F, 39, "1.00000000000000000000000"},
        {smallest, 45, "0.00000000000000000000000"},
    });
}

TEST(Float2Str, StopsAtTheCapacity)
{
    expectRows({
        {1.5F, 23, "1.00000000000000000000000"},
        // The zeros alone reach the capacity, so the fraction is not added at all.
        {1.5F, 30, "1.00000000000000000000000"},
        {-1.5F, 24, "-1.0000000000000000000000"},
        {-2147483648.0F, 13, "-2147483648.0000000000000"},
        {-2147483648.0F, 14, "-2147483648.0000000000000"},
        {1.5F, INT_MAX, "1.00000000000000000000000"},
        // The same fraction whole, and with its last digit cut off.
        {-2147483904.0F, 13, "-2147483648.00-1879048192"},
        {-2147483904.0F, 14, "-2147483648.000-214748364"},
        {-1234567.875F, 15, "-1234567.000000805306368"},
    });
}

TEST(Float2Str, TakesAnyUnitForTheSeparator)
{
    EXPECT_EQ(shown(float2Str(3.14159F, 2, ',')), "3,14");
    EXPECT_EQ(shown(float2Str(3.14159F, 2, 0x066B)), "3<066B>14");
    EXPECT_EQ(shown(float2Str(3.14159F, 2, 0xFFFF)), "3<FFFF>14");
    EXPECT_EQ(shown(float2Str(-1.5F, 1, '5')), "-15-5");
    // Even the unit that ends texts counts.
    EXPECT_EQ(shown(float2Str(3.14159F, 2, 0)), "3<0000>14");
}

// Counting 2147483647 factors of ten would take seconds each time.
TEST(Float2Str, ReturnsAtOnceHoweverManyDecimals)
{
    std::clock_t const start = std::clock();
    for (int i = 0; i < 100; ++i)
        float2Str(static_cast<float>(i) * 0.37F, INT_MAX - i, '.');
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 4);
}

// Half of the patterns are any float, the other half lies where fractions and limits are.
std::uint32_t pattern(std::mt19937& random)
{
    auto const bits = static_cast<std::uint32_t>(random());
    if ((random() & 1U) != 0)
        return bits;
    std::uint32_t const exponent = 127 - 24 + static_cast<std::uint32_t>(random()) % 60;
    return (bits & 0x807FFFFFU) | exponent << 23;
}

// Numbers of few digits, as people write them: their fractions end close to a half.
std::uint32_t decimalPattern(std::mt19937& random)
{
    auto const digits = static_cast<float>(static_cast<int>(random() % 2000001) - 1000000);
    float const scales[] = {2.0F, 10.0F, 20.0F, 100.0F, 200.0F, 1000.0F, 2000.0F, 100000.0F};
    return std::bit_cast<std::uint32_t>(digits / scales[random() % 8]);
}

TEST(Float2Str, AgreesWithAModelOnMillionsOfFloats)
{
    constexpr unsigned short separators[] = {'.', ',', ' ', '-', '0', 0, 0x066B, 0xFFFF};
    std::mt19937 random(5);
    for (int i = 0; i < patterns; ++i) {
        std::uint32_t const bits = i % 4 == 0 ? decimalPattern(random) : pattern(random);
        auto const choice = static_cast<int>(random() % 45);
        int const decimals = choice == 44 ? INT_MAX : choice - 3;
        unsigned short const separator = separators[random() % 8];

        _qvString<25> const text = float2Str(std::bit_cast<float>(bits), decimals, separator);
        qvTest::FloatText const expected = qvTest::floatText(bits, decimals, separator);
        bool const same = text.length == expected.length &&
                          std::memcmp(text.text, expected.units.data(), sizeof text.text) == 0;
        ASSERT_TRUE(same) << "bits 0x" << std::hex << bits << std::dec << ", decimals " << decimals
                          << ", separator " << separator << ": " << shown(text);
    }
}

// The model itself, where its answer is known.
TEST(FloatTextModel, GivesKnownTexts)
{
    auto const text = [](float value, int decimals) {
        qvTest::FloatText const made =
            qvTest::floatText(std::bit_cast<std::uint32_t>(value), decimals, '.');
        return std::string(made.units.begin(), made.units.begin() + made.length);
    };
    EXPECT_EQ(text(3.14159F, 2), "3.14");
    EXPECT_EQ(text(1.999F, 2), "1.100");
    EXPECT_EQ(text(-1.05F, 2), "-1.-5");
    EXPECT_EQ(text(notANumber, 2), "-2147483648.00");
    EXPECT_EQ(text(0.25F, 10), "0.-1794967296");
    EXPECT_EQ(text(1.5F, INT_MAX), "1.00000000000000000000000");
}

} // namespace
