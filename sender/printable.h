#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

/// Copies what others have named: a name may hold what a terminal takes for an order. Every
/// character that is not printable ASCII becomes "?", and what does not fit is cut.
template <std::size_t size>
void copyPrintable(char (&to)[size], std::string_view from)
{
    from = from.substr(0, size - 1);
    char* const end = std::transform(from.begin(), from.end(), to, [](char character) {
        return character >= ' ' && character <= '~' ? character : '?';
    });
    *end = '\0';
}
