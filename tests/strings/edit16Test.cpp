/// Changing 16-bit strings in place with plain text as an argument.

#include "tests/strings/laid.h"

namespace strings {
namespace {

using namespace std::string_view_literals;

class Edit16 : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Edit16, testing::ValuesIn(images16()), imageName);

/// A plain text becomes a temporary string first, by sign extension.
TEST_P(Edit16, takesPlainTextsAsArguments)
{
    Laid receiver(image, u"a\xFFE4"
                         u"a\xE4");
    receiver->replace("\xE4", "x");
    EXPECT_TRUE(became(receiver, 4, u"axa\xE4\0"sv));
    receiver->replaceCaseSen("x", "\xE4");
    EXPECT_TRUE(became(receiver, 4,
                       u"a\xFFE4"
                       u"a\xE4\0"sv));
    receiver->remove("A");
    EXPECT_TRUE(became(receiver, 2, u"\xFFE4\xE4\0\0\0"sv));
    receiver->insert(1, "ab");
    EXPECT_TRUE(became(receiver, 4,
                       u"\xFFE4"
                       u"ab\xE4\0"sv));
    receiver->removeCaseSens("ab");
    EXPECT_TRUE(became(receiver, 2, u"\xFFE4\xE4\0\xE4\0"sv));
}

} // namespace
} // namespace strings
