#pragma once

#include "qv/strings/qvString8.h"

/// @file
/// The names of the client's commands.

/// The client's words.
namespace qvC {

/// The display name of a command.
/// @param code Its code, 0 to 60.
/// @return The name; "Unknown #%d" with its number for any other code.
_qvString8_allSize<250> qvClientCommandName(unsigned char const& code);

} // namespace qvC
