#pragma once

#include "qv/strings/core/textRef.h"

/// The rules of change that both widths share, over a unit type and any image. Compiled once per
/// unit type (edit.cpp) instead of once per capacity; that the compiler does not know the
/// capacity there also keeps short copies fast, since a copy whose length is known to be
/// bounded is expanded in place to slow string instructions.
///
/// Counts are in units. Nothing allocates, nothing reports: what does not fit is cut at the end.

namespace qvStrings {

/// Moves `count` units; the ranges may overlap, and a count of 0 accepts any pointers. Most texts
/// are words: for those a call of memmove would cost more than the move.
template <typename Unit>
void moveUnits(Unit const* source, unsigned count, Unit* target);

/// The text becomes the first min(count, capacity) units of `source`, which may lie inside the
/// object. Terminator. Units behind it stay.
template <typename Unit>
void assign(TextRef<Unit> self, Unit const* source, unsigned count);

/// As `assign`, and all units of the text behind the copied ones become 0.
template <typename Unit>
void assignCleared(TextRef<Unit> self, Unit const* source, unsigned count);

/// As `assign` with no clip: a count above the capacity writes past the text and the object.
template <typename Unit>
void assignUnclipped(TextRef<Unit> self, Unit const* source, unsigned count);

/// Block append: the count is fixed first, clipped to the room left, then copied as one block.
/// Terminator. `source` may lie inside the object.
template <typename Unit>
void append(TextRef<Unit> self, Unit const* source, unsigned count);

/// Repeating append: unit by unit, the length of `source` read afresh on each step, until it or
/// the capacity ends. So a text appended to itself repeats until the capacity is full.
template <typename Unit>
void appendRepeating(TextRef<Unit> self, TextRef<Unit const> source);

/// Puts one unit where the text ends, without asking for room. Terminator. The length is stored
/// last, so that the compiler still knows it when the next unit follows.
template <typename Unit>
void putUnit(TextRef<Unit> self, Unit unit)
{
    unsigned const length = self.length();
    auto const end = static_cast<unsigned short>(length + 1);
    self.text()[length] = unit;
    self.text()[end] = 0;
    self.storeLength(end);
}

/// Appends one unit when there is room for it; else changes nothing, not even the terminator.
template <typename Unit>
void appendUnit(TextRef<Unit> self, Unit unit)
{
    if (self.room() != 0)
        putUnit(self, unit);
}

/// Text of `count` copies of one unit, cut at the capacity.
template <typename Unit>
void fill(TextRef<Unit> self, Unit unit, unsigned count);

/// Rebuilds the text from up to three pieces: the first `head` units as they stand, `middleCount`
/// units of `middle`, and `tailCount` units that stood at `tailFrom`. Each piece is clipped to the
/// room that the ones before it leave, so the end of the result is what gets lost.
///
/// A result without units leaves text[0] as it was and writes no terminator. A tail outside the
/// object reads as `copyOut` reads. `middle` may be the object's own text up to `head`.
template <typename Unit>
void rebuild(TextRef<Unit> self, unsigned head, Unit const* middle, unsigned middleCount,
             long long tailFrom, unsigned tailCount);

/// Cuts `count` units at `start`. Neither is held against the length: a range beyond the end is
/// outside the contract and gives a text of full capacity with what lay behind the range.
template <typename Unit>
void removeRange(TextRef<Unit> self, int start, int count);

/// Copies `count` units that stand at index `from` of the text to `target`, which may lie in the
/// object. Index and count need not stay inside the text: the object's own bytes are delivered
/// as far as the object goes, and zeros outside it, never memory of somebody else.
template <typename Unit>
void copyOut(TextRef<Unit const> self, long long from, unsigned count, Unit* target);

/// Sets the length to `length` held between 0 and the capacity. Terminator; no other unit moves,
/// so a greater length exposes what stands there.
template <typename Unit>
void setLength(TextRef<Unit> self, int length)
{
    int const capacity = static_cast<int>(self.capacity());
    self.endAt(static_cast<unsigned>(length <= 0 ? 0 : length > capacity ? capacity : length));
}

/// Takes the length from the text: the first zero ahead of text[capacity], else the capacity.
template <typename Unit>
void calcLength(TextRef<Unit> self);

/// Zeroes the text from the terminator to its last unit, so that equal texts are equal bytes.
template <typename Unit>
void clearUnused(TextRef<Unit> self);

} // namespace qvStrings
