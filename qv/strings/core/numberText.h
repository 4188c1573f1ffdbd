#pragma once

#include "qv/strings/core/textRef.h"

#include <charconv>
#include <type_traits>

/// Numbers to text and back. The text is what the system library's formatting gives, without
/// asking a locale.

namespace qvStrings {

/// A number in decimal: "%d", "%lld" or "%llu" by the type of the value.
class DecimalText
{
public:
    template <typename Number>
    explicit DecimalText(Number value)
    {
        static_assert(sizeof(Number) <= sizeof(long long) && std::is_integral_v<Number>);
        char* const end = std::to_chars(text_, text_ + maxLength, value).ptr;
        *end = 0;
        length_ = static_cast<unsigned>(end - text_);
    }

    char const* text() const { return text_; }
    unsigned length() const { return length_; }

private:
    static constexpr int maxLength = 20; // "-9223372036854775808"
    char text_[maxLength + 1];
    unsigned length_;
};

/// Appends the digits of `number` in a field of `minWidth`, zeros in front of them and of a sign:
/// -5 in 4 columns is "00-5", intended. What does not fit is cut at the end.
void appendZeroPadded(TextRef<char> self, DecimalText const& number, unsigned minWidth);

/// Appends `value` in upper-case hex digits, at least `minDigits`, zeros in front. The digits pass
/// through a text of the receiver's capacity, which keeps the first ones; `lastTwo` then keeps
/// the last two of these. So capacities 6 and 7 cut the eight digits of a value, as required.
void appendHex(TextRef<char> self, unsigned value, unsigned minDigits, bool lastTwo);

/// True when each unit of the text is a digit, or '-' at position 0. The empty text is one.
template <typename Unit>
bool isNumber(TextRef<Unit const> self)
{
    Unit const* const text = self.text();
    for (unsigned i = 0; i < self.length(); ++i) {
        bool const isDigit = text[i] >= '0' && text[i] <= '9';
        if (!isDigit && (text[i] != '-' || i != 0))
            return false;
    }
    return true;
}

/// `atoi` of the text. With `ok` `isNumber` is asked first; else *ok is false and the result 0.
int toInt(TextRef<char const> self, bool* ok);

/// The same with `atoll`.
long long toInt64(TextRef<char const> self, bool* ok);

/// Reads a field of bits / 4 hex digits from the start of the text and, with `cutDigits`, removes
/// it. As signed: *ok tells whether a value was read and `bits` is 8, 16 or 32, to which it is
/// sign-extended; else 0. As unsigned: `strtoll`, with *ok true whatever stood there (intended).
/// `ok` may be null.
long long toIntFromHex(TextRef<char> self, int bits, bool asSigned, bool cutDigits, bool* ok);

} // namespace qvStrings
