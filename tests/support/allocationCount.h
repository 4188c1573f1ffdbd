#pragma once

// Counts what the program allocates, by malloc, calloc, realloc and operator new (all linked with
// --wrap): for code that promises to do without.

#include <cstddef>

namespace qvTest {

std::size_t allocationCount();

} // namespace qvTest
