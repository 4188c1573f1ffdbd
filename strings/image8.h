#pragma once

#include "strings/core/layoutOf.h"

#include <cstddef>

/// The memory images of the 8-bit strings. They cross process boundaries, so they are formats:
/// little-endian, alignment 2, every byte named (an implicit padding byte would not be sure to
/// travel with a copy).

namespace qvStrings {

/// The current image, length first.
///
///     byte  0        2                       N + 3
///           | length | text: N + 1 characters | pad (even N only) |
///
/// N + 3 bytes for odd N, N + 4 for even N: only the whole is rounded up to a multiple of 2.
template <int N, bool HasPad = N % 2 == 0>
struct Image8
{
    unsigned short length;         ///< Characters in use, 0 to N.
    char text[std::size_t{N} + 1]; ///< The characters; text[length] is a zero terminator.
    unsigned char pad; ///< Alignment byte without a meaning; travels with whole copies only.
};

template <int N>
struct Image8<N, false>
{
    unsigned short length;         ///< Characters in use, 0 to N.
    char text[std::size_t{N} + 1]; ///< The characters; text[length] is a zero terminator.
};

static_assert(sizeof(Image8<6>) == 10 && sizeof(Image8<7>) == 10 && sizeof(Image8<250>) == 254);
static_assert(alignof(Image8<6>) == 2 && alignof(Image8<7>) == 2);
static_assert(offsetof(Image8<6>, text) == 2 && offsetof(Image8<6>, pad) == 9);
static_assert(offsetof(Image8<7>, text) == 2);

} // namespace qvStrings
