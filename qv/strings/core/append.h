#pragma once

#include "qv/strings/core/extension.h"
#include "qv/strings/core/textRef.h"

/// Assigns a text to a string, or appends it, also in a field. Compiled once for each pair of
/// widths (append.cpp) instead of once per capacity. This also keeps short copies fast: where the
/// compiler knows the greatest length of a copy, it expands it to slow string instructions.
///
/// What does not fit is cut at the end. A source may be part of the object. The extension says how
/// bytes become 16-bit units; other pairs ignore it.

namespace qvStrings {

/// The text becomes the first units of the source. Terminator. Units behind it stay.
template <typename Unit, typename Source>
void assign(TextRef<Unit> self, Run<Source> source, Extension extension = Extension::zero);

/// The same of a zero-terminated text of units, measured as by `measured`. Null sets the length to
/// 0 and nothing else.
void assign(TextRef<unsigned short> self, unsigned short const* text);

/// The text becomes the first units of the source, and all units of the text behind the copied ones
/// become 0. Bytes become units by their sign.
template <typename Unit, typename Source>
void assignCleared(TextRef<Unit> self, Run<Source> source);

/// The same of a text of units.
void assignCleared(TextRef<unsigned short> self, unsigned short const* text);

/// The text becomes the source without a cut: a longer one is written past the text and the object.
template <typename Unit>
void assignUnclipped(TextRef<Unit> self, Run<Unit> source);

/// Appends as one block: the count is fixed before anything is written. Terminator, for an empty
/// source too; a null one changes nothing.
template <typename Unit, typename Source>
void append(TextRef<Unit> self, Run<Source> source, Extension extension = Extension::zero);

/// The same of a text of units.
void append(TextRef<unsigned short> self, unsigned short const* text);

/// Appends like `append`, but an empty source changes nothing at all.
template <typename Unit, typename Source>
void appendSome(TextRef<Unit> self, Run<Source> source)
{
    if (source.count != 0)
        append(self, source);
}

/// Appends like `append`, but as if the length of `source` were read afresh for each unit: a text
/// appended to itself repeats until the capacity is full.
template <typename Unit>
void appendRepeating(TextRef<Unit> self, TextRef<Unit const> source);

/// Puts one unit behind the stored length, without a check for room. Terminator. The length is
/// stored last, so that the compiler still knows it when the next unit follows.
template <typename Unit>
void putUnit(TextRef<Unit> self, Unit unit)
{
    unsigned const length = self.storedLength();
    auto const end = static_cast<unsigned short>(length + 1);
    self.text()[length] = unit;
    self.text()[end] = 0;
    self.storeLength(end);
}

/// Appends one unit when there is room for it; else changes nothing, not even the terminator.
template <typename Unit>
void appendUnit(TextRef<Unit> self, Unit unit)
{
    if (self.storedLength() < self.capacity())
        putUnit(self, unit);
}

/// The text becomes `count` modulo 65536 copies of one unit. A count below 1 changes nothing.
template <typename Unit>
void fill(TextRef<Unit> self, Unit unit, int count);

/// Appends a text in a field of |width| columns, cut to the room: blanks on the left for a negative
/// width, on the right for a positive one. A longer text is not cut to the field. Width 0 without a
/// text changes nothing at all. Terminator. Bytes are zero-extended.
template <typename Unit>
void appendField(TextRef<Unit> self, Run<char> text, int width);

/// The same in a field that is NOT cut to the room: blanks without room are written past the text.
/// In the older images they may overwrite the length: each is written where the length then says,
/// and their count is added to the length as it then is. Of 16-bit units the low bytes count.
template <typename Unit>
void appendUnboundedField(TextRef<Unit> self, Run<Unit> text, int width);

/// Writes the low bytes of units and a zero byte behind them.
/// @param[out] target Must not overlap the units.
void narrowTerminated(char* target, Run<unsigned short> units);

} // namespace qvStrings
