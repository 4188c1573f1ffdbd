#include "qv/strings/core/compare.h"

#include "qv/strings/core/mismatch.h"

namespace qvStrings {

template <Case mode, typename Unit>
unsigned mismatch(Unit const* a, Unit const* b, unsigned count)
{
    if (count * sizeof(Unit) >= 64)
        return mismatchByBlocks<mode, 16, 4>(a, b, count);
    return mismatchOfShort<mode>(a, b, count);
}

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

#define QV_INSTANTIATE(Unit)                                                                       \
    template unsigned mismatch<Case::exact>(Unit const*, Unit const*, unsigned);                   \
    template unsigned mismatch<Case::folded>(Unit const*, Unit const*, unsigned);                  \
    template unsigned mismatch<Case::upperInput>(Unit const*, Unit const*, unsigned);              \
    template bool equal<Case::exact>(Unit const*, Unit const*, unsigned);                          \
    template bool equal<Case::folded>(Unit const*, Unit const*, unsigned);                         \
    template bool equal<Case::upperInput>(Unit const*, Unit const*, unsigned);                     \
    template bool equal<Case::lowerInput>(Unit const*, Unit const*, unsigned);                     \
    template int orderFolded(Unit const*, Unit const*, unsigned);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
