#pragma once

#include <cstddef>

/// @file
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
///
/// @tparam N The capacity in characters.
/// @tparam HasPad Follows from N.
template <int N, bool HasPad = N % 2 == 0>
struct Image8
{
    unsigned short length;         ///< Characters in use, 0 to N.
    char text[std::size_t{N} + 1]; ///< The characters; text[length] is a zero terminator.
    unsigned char pad; ///< Alignment byte without a meaning; travels with whole copies only.
};

/// The current image at odd N.
/// @tparam N The capacity in characters.
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

/// The older image of the even capacities: text first, a filler, the length behind. The object's
/// address is its text's, and at even N it is as long as the current image.
///
///     byte  0                    N + 1    N + 2
///           | text: N + 1 characters | filler | length |          even N, N + 4 bytes
///           | text: N + 1 characters | filler | spare | length |  odd N, N + 5 bytes
///
/// Odd capacities occur as sources of a conversion only.
///
/// @tparam N The capacity in characters.
/// @tparam HasSpare Follows from N.
template <int N, bool HasSpare = N % 2 != 0>
struct EvenOldImage8
{
    char text[std::size_t{N} + 1]; ///< The characters; text[length] is a zero terminator.
    unsigned char filler;          ///< Keeps the length on an even offset; without a meaning.
    unsigned char spare;           ///< The alignment of the length asks for one more.
    unsigned short length;         ///< Characters in use, 0 to N.
};

/// The older image of the even capacities at even N.
/// @tparam N The capacity in characters.
template <int N>
struct EvenOldImage8<N, false>
{
    char text[std::size_t{N} + 1]; ///< The characters; text[length] is a zero terminator.
    unsigned char filler;          ///< Keeps the length on an even offset; without a meaning.
    unsigned short length;         ///< Characters in use, 0 to N.
};

static_assert(sizeof(EvenOldImage8<6>) == 10 && offsetof(EvenOldImage8<6>, length) == 8);
static_assert(sizeof(EvenOldImage8<5000>) == 5004 && offsetof(EvenOldImage8<5000>, length) == 5002);
static_assert(offsetof(EvenOldImage8<125>, length) == 128);

/// The older image of the odd capacities: text first, the length right behind it. At odd N it is as
/// long as the current image.
///
///     byte  0                    N + 1
///           | text: N + 1 characters | length |           odd N, N + 3 bytes
///           | text: N + 1 characters | spare | length |   even N, N + 4 bytes
///
/// Even capacities occur as sources of a conversion only; there both older images are one.
///
/// @tparam N The capacity in characters.
/// @tparam HasSpare Follows from N.
template <int N, bool HasSpare = N % 2 == 0>
struct UnevenOldImage8
{
    char text[std::size_t{N} + 1]; ///< The characters; text[length] is a zero terminator.
    unsigned char spare;           ///< The alignment of the length asks for it.
    unsigned short length;         ///< Characters in use, 0 to N.
};

/// The older image of the odd capacities at odd N.
/// @tparam N The capacity in characters.
template <int N>
struct UnevenOldImage8<N, false>
{
    char text[std::size_t{N} + 1]; ///< The characters; text[length] is a zero terminator.
    unsigned short length;         ///< Characters in use, 0 to N.
};

static_assert(sizeof(UnevenOldImage8<7>) == 10 && offsetof(UnevenOldImage8<7>, length) == 8);
static_assert(offsetof(UnevenOldImage8<125>, length) == 126);
static_assert(offsetof(UnevenOldImage8<100>, length) == 102);

} // namespace qvStrings
