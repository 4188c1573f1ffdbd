#pragma once

#include "qv/strings/core/run.h"

/// @file
/// The view of an 8-bit string that needs no capacity.

/// Opaque view of a `_qvString8_allSize<M>` of any capacity M: length and text start at the same
/// offsets in all of them, so code with the view reads both without knowing M. The view carries
/// no capacity: the stored length is all that a receiver can trust. Declared, never defined; a
/// pointer to it is valid as long as the string it views.
class _qvString8_Uni_pointer;

namespace qvStrings {

/// Reads a view by bytes at the offsets that all capacities share, never through the class of some
/// other capacity.
/// @param view The view.
/// @return Its text, as long as its length field says; a null run for null.
inline Run<char> viewed(_qvString8_Uni_pointer const* view)
{
    if (view == nullptr)
        return {nullptr, 0};
    auto const* const bytes = reinterpret_cast<char const*>(view);
    unsigned short length;
    std::memcpy(&length, bytes, sizeof length);
    return {bytes + sizeof length, length};
}

} // namespace qvStrings
