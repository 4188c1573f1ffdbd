#pragma once

#include "tests/model/stringRun.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <span>

namespace qvTest {

// The first byte chooses image and capacity, the rest is a series of calls. With QV_ANNOUNCE set,
// each call is printed before it runs.
inline void fuzzStrings(std::span<StringRun const> runs, unsigned char const* data,
                        std::size_t size)
{
    if (size == 0)
        return;
    StringRun const& run = runs[data[0] % runs.size()];
    DriverOptions options;
    options.announce = std::getenv("QV_ANNOUNCE") != nullptr;
    std::string const difference = run.run(options, data + 1, size - 1);
    if (!difference.empty()) {
        std::fprintf(stderr, "%s image, %s", run.name, difference.c_str());
        std::abort();
    }
}

} // namespace qvTest
