#pragma once

#include "qv/strings/qvString8.h"

/// The string that carries a run: the word, then a number's text, or a failure message. So no
/// message that the tool builds exceeds 250 characters.
using WorkingText = _qvString8_allSize<250>;
