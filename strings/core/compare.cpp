#include "strings/core/compare.h"

#include "strings/core/lanes.h"

#include <algorithm>

namespace qvStrings {

namespace {

/// The lanes in which two blocks differ.
template <Case mode, unsigned bytes, typename Unit>
Lanes<Unit, bytes> difference(Unit const* a, Unit const* b)
{
    using Block = Lanes<Unit, bytes>;
    if constexpr (mode == Case::folded)
        return Block::foldedDifference(Block(a), Block(b));
    else
        return Block(a).template foldedFirst<mode>() ^ Block(b);
}

/// Index of the first unit that differs, or `count`, which is at least a block. The last block
/// reaches back into the one before it, so that no unit is taken by itself.
template <Case mode, unsigned bytes, typename Unit>
unsigned mismatchByBlocks(Unit const* a, Unit const* b, unsigned count)
{
    constexpr unsigned size = Lanes<Unit, bytes>::size;
    auto const differenceAt = [a, b](unsigned i) { return difference<mode, bytes>(a + i, b + i); };
    unsigned i = 0;
    // A long way is gone four blocks at a time; only the widest blocks ever have one.
    if constexpr (bytes == 16) {
        auto const fourDiffer = [&] {
            return (differenceAt(i) | differenceAt(i + size) | differenceAt(i + 2 * size) |
                    differenceAt(i + 3 * size))
                .any();
        };
        while (i + 4 * size <= count && !fourDiffer())
            i += 4 * size;
    }
    for (unsigned const last = count - size;; i += size) {
        i = std::min(i, last);
        if (auto const found = differenceAt(i); found.any())
            return i + found.firstSet();
        if (i == last)
            return count;
    }
}

} // namespace

template <Case mode, typename Unit>
unsigned mismatch(Unit const* a, Unit const* b, unsigned count)
{
    if (count >= Lanes<Unit, 16>::size)
        return mismatchByBlocks<mode, 16>(a, b, count);
    if (count >= Lanes<Unit, 8>::size)
        return mismatchByBlocks<mode, 8>(a, b, count);
    unsigned i = 0;
    while (i < count && foldFirst<mode>(a[i]) == foldSecond<mode>(b[i]))
        ++i;
    return i;
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
