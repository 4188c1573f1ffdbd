#pragma once

#include "qv/strings/keepStorage.h"
#include "qv/strings/qvString.h"

/// An ordered list of `_qvString<500>` values in one block that it owns. `append` resizes the block
/// to exactly `count` elements; `removeAt` leaves it as it is, with stale slots behind `count`. The
/// farm's programs read the fields.
///
/// An element moves between slots with its length and its whole text area; `reserved` stays with
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

    /// Adds an element at the end. When memory runs out all elements are lost, and `text` is not
    /// added.
    /// @param text The element; may be one of this list.
    /// @param unique Whether to do nothing when `find` finds it.
    /// @param caseSensitive For that search only.
    void append(_qvString<500> const& text, bool const& unique, bool const& caseSensitive);

    /// Inserts an element, moving later ones up. Never refuses a duplicate. When memory runs out
    /// all elements are lost.
    /// @param index Its place. Beyond the end appends; a negative one does nothing.
    /// @param text The element; may be one of this list.
    void insert(int const& index, _qvString<500> const& text);

    /// Removes an element, moving later ones down.
    /// @param index Its place. Out of range: nothing.
    void removeAt(int const& index);

    /// Searches by `operator==`, to which an empty element with a stale first unit is not an empty
    /// text, or by `isEqual`.
    /// @param text What an element must equal.
    /// @param caseSensitive Whether by `operator==`.
    /// @return Position of the first such element, or -1.
    int find(_qvString<500> const& text, bool const& caseSensitive);

    /// Searches for an element that contains a text.
    /// @param text What it must contain; an empty one is contained nowhere.
    /// @param caseSensitive Whether exactly.
    /// @return Position of the first such element, or -1.
    int findContains(_qvString<500> const& text, bool const& caseSensitive);

    /// @return The element; out of range, the first slot, a stale one in a list emptied by
    /// `removeAt`. A list that never held an element has none: look at `count` first.
    /// @param index Position from 0.
    _qvString<500> const& at(int const& index) const;

    /// An element as a C text, in `charBuffer`: valid until the next call. Look at `count` first.
    /// @param index Position from 0. Out of range, the first slot.
    /// @return The low bytes of the element, at most 499, zero-terminated.
    char const* atAsChar(int const& index) const;

    /// Sorts by `compare`, so ignoring case, by stored bytes; stable in both directions. The time
    /// grows as n log n; without memory for two numbers an element, as the square. Each place keeps
    /// its own `reserved` bytes; the rest of an element travels, units behind its text too.
    /// @param descending Whether the last comes first.
    void sort(bool const& descending);

    /// Becomes a copy of a list. Leaves `charBuffer`. Ends the process when memory runs out.
    /// @param other The list; not this one.
    void copyFrom(_qvStringList const& other);

    /// All elements in one line, each between single quotes and followed by a blank. An element
    /// gives its low bytes up to its first zero unit. Not const although it changes nothing.
    /// @return The line, cut at 1000 characters without a mark.
    _qvString8_allSize<1000> asString8();

    _qvString<500>* items;        ///< Start of the block; null until the first `append`.
    int count;                    ///< Elements in use.
    mutable char charBuffer[500]; ///< The text that `atAsChar` returns.

private:
    bool isInside(int index) const { return index >= 0 && index < count; }
    bool grow();
};
