#pragma once

#include "qv/strings/core/textRef.h"

/// Numbers to text and back. The text equals that of the system library's formatting, but never
/// depends on a locale. What does not fit is cut at the end.

namespace qvStrings {

/// Appends a number in decimal.
template <typename Unit>
void appendNumber(TextRef<Unit> self, long long value);
template <typename Unit>
void appendNumber(TextRef<Unit> self, unsigned long long value);

/// Appends a number in a field of at least `minWidth`, zeros in front of the digits and of a sign:
/// -5 in 4 columns is "00-5", intended. The field of a 16-bit string is formed in 20 characters
/// whatever its capacity, so a `minWidth` above 20 costs the low digits.
void appendZeroPadded(TextRef<char> self, long long value, unsigned minWidth);
void appendZeroPadded(TextRef<unsigned short> self, long long value, unsigned minWidth);

/// Appends a number as `appendField` appends its text.
template <typename Unit>
void appendNumberField(TextRef<Unit> self, long long value, int width);

/// Appends `value` in upper-case hex digits, at least `minDigits`, zeros in front. The digits pass
/// through a text of the receiver's capacity, which keeps the first ones; `lastTwo` then keeps
/// the last two of these. So capacities 6 and 7 cut the eight digits of a value, as required.
void appendHex(TextRef<char> self, unsigned value, unsigned minDigits, bool lastTwo);

/// `atoi` of the text. With `ok` each unit has to be a digit, or '-' at position 0, else *ok is
/// false and the result 0; the empty text passes. A 16-bit text counts with the low bytes of its
/// first 249 units.
int toInt(TextRef<char const> self, bool* ok);
int toInt(TextRef<unsigned short const> self, bool* ok);

/// The same with `atoll`.
long long toInt64(TextRef<char const> self, bool* ok);

/// Reads a field of bits / 4 hex digits from the start of the text and, with `cutDigits`, removes
/// it. As signed: *ok tells whether a value was read and `bits` is 8, 16 or 32, to which it is
/// sign-extended; else 0. As unsigned: `strtoll`, with *ok true whatever the text (intended).
/// `ok` may be null.
long long toIntFromHex(TextRef<char> self, int bits, bool asSigned, bool cutDigits, bool* ok);

} // namespace qvStrings
