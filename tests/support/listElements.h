#pragma once

// Fills lists and looks at them through their public fields.

#include "qv/support/qvStringList.h"
#include "tests/support/units.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace qvTest {

using Texts = std::vector<std::string>;

inline _qvString<500> text500(std::string_view text)
{
    return units<500>(text);
}

inline _qvString<500> wideText500(std::u16string_view text)
{
    _qvString<500> string = units<500>({});
    for (char16_t const unit : text)
        string.text[string.length++] = unit;
    return string;
}

// What a member leaves that empties a string without clearing it: no text, old units.
inline _qvString<500> staleEmpty500(std::string_view staleText)
{
    _qvString<500> string = units<500>(staleText);
    string.length = 0;
    return string;
}

inline void fill(_qvStringList& list, std::initializer_list<std::string_view> texts)
{
    for (std::string_view const text : texts)
        list.append(text500(text), false, false);
}

inline Texts elements(_qvStringList const& list)
{
    Texts texts;
    for (int i = 0; i < list.count; ++i)
        texts.push_back(shown(list.items[i]));
    return texts;
}

} // namespace qvTest
