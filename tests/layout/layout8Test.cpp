// The memory image of the 8-bit string at all 24 capacities: it lies inside records that cross
// process boundaries, so every size and offset is written out here as a number.

#include "tests/strings/guarded.h"

#include <cstddef>
#include <type_traits>

namespace {

using namespace guarded;

/// Detects the alignment byte, which only even capacities have.
template <typename S>
concept HasPad = requires(S& string)
{
    string.pad;
};

/// A record that holds strings between odd things, as the shared records do.
template <typename S>
struct Record
{
    char before;
    S first;
    S second;
    char behind;
};

template <std::size_t N, std::size_t Size>
constexpr bool imageStands()
{
    using S = _qvString8_allSize<static_cast<int>(N)>;
    static_assert(sizeof(S) == Size);
    static_assert(alignof(S) == 2);
    static_assert(offsetof(S, length) == 0);
    static_assert(offsetof(S, text) == 2);
    static_assert(std::is_same_v<decltype(S::length), unsigned short>);
    static_assert(std::is_same_v<decltype(S::text), char[N + 1]>);
    static_assert(HasPad<S> == (N % 2 == 0));
    if constexpr (HasPad<S>) {
        static_assert(offsetof(S, pad) == N + 3);
        static_assert(sizeof(S::pad) == 1);
    }

    // Plain bytes: no hidden field, no teardown, and a copy that is a block copy.
    static_assert(std::is_standard_layout_v<S>);
    static_assert(std::is_trivially_destructible_v<S>);
    static_assert(std::is_trivially_copy_constructible_v<S>);
    static_assert(!std::is_polymorphic_v<S>);

    // Neighbours in an array or a record move nobody apart.
    static_assert(sizeof(S[3]) == 3 * Size);
    static_assert(offsetof(Record<S>, first) == 2);
    static_assert(offsetof(Record<S>, second) == 2 + Size);
    static_assert(offsetof(Record<S>, behind) == 2 + 2 * Size);
    return true;
}

static_assert(imageStands<6, 10>());
static_assert(imageStands<7, 10>());
static_assert(imageStands<8, 12>());
static_assert(imageStands<10, 14>());
static_assert(imageStands<12, 16>());
static_assert(imageStands<14, 18>());
static_assert(imageStands<15, 18>());
static_assert(imageStands<20, 24>());
static_assert(imageStands<25, 28>());
static_assert(imageStands<29, 32>());
static_assert(imageStands<30, 34>());
static_assert(imageStands<40, 44>());
static_assert(imageStands<50, 54>());
static_assert(imageStands<75, 78>());
static_assert(imageStands<100, 104>());
static_assert(imageStands<125, 128>());
static_assert(imageStands<150, 154>());
static_assert(imageStands<200, 204>());
static_assert(imageStands<250, 254>());
static_assert(imageStands<500, 504>());
static_assert(imageStands<1000, 1004>());
static_assert(imageStands<2000, 2004>());
static_assert(imageStands<3000, 3004>());
static_assert(imageStands<5000, 5004>());

template <typename S>
class Layout8 : public testing::Test
{};
TYPED_TEST_SUITE(Layout8, AllStrings8, ImageName);

TYPED_TEST(Layout8, FieldsAreWhereTheirNamesSay)
{
    Guarded<TypeParam> string;
    string.lay("abc", 0x33);
    EXPECT_EQ(string->length, 3);
    EXPECT_STREQ(string->text, "abc");
    string->length = 0x0102;
    EXPECT_EQ(string.bytes()[0], 0x02);
    EXPECT_EQ(string.bytes()[1], 0x01);
    string->text[ImageOf<TypeParam>::capacity] = 'N';
    EXPECT_EQ(string.bytes()[2 + ImageOf<TypeParam>::capacity], 'N');
}

TYPED_TEST(Layout8, BlockOfZerosIsAnEmptyString)
{
    alignas(TypeParam) unsigned char storage[sizeof(TypeParam)] = {};
    auto* const string = std::launder(reinterpret_cast<TypeParam*>(storage));
    EXPECT_TRUE(string->isEmpty());
    EXPECT_STREQ(string->asChar(), "");
    string->add("disk");
    EXPECT_TRUE(holds(*string, "disk"));
}

TYPED_TEST(Layout8, BlockCopyIsACopy)
{
    Guarded<TypeParam> source;
    source.lay("disk", 0x33);
    alignas(TypeParam) unsigned char storage[sizeof(TypeParam)];
    std::memcpy(storage, source->asUni(), sizeof(TypeParam));
    auto* const string = std::launder(reinterpret_cast<TypeParam*>(storage));
    EXPECT_TRUE(string->isEqual(*source));
    EXPECT_EQ(bytesOf(*string), source.bytes());
}

TYPED_TEST(Layout8, ByValueArgumentsAndResultsMoveEveryByte)
{
    Guarded<TypeParam> source;
    source.lay("disk", 0x33);
    // A lambda that takes and returns by value, as members do.
    auto const passed = [](TypeParam string) { return string; };
    EXPECT_EQ(bytesOf(passed(*source)), source.bytes());
}

} // namespace
