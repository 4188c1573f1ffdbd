/// The 8-bit strings against plain text: its first byte is compared before anything else.

#include "tests/strings/laid.h"

namespace strings {
namespace {

class Compare8 : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Compare8, testing::ValuesIn(images8()), imageName);

TEST_P(Compare8, aStringEqualsItsOwnText)
{
    Laid const self(image, u"aB\xE4");
    EXPECT_TRUE(self->equals(static_cast<char const*>(self->textAt())));
}

TEST_P(Compare8, aStaleFirstByteDecidesAgainstText)
{
    Laid receiver(image, u"");
    receiver.stale(0, u"x");
    EXPECT_FALSE(receiver->equals(""));
    EXPECT_TRUE(receiver->differs(""));
    EXPECT_FALSE(receiver->equals("x"));
    EXPECT_TRUE(receiver->equals(std::string(65536, 'x').c_str()));
}

} // namespace
} // namespace strings
