#include "strings/core/compare.h"

#include "strings/core/mismatch.h"

namespace qvStrings {

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
    template bool equal<Case::exact>(Unit const*, Unit const*, unsigned);                          \
    template bool equal<Case::folded>(Unit const*, Unit const*, unsigned);                         \
    template bool equal<Case::upperInput>(Unit const*, Unit const*, unsigned);                     \
    template bool equal<Case::lowerInput>(Unit const*, Unit const*, unsigned);                     \
    template int orderFolded(Unit const*, Unit const*, unsigned);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
