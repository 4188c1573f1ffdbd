#include "qv/support/qvCRC.h"
#include "tests/model/byteReader.h"
#include "tests/model/checksumModel.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

using Byte = unsigned char;

constexpr std::size_t headSize = 12;

void expectSame(std::uint64_t given, std::uint64_t expected, char const* what)
{
    if (given != expected) {
        std::fprintf(stderr, "%s: 0x%llX instead of 0x%llX\n", what,
                     static_cast<unsigned long long>(given),
                     static_cast<unsigned long long>(expected));
        std::abort();
    }
}

// Bytes that end exactly at the end of their allocation, so that a sanitizer sees every byte read
// too many, and start at a chosen distance from an aligned address.
class Block
{
public:
    Block(std::size_t alignment, Byte const* data, std::size_t length)
        : storage(new Byte[alignment + length]),
          start(storage.get() + alignment)
    {
        std::copy_n(data, length, start);
    }

    Byte const* data() const { return start; }

private:
    std::unique_ptr<Byte[]> storage;
    Byte* start;
};

// Without its table the CRC-32 only shifts, and no table is built on the way.
void checkPartialWithoutTable(std::uint32_t state, Byte const* data, unsigned length)
{
    std::fill_n(qvCRCulTable, 256, 0U);
    qvCRCulTableInitialized = false;
    unsigned int shifted = state;
    qvCRCPartial(&shifted, data, length);
    expectSame(shifted, length < 4 ? state >> 8 * length : 0, "partial without a table");
    expectSame(qvCRCulTableInitialized, false, "table after a partial");
}

// One block in two pieces, from any state.
void checkPartials(std::uint32_t state, Byte const* data, unsigned length, unsigned cut)
{
    unsigned int chained = state;
    qvCRCPartial(&chained, data, cut);
    expectSame(chained, qvTest::crc32State(state, data, cut), "first partial");
    qvCRCPartial(&chained, data + cut, length - cut);
    expectSame(chained, qvTest::crc32State(state, data, length), "second partial");
}

// The block as 16-bit units, the last of which may lack its high byte: nobody reads that.
void checkEverySecondByte(std::size_t alignment, Byte const* data, std::size_t length)
{
    std::size_t const units = (length + 1) / 2;
    Block const block(alignment, data, units == 0 ? 0 : 2 * units - 1);
    expectSame(qvCRCCalc8(block.data(), units, true), qvTest::exclusiveOr(data, units, 2),
               "XOR of units");
}

} // namespace

// The first bytes choose a state, a cut, the alignment and what to mirror; the rest is the block.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* input, std::size_t size)
{
    std::size_t const head = std::min(size, headSize);
    qvTest::ByteReader choices(input, head);
    std::uint32_t const state = choices.word();
    std::uint32_t const value = choices.word();
    char const bits = static_cast<char>(choices.byte());
    std::size_t const alignment = choices.below(16);
    bool const withoutTable = choices.flag();

    auto const length = static_cast<unsigned>(size - head);
    auto const cut = static_cast<unsigned>(choices.below(length + 1));
    Block const block(alignment, input + head, length);
    Byte const* const data = block.data();

    if (withoutTable)
        checkPartialWithoutTable(state, data, length);
    expectSame(qvCRCCalc(data, length), qvTest::crc32IsoHdlc(data, length), "CRC-32");
    checkPartials(state, data, length, cut);
    expectSame(qvCRCCalc64(data, length), qvTest::crc64Redis(data, length), "CRC-64");
    expectSame(qvCRCCalc16(data, length), qvTest::crc16Xmodem(data, length), "CRC-16");
    expectSame(qvCRCCalc8(data, length, false), qvTest::exclusiveOr(data, length, 1), "XOR");
    checkEverySecondByte(alignment, data, length);
    expectSame(qvCRCReflect(value, bits), qvTest::reflection(value, static_cast<signed char>(bits)),
               "mirror");
    return 0;
}
