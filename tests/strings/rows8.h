#pragma once

/// Rows that more than one test of the 8-bit core runs over.

#include "tests/strings/guarded.h"

#include <climits>
#include <vector>

namespace guarded {

/// A source of `given` characters, of which `counted` are left after the 16-bit count.
struct SourceRow
{
    std::size_t given;
    std::size_t counted;
};

/// Source lengths around the capacity and around the 16-bit limit of every measured length.
template <typename S>
std::vector<SourceRow> sourceRows()
{
    std::size_t const capacity = ImageOf<S>::capacity;
    return {{0, 0},
            {1, 1},
            {5, 5},
            {capacity - 1, capacity - 1},
            {capacity, capacity},
            {capacity + 1, capacity + 1},
            {capacity + 300, capacity + 300},
            {65535, 65535},
            {65536, 0},
            {65537, 1},
            {65541, 5},
            {131072, 0},
            {131077, 5}};
}

/// A signed count as the caller gives it, and what its low 16 bits say.
struct CountRow
{
    int given;
    std::size_t counted;
};

template <typename S>
std::vector<CountRow> countRows()
{
    std::size_t const capacity = ImageOf<S>::capacity;
    int const full = static_cast<int>(capacity);
    return {{0, 0},
            {1, 1},
            {full - 1, capacity - 1},
            {full, capacity},
            {full + 1, capacity + 1},
            {-1, 65535},
            {-65531, 5},
            {-65536, 0},
            {65535, 65535},
            {65536, 0},
            {65537, 1},
            {65541, 5},
            {INT_MAX, 65535},
            {INT_MIN, 0}};
}

/// Long enough for every row: no count of an in-contract call asks for more than the capacity.
template <typename S>
std::string longSource()
{
    return letters(ImageOf<S>::capacity + 1000);
}

/// The start of `text`, at most as long as the capacity.
template <typename S>
std::string cut(std::string const& text)
{
    return text.substr(0, ImageOf<S>::capacity);
}

/// All text bytes behind `text`, its terminator included, are zero.
template <typename S>
Bytes clearedImage(std::string_view text, unsigned char spare = staleByte)
{
    return imageBytes<S>(text.size(), text, 0, spare);
}

/// Only `text` and its terminator were written; everything behind stands as it stood.
template <typename S>
Bytes keptImage(std::string_view text, unsigned char rest = staleByte)
{
    return imageBytes<S>(text.size(), std::string(text) + '\0', rest, rest);
}

/// Text with the bytes that trip a signed or a terminated reading: high ones and zeros inside.
inline std::string const oddText{"\xFF\0\x80z\0", 5};

} // namespace guarded
