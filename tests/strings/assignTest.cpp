/// Assignment to all strings: none of the forms clears what is behind the new terminator, and the
/// spare bytes never travel.

#include "tests/strings/laid.h"

namespace strings {
namespace {

using namespace std::string_view_literals;

class Assign : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Assign, testing::ValuesIn(allImages()), imageName);

/// The whole text area travels, stale units included, and no terminator is added.
TEST_P(Assign, ofAnother)
{
    for (Text const behind : {u"\0"sv, u"e"sv}) {
        Laid source(image, u"abcd", 0x33);
        source.stale(4, behind);
        auto const before = source.bytes();
        Laid receiver(image, u"xy");
        receiver->assign(source);
        EXPECT_EQ(receiver.bytes(),
                  imageOf(image, 4, u"abcd" + std::u16string(behind), 0x33, staleByte));
        EXPECT_TRUE(receiver.guardsStand());
        EXPECT_EQ(source.bytes(), before);
        receiver->assign(*receiver);
        EXPECT_EQ(receiver.bytes(),
                  imageOf(image, 4, u"abcd" + std::u16string(behind), 0x33, staleByte));
    }
}

TEST_P(Assign, textIsMeasuredIn16BitsAndCutAtTheCapacity)
{
    std::size_t const n = image.capacity;
    for (std::size_t const size :
         {std::size_t{0}, std::size_t{1}, std::size_t{5}, n - 1, n, n + 1, n + 7, n + 300,
          std::size_t{65535}, std::size_t{65536}, std::size_t{65537}, std::size_t{65539},
          std::size_t{65541}, std::size_t{131072}, std::size_t{131077}}) {
        SCOPED_TRACE(size);
        Laid receiver(image, u"old");
        receiver->assign(narrowed(letters(size)).c_str());
        auto const text = image.cut(letters(size % 65536));
        // What was behind the shorter text stays.
        auto after = text + u'\0';
        if (after.size() < 4)
            after += std::u16string(u"old\0", 4).substr(after.size());
        EXPECT_TRUE(became(receiver, text.size(), after));
    }
}

/// The byte is the low one of a unit, also a zero one.
TEST_P(Assign, ofAUnitTakesItsLowByte)
{
    struct Row
    {
        Unit unit;
        Unit stored;
    };
    constexpr Row rows[] = {{u'x', u'x'}, {0, 0},         {0x80, 0x80},
                            {0xE4, 0xE4}, {0xFF, 0xFF},   {0x0141, 0x41},
                            {0x0100, 0},  {0xFFE4, 0xE4}, {0xFFFF, 0xFF}};
    for (auto const& row : rows) {
        if (!image.fits(Text(&row.unit, 1)))
            continue;
        SCOPED_TRACE(+row.unit);
        Laid receiver(image, u"xyz");
        receiver->assign(row.unit);
        EXPECT_TRUE(became(receiver, 1, std::u16string{row.stored, u'\0', u'z', u'\0'}));
    }
}

TEST_P(Assign, ofOneOfItsOwnUnits)
{
    for (std::size_t const index : {std::size_t{0}, std::size_t{1}, std::size_t{2}}) {
        Laid receiver(image, u"abc");
        receiver->assignOwn(index);
        EXPECT_TRUE(became(receiver, 1, std::u16string{u"abc"[index], u'\0', u'c', u'\0'}));
    }
}

/// The two widths answer a null text differently.
TEST_P(Assign, ofANullText)
{
    Laid receiver(image, u"abc");
    receiver->assign(nullText);
    EXPECT_TRUE(became(receiver, image.unitSize == 1 ? 0 : 3, u"abc\0"sv));
}

TEST_P(Assign, bytesAreZeroExtended)
{
    for (Text const text : {u"\x7F\x80"sv, u"\xE4"sv, u"a\xFFz"sv}) {
        Laid receiver(image, u"");
        receiver->assign(narrowed(text).c_str());
        EXPECT_TRUE(became(receiver, text.size(), std::u16string(text) + u'\0'));
    }
}

} // namespace
} // namespace strings
