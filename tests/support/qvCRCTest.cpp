// The four checksums and their tables, against the rules of the tables, a bit-by-bit model of the
// catalogue's parameters, and zlib.

#include "qv/support/qvCRC.h"

#include "tests/model/checksumModel.h"

#include <gtest/gtest.h>
#ifdef QV_HAS_ZLIB
#include <zlib.h>
#endif

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>

using namespace qvTest;

namespace {

using Byte = unsigned char;

Byte const* bytes(std::string_view text)
{
    return reinterpret_cast<Byte const*>(text.data());
}

unsigned int crc32Of(std::string_view text)
{
    return qvCRCCalc(bytes(text), static_cast<unsigned int>(text.size()));
}

// Random bytes that end exactly at the end of their allocation, so that a sanitizer sees every
// byte read too many, and start at a chosen distance from an aligned address.
class Block
{
public:
    Block(std::size_t alignment, std::size_t length, std::mt19937& random)
        : storage(new Byte[alignment + length]),
          start(alignment)
    {
        for (std::size_t i = 0; i < alignment + length; ++i) {
            storage[i] = static_cast<Byte>(random());
        }
    }

    Byte const* data() const { return storage.get() + start; }

private:
    std::unique_ptr<Byte[]> storage;
    std::size_t start;
};

template <typename Check>
void forEachBlock(Check const& check)
{
    std::mt19937 random(20020515);
    auto const run = [&](std::size_t alignment, std::size_t length) {
        Block const block(alignment, length, random);
        check(block.data(), length);
    };
    for (std::size_t alignment = 0; alignment < 8; ++alignment) {
        for (std::size_t length = 0; length <= 300; ++length) {
            run(alignment, length);
        }
        for (std::size_t const length : {1023U, 1024U, 4097U, 22988U}) {
            run(alignment, length);
        }
    }
}

TEST(QvCRC, HasTheseSignatures)
{
    // The length of the first comes by reference and the others' by value, and callers rely on it.
    unsigned int (*const reflect)(unsigned int, char) = &qvCRCReflect;
    void (*const initialize)() = &qvCRCInitialize;
    void (*const partial)(unsigned int*, Byte const*, unsigned int) = &qvCRCPartial;
    unsigned int (*const calc)(Byte const*, unsigned int const&) = &qvCRCCalc;
    auto const calc64 = &qvCRCCalc64;
    unsigned short (*const calc16)(Byte const*, unsigned long) = &qvCRCCalc16;
    Byte (*const calc8)(Byte const*, unsigned long, bool) = &qvCRCCalc8;
    EXPECT_NE(reflect, nullptr);
    EXPECT_NE(initialize, nullptr);
    EXPECT_NE(partial, nullptr);
    EXPECT_NE(calc, nullptr);
    EXPECT_NE(calc16, nullptr);
    EXPECT_NE(calc8, nullptr);
    static_assert(sizeof(calc64(nullptr, 0)) == 8);
    static_assert(std::is_unsigned_v<decltype(calc64(nullptr, 0))>);
    static_assert(std::is_invocable_v<decltype(calc64), void const*, unsigned long>);
}

TEST(QvCRC, TablesHaveTheirForm)
{
    EXPECT_EQ(sizeof qvCRCulTable, 256U * 4U);
    EXPECT_EQ(sizeof crctab64, 256U * 8U);
    EXPECT_EQ(sizeof crc16tab, 256U * 2U);
    EXPECT_EQ(sizeof qvCRCulTableInitialized, 1U);
    static_assert(std::is_const_v<std::remove_reference_t<decltype(crctab64[0])>>);
    static_assert(std::is_const_v<std::remove_reference_t<decltype(crc16tab[0])>>);
}

TEST(QvCRC, Table32FollowsItsRule)
{
    qvCRCInitialize();
    EXPECT_TRUE(qvCRCulTableInitialized);
    for (unsigned i = 0; i < 256; ++i) {
        auto state = static_cast<std::uint32_t>(mirrored(i, 8)) << 24;
        for (int bit = 0; bit < 8; ++bit) {
            bool const out = (state & 0x80000000U) != 0;
            state = (state << 1) ^ (out ? 0x04C11DB7U : 0U);
        }
        EXPECT_EQ(qvCRCulTable[i], mirrored(state, 32)) << i;
    }
    EXPECT_EQ(qvCRCulTable[0], 0U);
    EXPECT_EQ(qvCRCulTable[1], 0x77073096U);
    EXPECT_EQ(qvCRCulTable[255], 0x2D02EF8DU);
}

TEST(QvCRC, Table64FollowsItsRule)
{
    for (unsigned i = 0; i < 256; ++i) {
        std::uint64_t value = i;
        for (int bit = 0; bit < 8; ++bit) {
            bool const out = (value & 1U) != 0;
            value = (value >> 1) ^ (out ? 0x95AC9329AC4BC9B5U : 0U);
        }
        EXPECT_EQ(crctab64[i], value) << i;
    }
    EXPECT_EQ(crctab64[0], 0U);
    EXPECT_EQ(crctab64[1], 0x7AD870C830358979U);
    EXPECT_EQ(crctab64[255], 0x29B7D047EFEC8728U);
}

TEST(QvCRC, Table16FollowsItsRule)
{
    for (unsigned i = 0; i < 256; ++i) {
        unsigned value = i << 8;
        for (int bit = 0; bit < 8; ++bit) {
            bool const out = (value & 0x8000U) != 0;
            value = ((value << 1) & 0xFFFFU) ^ (out ? 0x1021U : 0U);
        }
        EXPECT_EQ(crc16tab[i], value) << i;
    }
    EXPECT_EQ(crc16tab[0], 0U);
    EXPECT_EQ(crc16tab[1], 0x1021U);
    EXPECT_EQ(crc16tab[255], 0x1EF0U);
}

TEST(QvCRC, InitializeRebuildsTheSameTable)
{
    qvCRCInitialize();
    qvCRCulTable[0] = 1;
    qvCRCulTable[17] ^= 0xFFFFFFFFU;
    qvCRCulTable[255] = 0;
    qvCRCInitialize();
    EXPECT_TRUE(qvCRCulTableInitialized);
    EXPECT_EQ(qvCRCulTable[0], 0U);
    EXPECT_EQ(qvCRCulTable[255], 0x2D02EF8DU);
    EXPECT_EQ(crc32Of("123456789"), 0xCBF43926U);
}

TEST(QvCRC, KnownBlocks)
{
    std::string all;
    for (int i = 0; i < 256; ++i) {
        all.push_back(static_cast<char>(i));
    }
    struct Row
    {
        std::string block;
        std::uint32_t crc32;
        std::uint64_t crc64;
        std::uint16_t crc16;
        std::uint8_t crc8;
    };
    Row const rows[] = {
        {"", 0, 0, 0, 0},
        {"123456789", 0xCBF43926, 0xE9C6D914C4B8D9CA, 0x31C3, 0x31},
        {"a", 0xE8B7BE43, 0x5FB354025B277B14, 0x7C87, 0x61},
        {std::string(1, '\0'), 0xD202EF8D, 0, 0, 0},
        {std::string(4, '\0'), 0x2144DF1C, 0, 0, 0},
        {"\xFF", 0xFF000000, 0x29B7D047EFEC8728, 0x1EF0, 0xFF},
        {"The quick brown fox jumps over the lazy dog", 0x414FA339, 0xBF7EE596C3AA372B, 0xF0C8,
         0x4F},
        {all, 0x29058C73, 0x88BFA574E806500E, 0x7E55, 0},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.block);
        std::size_t const length = row.block.size();
        EXPECT_EQ(crc32Of(row.block), row.crc32);
        EXPECT_EQ(qvCRCCalc64(row.block.data(), length), row.crc64);
        EXPECT_EQ(qvCRCCalc16(bytes(row.block), length), row.crc16);
        EXPECT_EQ(qvCRCCalc8(bytes(row.block), length, false), row.crc8);
    }
}

TEST(QvCRC, NoBytesGiveZeroWhateverThePointer)
{
    Byte const some[] = {1, 2, 3};
    auto* const nowhere = reinterpret_cast<Byte const*>(std::uintptr_t{8});
    for (Byte const* data : {static_cast<Byte const*>(nullptr), &some[0], nowhere}) {
        EXPECT_EQ(qvCRCCalc(data, 0), 0U);
        EXPECT_EQ(qvCRCCalc64(data, 0), 0U);
        EXPECT_EQ(qvCRCCalc16(data, 0), 0U);
        EXPECT_EQ(qvCRCCalc8(data, 0, false), 0U);
        EXPECT_EQ(qvCRCCalc8(data, 0, true), 0U);
        unsigned int state = 0x12345678U;
        qvCRCPartial(&state, data, 0);
        EXPECT_EQ(state, 0x12345678U);
    }
}

TEST(QvCRC, PartialsChain)
{
    qvCRCInitialize();
    unsigned int state = 0xFFFFFFFFU;
    qvCRCPartial(&state, bytes("1234"), 4);
    EXPECT_EQ(state, 0x641C1F5CU);
    qvCRCPartial(&state, bytes(""), 0);
    EXPECT_EQ(state, 0x641C1F5CU);
    qvCRCPartial(&state, bytes("56789"), 5);
    EXPECT_EQ(state, 0x340BC6D9U);
    EXPECT_EQ(~state, 0xCBF43926U);
}

TEST(QvCRC, PartialsChainAtEveryCut)
{
    std::mt19937 random(7);
    Block const block(3, 120, random);
    unsigned int const whole = qvCRCCalc(block.data(), 120);
    for (unsigned int cut = 0; cut <= 120; ++cut) {
        unsigned int state = 0xFFFFFFFFU;
        qvCRCPartial(&state, block.data(), cut);
        qvCRCPartial(&state, block.data() + cut, 120 - cut);
        EXPECT_EQ(~state, whole) << cut;
    }
    unsigned int state = 0xFFFFFFFFU;
    for (unsigned int i = 0; i < 120; ++i) {
        qvCRCPartial(&state, block.data() + i, 1);
    }
    EXPECT_EQ(~state, whole);
}

TEST(QvCRC, PartialStoresTheStateAfterEveryByte)
{
    // A block that lies on the state itself sees each byte's effect on the next one: every byte is
    // what the step before it stored there.
    qvCRCInitialize();
    unsigned int expected = 0x01020304U;
    for (unsigned int i = 0; i < 4; ++i) {
        Byte now[4];
        std::memcpy(&now[0], &expected, 4);
        expected = (expected >> 8) ^ qvCRCulTable[(expected ^ now[i]) & 0xFFU];
    }
    unsigned int state = 0x01020304U;
    qvCRCPartial(&state, reinterpret_cast<Byte const*>(&state), 4);
    EXPECT_EQ(state, expected);
}

#ifdef QV_HAS_ZLIB
TEST(QvCRC, Crc32AgreesWithZlib)
{
    forEachBlock([](Byte const* data, std::size_t length) {
        auto const count = static_cast<unsigned int>(length);
        ASSERT_EQ(qvCRCCalc(data, count), crc32(crc32(0, nullptr, 0), data, count)) << length;
        unsigned int state = 0xFFFFFFFFU;
        qvCRCPartial(&state, data, count);
        ASSERT_EQ(~state, qvCRCCalc(data, count)) << length;
    });
}
#endif

TEST(QvCRC, AllAgreeWithTheCatalogue)
{
    forEachBlock([](Byte const* data, std::size_t length) {
        auto const count = static_cast<unsigned int>(length);
        // No bytes give 0 by rule; for these parameters the division comes to the same.
        ASSERT_EQ(qvCRCCalc(data, count), crc32IsoHdlc(data, length)) << length;
        ASSERT_EQ(qvCRCCalc64(data, length), crc64Redis(data, length)) << length;
        ASSERT_EQ(qvCRCCalc16(data, length), crc16Xmodem(data, length)) << length;
    });
}

TEST(QvCRC, ReflectMirrorsTheLowBits)
{
    struct Row
    {
        unsigned int value;
        int bits;
        unsigned int result;
    };
    Row const rows[] = {
        {1, 8, 0x80},
        {0x80, 8, 1},
        {0xF0, 4, 0},
        {0xF1, 4, 8},
        {6, 3, 3},
        {0xFFFFFFFE, 1, 0},
        {0xFFFFFFFF, 1, 1},
        {1, 2, 2},
        {0x12345678, 8, 0x1E},
        {0x12345678, 16, 0x1E6A},
        {0x12345678, 32, 0x1E6A2C48},
        {1, 31, 0x40000000},
        {1, 32, 0x80000000},
        {0x80000000, 32, 1},
        {0xFFFFFFFF, 32, 0xFFFFFFFF},
        // Nothing to mirror.
        {0xFFFFFFFF, 0, 0},
        {0xFFFFFFFF, -1, 0},
        {0xFFFFFFFF, -127, 0},
        {0xFFFFFFFF, -128, 0},
        // Above 32 bits the target position wraps.
        {3, 33, 0x80000001},
        {0x80000000, 33, 2},
        {0x80000000, 34, 4},
        {1, 40, 0x80},
        {1, 64, 0x80000000},
        {2, 64, 0x40000000},
        {1, 65, 1},
        {1, 127, 0x40000000},
        {0xFFFFFFFF, 33, 0xFFFFFFFF},
        {0xFFFFFFFF, 127, 0xFFFFFFFF},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(qvCRCReflect(row.value, static_cast<char>(row.bits)), row.result)
            << std::hex << row.value << std::dec << " over " << row.bits;
    }
}

TEST(QvCRC, XorOfEveryByte)
{
    forEachBlock([](Byte const* data, std::size_t length) {
        Byte expected = 0;
        for (std::size_t i = 0; i < length; ++i) {
            expected = static_cast<Byte>(expected ^ data[i]);
        }
        ASSERT_EQ(qvCRCCalc8(data, length, false), expected) << length;
    });
}

TEST(QvCRC, XorOfEverySecondByteCountsUnits)
{
    Byte const digits[] = {'1',  0xAA, '2',  0xBB, '3',  0xCC, '4',  0xDD, '5',
                           0xEE, '6',  0xFF, '7',  0x11, '8',  0x22, '9'};
    EXPECT_EQ(qvCRCCalc8(&digits[0], 9, true), 0x31);
    EXPECT_EQ(qvCRCCalc8(&digits[0], 1, true), '1');
    EXPECT_EQ(qvCRCCalc8(&digits[0], 2, true), '1' ^ '2');
    // The same bytes one by one give another result.
    EXPECT_EQ(qvCRCCalc8(&digits[0], 9, false),
              ('1' ^ '2' ^ '3' ^ '4' ^ '5') ^ (0xAA ^ 0xBB ^ 0xCC ^ 0xDD));

    // A block of odd length ends with the low byte of its last unit; nothing behind it is read.
    forEachBlock([](Byte const* data, std::size_t length) {
        if (length % 2 == 0) {
            return;
        }
        Byte expected = 0;
        for (std::size_t i = 0; i < length; i += 2) {
            expected = static_cast<Byte>(expected ^ data[i]);
        }
        ASSERT_EQ(qvCRCCalc8(data, (length + 1) / 2, true), expected) << length;
    });
}

} // namespace
