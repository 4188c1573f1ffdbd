#pragma once

#include "qv/strings/core/compare.h"

/// Searches for one unit. All give a position counted from 0, or -1 for not found.

namespace qvStrings {

/// First place of one unit. `start` is used when it is inside the text, any other searches from
/// 0: a start at or behind the end does not fail.
template <Case mode, typename Unit>
int findUnit(TextRef<Unit const> self, Unit unit, int start);

/// Last place of one unit at or before `start`; a start outside the text means its last unit.
template <typename Unit>
int findLastUnit(TextRef<Unit const> self, Unit unit, int start);

/// How many units equal `unit`.
template <Case mode, typename Unit>
int countUnit(TextRef<Unit const> self, Unit unit);

} // namespace qvStrings
