#pragma once

#include "qv/strings/qvString8.h"

/// The tool's only string type: for the word, a number's text, a failure message. So no message
/// that the tool builds exceeds 250 characters.
using WorkingText = _qvString8_allSize<250>;
