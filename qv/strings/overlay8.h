#pragma once

#include <cstring>

/// @file
/// The view of an 8-bit string that needs no capacity.

/// Opaque view of a `_qvString8_allSize<M>` of any capacity M: length and text start at the same
/// offsets in all of them, so code with the view reads both without knowing M. The view carries
/// no capacity: the stored length is all that a receiver can trust. Declared, never defined; a
/// pointer to it is valid as long as the string it views.
class _qvString8_Uni_pointer;

namespace qvStrings {

/// What a view shows.
struct OverlayText8
{
    /// First character.
    char const* text;
    /// The length as stored.
    unsigned length;
};

/// Reads a view by bytes at the offsets that all capacities share, never through the class of some
/// other capacity.
/// @param view The view; not null.
/// @return Its text and length.
inline OverlayText8 overlayText8(_qvString8_Uni_pointer const* view)
{
    auto const* const bytes = reinterpret_cast<char const*>(view);
    unsigned short length;
    std::memcpy(&length, bytes, sizeof length);
    return {bytes + sizeof length, length};
}

} // namespace qvStrings
