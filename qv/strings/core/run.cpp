#include "qv/strings/core/run.h"

#include "qv/strings/core/appendInline.h"

qvStrings::Run<char> qvStrings::patternOf(char const* text, unsigned capacity)
{
    return cut(measured(text), capacity);
}

qvStrings::Run<unsigned short> qvStrings::measured(unsigned short const* text)
{
    return measuredInline(text);
}
