#pragma once

#include "qv/strings/core/run.h"

/// @file
/// The length of a raw 16-bit text.

/// Measures a raw 16-bit text. Only the first 1024 units are searched for the zero unit that ends
/// it: a text without one there measures 1024, whatever the capacity it is meant for. Reads no unit
/// behind the first zero nor behind the 1024th.
/// @param text The text; not null.
/// @return Units before the first zero unit, 0 to 1024.
inline unsigned short qvCharLen(unsigned short const* text)
{
    return static_cast<unsigned short>(qvStrings::measured(text).count);
}
