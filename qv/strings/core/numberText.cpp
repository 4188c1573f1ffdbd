#include "qv/strings/core/numberText.h"

#include "qv/strings/core/edit.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace qvStrings {

namespace {

/// A copy of the first `count` bytes of a text, terminated there.
class TerminatedCopy
{
public:
    TerminatedCopy(char const* text, unsigned count)
    {
        std::memcpy(bytes_, text, count);
        bytes_[count] = 0;
    }

    char const* text() const { return bytes_; }

private:
    char bytes_[maxCapacity + 1];
};

/// The check and the conversion. What is converted is the stored text, up to a zero byte: an
/// empty string with stale digits reads them, as required.
template <typename Number>
Number toNumber(TextRef<char const> self, bool* ok, Number (*convert)(char const*))
{
    if (ok != nullptr) {
        *ok = isNumber(self);
        if (!*ok)
            return 0;
    }
    // An assignment from an older image may have left the text without its terminator.
    if (self.text()[self.capacity()] != 0)
        return convert(TerminatedCopy(self.text(), self.capacity()).text());
    return convert(self.text());
}

} // namespace

void appendZeroPadded(TextRef<char> self, DecimalText const& number, unsigned minWidth)
{
    for (unsigned width = number.length(); width < minWidth; ++width)
        appendUnit(self, '0');
    append(self, number.text(), number.length());
}

void appendHex(TextRef<char> self, unsigned value, unsigned minDigits, bool lastTwo)
{
    char digits[8];
    unsigned count = 0;
    for (; value != 0 || count < minDigits; value >>= 4)
        digits[sizeof digits - ++count] = "0123456789ABCDEF"[value & 0xF];
    char const* const begin = std::end(digits) - count;
    unsigned const kept = std::min(count, self.capacity());
    if (lastTwo)
        append(self, begin + kept - 2, 2);
    else
        append(self, begin, kept);
}

int toInt(TextRef<char const> self, bool* ok)
{
    return toNumber(self, ok, std::atoi);
}

long long toInt64(TextRef<char const> self, bool* ok)
{
    return toNumber(self, ok, std::atoll);
}

long long toIntFromHex(TextRef<char> self, int bits, bool asSigned, bool cutDigits, bool* ok)
{
    int const digits = bits / 4;
    auto const counted = static_cast<short>(digits); // a length is set from 16 bits
    unsigned const count = counted <= 0 ? 0 : static_cast<unsigned>(counted);
    TerminatedCopy const field(self.text(), std::min(count, self.capacity()));
    if (cutDigits) {
        unsigned const rest = self.length() - static_cast<unsigned>(digits);
        self.storeLength(0); // ahead of the move, since a negative field moves the length bytes in
        rebuild<char>(self, 0, self.text(), 0, digits, rest);
    }

    if (!asSigned) {
        if (ok != nullptr)
            *ok = true;
        return std::strtoll(field.text(), nullptr, 16);
    }
    unsigned value = 0;
    bool const isRead =
        std::sscanf(field.text(), "%X", &value) == 1 && (bits == 32 || bits == 16 || bits == 8);
    if (ok != nullptr)
        *ok = isRead;
    if (!isRead)
        return 0;
    return bits == 32   ? static_cast<int>(value)
           : bits == 16 ? static_cast<short>(value)
                        : static_cast<signed char>(value);
}

} // namespace qvStrings
