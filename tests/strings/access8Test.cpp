/// The text of the current 8-bit string by either of its names, and the string as a view.

#include "tests/strings/guarded.h"

#include <type_traits>

namespace guarded {
namespace {

template <typename S>
class Access8 : public testing::Test
{};
TYPED_TEST_SUITE(Access8, MainStrings8, ImageName);

/// Both names are the writable array itself, also of a constant.
TYPED_TEST(Access8, theTextIsReachedByEitherName)
{
    Guarded<TypeParam> string;
    string.lay("abc", 0x33);
    TypeParam const& constant = *string;
    auto* const text = reinterpret_cast<char*>(&*string) + 2;
    EXPECT_EQ(constant.text, text);
    EXPECT_EQ(string->asChar(), text);
    EXPECT_EQ(string->toChar(), text);
    EXPECT_EQ(constant.asChar(), text);
    EXPECT_EQ(constant.toChar(), text);
    string->asChar()[0] = 'X';
    string->toChar()[1] = 'Y';
    EXPECT_TRUE(holds(*string, "XYc"));
}

TYPED_TEST(Access8, calcLengthServesTextWrittenThroughAsChar)
{
    Guarded<TypeParam> string;
    std::memcpy(string->asChar(), "disk", 5);
    string->calcLength();
    EXPECT_TRUE(holds(*string, "disk"));
}

TYPED_TEST(Access8, asUniIsTheObjectItself)
{
    Guarded<TypeParam> string;
    auto const* const view = string->asUni();
    static_assert(std::is_same_v<decltype(string->asUni()), _qvString8_Uni_pointer const*>);
    EXPECT_EQ(static_cast<void const*>(view), static_cast<void const*>(&*string));
}

} // namespace
} // namespace guarded
