#pragma once

#include "qv/strings/core/compare.h"
#include "qv/strings/core/lanes.h"

/// Finds the units of a text that equal one unit, singly or a block at a time. All searches, counts
/// and edits of one unit use it, and the search for texts does.

namespace qvStrings {

/// Compares units with one unit in the given case. A mask drops the bit in which the cases of a
/// letter differ, so that no unit needs folding.
template <Case mode, typename Unit>
struct Sieve
{
    Unit wanted;
    Unit mask;

    explicit Sieve(Unit unit) : wanted(unit), mask(static_cast<Unit>(~0))
    {
        if (mode == Case::exact || !isLetter(unit))
            return;
        // A wanted letter in lower case, promised in upper case, keeps the bit: nothing equals it.
        mask = static_cast<Unit>(~('a' ^ 'A'));
        if (mode == Case::folded)
            wanted &= mask;
    }

    /// 0 for an equal unit.
    Unit difference(Unit unit) const { return static_cast<Unit>((unit & mask) ^ wanted); }
};

/// The same for a block of units at once.
template <Case mode, unsigned bytes, typename Unit>
class BlockSieve
{
public:
    using Block = Lanes<Unit, bytes>;
    static constexpr unsigned size = Block::size;

    explicit BlockSieve(Unit unit) : BlockSieve(Sieve<mode, Unit>(unit)) {}
    explicit BlockSieve(Sieve<mode, Unit> sieve)
        : wanted_(Block::all(sieve.wanted)),
          mask_(Block::all(sieve.mask))
    {}

    /// 0 in the lanes of equal units.
    Block difference(Block units) const
    {
        if constexpr (mode == Case::exact)
            return units ^ wanted_;
        else
            return (units & mask_) ^ wanted_;
    }
    Block difference(Unit const* units) const { return difference(Block(units)); }

    /// Whether so many neighbouring blocks hold an equal unit.
    template <unsigned blocks>
    bool anyIn(Unit const* units) const
    {
        Block found = difference(units).zeroLanes();
        for (unsigned at = size; at < blocks * size; at += size)
            found = found | difference(units + at).zeroLanes();
        return found.any();
    }

    /// A bit for every unit of so many neighbouring blocks, the first one's lowest: set where it is
    /// equal.
    template <unsigned blocks>
    unsigned long long placesIn(Unit const* units) const
    {
        static_assert(blocks * size <= 64);
        unsigned long long places = 0;
        for (unsigned at = blocks * size; at != 0; at -= size)
            places = places << size | difference(units + at - size).zeros();
        return places;
    }

private:
    Block wanted_;
    Block mask_;
};

/// Calls `work` with the index of each whole block of `size` units from `begin` on, for as long as
/// it returns true.
/// @return Index of the block for which it returned false, or of the rest that fills no block.
template <unsigned size, typename Work>
unsigned overBlocks(unsigned begin, unsigned end, Work work)
{
    while (begin + size <= end && work(begin))
        begin += size;
    return begin;
}

} // namespace qvStrings
