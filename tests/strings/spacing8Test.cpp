/// Padded appends of the 8-bit strings, on the current image and on both older ones.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images8;
using namespace std::string_view_literals;

template <typename S>
class Spacing8 : public testing::Test
{};
TYPED_TEST_SUITE(Spacing8, AllImages, ImageName);

struct SpacingRow
{
    std::string_view before;
    char const* text;
    int width;
    std::string_view result;
};

/// Inside the capacity both members do the same.
constexpr SpacingRow roomRows[] = {
    {"", "ab", 5, "ab   "},       {"", "ab", -5, "   ab"},      {"", "ab", 1, "ab"},
    {"", "ab", -1, "ab"},         {"", "ab", 2, "ab"},          {"", "ab", 0, "ab"},
    {"xy", "ab", 3, "xyab "},     {"xy", "ab", -3, "xy ab"},    {"xy", "ab", 4, "xyab  "},
    {"xy", "", 2, "xy  "},        {"xy", "", -2, "xy  "},       {"xy", nullptr, 3, "xy   "},
    {"xy", nullptr, -3, "xy   "}, {"xy", "\xE4", 2, "xy\xE4 "}, {"", "", 6, "      "},
    {"xyz", "abc", 3, "xyzabc"},  {"xyz", "abc", -3, "xyzabc"}, {"xyz", "abc", 1, "xyzabc"},
};

TYPED_TEST(Spacing8, padsInsideTheRoom)
{
    for (auto const& row : roomRows) {
        SCOPED_TRACE(std::string(row.text ? row.text : "null") + ", " + std::to_string(row.width));
        auto const after = std::string(row.result) + '\0';
        Laid<TypeParam> clamped(row.before);
        clamped->addSpacingC(row.text, row.width);
        EXPECT_TRUE(became(clamped, row.result.size(), after));

        Laid<TypeParam> trusting(row.before);
        trusting->addSpacing(row.text, row.width);
        EXPECT_TRUE(became(trusting, row.result.size(), after));
    }
}

/// Nothing to add in no field: not even the terminator is written.
TYPED_TEST(Spacing8, nothingInNoFieldWritesNothing)
{
    for (char const* const text : {"", nullText}) {
        Laid<TypeParam> clamped("ab");
        clamped.stale(2, "zz");
        clamped->addSpacingC(text, 0);
        EXPECT_TRUE(became(clamped, 2, "abzz"sv));

        Laid<TypeParam> trusting("ab");
        trusting.stale(2, "zz");
        trusting->addSpacing(text, 0);
        EXPECT_TRUE(became(trusting, 2, "abzz"sv));
    }
}

/// Only the low 16 bits of a text's length count.
TYPED_TEST(Spacing8, textLengthsWrapAt65536)
{
    Laid<TypeParam> wrapped("ab");
    wrapped->addSpacingC(std::string(65536, 'x').c_str(), 3);
    EXPECT_TRUE(became(wrapped, 5, "ab   \0"sv));

    Laid<TypeParam> one("ab");
    one->addSpacingC(std::string(65537, 'x').c_str(), -3);
    EXPECT_TRUE(became(one, 5, "ab  x\0"sv));

    Laid<TypeParam> none("ab");
    none.stale(2, "z");
    none->addSpacingC(std::string(65536, 'x').c_str(), 0);
    EXPECT_TRUE(became(none, 2, "abz"sv));
}

struct CutRow
{
    std::string_view before;
    char const* text;
    int width;
    std::string_view atSix;
    std::string_view atSeven;
};

/// The field shrinks to the room that is left, and the text inside it is cut at the capacity.
constexpr CutRow cutRows[] = {
    {"", "abcdefgh", 10, "abcdef", "abcdefg"},      {"", "abcdefgh", -10, "abcdef", "abcdefg"},
    {"", "abcdefgh", 0, "abcdef", "abcdefg"},       {"", "ab", 10, "ab    ", "ab     "},
    {"", "ab", -10, "    ab", "     ab"},           {"xyz", "ab", 5, "xyzab ", "xyzab  "},
    {"xyz", "ab", -5, "xyz ab", "xyz  ab"},         {"xyz", "abcdef", 2, "xyzabc", "xyzabcd"},
    {"xyz", nullptr, 9, "xyz   ", "xyz    "},       {"xyz", "", INT_MAX, "xyz   ", "xyz    "},
    {"xyz", "a", INT_MAX, "xyza  ", "xyza   "},     {"xyz", "a", INT_MIN, "xyz  a", "xyz   a"},
    {"xyz", "a", INT_MIN + 1, "xyz  a", "xyz   a"}, {"xyz", nullptr, INT_MIN, "xyz   ", "xyz    "},
    {"abcdef", "x", 3, "abcdef", "abcdefx"},        {"abcdef", "", -3, "abcdef", "abcdef "},
    {"xyz", "a", 65537, "xyza  ", "xyza   "},       {"xyz", "a", -65536, "xyz  a", "xyz   a"},
};

template <typename S>
class SpacingCut8 : public testing::Test
{};
using SmallestImages = testing::Types<_qvString8_allSize<6>, _qvString8_allSize<7>,
                                      _qvString8_evenSize_old<6>, _qvString8_UnevenSize_old<7>>;
TYPED_TEST_SUITE(SpacingCut8, SmallestImages, ImageName);

TYPED_TEST(SpacingCut8, theClampedFormStaysInside)
{
    for (auto const& row : cutRows) {
        SCOPED_TRACE(std::string(row.before) + " and " + (row.text ? row.text : "null") + ", " +
                     std::to_string(row.width));
        auto const result = std::string(capacity<TypeParam> == 6 ? row.atSix : row.atSeven);
        Laid<TypeParam> receiver(row.before);
        receiver->addSpacingC(row.text, row.width);
        EXPECT_TRUE(became(receiver, result.size(), result + '\0'));
    }
}

TYPED_TEST(Spacing8, theClampedFormFillsAString)
{
    int const n = intCapacity<TypeParam>;
    std::string const blanks(capacity<TypeParam> - 1, ' ');
    for (int const width : {n, n + 1, n + 1000, INT_MAX}) {
        Laid<TypeParam> left("");
        left->addSpacingC("a", width);
        EXPECT_TRUE(became(left, capacity<TypeParam>, "a" + blanks + '\0'));

        Laid<TypeParam> right("");
        right->addSpacingC("a", -width);
        EXPECT_TRUE(became(right, capacity<TypeParam>, blanks + "a" + '\0'));
    }
}

TYPED_TEST(Spacing8, aFullStringGetsOnlyItsTerminator)
{
    auto const text = guarded::letters(capacity<TypeParam>);
    for (int const width : {-5, 1, 5}) {
        for (char const* const added : {"x", "", nullText}) {
            Laid<TypeParam> receiver(text);
            receiver.stale(capacity<TypeParam>, "z");
            receiver->addSpacingC(added, width);
            EXPECT_TRUE(became(receiver, capacity<TypeParam>, text + '\0'));
        }
    }
    Laid<TypeParam> trusting(text);
    trusting.stale(capacity<TypeParam>, "z");
    trusting->addSpacing("x", 0);
    EXPECT_TRUE(became(trusting, capacity<TypeParam>, text + '\0'));
}

/// Text too long for the room is cut by the trusting form too, as long as no blanks are due.
TYPED_TEST(Spacing8, theTrustingFormCutsText)
{
    auto const text = guarded::letters(capacity<TypeParam> + 3);
    for (int const width : {0, 1, -1, 3}) {
        Laid<TypeParam> receiver("");
        receiver->addSpacing(text.c_str(), width);
        EXPECT_TRUE(became(receiver, capacity<TypeParam>, cut<TypeParam>(text) + '\0'));
    }
}

TYPED_TEST(Spacing8, appendsOwnText)
{
    Laid<TypeParam> receiver("ab");
    receiver->addSpacingC(textAt(*receiver), 4);
    EXPECT_TRUE(became(receiver, 6, "abab  \0"sv));
}

/// The trusting form without room writes past the text. In the current image the blanks run past
/// the object; in an older one they land on the length, which it goes on reading.
template <typename S>
void expectOverrun(std::string_view text, int width, std::size_t length,
                   std::vector<std::pair<std::size_t, unsigned char>> const& writtenBehind)
{
    SCOPED_TRACE(familyName<S> + std::string(" ") + std::to_string(width));
    Laid<S> receiver(text);
    receiver->addSpacing("", width);
    EXPECT_EQ(guarded::lengthOf(*receiver), static_cast<int>(length));
    guarded::Bytes behind(receiver.behind().size(), guarded::guardByte);
    for (auto const& [position, byte] : writtenBehind) {
        behind[position - (sizeof(S) - guarded::ImageOf<S>::textAt)] = byte;
    }
    EXPECT_EQ(receiver.behind(), behind);
}

TEST(SpacingOverrun8, currentImage)
{
    auto const full = guarded::letters(14);
    // Positions count from text[0]; text[14] and the pad byte text[15] lie inside the object.
    expectOverrun<_qvString8_allSize<14>>(full, 1, 15, {});
    expectOverrun<_qvString8_allSize<14>>(full, 2, 16, {{16, 0}});
    expectOverrun<_qvString8_allSize<14>>(full, 5, 19, {{16, 32}, {17, 32}, {18, 32}, {19, 0}});
    expectOverrun<_qvString8_allSize<14>>(full, -5, 19, {{16, 32}, {17, 32}, {18, 32}, {19, 0}});
    expectOverrun<_qvString8_allSize<7>>("abcdefg", 1, 8, {{8, 0}});
    expectOverrun<_qvString8_allSize<7>>("abcdefg", 3, 10, {{8, 32}, {9, 32}, {10, 0}});
}

/// The text is cut to the room that there was, and the field is filled up none the less.
TEST(SpacingOverrun8, textThatIsCutInAFieldThatIsNot)
{
    Laid<_qvString8_allSize<6>> left("abcd");
    left->addSpacing("xyz", 5);
    EXPECT_EQ(left.bytes(), (guarded::Bytes{9, 0, 'a', 'b', 'c', 'd', 'x', 'y', ' ', ' '}));
    guarded::Bytes behind(left.behind().size(), guarded::guardByte);
    behind[0] = ' ';
    behind[1] = 0;
    EXPECT_EQ(left.behind(), behind);

    Laid<_qvString8_allSize<6>> right("abcd");
    right->addSpacing("xyz", -5);
    EXPECT_EQ(right.bytes(), (guarded::Bytes{9, 0, 'a', 'b', 'c', 'd', ' ', ' ', ' ', 'x'}));
    behind[0] = 'y';
    EXPECT_EQ(right.behind(), behind);
}

/// Blank 2 becomes the low byte of the length, 32, and the next ones go where that points.
TEST(SpacingOverrun8, olderImageOfEvenCapacity)
{
    auto const full = guarded::letters(14);
    expectOverrun<_qvString8_evenSize_old<14>>(full, 1, 15, {});
    expectOverrun<_qvString8_evenSize_old<14>>(full, 2, 0, {});
    expectOverrun<_qvString8_evenSize_old<14>>(full, 3, 35, {{35, 0}});
    expectOverrun<_qvString8_evenSize_old<14>>(full, 4, 36, {{35, 32}, {36, 0}});
    expectOverrun<_qvString8_evenSize_old<14>>(full, 5, 37, {{35, 32}, {36, 32}, {37, 0}});
    expectOverrun<_qvString8_evenSize_old<14>>(full, -5, 37, {{35, 32}, {36, 32}, {37, 0}});
    expectOverrun<_qvString8_evenSize_old<14>>(full, -2, 0, {});
    expectOverrun<_qvString8_evenSize_old<6>>("abcd", 4, 0, {});
}

/// Without a filler the length is met one blank earlier.
TEST(SpacingOverrun8, olderImageOfUnevenCapacity)
{
    expectOverrun<_qvString8_UnevenSize_old<7>>("abcdefg", 1, 0, {});
    expectOverrun<_qvString8_UnevenSize_old<7>>("abcdefg", 2, 34, {{34, 0}});
    expectOverrun<_qvString8_UnevenSize_old<7>>("abcdefg", 3, 35, {{34, 32}, {35, 0}});
    expectOverrun<_qvString8_UnevenSize_old<7>>("abcdefg", -3, 35, {{34, 32}, {35, 0}});
}

struct NumberRow
{
    std::string_view before;
    long long value;
    signed char width;
    std::string_view result;
};

/// A field width and no grouping; the number is cut where the capacity ends.
constexpr NumberRow numberRows[] = {
    {"", 12345, 3, "12345"},     {"", 12345, 0, "12345"}, {"", 123, -6, "   123"},
    {"", 123, 6, "123   "},      {"n=", -5, 4, "n=-5  "}, {"n=", -5, -4, "n=  -5"},
    {"", 0, 3, "0  "},           {"", 0, 0, "0"},         {"", -1, -3, " -1"},
    {"", 12345, -8, "   12345"},
};

TYPED_TEST(Spacing8, numbersInFields)
{
    for (auto const& row : numberRows) {
        SCOPED_TRACE(std::to_string(row.value) + ", " + std::to_string(row.width));
        if (!fits<TypeParam>(row.result)) {
            continue;
        }
        Laid<TypeParam> receiver(row.before);
        receiver->addNrSpacing(row.value, row.width);
        EXPECT_TRUE(became(receiver, row.result.size(), std::string(row.result) + '\0'));
    }
}

TYPED_TEST(Spacing8, theLongestNumber)
{
    auto const digits = "-9223372036854775808"sv;
    for (int const width : {0, 1, -1, 20, -20}) {
        Laid<TypeParam> receiver("");
        receiver->addNrSpacing(LLONG_MIN, static_cast<signed char>(width));
        auto const expected = cut<TypeParam>(digits);
        EXPECT_TRUE(became(receiver, expected.size(), expected + '\0'));
    }
}

TYPED_TEST(Spacing8, theWidestFields)
{
    auto const field = [](std::size_t width) {
        return std::min<std::size_t>(width, capacity<TypeParam>);
    };
    Laid<TypeParam> left("");
    left->addNrSpacing(7LL, static_cast<signed char>(127));
    EXPECT_TRUE(guarded::holds(*left, "7" + std::string(field(127) - 1, ' ')));
    EXPECT_TRUE(left.guardsStand());

    Laid<TypeParam> right("");
    right->addNrSpacing(7LL, static_cast<signed char>(-128));
    EXPECT_TRUE(guarded::holds(*right, std::string(field(128) - 1, ' ') + "7"));
    EXPECT_TRUE(right.guardsStand());
}

TEST(SpacingNumber8, fieldsThatShrinkToTheRoom)
{
    Laid<_qvString8_allSize<6>> right("");
    right->addNrSpacing(12345, -8);
    EXPECT_TRUE(became(right, 6, " 12345\0"sv));

    Laid<_qvString8_allSize<6>> cutNumber("abcd");
    cutNumber->addNrSpacing(12345, -8);
    EXPECT_TRUE(became(cutNumber, 6, "abcd12\0"sv));

    Laid<_qvString8_UnevenSize_old<7>> full("abcdefg");
    full->addNrSpacing(1, 3);
    EXPECT_TRUE(became(full, 7, "abcdefg\0"sv));
}

} // namespace
