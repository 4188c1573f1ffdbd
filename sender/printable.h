#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

/// Copies a name that others have chosen: it may hold bytes that a terminal takes for a command.
/// Every character that is not printable ASCII becomes "?". A name that does not fit is cut.
template <std::size_t size>
void copyPrintable(char (&to)[size], std::string_view from)
{
    from = from.substr(0, size - 1);
    char* const end = std::transform(from.begin(), from.end(), to, [](char character) {
        return character >= ' ' && character <= '~' ? character : '?';
    });
    *end = '\0';
}
