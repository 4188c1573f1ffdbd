#pragma once

// Counts what the program allocates, by malloc, calloc, realloc (linked with --wrap) and operator
// new: for code that promises to do without.

#include <cstddef>

namespace qvTest {

std::size_t allocationCount();

} // namespace qvTest
