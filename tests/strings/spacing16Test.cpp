/// Padded appends of raw 16-bit texts.

#include "tests/strings/laid.h"

namespace strings {
namespace {

using namespace std::string_view_literals;

class Spacing16 : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Spacing16, testing::ValuesIn(images16()), imageName);

/// Of a unit only the low byte is taken, although the text is one of units.
TEST_P(Spacing16, unitsAreCutToTheirLowByte)
{
    auto const units = stored(image, u"\x0141\xFFE4\x0100\0"sv);
    Laid receiver(image, u"x");
    receiver->addSpacing(units.data(), 5);
    EXPECT_TRUE(became(receiver, 6, u"xA\xE4\0  \0"sv));
}

TEST_P(Spacing16, rawTextsAreMeasuredUpTo1024Units)
{
    auto const units = stored(image, letters(2000) + u'\0');
    Laid measured(image, u"");
    measured->addSpacing(units.data(), 0);
    auto const expected = image.cut(letters(1024));
    EXPECT_TRUE(became(measured, expected.size(), expected + u'\0'));
}

/// With room for all of it, and without.
TEST_P(Spacing16, theTrustingFormCutsAMeasuredText)
{
    auto const size = std::min<std::size_t>(image.capacity + 3, 1024);
    auto const units = stored(image, letters(size) + u'\0');
    for (int const width : {0, 1, -1, 3}) {
        auto const before = std::u16string(image.capacity - 3, u'#');
        Laid receiver(image, before);
        receiver->addSpacing(units.data(), width);
        EXPECT_TRUE(became(receiver, image.capacity, before + u"abc" + u'\0'));
    }
}

} // namespace
} // namespace strings
