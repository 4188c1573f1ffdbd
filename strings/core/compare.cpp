#include "strings/core/compare.h"

#include "strings/core/lanes.h"

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

/// Index of the first unit that differs, or `count`, block by block. The last block reaches back
/// into the one before it, so that only a text shorter than a block is taken unit by unit.
template <Case mode, unsigned bytes, typename Unit>
unsigned mismatchByBlocks(Unit const* a, Unit const* b, unsigned count)
{
    constexpr unsigned size = Lanes<Unit, bytes>::size;
    unsigned i = 0;
    for (; i + 2 * size <= count; i += 2 * size)
        if ((difference<mode, bytes>(a + i, b + i) |
             difference<mode, bytes>(a + i + size, b + i + size))
                .any())
            break;
    for (; i + size <= count; i += size)
        if (difference<mode, bytes>(a + i, b + i).any())
            break;
    if (i + size > count && count >= size) {
        i = count - size;
        if (!difference<mode, bytes>(a + i, b + i).any())
            return count;
    }
    while (i < count && foldFirst<mode>(a[i]) == foldSecond<mode>(b[i]))
        ++i;
    return i;
}

} // namespace

template <Case mode, typename Unit>
unsigned mismatch(Unit const* a, Unit const* b, unsigned count)
{
    return count * sizeof(Unit) >= 16 ? mismatchByBlocks<mode, 16>(a, b, count)
                                      : mismatchByBlocks<mode, 8>(a, b, count);
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
