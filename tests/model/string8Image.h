#pragma once

#include "tests/model/stringImage.h"

#include <cstddef>

namespace qvTest {

using String8Image = StringImage;

constexpr bool isOdd(std::size_t n)
{
    return n % 2 != 0;
}

// Length, text, and for an even capacity one pad byte.
constexpr String8Image currentImage(std::size_t n)
{
    return isOdd(n) ? String8Image{n, 2, 0, n + 3, 0, n + 3}
                    : String8Image{n, 2, 0, n + 3, 1, n + 4};
}

// Text, filler, length; at an odd capacity the length needs one alignment byte more.
constexpr String8Image evenOldImage(std::size_t n)
{
    return isOdd(n) ? String8Image{n, 0, n + 3, n + 1, 2, n + 5}
                    : String8Image{n, 0, n + 2, n + 1, 1, n + 4};
}

// Text, length; at an even capacity the alignment puts one byte between them.
constexpr String8Image unevenOldImage(std::size_t n)
{
    return isOdd(n) ? String8Image{n, 0, n + 1, n + 1, 0, n + 3}
                    : String8Image{n, 0, n + 2, n + 1, 1, n + 4};
}

} // namespace qvTest
