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

/// Index of the first unit that differs, or `count`. Goes so many blocks at a time, which is at
/// most `count`; the last step reaches back into the one before it, so that no unit is taken by
/// itself.
template <Case mode, unsigned bytes, unsigned blocks, typename Unit>
unsigned mismatchByBlocks(Unit const* a, Unit const* b, unsigned count)
{
    constexpr unsigned size = Lanes<Unit, bytes>::size;
    constexpr unsigned step = blocks * size;
    unsigned const last = count - step;
    for (unsigned i = 0;; i = std::min(i + step, last)) {
        auto found = difference<mode, bytes>(a + i, b + i);
        for (unsigned at = i + size; at < i + step; at += size)
            found = found | difference<mode, bytes>(a + at, b + at);
        if (found.any()) {
            if constexpr (blocks == 1)
                return i + found.firstSet();
            else
                return i + mismatchByBlocks<mode, bytes, 1>(a + i, b + i, step);
        }
        if (i == last)
            return count;
    }
}

} // namespace

template <Case mode, typename Unit>
unsigned mismatch(Unit const* a, Unit const* b, unsigned count)
{
    std::size_t const bytes = count * sizeof(Unit);
    if (bytes >= 64)
        return mismatchByBlocks<mode, 16, 4>(a, b, count);
    if (bytes >= 16)
        return mismatchByBlocks<mode, 16, 1>(a, b, count);
    if (bytes >= 8)
        return mismatchByBlocks<mode, 8, 1>(a, b, count);
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
