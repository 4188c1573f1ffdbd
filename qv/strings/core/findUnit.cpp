#include "qv/strings/core/findUnit.h"

#include "qv/strings/core/sieve.h"

#include <algorithm>
#include <cstring>

namespace qvStrings {

namespace {

/// `memchr`, with the count for not found.
unsigned indexOfByte(Run<char> text, char byte)
{
    void const* const found = std::memchr(text.units, byte, text.count);
    return found == nullptr ? text.count
                            : static_cast<unsigned>(static_cast<char const*>(found) - text.units);
}

/// Index of the first such letter in either case, or the count: memchr, which is fastest, runs once
/// for each case. In pieces, since one case may be near and the other far off.
unsigned indexOfLetter(Run<char> text, char letter)
{
    constexpr unsigned piece = 2048;
    for (unsigned at = 0; at < text.count; at += piece) {
        auto const part = cut(Run<char>{text.units + at, text.count - at}, piece);
        unsigned const lower = indexOfByte(part, foldLower(letter));
        unsigned const first = indexOfByte({part.units, lower}, foldUpper(letter));
        if (first < part.count)
            return at + first;
    }
    return text.count;
}

} // namespace

template <Case mode, typename Unit>
unsigned indexOfUnit(Run<Unit> text, Unit unit)
{
    if constexpr (sizeof(Unit) == 1) {
        if (mode == Case::exact || foldUpper(unit) == foldLower(unit))
            return indexOfByte(text, unit);
        return indexOfLetter(text, unit);
    } else {
        Sieve<mode, Unit> const one(unit);
        BlockSieve<mode, 16, Unit> const block(one);
        unsigned at = overBlocks<2 * block.size>(
            0, text.count, [&](unsigned i) { return block.zeros(text.units + i) == 0; });
        at = overBlocks<block.size>(at, text.count, [&](unsigned i) {
            return block.difference(text.units + i).zeros() == 0;
        });
        while (at < text.count && one.difference(text.units[at]) != 0)
            ++at;
        return at;
    }
}

template <Case mode, typename Unit>
int findUnit(TextRef<Unit const> self, Unit unit, int start)
{
    auto const text = self.run();
    unsigned const from = static_cast<unsigned>(start);
    unsigned const begin = from < text.count ? from : 0;
    unsigned const at =
        begin + indexOfUnit<mode, Unit>({text.units + begin, text.count - begin}, unit);
    return at < text.count ? static_cast<int>(at) : -1;
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
        constexpr unsigned step = 2 * block.size;
        while (end >= step && block.zeros(text.units + end - step) == 0)
            end -= step;
        if (end >= block.size && block.difference(text.units + end - block.size).zeros() == 0)
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
    Sieve<mode, Unit> const one(unit);
    Unit const* const units = self.text();
    unsigned const count = self.length();
    if (count < Block::size)
        return static_cast<int>(std::count_if(
            units, units + count, [one](Unit each) { return one.difference(each) == 0; }));

    BlockSieve<mode, 16, Unit> const block(one);
    auto const places = [&](unsigned i) { return block.difference(units + i).zeroLanes(); };
    // The last block reaches back into the one before it, so only its last lanes count.
    unsigned const rest = count % Block::size;
    Block counts = Block::all(0) - (places(count - Block::size) & Block::lastLanes(rest));
    constexpr unsigned stretch =
        254 * Block::size; // with the last block 255, the most a byte counts
    unsigned found = 0;
    for (unsigned at = 0; at < count - rest;) {
        at = overBlocks<Block::size>(at, std::min(count, at + stretch), [&](unsigned i) {
            counts = counts - places(i);
            return true;
        });
        found += counts.sum();
        counts = Block::all(0);
    }
    return static_cast<int>(found);
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template unsigned indexOfUnit<Case::exact>(Run<Unit>, Unit);                                   \
    template unsigned indexOfUnit<Case::folded>(Run<Unit>, Unit);                                  \
    template int findUnit<Case::exact>(TextRef<Unit const>, Unit, int);                            \
    template int findUnit<Case::folded>(TextRef<Unit const>, Unit, int);                           \
    template int findLastUnit(TextRef<Unit const>, Unit, int);                                     \
    template int countUnit<Case::exact>(TextRef<Unit const>, Unit);                                \
    template int countUnit<Case::folded>(TextRef<Unit const>, Unit);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
