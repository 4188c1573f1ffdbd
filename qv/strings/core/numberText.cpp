#include "qv/strings/core/numberText.h"

#include "qv/strings/core/append.h"
#include "qv/strings/core/splice.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <optional>

namespace qvStrings {

namespace {

/// "-9223372036854775808"
constexpr unsigned longestDecimal = 20;

/// A number in decimal.
class DecimalText
{
public:
    template <typename Number>
    explicit DecimalText(Number value)
        : length_(static_cast<unsigned>(std::to_chars(text_, std::end(text_), value).ptr - text_))
    {}

    Run<char> run() const { return {text_, length_}; }

private:
    char text_[longestDecimal];
    unsigned length_;
};

/// Appends a number, formatted in its place when there is room for the longest one.
template <typename Unit, typename Number>
void appendDecimal(TextRef<Unit> self, Number value)
{
    if constexpr (sizeof(Unit) == 1) {
        unsigned const length = self.length();
        if (self.capacity() - length >= longestDecimal) {
            char* const end =
                std::to_chars(self.text() + length, self.text() + length + longestDecimal, value)
                    .ptr;
            self.endAt(static_cast<unsigned>(end - self.text()));
            return;
        }
    }
    append(self, DecimalText(value).run());
}

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

/// Checks, if `ok` asks for it, that each unit of the text is a digit, or '-' at position 0.
/// @return The number where that look has settled it, 0 for a refused text. Nothing where `strtol`
/// has to read it: without a check, and where it would read on behind the text or need its limits.
template <typename Unit>
std::optional<long long> settledNumber(TextRef<Unit const> self, bool* ok)
{
    if (ok == nullptr)
        return std::nullopt;
    auto const text = self.run();
    bool const isNegative = text.count != 0 && text.units[0] == '-';
    unsigned long long value = 0;
    for (unsigned i = isNegative ? 1 : 0; i < text.count; ++i) {
        auto const digit = static_cast<unsigned>(text.units[i] - '0');
        if (digit > 9) {
            *ok = false;
            return 0;
        }
        value = value * 10 + digit;
    }
    *ok = true;
    constexpr unsigned alwaysFits = std::numeric_limits<long>::digits10;
    if (text.count > alwaysFits || text.units[text.count] != 0)
        return std::nullopt;
    auto const magnitude = static_cast<long long>(value);
    return isNegative ? -magnitude : magnitude;
}

/// `atoi` and `atoll`, with one result on all machines: beyond their range some C libraries wrap,
/// while `strtol` ends at the limit of a long everywhere. An int is its low 32 bits.
int decimalInt(char const* text)
{
    return static_cast<int>(std::strtol(text, nullptr, 10));
}

long long decimalInt64(char const* text)
{
    return std::strtoll(text, nullptr, 10);
}

/// Checks and converts. The conversion reads the stored text up to a zero byte, so an empty string
/// with stale digits gives them, as required.
template <typename Number>
Number toNumber(TextRef<char const> self, bool* ok, Number (*convert)(char const*))
{
    if (auto const number = settledNumber(self, ok))
        return static_cast<Number>(*number);
    // An assignment from an older image may have left the text without its terminator.
    if (self.text()[self.capacity()] != 0)
        return convert(TerminatedCopy(self.text(), self.capacity()).text());
    return convert(self.text());
}

} // namespace

template <typename Unit>
void appendNumber(TextRef<Unit> self, long long value)
{
    appendDecimal(self, value);
}

template <typename Unit>
void appendNumber(TextRef<Unit> self, unsigned long long value)
{
    appendDecimal(self, value);
}

void appendZeroPadded(TextRef<char> self, long long value, unsigned minWidth)
{
    DecimalText const number(value);
    for (unsigned width = number.run().count; width < minWidth; ++width)
        appendUnit(self, '0');
    append(self, number.run());
}

void appendZeroPadded(TextRef<unsigned short> self, long long value, unsigned minWidth)
{
    constexpr unsigned most = 20;
    DecimalText const number(value);
    unsigned const digits = number.run().count;
    unsigned const zeros = minWidth > digits ? std::min(minWidth - digits, most) : 0;
    char field[most];
    std::memset(field, '0', zeros);
    auto const kept = cut(number.run(), most - zeros);
    std::memcpy(field + zeros, kept.units, kept.count);
    append<unsigned short, char>(self, {field, zeros + kept.count});
}

template <typename Unit>
void appendNumberField(TextRef<Unit> self, long long value, int width)
{
    appendField(self, DecimalText(value).run(), width);
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
        append<char, char>(self, {begin + kept - 2, 2});
    else
        append<char, char>(self, {begin, kept});
}

int toInt(TextRef<char const> self, bool* ok)
{
    return toNumber(self, ok, decimalInt);
}

int toInt(TextRef<unsigned short const> self, bool* ok)
{
    if (auto const number = settledNumber(self, ok))
        return static_cast<int>(*number);
    constexpr unsigned most = 249;
    char bytes[most + 1];
    narrowTerminated(bytes, cut(self.run(), most));
    return decimalInt(bytes);
}

long long toInt64(TextRef<char const> self, bool* ok)
{
    return toNumber(self, ok, decimalInt64);
}

long long toIntFromHex(TextRef<char> self, int bits, bool asSigned, bool cutDigits, bool* ok)
{
    int const digits = bits / 4;
    auto const counted = static_cast<short>(digits); // a length is set from 16 bits
    unsigned const count = counted <= 0 ? 0 : static_cast<unsigned>(counted);
    TerminatedCopy const field(self.text(), std::min(count, self.capacity()));
    if (cutDigits)
        removeField(self, digits);

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

#define QV_INSTANTIATE(Unit)                                                                       \
    template void appendNumber(TextRef<Unit>, long long);                                          \
    template void appendNumber(TextRef<Unit>, unsigned long long);                                 \
    template void appendNumberField(TextRef<Unit>, long long, int);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
