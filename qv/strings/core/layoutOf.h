#pragma once

#include "qv/strings/core/textRef.h"

#include <cstddef>
#include <type_traits>

namespace qvStrings {

/// The layout of an image, read off its own members: a struct with an array `text` of one unit
/// more than its capacity, an unsigned 16-bit `length`, and named spare bytes.
template <typename Image>
constexpr Layout layoutOf()
{
    using Text = decltype(Image::text);
    static_assert(std::extent_v<Text> - 1 <= maxCapacity);
    return {static_cast<unsigned short>(offsetof(Image, text)),
            static_cast<unsigned short>(offsetof(Image, length)),
            static_cast<unsigned short>(std::extent_v<Text> - 1),
            static_cast<unsigned short>(sizeof(Image))};
}

} // namespace qvStrings
