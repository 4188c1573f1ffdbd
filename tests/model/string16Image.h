#pragma once

#include "tests/model/stringImage.h"

#include <cstddef>

namespace qvTest {

// Length, spare word, text: one shape for all capacities.
constexpr StringImage current16Image(std::size_t n)
{
    return {n, 4, 0, 2, 2, 2 * n + 6, true};
}

// Text, length, spare word.
constexpr StringImage old16Image(std::size_t n)
{
    return {n, 0, 2 * n + 2, 2 * n + 4, 2, 2 * n + 6, true};
}

} // namespace qvTest
