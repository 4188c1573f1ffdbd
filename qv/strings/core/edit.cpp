#include "qv/strings/core/edit.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace qvStrings {

namespace {

/// Up to how many bytes a run is moved without a call. Most texts are words.
constexpr std::size_t longestWord = 32;

/// Up to how many bytes the C library takes no string instructions, on any machine.
constexpr std::size_t stringInstructions = 2048;

/// Moves `size` bytes at either end of a run of at least `size` and at most twice as many: both
/// are loaded before one of them is stored, so the ranges may overlap.
template <std::size_t size>
void moveEnds(unsigned char* target, unsigned char const* source, std::size_t count)
{
    std::array<unsigned char, size> head;
    std::array<unsigned char, size> tail;
    std::memcpy(&head, source, size);
    std::memcpy(&tail, source + count - size, size);
    std::memcpy(target, &head, size);
    std::memcpy(target + count - size, &tail, size);
}

/// Moves a run in pieces too short for string instructions, which are 20 times slower where the
/// target lies a few bytes above the source in its page. In one piece where the target begins
/// inside the source: a later piece would read what an earlier one has written. Not inline, which
/// would make short moves save registers.
[[gnu::noinline]] void moveLong(unsigned char* target, unsigned char const* source,
                                std::size_t count)
{
    auto const ahead =
        reinterpret_cast<std::uintptr_t>(target) - reinterpret_cast<std::uintptr_t>(source);
    while (count > stringInstructions && ahead >= count) {
        std::memmove(target, source, stringInstructions);
        target += stringInstructions;
        source += stringInstructions;
        count -= stringInstructions;
    }
    std::memmove(target, source, count);
}

/// Zeroes `size` bytes at either end of a run of at least `size` and at most twice as many.
template <std::size_t size>
void zeroEnds(unsigned char* target, std::size_t count)
{
    std::memset(target, 0, size);
    std::memset(target + count - size, 0, size);
}

/// Zeroes a run long enough for string instructions, which are a quarter slower from an unaligned
/// byte on.
void zeroLong(unsigned char* target, std::size_t count)
{
    constexpr std::size_t alignment = 32;
    std::size_t const head = alignment - reinterpret_cast<std::uintptr_t>(target) % alignment;
    std::memset(target, 0, alignment);
    std::memset(target + head, 0, count - head);
}

/// Zeroes units; short runs are zeroed in place, as `moveUnits` does.
template <typename Unit>
void zeroUnits(Unit* target, unsigned count)
{
    auto* const to = reinterpret_cast<unsigned char*>(target);
    std::size_t const bytes = count * sizeof(Unit);
    if (bytes > stringInstructions)
        zeroLong(to, bytes);
    else if (bytes > 64 || bytes < 16)
        std::memset(to, 0, bytes);
    else if (bytes >= 32)
        zeroEnds<32>(to, bytes);
    else
        zeroEnds<16>(to, bytes);
}

/// The text becomes `count` units, which fit or are not to be clipped.
template <typename Unit>
void place(TextRef<Unit> self, Unit const* source, unsigned count)
{
    moveUnits(source, count, self.text());
    self.endAt(count);
}

/// The same, with zeros behind them.
template <typename Unit>
void placeCleared(TextRef<Unit> self, Unit const* source, unsigned count)
{
    moveUnits(source, count, self.text());
    self.storeLength(count);
    zeroUnits(self.text() + count, self.capacity() + 1 - count);
}

template <auto work, typename Unit>
[[gnu::noinline]] void apart(TextRef<Unit> self, Unit const* source, unsigned count)
{
    work(self, source, count);
}

/// Does one of these; where it calls to move, in a function apart, or words would have to save
/// registers for a call that they do not make.
template <auto work, typename Unit>
void withWordsFirst(TextRef<Unit> self, Unit const* source, unsigned count)
{
    if (count * sizeof(Unit) > longestWord) [[unlikely]]
        apart<work>(self, source, count);
    else
        work(self, source, count);
}

} // namespace

template <typename Unit>
void moveUnits(Unit const* source, unsigned count, Unit* target)
{
    auto const* const from = reinterpret_cast<unsigned char const*>(source);
    auto* const to = reinterpret_cast<unsigned char*>(target);
    std::size_t const bytes = count * sizeof(Unit);
    if (bytes > longestWord) [[unlikely]] {
        if (bytes > stringInstructions)
            moveLong(to, from, bytes);
        else
            std::memmove(to, from, bytes);
    } else if (bytes >= 16)
        moveEnds<16>(to, from, bytes);
    else if (bytes >= 8)
        moveEnds<8>(to, from, bytes);
    else if (bytes >= 4)
        moveEnds<4>(to, from, bytes);
    else if (bytes >= 2)
        moveEnds<2>(to, from, bytes);
    else if (bytes == 1)
        *to = *from;
}

template <typename Unit>
void assign(TextRef<Unit> self, Unit const* source, unsigned count)
{
    assignUnclipped(self, source, std::min(count, self.capacity()));
}

template <typename Unit>
void assignCleared(TextRef<Unit> self, Unit const* source, unsigned count)
{
    withWordsFirst<placeCleared<Unit>>(self, source, std::min(count, self.capacity()));
}

template <typename Unit>
void assignUnclipped(TextRef<Unit> self, Unit const* source, unsigned count)
{
    withWordsFirst<place<Unit>>(self, source, count);
}

template <typename Unit>
void append(TextRef<Unit> self, Unit const* source, unsigned count)
{
    unsigned const kept = std::min(count, self.room());
    unsigned const length = self.length();
    moveUnits(source, kept, self.text() + length);
    self.endAt(length + kept);
}

template <typename Unit>
void appendRepeating(TextRef<Unit> self, TextRef<Unit const> source)
{
    if (!same(self, source)) {
        append(self, source.text(), source.length());
        return;
    }
    Unit* const text = self.text();
    unsigned const length = self.length();
    unsigned const end = length == 0 ? 0 : length + self.room();
    for (unsigned i = length; i < end; ++i)
        text[i] = text[i - length];
    self.endAt(end);
}

template <typename Unit>
void fill(TextRef<Unit> self, Unit unit, unsigned count)
{
    unsigned const kept = std::min(count, self.capacity());
    std::fill_n(self.text(), kept, unit);
    self.endAt(kept);
}

template <typename Unit>
void rebuild(TextRef<Unit> self, unsigned head, Unit const* middle, unsigned middleCount,
             long long tailFrom, unsigned tailCount)
{
    unsigned const capacity = self.capacity();
    unsigned const headKept = std::min(head, capacity);
    unsigned const middleKept = std::min(middleCount, capacity - headKept);
    unsigned const tailAt = headKept + middleKept;
    unsigned const tailKept = std::min(tailCount, capacity - tailAt);
    // The tail leaves before the middle may overwrite it; the head stands already.
    copyOut<Unit>(self, tailFrom, tailKept, self.text() + tailAt);
    moveUnits(middle, middleKept, self.text() + headKept);
    unsigned const length = tailAt + tailKept;
    self.storeLength(length);
    if (length != 0)
        self.terminate();
}

template <typename Unit>
void removeRange(TextRef<Unit> self, int start, int count)
{
    // Unsigned on purpose: a range that leaves the text wraps to a count that the clip cuts.
    auto const head = static_cast<unsigned>(start);
    unsigned const tailCount = self.length() - head - static_cast<unsigned>(count);
    rebuild<Unit>(self, head, self.text(), 0, static_cast<long long>(start) + count, tailCount);
}

template <typename Unit>
void copyOut(TextRef<Unit const> self, long long from, unsigned count, Unit* target)
{
    // Byte offsets in the object: of the wanted range, and of the part of it that is inside.
    constexpr long long unitSize = sizeof(Unit);
    long long const begin = self.layout().textAt + from * unitSize;
    long long const end = begin + count * unitSize;
    long long const insideBegin = std::clamp(0LL, begin, end);
    long long const insideEnd = std::clamp<long long>(self.layout().objectSize, insideBegin, end);
    auto* const bytes = reinterpret_cast<unsigned char*>(target);
    if (insideBegin < insideEnd)
        std::memmove(bytes + (insideBegin - begin), self.object() + insideBegin,
                     static_cast<std::size_t>(insideEnd - insideBegin));
    std::memset(bytes, 0, static_cast<std::size_t>(insideBegin - begin));
    std::memset(bytes + (insideEnd - begin), 0, static_cast<std::size_t>(end - insideEnd));
}

template <typename Unit>
void calcLength(TextRef<Unit> self)
{
    Unit const* const text = self.text();
    self.endAt(static_cast<unsigned>(std::find(text, text + self.capacity(), Unit{0}) - text));
}

template <typename Unit>
void clearUnused(TextRef<Unit> self)
{
    // A damaged length leaves nothing inside the text to clear.
    if (self.length() <= self.capacity())
        zeroUnits(self.text() + self.length(), self.capacity() + 1 - self.length());
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template void moveUnits(Unit const*, unsigned, Unit*);                                         \
    template void assign(TextRef<Unit>, Unit const*, unsigned);                                    \
    template void assignCleared(TextRef<Unit>, Unit const*, unsigned);                             \
    template void assignUnclipped(TextRef<Unit>, Unit const*, unsigned);                           \
    template void append(TextRef<Unit>, Unit const*, unsigned);                                    \
    template void appendRepeating(TextRef<Unit>, TextRef<Unit const>);                             \
    template void fill(TextRef<Unit>, Unit, unsigned);                                             \
    template void rebuild(TextRef<Unit>, unsigned, Unit const*, unsigned, long long, unsigned);    \
    template void removeRange(TextRef<Unit>, int, int);                                            \
    template void copyOut(TextRef<Unit const>, long long, unsigned, Unit*);                        \
    template void calcLength(TextRef<Unit>);                                                       \
    template void clearUnused(TextRef<Unit>);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
