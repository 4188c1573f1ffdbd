#include "qv/support/qvText.h"
#include "tests/model/floatTextModel.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// Each ten bytes of the input are a float, a number of decimals and a separator.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    for (; size >= 10; data += 10, size -= 10) {
        std::uint32_t bits = 0;
        std::int32_t decimals = 0;
        unsigned short separator = 0;
        std::memcpy(&bits, data, 4);
        std::memcpy(&decimals, data + 4, 4);
        std::memcpy(&separator, data + 8, 2);

        _qvString<25> const text = float2Str(std::bit_cast<float>(bits), decimals, separator);
        qvTest::FloatText const expected = qvTest::floatText(bits, decimals, separator);
        if (text.length != expected.length ||
            std::memcmp(text.text, expected.units.data(), sizeof text.text) != 0) {
            std::fprintf(stderr, "bits 0x%08X, decimals %d, separator 0x%04X\n",
                         static_cast<unsigned>(bits), decimals, static_cast<unsigned>(separator));
            std::abort();
        }
    }
    return 0;
}
