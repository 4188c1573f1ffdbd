/// Numbers in a text without its terminator, as an assignment from an older image leaves it. Digits
/// follow in the text's last unit and behind the object: they aren't the number's, whatever the
/// stored length is.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

template <typename S>
class UnterminatedNumber8 : public testing::Test
{};
TYPED_TEST_SUITE(UnterminatedNumber8, guarded::MainStrings8, images8::ImageName);

TYPED_TEST(UnterminatedNumber8, EndsWithTheCapacityAtEveryLength)
{
    constexpr std::size_t capacity = images8::capacity<TypeParam>;
    struct
    {
        TypeParam string;
        char behind[8] = {'7', '7', '7', '7', 0, 0, 0, 0};
    } laid;
    std::string const digits = std::string(capacity - 2, '0') + "12" + '9';
    std::memcpy(laid.string.text, digits.data(), digits.size());
    ASSERT_EQ(sizeof laid.string.text, digits.size());
    for (std::size_t const length : {std::size_t{0}, std::size_t{3}, capacity - 1, capacity}) {
        laid.string.length = static_cast<unsigned short>(length);
        EXPECT_EQ(laid.string.toInt(nullptr), 12) << length;
        EXPECT_EQ(laid.string.toInt64(nullptr), 12) << length;
    }
}

} // namespace
