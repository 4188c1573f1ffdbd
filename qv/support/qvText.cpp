// Compiled with its own floating-point flags (CMakeLists.txt): each single step of float2Str is
// rounded to single precision, whatever flags the linking program was built with.

#include "qv/support/qvText.h"

#include <cfloat>
#include <climits>
#include <cmath>

static_assert(FLT_EVAL_METHOD == 0, "float arithmetic must be rounded to float at each step");

namespace {

/// `value` truncated to 32 bits; the smallest number when it does not fit.
int integerPart(float value)
{
    bool const fits = value >= -0x1p31F && value < 0x1p31F;
    return fits ? static_cast<int>(value) : INT_MIN;
}

/// 10 to the power of `decimals`, formed by single multiplications; 1 for 0 and below.
float powerOfTen(int decimals)
{
    float power = 1;
    for (int i = 0; i < decimals && !std::isinf(power); ++i)
        power *= 10;
    return power;
}

/// `fraction` rounded half away from zero: the low 32 bits of the 64-bit result, 0 when it does not
/// fit into 64 bits.
int roundedFraction(float fraction)
{
    double const shifted = static_cast<double>(fraction) + (fraction < 0 ? -0.5 : 0.5);
    bool const fits = shifted >= -0x1p63 && shifted < 0x1p63;
    return fits ? static_cast<int>(static_cast<long long>(shifted)) : 0;
}

} // namespace

_qvString<25> int2Str(int const& value)
{
    _qvString<25> text;
    text.addNr(value);
    return text;
}

_qvString<25> float2Str(float value, int const& decimals, unsigned short const& separator)
{
    int const integer = integerPart(value);
    float const fraction = (value - static_cast<float>(integer)) * powerOfTen(decimals);
    _qvString8_allSize<12> digits; // "-2147483648"
    digits.addNr(roundedFraction(fraction));

    _qvString<25> text = int2Str(integer);
    text += separator;
    // The sign of the fraction counts as one of its digits.
    for (int i = static_cast<int>(digits.length); i < decimals && text.length < 25; ++i)
        text += '0';
    text.add(digits.asChar());
    return text;
}

_qvString<500> bool2str(bool const& value, bool const& asWord)
{
    if (asWord)
        return value ? "true" : "false";
    return value ? "1" : "0";
}

bool qvIsDigit(unsigned short const& c)
{
    return c == '-' || (c >= '0' && c <= '9');
}

std::uint64_t z_compressBound_copy(unsigned long sourceLen)
{
    constexpr std::uint64_t mebibyte = 1 << 20;
    std::uint64_t const length = sourceLen;
    if (length < 50 * mebibyte)
        return length + (length >> 12) + (length >> 14) + 211;
    if (length < 100 * mebibyte)
        return length * 2 / 3;
    return length >> 1;
}
