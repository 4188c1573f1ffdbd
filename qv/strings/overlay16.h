#pragma once

#include "qv/strings/core/run.h"

/// @file
/// The view of a 16-bit string that needs no capacity.

/// Opaque view of a `_qvString<M>` of any capacity M, as `_qvString8_Uni_pointer` is of the 8-bit
/// strings. Declared, never defined; a pointer to it is valid as long as the string it
/// views.
class _qvString_Uni_pointer;

namespace qvStrings {

/// Reads a view by bytes at the offsets that all capacities share, never through the class of some
/// other capacity.
/// @param view The view.
/// @return Its text, as long as its length field says; a null run for null.
inline Run<unsigned short> viewed(_qvString_Uni_pointer const* view)
{
    if (view == nullptr)
        return {nullptr, 0};
    constexpr std::size_t textAt = 4; // behind the length and the reserved word
    auto const* const bytes = reinterpret_cast<unsigned char const*>(view);
    unsigned short length;
    std::memcpy(&length, bytes, sizeof length);
    return {reinterpret_cast<unsigned short const*>(bytes + textAt), length};
}

} // namespace qvStrings
