#pragma once

#include "qv/strings/core/compare.h"

/// Searches for one unit.

namespace qvStrings {

/// `memchr` for both widths, also ignoring case: the first unit that equals `unit`, or null.
template <Case mode, typename Unit>
Unit const* firstUnit(Run<Unit> text, Unit unit);

/// First place of one unit at or behind `start`. A start outside the text means 0, even one behind
/// its end.
/// @return The place, counted from 0, or -1.
template <Case mode, typename Unit>
int findUnit(TextRef<Unit const> self, Unit unit, int start);

/// Last place of one unit at or before `start`; a start outside the text means its last unit.
/// @return The place, counted from 0, or -1.
template <typename Unit>
int findLastUnit(TextRef<Unit const> self, Unit unit, int start);

/// How many units equal `unit`.
template <Case mode, typename Unit>
int countUnit(TextRef<Unit const> self, Unit unit);

} // namespace qvStrings
