#pragma once

#include "qv/strings/core/lanes.h"

#include <algorithm>
#include <bit>
#include <cstddef>

/// Finds the first place where two runs of units differ, for folded comparisons and searches.
/// Inline for short runs, so that a search calls no function to compare a span.

namespace qvStrings {

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

/// Index of the first unit that differs, or `count`. Compares so many blocks at a time, together at
/// most `count` units; the last step reaches back into the one before it, so that no unit is
/// compared singly.
template <Case mode, unsigned bytes, unsigned blocks, typename Unit>
unsigned mismatchByBlocks(Unit const* a, Unit const* b, unsigned count)
{
    constexpr std::size_t size = Lanes<Unit, bytes>::size;
    constexpr std::size_t step = blocks * size;
    std::size_t const last = count - step;
    for (std::size_t i = 0;; i = std::min(i + step, last)) {
        auto found = difference<mode, bytes>(a + i, b + i);
        for (std::size_t at = size; at < step; at += size)
            found = found | difference<mode, bytes>(a + i + at, b + i + at);
        unsigned const equal = found.zeros();
        if (equal != (1u << size) - 1) {
            auto const at = static_cast<unsigned>(i);
            if constexpr (blocks == 1)
                return at + static_cast<unsigned>(std::countr_one(equal));
            else
                return at + mismatchByBlocks<mode, bytes, 1>(a + i, b + i, step);
        }
        if (i == last)
            return count;
    }
}

/// Index of the first of `count` units that differs in the given case, or `count`. Made for short
/// runs.
template <Case mode, typename Unit>
[[gnu::always_inline]] inline unsigned mismatchOfShort(Unit const* a, Unit const* b, unsigned count)
{
    std::size_t const bytes = count * sizeof(Unit);
    if (bytes >= 16)
        return mismatchByBlocks<mode, 16, 1>(a, b, count);
    if (bytes >= 8)
        return mismatchByBlocks<mode, 8, 1>(a, b, count);
    unsigned i = 0;
    while (i < count && foldFirst<mode>(a[i]) == foldSecond<mode>(b[i]))
        ++i;
    return i;
}

/// The same for runs of any length. Compiled once (compare.cpp).
template <Case mode, typename Unit>
unsigned mismatch(Unit const* a, Unit const* b, unsigned count);

} // namespace qvStrings
