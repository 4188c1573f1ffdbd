#include "strings/core/compare.h"

namespace qvStrings {

namespace {

/// Equality of one block of fixed size: no early exit, so that it becomes a few vector steps.
template <Case mode, unsigned count, typename Unit>
bool blockEqual(Unit const* a, Unit const* b)
{
    unsigned difference = 0;
    for (unsigned i = 0; i < count; ++i)
        difference |= static_cast<unsigned>(foldFirst<mode>(a[i]) ^ foldSecond<mode>(b[i]));
    return difference == 0;
}

/// Index of the first unit that differs, or `count`.
template <Case mode, typename Unit>
unsigned mismatch(Unit const* a, Unit const* b, unsigned count)
{
    constexpr unsigned block = 32 / sizeof(Unit);
    unsigned i = 0;
    while (i + block <= count && blockEqual<mode, block>(a + i, b + i))
        i += block;
    while (i < count && foldFirst<mode>(a[i]) == foldSecond<mode>(b[i]))
        ++i;
    return i;
}

} // namespace

template <Case mode, typename Unit>
bool equal(Unit const* a, Unit const* b, unsigned count)
{
    if constexpr (mode == Case::exact)
        return order(a, b, count) == 0;
    else
        return mismatch<mode>(a, b, count) == count;
}

template <typename Unit>
int orderFolded(Unit const* a, Unit const* b, unsigned count)
{
    unsigned const at = mismatch<Case::folded>(a, b, count);
    if (at == count)
        return 0;
    Unit const foldedA = foldUpper(a[at]);
    Unit const foldedB = foldUpper(b[at]);
    return order(&foldedA, &foldedB, 1);
}

unsigned shortLength(char const* text)
{
    return std::strlen(text) & 0xFFFFu;
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template bool equal<Case::exact>(Unit const*, Unit const*, unsigned);                          \
    template bool equal<Case::folded>(Unit const*, Unit const*, unsigned);                         \
    template bool equal<Case::upperInput>(Unit const*, Unit const*, unsigned);                     \
    template bool equal<Case::lowerInput>(Unit const*, Unit const*, unsigned);                     \
    template int orderFolded(Unit const*, Unit const*, unsigned);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)

} // namespace qvStrings
