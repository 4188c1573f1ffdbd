#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace qvTest {

/// Ends a test program that cannot prepare what it is to try; its tests are compiled without
/// exceptions. Objects that are alive end without their destructors, so whoever holds what outlives
/// a process sees to its end in another way.
[[noreturn]] inline void failSetUp(std::string const& why)
{
    std::fprintf(stderr, "the test can't be set up: %s\n", why.c_str());
    std::exit(EXIT_FAILURE);
}

} // namespace qvTest
