#pragma once

#include <cstddef>

namespace qvTest {

// Where the fields of a string lie, in bytes. The spare bytes have no meaning: the pad of the
// current 8-bit image, the filler and alignment bytes of the older ones, the word of the 16-bit
// ones that no member reads.
struct StringImage
{
    std::size_t capacity;
    std::size_t textAt;
    std::size_t lengthAt;
    std::size_t spareAt;
    std::size_t spareCount;
    std::size_t size;
    // Whether a cleared object, and a result that starts from zeros, has the spare bytes zero too.
    bool clearsSpare = false;

    bool operator==(StringImage const&) const = default;
};

} // namespace qvTest
