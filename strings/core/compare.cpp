#include "strings/core/compare.h"

#include "strings/core/fold.h"

#include <cstring>

namespace qvStrings {

namespace {

/// Equality of one block of fixed size: no early exit, so that it becomes a few vector steps.
template <typename Unit, unsigned Count>
bool blockEqualFolded(Unit const* a, Unit const* b)
{
    unsigned difference = 0;
    for (unsigned i = 0; i < Count; ++i)
        difference |= static_cast<unsigned>(foldUpper(a[i]) ^ foldUpper(b[i]));
    return difference == 0;
}

} // namespace

template <typename Unit>
bool equalFolded(Unit const* a, Unit const* b, unsigned count)
{
    constexpr unsigned block = 32 / sizeof(Unit);
    unsigned i = 0;
    for (; i + block <= count; i += block)
        if (!blockEqualFolded<Unit, block>(a + i, b + i))
            return false;
    for (; i < count; ++i)
        if (foldUpper(a[i]) != foldUpper(b[i]))
            return false;
    return true;
}

unsigned shortLength(char const* text)
{
    return std::strlen(text) & 0xFFFFu;
}

template bool equalFolded(char const*, char const*, unsigned);
template bool equalFolded(unsigned short const*, unsigned short const*, unsigned);

} // namespace qvStrings
