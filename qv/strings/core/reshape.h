#pragma once

#include "qv/strings/core/compare.h"
#include "qv/strings/core/textRef.h"

#include <algorithm>

/// Replacing, removing, inserting, trimming and padding, as both widths do it. Counts are in
/// units; what does not fit is cut at the end.

namespace qvStrings {

/// Every place of `from` becomes `to`, searched on behind the text just put in. An empty `from`
/// is found nowhere. Text that grows past the capacity loses its end, and the search goes on over
/// what is left. Either may be the object itself: each step reads what stands there, except that
/// the length of what is searched for is read once, before the first change.
template <Case mode, typename Unit>
void replaceAll(TextRef<Unit> self, TextRef<Unit const> from, TextRef<Unit const> to);

/// Every place of `pattern` goes, searched on at the place itself: text that moved there counts,
/// an occurrence that the gap forms with text before it does not.
template <Case mode, typename Unit>
void removeAll(TextRef<Unit> self, TextRef<Unit const> pattern);

/// Every unit equal to `unit`, folded, goes.
template <typename Unit>
void removeUnit(TextRef<Unit> self, Unit unit);

/// Every unit equal to `from`, folded, becomes `to` as given, zero included.
template <typename Unit>
void replaceUnit(TextRef<Unit> self, Unit from, Unit to);

/// Puts `text` at `position`, behind the end for one beyond it. A negative position is outside
/// the contract and gives a text of full capacity, stale units included.
template <typename Unit>
void insert(TextRef<Unit> self, int position, TextRef<Unit const> text);

/// Strips the units 0, 9, 10, 13 and 32, and no others, from both ends. Terminator.
template <typename Unit>
void trim(TextRef<Unit> self);

/// Upper or lower fold of every unit.
template <typename Unit>
void makeUpper(TextRef<Unit> self);
template <typename Unit>
void makeLower(TextRef<Unit> self);

/// Whether a padded field is held inside the capacity or trusts the caller to have room.
enum class Field
{
    capped,
    unbounded,
};

/// Writes `count` blanks behind the text and adds them to the length, without a bound. In the
/// older images blanks may run over the length itself: each goes where the length of the moment
/// says, and the count is added to what the length has become.
template <typename Unit>
void appendBlanks(TextRef<Unit> self, unsigned count);

/// Appends `count` units of text in a field of |width| columns: blanks on the left for a negative
/// width, on the right for a positive one. `write(at, kept)` puts the first `kept` units there.
/// A text longer than the field is not cut to it. Width and count 0: no change at all. Terminator.
template <Field kind, typename Unit, typename Write>
void appendField(TextRef<Unit> self, unsigned count, int width, Write write)
{
    if (width == 0 && count == 0)
        return;
    unsigned const room = self.room();
    unsigned const kept = std::min(count, room);
    unsigned field = width < 0 ? 0u - static_cast<unsigned>(width) : static_cast<unsigned>(width);
    if (kind == Field::capped)
        field = std::min(field, room);
    unsigned const pad = field > kept ? field - kept : 0;

    if (width < 0)
        appendBlanks(self, pad);
    unsigned const at = self.length();
    write(self.text() + at, kept);
    self.storeLength(at + kept);
    if (width > 0)
        appendBlanks(self, pad);
    self.terminate();
}

} // namespace qvStrings
