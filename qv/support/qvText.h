#pragma once

#include "qv/strings/qvString.h"

#include <cstdint>

/// @file
/// Small conversions that the farm's programs share. Pure functions; none fails or reports.

/// @return The number in decimal.
/// @param value The number.
_qvString<25> int2Str(int const& value);

/// Fixed-point text: the integer part, the separator, and the fraction, in single precision
/// throughout. Its results are fixed parts of the farm's output, the odd ones too:
/// - the fraction never carries: 1.999 with two decimals is "1.100";
/// - a negative number has its sign twice, -1.5 with one decimal is "-1.-5", and the second counts
///   as a digit of the fraction: so is -1.05 with two. Above -1 only the second shows: "0.-5";
/// - decimals of 0 and below still give one digit, 0 or 1: 3.7 is "3.1";
/// - a value without a 32-bit integer part, not-a-number included, shows -2147483648; a rounded
///   fraction counts with its low 32 bits, and as 0 when it passes 64 bits.
///
/// @param value The number.
/// @param decimals Digits that the fraction is rounded to.
/// @param separator Any unit.
/// @return The text, cut at 25 units.
_qvString<25> float2Str(float value, int const& decimals, unsigned short const& separator);

/// @return "true" or "false" as a word, else "1" or "0"; all other bytes zero.
/// @param value What to name.
/// @param asWord Whether by a word.
_qvString<500> bool2str(bool const& value, bool const& asWord);

/// @return True for the ten digits and, intended, for the minus sign.
/// @param c The unit.
bool qvIsDigit(unsigned short const& c);

/// Room to set aside for a compressed block: an estimate by three rules, no guarantee. From 50 MiB
/// on it is smaller than the input, and it falls at both limits (intended).
/// @param sourceLen Bytes of the block.
/// @return Bytes to set aside.
std::uint64_t z_compressBound_copy(unsigned long sourceLen);
