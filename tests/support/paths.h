#pragma once

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace qvTest {

using Path = _qvString8_allSize<250>;

// A path of these characters, which may be zeros, with old text behind them: nothing may read it.
inline Path path8(std::string_view text)
{
    Path path;
    path.length = static_cast<unsigned short>(text.size());
    std::fill_n(path.text, sizeof path.text, '/');
    std::copy(text.begin(), text.end(), path.text);
    path.text[text.size()] = '\0';
    return path;
}

// The text of a path; a broken one shows as such.
template <int N>
std::string textOf(_qvString8_allSize<N> const& string)
{
    if (string.length > N)
        return "<length " + std::to_string(string.length) + ">";
    std::string const text(string.text, string.length);
    return string.text[string.length] == '\0' ? text : text + "<no terminator>";
}

// The platform's answer, in units.
inline _qvString<250> answer16(std::u16string_view text)
{
    _qvString<250> answer;
    answer.length = static_cast<unsigned short>(text.size());
    std::fill_n(answer.text, 251, static_cast<unsigned short>(0));
    std::copy(text.begin(), text.end(), answer.text);
    return answer;
}

inline std::u16string widened(std::string_view text)
{
    std::u16string units;
    for (char const character : text)
        units += static_cast<char16_t>(static_cast<unsigned char>(character));
    return units;
}

} // namespace qvTest
