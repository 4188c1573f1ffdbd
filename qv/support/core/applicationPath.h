#pragma once

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"

namespace qvSupport {

/// `qvApplicationPath` with the platform's answer, which is empty when there is none. `argv0` may
/// be null and does not point into `out`, which is overwritten first.
bool applicationPathFrom(_qvString<250> const& answer, char const* argv0,
                         _qvString8_allSize<250>& out);

} // namespace qvSupport
