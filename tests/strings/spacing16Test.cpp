/// Padded appends of the 16-bit strings: the form for bytes stays inside the capacity, the form for
/// units trusts its caller to have room.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace images16;
using namespace std::string_view_literals;

template <typename S>
class Spacing16 : public testing::Test
{};
TYPED_TEST_SUITE(Spacing16, MainImages, ImageName);

/// Inside the capacity both members do the same.
TYPED_TEST(Spacing16, padsInsideTheRoom)
{
    struct Row
    {
        Text before;
        std::string_view text;
        int width;
        Text result;
    };
    constexpr Row rows[] = {
        {u"", "ab", 5, u"ab   "},
        {u"", "ab", -5, u"   ab"},
        {u"", "ab", 1, u"ab"},
        {u"", "ab", -1, u"ab"},
        {u"", "ab", 2, u"ab"},
        {u"", "ab", -2, u"ab"},
        {u"", "ab", 0, u"ab"},
        {u"xy", "ab", 3, u"xyab "},
        {u"xy", "ab", -3, u"xy ab"},
        {u"xy", "ab", 8, u"xyab      "},
        {u"xy", "ab", -8, u"xy      ab"},
        {u"xy", "", 2, u"xy  "},
        {u"xy", "", -2, u"xy  "},
        {u"xyz", "abc", 1, u"xyzabc"},
        {u"", "abcdef", 8, u"abcdef  "},
        {u"", "", 10, u"          "},
        {u"xy", "a\xE4", -3, u"xy a\xE4"},
        {u"xy", "\x80\xFF", 3, u"xy\x80\xFF "},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::to_string(row.width));
        auto const after = std::u16string(row.result) + u'\0';
        Laid<TypeParam> clamped(row.before);
        clamped->addSpacingC(std::string(row.text).c_str(), row.width);
        EXPECT_TRUE(became(clamped, row.result.size(), after));

        Units units;
        for (char const byte : row.text) {
            units.push_back(zeroExtended(static_cast<unsigned char>(byte)));
        }
        units.push_back(0);
        Laid<TypeParam> trusting(row.before);
        trusting->addSpacing(units.data(), row.width);
        EXPECT_TRUE(became(trusting, row.result.size(), after));
    }
}

TYPED_TEST(Spacing16, nullTextsAreBlanksAlone)
{
    for (int const width : {3, -3}) {
        Laid<TypeParam> clamped(u"xy");
        clamped->addSpacingC(nullText, width);
        EXPECT_TRUE(became(clamped, 5, u"xy   \0"sv));
        Laid<TypeParam> trusting(u"xy");
        trusting->addSpacing(nullUnits, width);
        EXPECT_TRUE(became(trusting, 5, u"xy   \0"sv));
    }
}

/// Nothing to add in no field: not even the terminator is written.
TYPED_TEST(Spacing16, nothingInNoFieldWritesNothing)
{
    auto const none = raw(u"");
    auto const untouched = [](auto const& change) {
        Laid<TypeParam> receiver(u"ab");
        receiver.stale(2, u"zz");
        change(*receiver);
        EXPECT_TRUE(became(receiver, 2, u"abzz"sv));
    };
    untouched([](TypeParam& s) { s.addSpacingC("", 0); });
    untouched([](TypeParam& s) { s.addSpacingC(nullText, 0); });
    untouched([](TypeParam& s) { s.addSpacingC(guarded::letters(65536).c_str(), 0); });
    untouched([&](TypeParam& s) { s.addSpacing(none.data(), 0); });
    untouched([](TypeParam& s) { s.addSpacing(nullUnits, 0); });
}

/// Of a unit only the low byte is taken, although the text is one of units.
TYPED_TEST(Spacing16, unitsAreCutToTheirLowByte)
{
    auto const units = raw(u"\x0141\xFFE4\x0100");
    Laid<TypeParam> receiver(u"x");
    receiver->addSpacing(units.data(), 5);
    EXPECT_TRUE(became(receiver, 6, u"xA\xE4\0  \0"sv));
}

TYPED_TEST(Spacing16, textLengths)
{
    Laid<TypeParam> wrapped(u"ab");
    wrapped->addSpacingC(guarded::letters(65536).c_str(), 3);
    EXPECT_TRUE(became(wrapped, 5, u"ab   \0"sv));
    Laid<TypeParam> one(u"ab");
    one->addSpacingC(guarded::letters(65537).c_str(), -3);
    EXPECT_TRUE(became(one, 5, u"ab  a\0"sv));

    // A raw text is measured up to 1024 units.
    auto const units = raw(letters(2000));
    Laid<TypeParam> measured(u"");
    measured->addSpacing(units.data(), 0);
    auto const expected = cut<TypeParam>(letters(1024));
    EXPECT_TRUE(became(measured, expected.size(), expected + u'\0'));
}

/// The field shrinks to the room that is left, and the text inside it is cut at the capacity.
TYPED_TEST(Spacing16, theClampedFormStaysInside)
{
    struct Row
    {
        std::size_t room;
        char const* text;
        int width;
        Text added;
    };
    constexpr Row rows[] = {
        {2, "abcde", -20, u"ab"},
        {2, "abcde", 20, u"ab"},
        {2, "a", -20, u" a"},
        {2, "a", 20, u"a "},
        {5, "ab", 10, u"ab   "},
        {5, "ab", -10, u"   ab"},
        {5, "abcdefg", 2, u"abcde"},
        {5, "abcdefg", 0, u"abcde"},
        {5, nullText, 9, u"     "},
        {5, "", INT_MAX, u"     "},
        {5, "a", INT_MAX, u"a    "},
        {5, "a", INT_MIN, u"    a"},
        {5, "a", INT_MIN + 1, u"    a"},
        {5, nullText, INT_MIN, u"     "},
        {5, "a", 65537, u"a    "},
        {5, "a", -65536, u"    a"},
        {1, "x", 3, u"x"},
        {1, "", -3, u" "},
        {5, "ab", 5, u"ab   "},
        {5, "ab", 6, u"ab   "},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(std::string(row.text ? row.text : "null") + ", " + std::to_string(row.width));
        auto const before = letters(capacity<TypeParam> - row.room);
        Laid<TypeParam> receiver(before);
        receiver->addSpacingC(row.text, row.width);
        EXPECT_TRUE(became(receiver, before.size() + row.added.size(),
                           before + std::u16string(row.added) + u'\0'));
    }
}

TYPED_TEST(Spacing16, aFullStringGetsOnlyItsTerminator)
{
    auto const text = letters(capacity<TypeParam>);
    for (int const width : {-5, 1, 5}) {
        for (char const* const added : {"x", "", nullText}) {
            Laid<TypeParam> receiver(text);
            receiver.stale(capacity<TypeParam>, u"z");
            receiver->addSpacingC(added, width);
            EXPECT_TRUE(became(receiver, capacity<TypeParam>, text + u'\0'));
        }
    }
    auto const units = raw(u"x");
    Laid<TypeParam> trusting(text);
    trusting.stale(capacity<TypeParam>, u"z");
    trusting->addSpacing(units.data(), 0);
    EXPECT_TRUE(became(trusting, capacity<TypeParam>, text + u'\0'));
}

/// Text too long for the room is cut by the trusting form too, as long as no blanks are due.
TYPED_TEST(Spacing16, theTrustingFormCutsText)
{
    auto const n = capacity<TypeParam>;
    auto const text = letters(std::min<std::size_t>(n + 3, 1024));
    auto const units = raw(text);
    for (int const width : {0, 1, -1, 3}) {
        auto const before = std::u16string(n - 3, u'#');
        Laid<TypeParam> receiver(before);
        receiver->addSpacing(units.data(), width);
        EXPECT_TRUE(became(receiver, n, before + u"abc" + u'\0'));
    }
}

TYPED_TEST(Spacing16, appendsOwnUnits)
{
    Laid<TypeParam> receiver(u"ab");
    receiver->addSpacing(textAt(*receiver), 4);
    EXPECT_TRUE(became(receiver, 6, u"abab  \0"sv));
}

/// The trusting form without room writes past the text. Positions count from text[0]; all units
/// behind the object other than these stay as they were.
template <typename S>
void expectOverrun(Text before, Text added, int width, std::size_t length,
                   std::vector<std::pair<std::size_t, char16_t>> const& writtenBehind)
{
    SCOPED_TRACE(std::to_string(width));
    Laid<S> receiver(before);
    auto const units = raw(added);
    receiver->addSpacing(units.data(), width);
    EXPECT_EQ(guarded::lengthOf(*receiver), static_cast<int>(length));
    Bytes behind(receiver.behind().size(), guarded::guardByte);
    constexpr std::size_t unitsOfObject = (sizeof(S) - guarded::ImageOf<S>::textAt) / 2;
    for (auto const& [position, unit] : writtenBehind) {
        auto const at = 2 * (position - unitsOfObject);
        behind[at] = static_cast<unsigned char>(unit & 0xFFU);
        behind[at + 1] = static_cast<unsigned char>(unit >> 8U);
    }
    EXPECT_EQ(receiver.behind(), behind);
}

/// Here the blanks run past the object.
TEST(SpacingOverrun16, currentImage)
{
    using S = _qvString<10>;
    expectOverrun<S>(u"abcdefghij", u"", 1, 11, {{11, 0}});
    expectOverrun<S>(u"abcdefghij", u"", 3, 13, {{11, u' '}, {12, u' '}, {13, 0}});
    expectOverrun<S>(u"abcdefghij", u"", -3, 13, {{11, u' '}, {12, u' '}, {13, 0}});
    // A text of five in a field of 20 with room for two: 18 blanks and two units.
    std::vector<std::pair<std::size_t, char16_t>> written;
    for (std::size_t i = 11; i < 26; ++i) {
        written.emplace_back(i, u' ');
    }
    written.emplace_back(26, u'1');
    written.emplace_back(27, u'2');
    written.emplace_back(28, u'\0');
    expectOverrun<S>(u"abcdefgh", u"12345", -20, 28, written);
}

/// Here the blank behind text[N] becomes the length, 32, the next ones go where that points, and
/// only then the blanks are added to it. A terminator on the length makes it 0.
TEST(SpacingOverrun16, olderImage)
{
    using S = _qvString_old<10>;
    expectOverrun<S>(u"abcdefghij", u"", 1, 0, {});
    expectOverrun<S>(u"abcdefghij", u"", -1, 0, {});
    expectOverrun<S>(u"abcdefghij", u"", 2, 34, {{34, 0}});
    expectOverrun<S>(u"abcdefghij", u"", 3, 35, {{34, u' '}, {35, 0}});
    expectOverrun<S>(u"abcdefghij", u"", 5, 37, {{34, u' '}, {35, u' '}, {36, u' '}, {37, 0}});
    expectOverrun<S>(u"abcdefghij", u"", -5, 37, {{34, u' '}, {35, u' '}, {36, u' '}, {37, 0}});
    expectOverrun<S>(u"abcdefgh", u"", 3, 0, {});
    // Right-aligned text follows the blanks to where the length now points.
    expectOverrun<S>(u"abcdefghi", u"1", -4, 36, {{35, u'1'}, {36, 0}});
}

} // namespace
