#pragma once

#include "strings/core/textRef.h"

/// Conversions between the widths: plain cuts and extensions of single units, no encoding.

namespace qvStrings {

/// The text becomes the low bytes of the first min(count, capacity) units; all text behind them
/// becomes 0.
void assignNarrowedCleared(TextRef<char> self, unsigned short const* units, unsigned count);

} // namespace qvStrings
