#include "tests/model/listDriver.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

// The input is a series of calls to two lists.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    qvTest::ListDriver driver(nullptr);
    std::string const difference = driver.run(data, size);
    if (!difference.empty()) {
        std::fprintf(stderr, "%s\n", difference.c_str());
        std::abort();
    }
    return 0;
}
