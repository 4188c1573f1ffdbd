#pragma once

#include "qv/strings/core/compare.h"

#include <initializer_list>

/// Searches for a text. All give a position counted from 0, or -1 for not found.

namespace qvStrings {

/// First place of the pattern at or behind `start`. An empty pattern is found nowhere, and a start
/// that leaves no room for it gives -1. A pattern as long as the text is compared with the whole
/// text. A negative start is outside the contract and counts as 0.
template <Case mode, typename Unit>
int find(Run<Unit> text, Run<Unit> pattern, int start);
template <Case mode, typename Unit>
int find(TextRef<Unit const> self, Run<Unit> pattern, int start);

/// The same with a pattern of bytes, sign-extended; at most as many as the capacity.
template <Case mode>
int find(TextRef<unsigned short const> self, Run<char> pattern, int start);

/// The searches of `indexOfFirstOcc`: each pattern in turn, folded, from 0. A pattern found at 0
/// ends them. Else the one found LAST in the list counts, whatever its position: intended, in
/// spite of the name. `which`, unless null, gets the pattern's number, -1 for none.
template <typename Unit>
int findFirstOcc(TextRef<Unit const> self, std::initializer_list<TextRef<Unit const>> patterns,
                 int* which);

} // namespace qvStrings
