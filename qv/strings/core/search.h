#pragma once

#include "qv/strings/core/compare.h"
#include "qv/strings/core/textRef.h"

#include <initializer_list>

/// Searches that both widths share. All give a position counted from 0, or -1 for not found.

namespace qvStrings {

/// First place at or behind `start` where the `count` units of `pattern` stand. An empty pattern
/// is found nowhere, and a start that leaves no room for it gives -1. A pattern as long as the
/// text is held against the whole text, whatever the start. A negative start is outside the
/// contract and counts as 0.
template <Case mode, typename Unit>
int find(TextRef<Unit const> self, Unit const* pattern, unsigned count, int start);

/// The searches of `indexOfFirstOcc`: each pattern in turn, folded, from 0. A pattern found at 0
/// ends them. Else the one found LAST in the list counts, whatever its position: intended, in
/// spite of the name. `which`, unless null, gets the pattern's number, -1 for none.
template <typename Unit>
int findFirstOcc(TextRef<Unit const> self, std::initializer_list<TextRef<Unit const>> patterns,
                 int* which);

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
