#pragma once

namespace qvStrings {

/// How a byte from 0x80 up becomes a 16-bit unit; each member says which. In an 8-bit string it
/// stays a byte.
enum class Extension
{
    sign, ///< 0xE4 becomes 0xFFE4.
    zero, ///< 0xE4 becomes 0x00E4.
};

/// A byte as a unit of a string.
/// @tparam Unit The unit of the string: a `char` stays as it is.
template <typename Unit>
constexpr Unit unitOf(char byte, Extension extension)
{
    return extension == Extension::sign ? static_cast<Unit>(static_cast<signed char>(byte))
                                        : static_cast<Unit>(static_cast<unsigned char>(byte));
}

} // namespace qvStrings
