#pragma once

#include "qv/strings/qvString8.h"

/// @file
/// System error texts and sleeping.

/// The system's text for an error number. May run on any thread.
/// @param code The number; -1 means the current `errno`.
/// @return One line (line ends become blanks) of at most 249 characters. 0 gives "No Error."; a
/// code that the system refuses, or a longer text, gives "Error %d." with the number.
_qvString8_allSize<250> qvLastOSError8(int code);

/// Sleeps, in single sleeps of under a second. A signal that runs a handler ends the single sleep
/// that it falls into; no time is made up for it.
/// @param ms Milliseconds. 0 and below return at once without a system call.
void qvSleep(int ms);
