#pragma once

#include "qv/strings/core/fold.h"

#include <cstring>

/// Comparisons that both widths share, over plain runs of units. No unit of either side is read
/// when a count is 0. The folded ones are compiled once per unit type (compare.cpp).

namespace qvStrings {

/// How two runs of units are brought to a common case before they are compared.
enum class Case
{
    exact,      ///< Both as they stand.
    folded,     ///< The upper fold of both.
    upperInput, ///< The upper fold of the first; the caller promises that the second has it.
    lowerInput, ///< The lower fold of the first; the caller promises that the second has it.
};

/// The unit of the first side as it is compared.
template <Case mode, typename Unit>
constexpr Unit foldFirst(Unit unit)
{
    if constexpr (mode == Case::exact)
        return unit;
    else if constexpr (mode == Case::lowerInput)
        return foldLower(unit);
    else
        return foldUpper(unit);
}

/// The unit of the second side as it is compared.
template <Case mode, typename Unit>
constexpr Unit foldSecond(Unit unit)
{
    return mode == Case::folded ? foldUpper(unit) : unit;
}

/// True when `count` units are equal in the given case.
template <Case mode, typename Unit>
bool equal(Unit const* a, Unit const* b, unsigned count);

/// Order of `count` units by their stored bytes, low byte first: below, at or above 0. For units
/// from 0x100 up this is not the order of their values, as required.
template <typename Unit>
int order(Unit const* a, Unit const* b, unsigned count)
{
    return count == 0 ? 0 : std::memcmp(a, b, count * sizeof(Unit));
}

/// As `order`, after the upper fold of both sides.
template <typename Unit>
int orderFolded(Unit const* a, Unit const* b, unsigned count);

/// Length of a zero-terminated byte text as all members measure it: the low 16 bits of its
/// strlen, so a text of 65,536 bytes counts as empty and one of 65,541 as 5 long.
inline unsigned shortLength(char const* text)
{
    return std::strlen(text) & 0xFFFFu;
}

} // namespace qvStrings
