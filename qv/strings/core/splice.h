#pragma once

#include "qv/strings/core/compare.h"
#include "qv/strings/core/textRef.h"

/// Removes, inserts, replaces and slices texts. What does not fit is cut at the end. A result
/// without units leaves text[0] as it was and writes no terminator.

namespace qvStrings {

/// Removes `count` units at `start`. Neither is checked against the length: a range beyond the end
/// is outside the contract and gives a text of full capacity with the units behind the range.
template <typename Unit>
void removeRange(TextRef<Unit> self, int start, int count);

/// Replaces every `pattern`, searching on behind the text just put in. An empty pattern is found
/// nowhere. Text that grows past the capacity loses its end, and the search continues in the rest.
/// Either may be the object itself: as pattern it is replaced once, as a whole; as replacement only
/// its units ahead of the first pattern count, and the search ends there.
template <Case mode, typename Unit>
void replaceAll(TextRef<Unit> self, TextRef<Unit const> pattern, TextRef<Unit const> replacement);

/// Removes every `pattern`. An occurrence that a removal forms with text before it stays.
template <Case mode, typename Unit>
void removeAll(TextRef<Unit> self, TextRef<Unit const> pattern);

/// Puts `text` at `position`, behind the end for one beyond it. A negative position is outside the
/// contract and gives a text of full capacity, stale units included.
template <typename Unit>
void insert(TextRef<Unit> self, int position, TextRef<Unit const> text);

/// Removes the first `digits` units, which a hex field took. A field wider than the text, or a
/// negative one, is outside the contract and gives a text of full capacity.
void removeField(TextRef<char> self, int digits);

/// Copies `count` units at index `start` to `result`, an empty string of the same image: at most
/// the capacity, and all of it for a negative count. The range is not checked against the text:
/// what is outside the text is copied from the object's own bytes, what is outside the object is
/// zero.
template <typename Unit>
void slice(TextRef<Unit const> self, int start, int count, TextRef<Unit> result);

/// Copies the text up to the first `separator`, found ignoring case, to `result`, an empty string
/// of the same image; all bytes of the object when there is none. At position 0 the sense of
/// `withSeparator` is reversed (intended): true gives the empty string, false the one unit
/// `separator` as given.
template <typename Unit>
void sliceUpTo(TextRef<Unit const> self, Unit separator, bool withSeparator, TextRef<Unit> result);

/// The same, and removes that text and the separator from the string, or clears it when there is no
/// separator.
template <typename Unit>
void cutUpTo(TextRef<Unit> self, Unit separator, bool withSeparator, TextRef<Unit> result);

} // namespace qvStrings
