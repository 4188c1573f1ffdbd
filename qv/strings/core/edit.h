#pragma once

#include "qv/strings/core/textRef.h"

/// Edits that need no second text: of the length, of the units behind it, of single units.

namespace qvStrings {

/// Empties the string and zeroes all its text.
template <typename Unit>
void clear(TextRef<Unit> self);

/// Zeroes the text from the terminator to its last unit, so that equal texts are equal bytes. A
/// stored length above the capacity leaves nothing to zero.
template <typename Unit>
void clearUnused(TextRef<Unit> self);

/// Takes the length from the text: the first zero ahead of text[capacity], else the capacity.
/// Terminator.
template <typename Unit>
void calcLength(TextRef<Unit> self);

/// Sets the length to `length`, clamped to 0 and the capacity. Terminator; no other unit changes,
/// so a greater length exposes the units behind the old one.
template <typename Unit>
void setLength(TextRef<Unit> self, int length);

/// Strips the units 0, 9, 10, 13 and 32, and no others, from both ends. Terminator.
template <typename Unit>
void trim(TextRef<Unit> self);

/// Upper or lower fold of every unit.
template <typename Unit>
void makeUpper(TextRef<Unit> self);
template <typename Unit>
void makeLower(TextRef<Unit> self);

/// Replaces every unit that equals `from`, ignoring case, by `to`, which may be zero.
template <typename Unit>
void replaceUnit(TextRef<Unit> self, Unit from, Unit to);

/// Removes every unit equal to `unit`, ignoring case.
template <typename Unit>
void removeUnit(TextRef<Unit> self, Unit unit);

} // namespace qvStrings
