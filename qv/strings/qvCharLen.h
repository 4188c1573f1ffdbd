#pragma once

#include "qv/strings/core/run.h"

/// @file
/// How long a raw 16-bit text is.

/// Measures a raw 16-bit text. The zero unit that ends it is looked for among the first 1024 only:
/// a text without one there measures 1024, whatever the capacity it is meant for. Reads no unit
/// behind the first zero nor behind the 1024th.
/// @param text The text; not null.
/// @return Units before the first zero unit, 0 to 1024.
inline unsigned short qvCharLen(unsigned short const* text)
{
    return static_cast<unsigned short>(qvStrings::measured(text).count);
}
