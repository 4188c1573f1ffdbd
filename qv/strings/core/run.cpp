#include "qv/strings/core/run.h"

qvStrings::Run<char> qvStrings::patternOf(char const* text, unsigned capacity)
{
    return cut(measured(text), capacity);
}

qvStrings::Run<unsigned short> qvStrings::measured(unsigned short const* text)
{
    constexpr unsigned bound = 1024;
    constexpr unsigned step = 4; // the bound is compared once for this many units
    if (text == nullptr)
        return {nullptr, 0};
    for (unsigned at = 0; at < bound; at += step)
        for (unsigned i = at; i < at + step; ++i)
            if (text[i] == 0)
                return {text, i};
    return {text, bound};
}
