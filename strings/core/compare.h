#pragma once

/// Comparisons that both widths share, over plain runs of units. Compiled once per unit type
/// (compare.cpp).

namespace qvStrings {

/// True when `count` units are equal after the upper fold of both sides. Reads no unit of either
/// side when the count is 0.
template <typename Unit>
bool equalFolded(Unit const* a, Unit const* b, unsigned count);

/// Length of a zero-terminated byte text as all members measure it: the low 16 bits of its
/// strlen, so a text of 65,536 bytes counts as empty and one of 65,541 as 5 long.
unsigned shortLength(char const* text);

} // namespace qvStrings
