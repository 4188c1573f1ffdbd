#include "tests/model/string8Runs.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

// The first byte chooses image and capacity, the rest is a series of calls. With QV_ANNOUNCE set,
// each call is printed before it runs.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    if (size == 0)
        return 0;
    auto const runs = qvTest::string8Runs();
    qvTest::String8Run const& run = runs[data[0] % runs.size()];
    qvTest::DriverOptions options;
    options.announce = std::getenv("QV_ANNOUNCE") != nullptr;
    std::string const difference = run.run(options, data + 1, size - 1);
    if (!difference.empty()) {
        std::fprintf(stderr, "%s image, %s", run.image, difference.c_str());
        std::abort();
    }
    return 0;
}
