#pragma once

#include "tests/model/string8Driver.h"

#include <cstddef>
#include <span>
#include <string>

namespace qvTest {

// One image at one capacity, and the way to drive it.
struct String8Run
{
    char const* image;
    std::size_t capacity;
    bool current;
    std::string (*run)(DriverOptions const& options, unsigned char const* data, std::size_t size);
};

// Every image at the capacities that matter: the smallest, both parities, the largest. A fuzzer
// input names a run by its place.
std::span<String8Run const> string8Runs();

} // namespace qvTest
