#pragma once

#include "strings/qvString8.h"

/// The system's text for the error number `code`, on one line (line ends become blanks), at most
/// 249 characters. A code of -1 means the current `errno`. 0 gives "No Error."; a code that the
/// system refuses, or a longer text, gives "Error %d." with the number. May run on any thread.
_qvString8_allSize<250> qvLastOSError8(int code);

/// Sleeps `ms` milliseconds, in single sleeps of under a second. 0 and below return at once
/// without a system call.
void qvSleep(int ms);
