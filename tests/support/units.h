#pragma once

// Looks at 16-bit strings through their fields alone, so that no member is trusted with the answer
// that a test asks for.

#include "qv/strings/qvString.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace qvTest {

// A unit that is no printable ASCII shows as its number, so that messages stay readable and a
// widened byte does not pass for the byte.
inline std::string shownUnit(unsigned unit)
{
    if (unit >= 0x20 && unit < 0x7F)
        return std::string(1, static_cast<char>(unit));
    char number[16];
    std::snprintf(number, sizeof number, "<%04X>", unit);
    return number;
}

// The text of a string. Whatever is wrong with length or terminator shows in it as well.
template <int N>
std::string shown(_qvString<N> const& string)
{
    std::size_t const length = string.length;
    std::string text;
    for (std::size_t i = 0; i < std::min(length, std::size_t{N}); ++i)
        text += shownUnit(string.text[i]);
    if (length > N)
        return text + " <length " + std::to_string(length) + ">";
    if (string.text[length] != 0)
        text += " <no terminator>";
    return text;
}

// Whether all units behind the text are zero.
template <int N>
bool zeroBehindText(_qvString<N> const& string)
{
    return std::all_of(string.text + string.length, string.text + N + 1,
                       [](unsigned short unit) { return unit == 0; });
}

// A string of these characters, each byte taken as unsigned, and zeros everywhere else.
template <int N>
_qvString<N> units(std::string_view text)
{
    _qvString<N> string;
    string.length = static_cast<unsigned short>(text.size());
    string.reserved = 0;
    std::fill_n(string.text, N + 1, static_cast<unsigned short>(0));
    std::transform(text.begin(), text.end(), string.text, [](char character) {
        return static_cast<unsigned short>(static_cast<unsigned char>(character));
    });
    return string;
}

} // namespace qvTest
