#include "tests/model/string8Model.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace qvTest {

// The zeros come in front of the sign.
void String8Model::addNumber(std::string const& digits, unsigned char minWidth)
{
    for (std::size_t i = digits.size(); i < minWidth && length() < capacity(); ++i)
        appendChar('0');
    addNumber(digits);
}

void String8Model::addNrSpacing(long long v, signed char width)
{
    std::string const digits = std::to_string(v);
    addSpacingC(&digits, width);
}

std::string String8Model::hex(int digits, int promoted)
{
    char formatted[24];
    std::snprintf(formatted, sizeof formatted, "%0*X", digits, static_cast<unsigned>(promoted));
    return formatted;
}

void String8Model::addHex(std::string const& digits, bool lastTwoOnly)
{
    std::string kept = digits.substr(0, std::min(digits.size(), capacity()));
    if (lastTwoOnly)
        kept = kept.substr(kept.size() - 2);
    append(temporary(&kept));
}

// The check looks at the characters in use, the conversion at the stored text.
int String8Model::toInt(bool* ok) const
{
    if (ok != nullptr) {
        *ok = digitsOnly();
        if (!*ok)
            return 0;
    }
    return std::atoi(storedText().c_str());
}

long long String8Model::toInt64(bool* ok) const
{
    if (ok != nullptr) {
        *ok = digitsOnly();
        if (!*ok)
            return 0;
    }
    return std::atoll(storedText().c_str());
}

long long String8Model::toIntFromHex(int bits, bool asSigned, bool cutDigits, bool* ok)
{
    int const digits = bits / 4;

    String8Model field = *this;
    field.setLength(static_cast<short>(static_cast<std::uint16_t>(digits)));
    std::string const fieldText = field.storedText();

    if (cutDigits) {
        String8Model const u = *this;
        putLength(0);
        if (static_cast<long long>(u.length()) != digits) {
            std::uint32_t const rest =
                static_cast<std::uint32_t>(u.length()) - static_cast<std::uint32_t>(digits);
            std::size_t const k = std::min<std::size_t>(rest, capacity());
            for (std::size_t i = 0; i < k; ++i)
                putText(i, u.reachedUnit(static_cast<unsigned long long>(digits) + i));
            putLength(k);
            terminate();
        }
    }

    bool known = true;
    long long value = 0;
    if (!asSigned)
        value = std::strtoll(fieldText.c_str(), nullptr, 16);
    else {
        unsigned int read = 0;
        known = std::sscanf(fieldText.c_str(), "%X", &read) == 1 &&
                (bits == 32 || bits == 16 || bits == 8);
        if (known && bits == 32)
            value = static_cast<std::int32_t>(read);
        else if (known && bits == 16)
            value = static_cast<std::int16_t>(read);
        else if (known)
            value = static_cast<std::int8_t>(read);
    }
    if (ok != nullptr)
        *ok = known;
    return value;
}

} // namespace qvTest
