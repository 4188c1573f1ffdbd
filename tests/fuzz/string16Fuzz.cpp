#include "tests/fuzz/stringFuzz.h"
#include "tests/model/string16Runs.h"

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    qvTest::fuzzStrings(qvTest::string16Runs(), data, size);
    return 0;
}
