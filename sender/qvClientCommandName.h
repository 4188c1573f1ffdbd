#pragma once

#include "strings/qvString8.h"

namespace qvC {

/// Display name of a command code, 0 to 60; "Unknown #%d" with its number for any other.
_qvString8_allSize<250> qvClientCommandName(unsigned char const& code);

} // namespace qvC
