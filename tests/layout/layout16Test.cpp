// The memory images of both 16-bit strings at all 16 capacities: they lie inside records that cross
// process boundaries, so every size and offset is written out here as a number.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <type_traits>

namespace {

using namespace images16;

/// A record that holds strings between odd things, as the shared records do.
template <typename S>
struct Record16
{
    char before;
    S first;
    S second;
    char behind;
};

/// Plain bytes: no hidden field, no teardown, and a copy that is a block copy.
template <typename S, std::size_t N, std::size_t Size>
constexpr bool isPlain()
{
    static_assert(sizeof(S) == Size);
    static_assert(alignof(S) == 2);
    static_assert(std::is_same_v<decltype(S::length), unsigned short>);
    static_assert(std::is_same_v<decltype(S::text), unsigned short[N + 1]>);
    static_assert(std::is_standard_layout_v<S>);
    static_assert(std::is_trivially_destructible_v<S>);
    static_assert(std::is_trivially_copy_constructible_v<S>);
    static_assert(!std::is_polymorphic_v<S>);

    // Neighbours in an array or a record move nobody apart.
    static_assert(sizeof(S[3]) == 3 * Size);
    static_assert(offsetof(Record16<S>, first) == 2);
    static_assert(offsetof(Record16<S>, second) == 2 + Size);
    static_assert(offsetof(Record16<S>, behind) == 2 + 2 * Size);
    return true;
}

/// The two images have one size; in the older one the length and the spare word stand behind.
template <std::size_t N, std::size_t Size, std::size_t OldLengthAt>
constexpr bool imagesStand()
{
    using S = _qvString<static_cast<int>(N)>;
    static_assert(isPlain<S, N, Size>());
    static_assert(offsetof(S, length) == 0);
    static_assert(offsetof(S, reserved) == 2);
    static_assert(offsetof(S, text) == 4);
    static_assert(std::is_same_v<decltype(S::reserved), unsigned short>);

    using Old = _qvString_old<static_cast<int>(N)>;
    static_assert(isPlain<Old, N, Size>());
    static_assert(offsetof(Old, text) == 0);
    static_assert(offsetof(Old, length) == OldLengthAt);
    static_assert(offsetof(Old, trailer) == OldLengthAt + 2);
    static_assert(std::is_same_v<decltype(Old::trailer), unsigned short>);
    return true;
}

static_assert(imagesStand<10, 26, 22>());
static_assert(imagesStand<15, 36, 32>());
static_assert(imagesStand<25, 56, 52>());
static_assert(imagesStand<30, 66, 62>());
static_assert(imagesStand<48, 102, 98>());
static_assert(imagesStand<50, 106, 102>());
static_assert(imagesStand<75, 156, 152>());
static_assert(imagesStand<100, 206, 202>());
static_assert(imagesStand<125, 256, 252>());
static_assert(imagesStand<150, 306, 302>());
static_assert(imagesStand<200, 406, 402>());
static_assert(imagesStand<225, 456, 452>());
static_assert(imagesStand<250, 506, 502>());
static_assert(imagesStand<500, 1006, 1002>());
static_assert(imagesStand<1000, 2006, 2002>());
static_assert(imagesStand<2500, 5006, 5002>());

template <typename S>
class Layout16 : public testing::Test
{};
TYPED_TEST_SUITE(Layout16, MainImages, ImageName);

TYPED_TEST(Layout16, fieldsAreWhereTheirNamesSay)
{
    Laid<TypeParam> string(u"abc", 0x33);
    EXPECT_EQ(string->length, 3);
    EXPECT_EQ(string->text[2], u'c');
    EXPECT_EQ(string->text[3], 0);
    string->length = 0x0102;
    string->text[capacity<TypeParam>] = 0x0304;
    auto const bytes = string.bytes();
    using Image = guarded::ImageOf<TypeParam>;
    EXPECT_EQ(bytes[Image::lengthAt], 0x02);
    EXPECT_EQ(bytes[Image::lengthAt + 1], 0x01);
    EXPECT_EQ(bytes[Image::textAt + 2 * capacity<TypeParam>], 0x04);
    EXPECT_EQ(bytes[Image::textAt + 2 * capacity<TypeParam> + 1], 0x03);
}

TYPED_TEST(Layout16, blockOfZerosIsAnEmptyString)
{
    alignas(TypeParam) unsigned char storage[sizeof(TypeParam)] = {};
    auto* const string = std::launder(reinterpret_cast<TypeParam*>(storage));
    EXPECT_TRUE(string->isEmpty());
    string->add("disk");
    EXPECT_TRUE(holds(*string, u"disk"));
}

TYPED_TEST(Layout16, blockCopyIsACopy)
{
    Laid<TypeParam> source(u"disk", 0x33);
    alignas(TypeParam) unsigned char storage[sizeof(TypeParam)];
    std::memcpy(storage, source.bytes().data(), sizeof storage);
    auto* const string = std::launder(reinterpret_cast<TypeParam*>(storage));
    EXPECT_TRUE(string->isEqual(*source));
    EXPECT_EQ(guarded::bytesOf(*string), source.bytes());
}

TYPED_TEST(Layout16, byValueArgumentsAndResultsMoveEveryByte)
{
    Laid<TypeParam> source(u"disk", 0x33);
    auto const passed = [](TypeParam string) { return string; };
    EXPECT_EQ(guarded::bytesOf(passed(*source)), source.bytes());
}

} // namespace
