#pragma once

#include <cstring>

/// @file
/// The view of a 16-bit string that needs no capacity.

/// Opaque view of a `_qvString<M>` of any capacity M, as `_qvString8_Uni_pointer` is of the 8-bit
/// strings. Declared, never defined; a pointer to it is valid as long as the string it
/// views.
class _qvString_Uni_pointer;

namespace qvStrings {

/// What a view shows.
struct OverlayText16
{
    /// First unit.
    unsigned short const* text;
    /// The length as stored.
    unsigned length;
};

/// Reads a view by bytes at the offsets that all capacities share, never through the class of some
/// other capacity.
/// @param view The view; not null.
/// @return Its text and length.
inline OverlayText16 overlayText16(_qvString_Uni_pointer const* view)
{
    constexpr std::size_t textAt = 4; // behind the length and the reserved word
    auto const* const bytes = reinterpret_cast<unsigned char const*>(view);
    unsigned short length;
    std::memcpy(&length, bytes, sizeof length);
    return {reinterpret_cast<unsigned short const*>(bytes + textAt), length};
}

} // namespace qvStrings
