#pragma once

#include "qv/strings/core/compare.h"
#include "qv/strings/core/textRef.h"

/// Texts cut apart and put together: remove, insert, replace, slices. What does not fit is cut at
/// the end. A result without units leaves text[0] as it was and writes no terminator.

namespace qvStrings {

/// Cuts `count` units at `start`. Neither is held against the length: a range beyond the end is
/// outside the contract and gives a text of full capacity with the units behind the range.
template <typename Unit>
void removeRange(TextRef<Unit> self, int start, int count);

/// Replaces every `pattern`, searching on behind the text just put in. An empty pattern is found
/// nowhere. Text that grows past the capacity loses its end, and the search continues in the rest.
/// Either may be the object itself: each step reads what it holds by then, but the length of the
/// pattern is read once, before the first change.
template <Case mode, typename Unit>
void replaceAll(TextRef<Unit> self, TextRef<Unit const> pattern, TextRef<Unit const> replacement);

/// Removes every `pattern`, searching on at the place itself: text that moved there counts, an
/// occurrence that the gap forms with text before it does not.
template <Case mode, typename Unit>
void removeAll(TextRef<Unit> self, TextRef<Unit const> pattern);

/// Puts `text` at `position`, behind the end for one beyond it. A negative position is outside the
/// contract and gives a text of full capacity, stale units included.
template <typename Unit>
void insert(TextRef<Unit> self, int position, TextRef<Unit const> text);

/// Removes the first `digits` units, which a hex field took. A field wider than the text, or a
/// negative one, is outside the contract and gives a text of full capacity.
void removeField(TextRef<char> self, int digits);

/// Makes `result`, an empty string of the same image, the `count` units at index `start`: at most
/// the capacity, so a negative count gives all of it. The range is not held against the text: the
/// object's own bytes are copied as far as the object reaches, and zeros beyond it, never memory of
/// somebody else.
template <typename Unit>
void slice(TextRef<Unit const> self, int start, int count, TextRef<Unit> result);

/// Makes `result`, an empty string of the same image, the text up to the first `separator`, found
/// ignoring case; a copy of all bytes where there is none. At position 0 the sense of
/// `withSeparator` is reversed (intended): true gives the empty string, false the one unit
/// `separator` as given.
template <typename Unit>
void sliceUpTo(TextRef<Unit const> self, Unit separator, bool withSeparator, TextRef<Unit> result);

/// The same, and takes that text and the separator from the string, or clears it where there is
/// none.
template <typename Unit>
void cutUpTo(TextRef<Unit> self, Unit separator, bool withSeparator, TextRef<Unit> result);

} // namespace qvStrings
