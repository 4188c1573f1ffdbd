#include "qv/strings/core/edit.h"

#include "qv/strings/core/findUnit.h"
#include "qv/strings/core/fold.h"
#include "qv/strings/core/move.h"
#include "qv/strings/core/sieve.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace qvStrings {

namespace {

template <typename Unit>
bool isBlank(Unit unit)
{
    return unit == 0 || unit == '\t' || unit == '\n' || unit == '\r' || unit == ' ';
}

/// How many units are before the first one that equals `unit`.
template <Case mode, typename Unit>
unsigned countBefore(Run<Unit> text, Unit unit)
{
    Unit const* const found = firstUnit<mode>(text, unit);
    return found == nullptr ? text.count : static_cast<unsigned>(found - text.units);
}

/// Moves the units that do not equal `unit` to the start of the text.
/// @return Their count.
template <typename Unit>
unsigned keepOthers(Unit* text, unsigned count, Unit unit)
{
    using Block = Lanes<Unit, 16>;
    constexpr unsigned shortText = 64; // anything shorter is not worth a copy
    Unit copy[maxCapacityOf<Unit>];
    Unit const* source = text;
    Sieve<Case::folded, Unit> const one(unit);
    unsigned kept = 0;
    unsigned at = 0;
    if (count >= shortText) {
        kept = at = countBefore<Case::folded>(Run<Unit>{text, count}, unit);
        moveUnits(copy + at, Run<Unit>{text + at, count - at});
        source = copy;
        // Each stretch between two removed units is copied as a whole block, and the next copy
        // overwrites the surplus. A copy may reach into the next block, so the last block is done
        // unit by unit.
        BlockSieve<Case::folded, 16, Unit> const block(one);
        at = overBlocks<Block::size>(at, count - Block::size, [&](unsigned i) {
            unsigned from = i;
            for (unsigned places = block.difference(source + i).zeros(); places != 0;
                 places &= places - 1) {
                unsigned const place = i + static_cast<unsigned>(std::countr_zero(places));
                Block(source + from).store(text + kept);
                kept += place - from;
                from = place + 1;
            }
            Block(source + from).store(text + kept);
            kept += i + Block::size - from;
            return true;
        });
    }
    for (; at < count; ++at) {
        Unit const each = source[at];
        text[kept] = each; // without a branch: the next unit overwrites a removed one
        kept += one.difference(each) != 0;
    }
    return kept;
}

} // namespace

template <typename Unit>
void clear(TextRef<Unit> self)
{
    zeroUnits(self.text(), self.capacity() + 1);
    self.storeLength(0);
}

template <typename Unit>
void clearUnused(TextRef<Unit> self)
{
    if (self.storedLength() <= self.capacity())
        zeroUnits(self.text() + self.length(), self.capacity() + 1 - self.length());
}

template <typename Unit>
void calcLength(TextRef<Unit> self)
{
    Run<Unit> const text{self.text(), self.capacity()};
    unsigned length;
    if constexpr (sizeof(Unit) == 1)
        length = static_cast<unsigned>(strnlen(text.units, text.count));
    else
        length = countBefore<Case::exact, Unit>(text, 0);
    self.storeLength(length);
    // Most texts have it already, and a store would delay the next read of the units around it.
    if (self.text()[length] != 0)
        self.text()[length] = 0;
}

template <typename Unit>
void setLength(TextRef<Unit> self, int length)
{
    self.endAt(static_cast<unsigned>(std::clamp(length, 0, static_cast<int>(self.capacity()))));
}

template <typename Unit>
void trim(TextRef<Unit> self)
{
    Unit* const text = self.text();
    unsigned end = self.length();
    while (end != 0 && isBlank(text[end - 1]))
        --end;
    unsigned begin = 0;
    while (begin != end && isBlank(text[begin]))
        ++begin;
    moveUnits(text, {text + begin, end - begin});
    self.endAt(end - begin);
}

template <typename Unit>
void makeUpper(TextRef<Unit> self)
{
    std::transform(self.text(), self.text() + self.length(), self.text(), foldUpper<Unit>);
}

template <typename Unit>
void makeLower(TextRef<Unit> self)
{
    std::transform(self.text(), self.text() + self.length(), self.text(), foldLower<Unit>);
}

template <typename Unit>
void replaceUnit(TextRef<Unit> self, Unit from, Unit to)
{
    Sieve<Case::folded, Unit> const one(from);
    BlockSieve<Case::folded, 16, Unit> const block(one);
    using Block = Lanes<Unit, 16>;
    Block const replacements = Block::all(to);
    Unit* const text = self.text();
    unsigned const length = self.length();
    unsigned at = overBlocks<block.size>(0, length, [&](unsigned i) {
        Block const units(text + i);
        Block::chosen(block.difference(units).zeroLanes(), replacements, units).store(text + i);
        return true;
    });
    for (; at < length; ++at)
        if (one.difference(text[at]) == 0)
            text[at] = to;
}

template <typename Unit>
void removeUnit(TextRef<Unit> self, Unit unit)
{
    Unit* const text = self.text();
    unsigned const length = self.length();
    Unit const stale = text[0];
    unsigned const kept = keepOthers(text, length, unit);
    if (kept == length)
        return;
    // As if the units were removed one by one from the end: each removal writes a terminator behind
    // the text, unless the text becomes empty.
    zeroUnits(text + kept, length - kept);
    if (kept == 0)
        text[0] = stale;
    self.storeLength(kept);
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template void clear(TextRef<Unit>);                                                            \
    template void clearUnused(TextRef<Unit>);                                                      \
    template void calcLength(TextRef<Unit>);                                                       \
    template void setLength(TextRef<Unit>, int);                                                   \
    template void trim(TextRef<Unit>);                                                             \
    template void makeUpper(TextRef<Unit>);                                                        \
    template void makeLower(TextRef<Unit>);                                                        \
    template void replaceUnit(TextRef<Unit>, Unit, Unit);                                          \
    template void removeUnit(TextRef<Unit>, Unit);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
