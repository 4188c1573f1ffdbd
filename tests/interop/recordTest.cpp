// How a string goes in and out of a record.

#include "qv/strings/interop.h"

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

namespace {

using qvInterop::loadImage;
using qvInterop::storeImage;

template <typename String>
struct Record : ::testing::Test
{};
using Strings =
    ::testing::Types<_qvString8_allSize<10>, _qvString8_allSize<7>, _qvString8_evenSize_old<10>,
                     _qvString8_UnevenSize_old<7>, _qvString<10>, _qvString_old<10>>;
TYPED_TEST_SUITE(Record, Strings);

TYPED_TEST(Record, KeepsEveryByteOfAnImage)
{
    static_assert(!std::is_trivially_copyable_v<TypeParam>);
    unsigned char record[sizeof(TypeParam) + 1]; // the image is at an odd address
    for (unsigned i = 0; i < sizeof record; ++i)
        record[i] = static_cast<unsigned char>(0xA0 + i);
    TypeParam measured;
    auto const lengthAt = static_cast<std::size_t>(reinterpret_cast<char const*>(&measured.length) -
                                                   reinterpret_cast<char const*>(&measured));
    unsigned short const length = 3;
    std::memcpy(&record[1 + lengthAt], &length, 2);

    auto const string = loadImage<TypeParam>(&record[1]);
    EXPECT_EQ(string.length, 3);
    EXPECT_EQ(std::memcmp(static_cast<void const*>(&string), &record[1], sizeof string), 0);
    unsigned char copy[sizeof record];
    std::memset(copy, 0x55, sizeof copy);
    storeImage(string, &copy[1]);
    EXPECT_EQ(copy[0], 0x55);
    EXPECT_EQ(std::memcmp(&copy[1], &record[1], sizeof string), 0);
}

TYPED_TEST(Record, LowersADamagedLengthToTheCapacity)
{
    constexpr int capacity = qvInterop::capacityOf<TypeParam>;
    for (int const length : {capacity, capacity + 1, 65535}) {
        TypeParam stored;
        std::memset(stored.text, 'x', sizeof stored.text);
        stored.length = static_cast<unsigned short>(length);
        auto const string = loadImage<TypeParam>(static_cast<void const*>(&stored));
        EXPECT_EQ(string.length, capacity) << length;
        EXPECT_EQ(string.text[capacity - 1], stored.text[0]);
        EXPECT_EQ(string.text[capacity], length == capacity ? stored.text[0] : 0);
    }
}

} // namespace
