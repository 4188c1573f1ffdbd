#include "qv/strings/core/findUnit.h"

#include "qv/strings/core/sieve.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>

namespace qvStrings {

namespace {

/// The first unit that a block sieve lets pass, or null, in a text of at least so many blocks. So
/// many are looked at together.
template <unsigned blocks, typename Block, typename Unit>
Unit const* firstByBlocks(Block const& block, Run<Unit> text)
{
    constexpr unsigned step = blocks * Block::size;
    unsigned at = overBlocks<step>(
        0, text.count, [&](unsigned i) { return !block.template anyIn<blocks>(text.units + i); });
    // The last blocks reach back into the ones before them.
    at = std::min(at, text.count - step);
    auto const places = block.template placesIn<blocks>(text.units + at);
    return places == 0 ? nullptr : text.units + at + std::countr_zero(places);
}

/// Fewer units than a block as its last lanes, zeros before them.
template <typename Unit>
Lanes<Unit, 16> lastLanesOf(Run<Unit> few)
{
    Unit block[Lanes<Unit, 16>::size] = {};
    std::copy_backward(few.units, few.units + few.count, std::end(block));
    return Lanes<Unit, 16>(block);
}

} // namespace

template <Case mode, typename Unit>
Unit const* firstUnit(Run<Unit> text, Unit unit)
{
    if constexpr (sizeof(Unit) == 1)
        if (mode == Case::exact || !isLetter(unit))
            return static_cast<Unit const*>(std::memchr(text.units, unit, text.count));
    Sieve<mode, Unit> const one(unit);
    BlockSieve<mode, 16, Unit> const block(one);
    if (text.count >= 4 * block.size)
        return firstByBlocks<4>(block, text);
    if (text.count >= block.size)
        return firstByBlocks<1>(block, text);
    for (unsigned at = 0; at < text.count; ++at)
        if (one.difference(text.units[at]) == 0)
            return text.units + at;
    return nullptr;
}

template <Case mode, typename Unit>
int findUnit(TextRef<Unit const> self, Unit unit, int start)
{
    auto const text = self.run();
    auto const from = static_cast<unsigned>(start);
    Run<Unit> const searched =
        from < text.count ? Run<Unit>{text.units + from, text.count - from} : text;
    Unit const* const found = firstUnit<mode>(searched, unit);
    return found == nullptr ? -1 : static_cast<int>(found - text.units);
}

template <typename Unit>
int findLastUnit(TextRef<Unit const> self, Unit unit, int start)
{
    auto const text = self.run();
    unsigned const last = static_cast<unsigned>(start);
    unsigned end = last < text.count ? last + 1 : text.count;
    if constexpr (sizeof(Unit) == 1) {
        void const* const found = memrchr(text.units, unit, end);
        return found == nullptr ? -1
                                : static_cast<int>(static_cast<char const*>(found) - text.units);
    } else {
        BlockSieve<Case::exact, 16, Unit> const block(unit);
        constexpr unsigned step = 4 * block.size;
        while (end >= step && !block.template anyIn<4>(text.units + end - step))
            end -= step;
        while (end >= block.size && !block.template anyIn<1>(text.units + end - block.size))
            end -= block.size;
        while (end != 0 && text.units[end - 1] != unit)
            --end;
        return static_cast<int>(end) - 1;
    }
}

template <Case mode, typename Unit>
int countUnit(TextRef<Unit const> self, Unit unit)
{
    using Block = Lanes<Unit, 16>;
    constexpr unsigned size = Block::size;
    BlockSieve<mode, 16, Unit> const block(unit);
    auto const places = [&](Block units) { return block.difference(units).zeroLanes(); };
    auto const text = self.run();
    auto const placesAt = [&](unsigned i) { return places(Block(text.units + i)); };
    // The last block reaches back into the one before it, so only its last lanes count.
    unsigned const rest = text.count % size;
    Block const last =
        text.count < size ? lastLanesOf(text) : Block(text.units + text.count - size);
    Block counts = Block::all(0) - (places(last) & Block::lastLanes(rest));

    constexpr unsigned stretch = 254 * size; // with the last block 255, the most a byte counts
    unsigned found = 0;
    unsigned at = 0;
    do {
        unsigned const end = std::min(text.count, at + stretch);
        at = overBlocks<4 * size>(at, end, [&](unsigned i) {
            counts = counts - ((placesAt(i) + placesAt(i + size)) +
                               (placesAt(i + 2 * size) + placesAt(i + 3 * size)));
            return true;
        });
        at = overBlocks<size>(at, end, [&](unsigned i) {
            counts = counts - placesAt(i);
            return true;
        });
        found += counts.sum();
        counts = Block::all(0);
    } while (at < text.count - rest);
    return static_cast<int>(found);
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template Unit const* firstUnit<Case::folded>(Run<Unit>, Unit);                                 \
    template int findUnit<Case::exact>(TextRef<Unit const>, Unit, int);                            \
    template int findUnit<Case::folded>(TextRef<Unit const>, Unit, int);                           \
    template int findLastUnit(TextRef<Unit const>, Unit, int);                                     \
    template int countUnit<Case::exact>(TextRef<Unit const>, Unit);                                \
    template int countUnit<Case::folded>(TextRef<Unit const>, Unit);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE
template unsigned short const* firstUnit<Case::exact>(Run<unsigned short>, unsigned short);

} // namespace qvStrings
