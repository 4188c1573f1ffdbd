#include "strings/qvCharLen.h"

unsigned short qvCharLen(unsigned short const* text)
{
    constexpr unsigned short bound = 1024;
    unsigned short length = 0;
    while (length < bound && text[length] != 0)
        ++length;
    return length;
}
