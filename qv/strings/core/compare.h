#pragma once

#include "qv/strings/core/fold.h"
#include "qv/strings/core/textRef.h"

#include <algorithm>
#include <cstring>

/// Comparisons, most of them compiled once per unit type (compare.cpp). No unit of either side is
/// read when a count is 0, but for the first ones that `equalExact` and `equalToInput` compare.

namespace qvStrings {

/// How two runs of units are brought to a common case before they are compared.
enum class Case
{
    exact,      ///< Neither is changed.
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

/// \name Equality of whole texts
/// @{

/// Equal lengths and equal units in the given case.
template <Case mode, typename Unit>
bool equalText(TextRef<Unit const> self, Run<Unit> other);

/// Exact equality of the first unit, which an empty text has too, then of length and text.
/// @param first The first unit of the other side.
template <typename Unit>
bool equalExact(TextRef<Unit const> self, Unit first, Run<Unit> other);

/// The same of two strings.
/// @param otherObject A string of the same image, so that one layout serves both.
template <typename Unit>
bool equalExact(TextRef<Unit const> self, unsigned char const* otherObject);

/// The same of a zero-terminated text; the first unit of an empty one is its terminator. Null
/// equals no string.
bool equalExact(TextRef<char const> self, char const* other);

/// The same with the folded receiver. Only units of the text are folded, not the stale first one of
/// an empty text.
template <Case mode, typename Unit>
bool equalToInput(TextRef<Unit const> self, unsigned char const* otherObject);

/// Equality of units with bytes, zero-extended.
bool equalBytes(TextRef<unsigned short const> self, Run<char> bytes);

/// Equality of units with bytes ignoring case, a byte counting as a signed 32-bit value: one from
/// 0x80 up equals no unit.
bool equalBytesFolded(TextRef<unsigned short const> self, Run<char> bytes);

/// Equal lengths, and equal BYTES, as many as there are units: the first half of the text
/// (intended).
bool equalFirstHalf(TextRef<unsigned short const> self, Run<unsigned short> other);

/// @}
/// \name Start and end of the text
/// A pattern of no units, or of more than the text has, is not there. One of bytes is
/// sign-extended.
/// @{

/// True when `count` is neither 0 nor above the length, in one unsigned 16-bit comparison: 0 wraps
/// to 65535 and fails as too long.
template <typename Unit>
bool holdsPattern(TextRef<Unit const> self, unsigned count)
{
    return static_cast<unsigned short>(count - 1) < self.length();
}

/// True when the text begins with the pattern.
template <Case mode, typename Unit>
bool begins(TextRef<Unit const> self, Run<Unit> pattern);
template <Case mode>
bool begins(TextRef<unsigned short const> self, Run<char> pattern);

/// True when the text ends with the pattern, ignoring case.
template <typename Unit>
bool ends(TextRef<Unit const> self, Run<Unit> pattern);
bool ends(TextRef<unsigned short const> self, Run<char> pattern);

/// @}
/// \name Order
/// By the stored bytes of as many units as both have: below, at or above 0.
/// @{

/// Exact: a text and its prefix are equal. Inline, as is the next one: both end in a call of
/// memcmp, and a second call would cost as much.
template <typename Unit>
int orderOfCommon(TextRef<Unit const> self, TextRef<Unit const> other)
{
    unsigned const count = std::min(self.length(), other.length());
    return std::memcmp(self.text(), other.text(), count * sizeof(Unit));
}

/// True when the text comes first in exact order; of a text and its prefix the shorter does.
template <typename Unit>
bool precedes(TextRef<Unit const> self, TextRef<Unit const> other)
{
    int const order = orderOfCommon(self, other);
    return order != 0 ? order < 0 : self.length() < other.length();
}

/// Order of whole texts ignoring case: below, at or above 0.
template <typename Unit>
int orderFolded(TextRef<Unit const> self, unsigned char const* otherObject);

/// @}

} // namespace qvStrings
