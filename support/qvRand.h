#pragma once

#include "strings/qvString8.h"

/// A small deterministic generator: the same seed always gives the same numbers and texts. Not for
/// secrets. The state is the caller's, 1 to 2147483646 in its useful range; a state of 0, or a
/// multiple of 2147483647, stays on 2147483647 for ever. Threads may share everything but a seed.

/// The alphabets of the text routines. Their order is part of the results, 0 behind 9 included.
inline constexpr char qvLetters[] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890_!/()=abcdefghijklmnopqrstuvwxyz";
inline constexpr char qvNumbers[] = "1234567890";

/// One step: writes the new state to `seed` and returns it scaled, above 0 up to 1 inclusive:
/// states close to the top give exactly 1.
float qvRand(unsigned int& seed);

/// A state derived from `length` bytes. The first byte has no influence (intended). `data` is not
/// read, and may be null, for a length of 0.
unsigned int qvRandCalc(unsigned char const* data, unsigned int const& length);

/// A text of ten, nine or twenty characters from a seed, which is the caller's to advance. Mode 0:
/// any byte, zero included; 1: `qvLetters`; 2: `qvNumbers`; any other mode gives an empty text.
_qvString8_allSize<10> qvRandString(unsigned int seed, int mode);
_qvString8_allSize<10> qvRandString9(unsigned int seed, int mode);
_qvString8_allSize<20> qvRandString20(unsigned int seed, int mode);
