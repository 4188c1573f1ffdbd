#pragma once

#include "strings/keepStorage.h"
#include "strings/qvString.h"

/// An ordered list of `_qvString<500>` values in one block that it owns. `append` brings the block
/// to exactly `count` elements; `removeAt` leaves it as it is, with stale slots behind `count`. The
/// farm's programs read the fields.
///
/// An element travels between slots as its length and its whole text area; `reserved` stays with
/// the slot. Nothing is reported: a position out of range is passed over or means the first slot,
/// and running out of memory loses the list. No two threads may share a list, not even for
/// reading, since `atAsChar` writes.
class _qvStringList
{
public:
    /// Empty; no block yet.
    _qvStringList();

    /// Frees the block and sets `items` to null; keeps `count` and `charBuffer` as they are.
    QV_KEEPS_STORAGE ~_qvStringList();

    // `copyFrom` is the one way to copy a list.
    _qvStringList(_qvStringList const&) = delete;
    _qvStringList& operator=(_qvStringList const&) = delete;

    /// Empties the list, frees its block and zeroes `charBuffer`.
    void init();

    /// Adds `text`, which may be an element of this list, at the end. With `unique`, nothing
    /// happens when `find` finds it; `caseSensitive` is for that search only. When memory runs
    /// out all elements are lost, and `text` is not added.
    void append(_qvString<500> const& text, bool const& unique, bool const& caseSensitive);

    /// Puts `text`, which may be an element of this list, at `index`, moving later elements up.
    /// An index beyond the end appends; a negative one does nothing. Never refuses a duplicate.
    /// When memory runs out all elements are lost.
    void insert(int const& index, _qvString<500> const& text);

    /// Removes the element at `index`, moving later ones down. Out of range: nothing.
    void removeAt(int const& index);

    /// Position of the first element equal to `text`, or -1: by `operator==`, to which an empty
    /// element with a stale first unit is not an empty text, or by `isEqual`.
    int find(_qvString<500> const& text, bool const& caseSensitive);

    /// Position of the first element that contains `text`, or -1; an empty one is contained
    /// nowhere.
    int findContains(_qvString<500> const& text, bool const& caseSensitive);

    /// The element at `index`; out of range, the first slot, a stale one in a list emptied by
    /// `removeAt`. A list that never held an element has none: look at `count` first.
    _qvString<500> const& at(int const& index) const;

    /// The low bytes of the element at `index`, at most 499, zero-terminated, in `charBuffer`: they
    /// hold until the next call. Out of range, the first slot's. Look at `count` first.
    char const* atAsChar(int const& index) const;

    /// Sorts by `compare`, so ignoring case, by stored bytes; stable in both directions. Quadratic.
    void sort(bool const& descending);

    /// Becomes a copy of `other`, which must not be this list. Leaves `charBuffer`. Ends the
    /// process when memory runs out.
    void copyFrom(_qvStringList const& other);

    /// All elements in one line, each between single quotes and followed by a blank, cut at 1000
    /// characters without a mark. Of an element the low bytes up to its first zero unit count. Not
    /// const although it changes nothing.
    _qvString8_allSize<1000> asString8();

    _qvString<500>* items;        ///< Start of the block; null until the first `append`.
    int count;                    ///< Elements in use.
    mutable char charBuffer[500]; ///< What `atAsChar` hands out.

private:
    bool isInside(int index) const { return index >= 0 && index < count; }
    bool grow();
};
