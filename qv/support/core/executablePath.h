#pragma once

#include "qv/strings/qvString.h"

namespace qvSupport {

/// The platform's answer: the full path of the running executable, or nothing. One source file per
/// platform answers.
_qvString<250> executablePath();

} // namespace qvSupport
