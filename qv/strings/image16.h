#pragma once

#include <cstddef>

/// @file
/// The memory images of the 16-bit strings. They cross process boundaries, so they are formats:
/// little-endian, alignment 2, 2N + 6 bytes at every N, nothing between the fields.

namespace qvStrings {

/// The current image, length first.
///
///     byte  0        2          4                      2N + 6
///           | length | reserved | text: N + 1 units    |
///
/// @tparam N The capacity in units.
template <int N>
struct Image16
{
    unsigned short length;                   ///< Units in use, 0 to N.
    unsigned short reserved;                 ///< Read by no member.
    unsigned short text[std::size_t{N} + 1]; ///< The units; text[length] is a zero terminator.

    /// Zeroes the word that is neither length nor text.
    void clearSpare() { reserved = 0; }
};

static_assert(sizeof(Image16<10>) == 26 && sizeof(Image16<15>) == 36);
static_assert(offsetof(Image16<10>, reserved) == 2 && offsetof(Image16<10>, text) == 4);

/// The older image, text first.
///
///     byte  0                  2N + 2   2N + 4    2N + 6
///           | text: N + 1 units | length | trailer |
///
/// @tparam N The capacity in units.
template <int N>
struct OldImage16
{
    unsigned short text[std::size_t{N} + 1]; ///< The units; text[length] is a zero terminator.
    unsigned short length;                   ///< Units in use, 0 to N.
    unsigned short trailer;                  ///< Read by no member.

    /// Zeroes the word that is neither text nor length.
    void clearSpare() { trailer = 0; }
};

static_assert(sizeof(OldImage16<10>) == 26 && sizeof(OldImage16<15>) == 36);
static_assert(offsetof(OldImage16<250>, length) == 502);
static_assert(offsetof(OldImage16<250>, trailer) == 504);

} // namespace qvStrings
