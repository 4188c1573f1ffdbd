#pragma once

#include "qv/strings/core/textRef.h"

/// Conversions between the widths: plain cuts and extensions of single units, no encoding.

namespace qvStrings {

/// How a byte from 0x80 up becomes a unit. Which way applies is fixed member by member.
enum class Extension
{
    sign, ///< 0xE4 becomes 0xFFE4.
    zero, ///< 0xE4 becomes 0x00E4.
};

/// One byte as a unit.
constexpr unsigned short widen(char byte, Extension extension)
{
    return extension == Extension::sign
               ? static_cast<unsigned short>(static_cast<signed char>(byte))
               : static_cast<unsigned short>(static_cast<unsigned char>(byte));
}

/// The text becomes the first min(count, capacity) bytes as units. Terminator; units behind it
/// stay.
void assignWidened(TextRef<unsigned short> self, char const* bytes, unsigned count,
                   Extension extension);

/// Appends `count` bytes as units, clipped to the room left. Terminator.
void appendWidened(TextRef<unsigned short> self, char const* bytes, unsigned count,
                   Extension extension);

/// Writes `count` bytes as units, zero-extended.
void widenZero(char const* bytes, unsigned count, unsigned short* target);

/// Writes `count` units without their high bytes.
void keepLowBytes(unsigned short const* units, unsigned count, unsigned short* target);

/// Writes the low bytes of `count` units.
void narrow(unsigned short const* units, unsigned count, char* target);

/// The text becomes the low bytes of the first min(count, capacity) units; all text behind them
/// becomes 0.
void assignNarrowedCleared(TextRef<char> self, unsigned short const* units, unsigned count);

/// True when each of `count` units is the zero-extended byte.
bool equalWidenedZero(unsigned short const* units, char const* bytes, unsigned count);

/// True when units and bytes agree ignoring case, a byte counting as a signed 32-bit value: one
/// from 0x80 up equals no unit.
bool equalFoldedSigned(unsigned short const* units, char const* bytes, unsigned count);

} // namespace qvStrings
