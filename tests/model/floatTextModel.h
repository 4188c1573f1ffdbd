#pragma once

#include <array>
#include <bit>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>

// float2Str written a second time, to compare the real one with. It works otherwise wherever it
// can: each single-precision step is done in double precision and rounded once, which gives the
// same value for one addition, subtraction or multiplication whatever the compiler contracts; and
// the digits are made here, without the formatting of the system.
namespace qvTest {

struct FloatText
{
    static constexpr int capacity = 25;

    int length = 0;
    std::array<unsigned short, capacity + 1> units{};

    void add(unsigned short unit)
    {
        if (length < capacity)
            units[static_cast<std::size_t>(length++)] = unit;
    }
};

// The characters of an integer, last one first.
struct BackwardDigits
{
    std::array<char, 12> characters{};
    int count = 0;

    explicit BackwardDigits(std::int32_t value)
    {
        std::int64_t left = value < 0 ? -std::int64_t{value} : value;
        do {
            put(static_cast<char>('0' + left % 10));
            left /= 10;
        } while (left > 0);
        if (value < 0)
            put('-');
    }

    void put(char character) { characters[static_cast<std::size_t>(count++)] = character; }

    void addTo(FloatText& text) const
    {
        for (int i = count - 1; i >= 0; --i)
            text.add(static_cast<unsigned char>(characters[static_cast<std::size_t>(i)]));
    }
};

inline double roundedToSingle(double value)
{
    return static_cast<double>(static_cast<float>(value));
}

// 1, 10, 100, ..., each the rounded tenfold of the one before; the last one is infinite, and so
// are all behind it.
inline std::array<double, 40> const& singlePowersOfTen()
{
    static std::array<double, 40> const powers = [] {
        std::array<double, 40> made{1.0};
        for (std::size_t i = 1; i + 1 < made.size(); ++i)
            made[i] = roundedToSingle(made[i - 1] * 10.0);
        made.back() = HUGE_VAL;
        return made;
    }();
    return powers;
}

inline std::int32_t integerPart(double value)
{
    // Also refuses a not-a-number, which compares as false.
    bool const fits = value > -2147483649.0 && value < 2147483648.0;
    return fits ? static_cast<std::int32_t>(value) : INT_MIN;
}

inline std::int32_t roundedFraction(double fraction)
{
    double const sum = fraction < 0 ? fraction - 0.5 : fraction + 0.5;
    bool const fits = sum >= -0x1p63 && sum < 0x1p63;
    if (!fits)
        return 0;
    auto const low = static_cast<std::uint32_t>(static_cast<std::int64_t>(sum));
    return static_cast<std::int32_t>(low);
}

inline FloatText floatText(std::uint32_t bits, int decimals, unsigned short separator)
{
    auto const value = static_cast<double>(std::bit_cast<float>(bits));
    int const places = decimals < 0 ? 0 : decimals;
    double const factor = singlePowersOfTen()[static_cast<std::size_t>(places < 39 ? places : 39)];

    std::int32_t const integer = integerPart(value);
    double const rest = roundedToSingle(value - static_cast<double>(integer));
    BackwardDigits const fraction(roundedFraction(roundedToSingle(rest * factor)));

    FloatText text;
    BackwardDigits(integer).addTo(text);
    text.add(separator);
    // A text that is full takes no more of them, however many there are to come.
    for (int i = fraction.count; i < places && text.length < FloatText::capacity; ++i)
        text.add('0');
    fraction.addTo(text);
    return text;
}

} // namespace qvTest
