#pragma once

#include "qv/strings/qvString8.h"

/// @file
/// A small deterministic generator: the same seed always gives the same numbers and texts. Not for
/// secrets. The state is the caller's, 1 to 2147483646 in its useful range; a state of 0, or a
/// multiple of 2147483647, stays on 2147483647 for ever. Threads may share everything but a seed.

/// Alphabet of the text routines' mode 1. Its order is part of their results, 0 behind 9 included.
inline constexpr char qvLetters[] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890_!/()=abcdefghijklmnopqrstuvwxyz";
/// Alphabet of their mode 2.
inline constexpr char qvNumbers[] = "1234567890";

/// One step.
/// @param[in,out] seed The state; the new one is written to it.
/// @return The new state scaled, above 0 up to 1 inclusive: states close to the top give exactly 1.
float qvRand(unsigned int& seed);

/// Derives a state from bytes. The first one has no influence (intended).
/// @param data The bytes; not read, and may be null, for a length of 0.
/// @param length How many.
/// @return The state.
unsigned int qvRandCalc(unsigned char const* data, unsigned int const& length);

/// A text of ten characters.
/// @param seed A state, which is the caller's to advance.
/// @param mode 0: any byte, zero included; 1: `qvLetters`; 2: `qvNumbers`; any other: no text.
/// @return The text.
_qvString8_allSize<10> qvRandString(unsigned int seed, int mode);
/// A text of nine characters.
/// @copydetails qvRandString(unsigned int, int)
_qvString8_allSize<10> qvRandString9(unsigned int seed, int mode);
/// A text of twenty characters.
/// @copydetails qvRandString(unsigned int, int)
_qvString8_allSize<20> qvRandString20(unsigned int seed, int mode);
