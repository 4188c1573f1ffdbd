#include "qv/support/qvRand.h"

namespace {

constexpr unsigned int modulus = 2147483647;
constexpr unsigned int letterCount = sizeof qvLetters - 1;
constexpr unsigned int numberCount = sizeof qvNumbers - 1;

/// 16807 * state modulo 2147483647, in 32 bits: the product is split by quotient and remainder of
/// 2147483647 / 16807, so that it never needs more.
unsigned int step(unsigned int state)
{
    constexpr unsigned int quotient = 127773;
    unsigned int const next = 16807 * (state % quotient) - 2836 * (state / quotient);
    // A result of exactly 0 takes the addition too.
    return static_cast<int>(next) > 0 ? next : next + modulus;
}

template <int N>
_qvString8_allSize<N> randomText(unsigned int state, int mode, int length)
{
    _qvString8_allSize<N> text;
    for (int i = 0; i < length; ++i) {
        state = step(state);
        if (mode == 0)
            text += static_cast<char>(state);
        else if (mode == 1)
            text += qvLetters[state % letterCount];
        else if (mode == 2)
            text += qvNumbers[state % numberCount];
    }
    return text;
}

} // namespace

float qvRand(unsigned int& seed)
{
    seed = step(seed);
    return static_cast<float>(seed) * 0x1p-31F;
}

unsigned int qvRandCalc(unsigned char const* data, unsigned int const& length)
{
    unsigned int sum = 0;
    for (unsigned int i = 0; i < length; ++i)
        sum += data[i] * i;
    return step(step(sum));
}

_qvString8_allSize<10> qvRandString(unsigned int seed, int mode)
{
    return randomText<10>(seed, mode, 10);
}

_qvString8_allSize<10> qvRandString9(unsigned int seed, int mode)
{
    return randomText<10>(seed, mode, 9);
}

_qvString8_allSize<20> qvRandString20(unsigned int seed, int mode)
{
    return randomText<20>(seed, mode, 20);
}
