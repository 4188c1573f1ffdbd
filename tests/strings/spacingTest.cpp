/// Padded appends of all strings: the clamped form stays inside the capacity, the trusting form
/// leaves it to its caller to have room.

#include "tests/strings/laid.h"

#include <climits>

namespace strings {
namespace {

using namespace std::string_view_literals;

class Spacing : public OverImages
{
protected:
    /// Calls the trusting form with a terminated text of the image's own units.
    void addTrusting(Laid& receiver, Text text, int width) const
    {
        receiver->addSpacing(stored(image, std::u16string(text) + u'\0').data(), width);
    }
};
INSTANTIATE_TEST_SUITE_P(, Spacing, testing::ValuesIn(allImages()), imageName);

struct RoomRow
{
    Text before;
    Text text;
    int width;
    Text result;
};

constexpr RoomRow roomRows[] = {
    {u"", u"ab", 5, u"ab   "},
    {u"", u"ab", -5, u"   ab"},
    {u"", u"ab", 1, u"ab"},
    {u"", u"ab", -1, u"ab"},
    {u"", u"ab", 2, u"ab"},
    {u"", u"ab", -2, u"ab"},
    {u"", u"ab", 0, u"ab"},
    {u"xy", u"ab", 3, u"xyab "},
    {u"xy", u"ab", -3, u"xy ab"},
    {u"xy", u"ab", 4, u"xyab  "},
    {u"xy", u"ab", 8, u"xyab      "},
    {u"xy", u"ab", -8, u"xy      ab"},
    {u"xy", u"", 2, u"xy  "},
    {u"xy", u"", -2, u"xy  "},
    {u"", u"", 6, u"      "},
    {u"", u"", 10, u"          "},
    {u"xyz", u"abc", 3, u"xyzabc"},
    {u"xyz", u"abc", -3, u"xyzabc"},
    {u"xyz", u"abc", 1, u"xyzabc"},
    {u"", u"abcdef", 8, u"abcdef  "},
    // Bytes are zero-extended.
    {u"xy", u"\xE4", 2, u"xy\xE4 "},
    {u"xy", u"a\xE4", -3, u"xy a\xE4"},
    {u"xy", u"\x80\xFF", 3, u"xy\x80\xFF "},
};

/// Inside the capacity both members do the same.
TEST_P(Spacing, padsInsideTheRoom)
{
    for (auto const& row : roomRows) {
        if (!image.fits(row.result))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + std::to_string(row.width));
        auto const after = std::u16string(row.result) + u'\0';
        Laid clamped(image, row.before);
        clamped->addSpacingC(narrowed(row.text).c_str(), row.width);
        EXPECT_TRUE(became(clamped, row.result.size(), after));

        Laid trusting(image, row.before);
        addTrusting(trusting, row.text, row.width);
        EXPECT_TRUE(became(trusting, row.result.size(), after));
    }
}

TEST_P(Spacing, nullTextsAreBlanksAlone)
{
    for (int const width : {3, -3}) {
        Laid clamped(image, u"xy");
        clamped->addSpacingC(nullText, width);
        EXPECT_TRUE(became(clamped, 5, u"xy   \0"sv));
        Laid trusting(image, u"xy");
        trusting->addSpacing(nullUnits, width);
        EXPECT_TRUE(became(trusting, 5, u"xy   \0"sv));
    }
}

/// Nothing to add in no field: not even the terminator is written.
TEST_P(Spacing, nothingInNoFieldWritesNothing)
{
    Laid receiver(image, u"ab");
    receiver.stale(2, u"zz");
    receiver->addSpacingC("", 0);
    EXPECT_TRUE(became(receiver, 2, u"abzz"sv));
    receiver->addSpacingC(nullText, 0);
    EXPECT_TRUE(became(receiver, 2, u"abzz"sv));
    receiver->addSpacingC(std::string(65536, 'x').c_str(), 0);
    EXPECT_TRUE(became(receiver, 2, u"abzz"sv));
    addTrusting(receiver, u"", 0);
    EXPECT_TRUE(became(receiver, 2, u"abzz"sv));
    receiver->addSpacing(nullUnits, 0);
    EXPECT_TRUE(became(receiver, 2, u"abzz"sv));
}

/// Only the low 16 bits of a text's length count.
TEST_P(Spacing, textLengthsWrapAt65536)
{
    Laid wrapped(image, u"ab");
    wrapped->addSpacingC(std::string(65536, 'x').c_str(), 3);
    EXPECT_TRUE(became(wrapped, 5, u"ab   \0"sv));

    Laid one(image, u"ab");
    one->addSpacingC(std::string(65537, 'x').c_str(), -3);
    EXPECT_TRUE(became(one, 5, u"ab  x\0"sv));
}

struct CutFieldRow
{
    std::size_t room;
    char const* text;
    int width;
    Text added;
};

/// The field shrinks to the room that is left, and the text inside it is cut at the capacity.
constexpr CutFieldRow cutFieldRows[] = {
    {6, "abcdefgh", 10, u"abcdef"},
    {6, "abcdefgh", -10, u"abcdef"},
    {6, "abcdefgh", 0, u"abcdef"},
    {6, "ab", 10, u"ab    "},
    {6, "ab", -10, u"    ab"},
    {5, "ab", 10, u"ab   "},
    {5, "ab", -10, u"   ab"},
    {5, "ab", 5, u"ab   "},
    {5, "ab", 6, u"ab   "},
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
    {4, "ab", 5, u"ab  "},
    {4, "ab", -5, u"  ab"},
    {4, "abcdef", 2, u"abcd"},
    {3, "ab", 5, u"ab "},
    {3, "ab", -5, u" ab"},
    {3, "abcdef", 2, u"abc"},
    {3, nullText, 9, u"   "},
    {2, "abcde", -20, u"ab"},
    {2, "abcde", 20, u"ab"},
    {2, "a", -20, u" a"},
    {2, "a", 20, u"a "},
    {1, "x", 3, u"x"},
    {1, "", -3, u" "},
    {0, "x", 3, u""},
    {0, "", -3, u""},
};

TEST_P(Spacing, theClampedFormStaysInside)
{
    for (auto const& row : cutFieldRows) {
        SCOPED_TRACE((row.text ? row.text : "null") + (", " + std::to_string(row.width)) + " in " +
                     std::to_string(row.room));
        auto const before = letters(image.capacity - row.room);
        Laid receiver(image, before);
        receiver->addSpacingC(row.text, row.width);
        auto const after = before + std::u16string(row.added);
        EXPECT_TRUE(became(receiver, after.size(), after + u'\0'));
    }
}

TEST_P(Spacing, theClampedFormFillsAString)
{
    int const n = image.intCapacity();
    std::u16string const blanks(image.capacity - 1, u' ');
    for (int const width : {n, n + 1, n + 1000, INT_MAX}) {
        Laid left(image, u"");
        left->addSpacingC("a", width);
        EXPECT_TRUE(became(left, image.capacity, u"a" + blanks + u'\0'));

        Laid right(image, u"");
        right->addSpacingC("a", -width);
        EXPECT_TRUE(became(right, image.capacity, blanks + u"a" + u'\0'));
    }
}

TEST_P(Spacing, aFullStringGetsOnlyItsTerminator)
{
    auto const text = letters(image.capacity);
    for (int const width : {-5, 1, 5}) {
        for (char const* const added : {"x", "", nullText}) {
            Laid receiver(image, text);
            receiver.stale(image.capacity, u"z");
            receiver->addSpacingC(added, width);
            EXPECT_TRUE(became(receiver, image.capacity, text + u'\0'));
        }
    }
    Laid trusting(image, text);
    trusting.stale(image.capacity, u"z");
    addTrusting(trusting, u"x", 0);
    EXPECT_TRUE(became(trusting, image.capacity, text + u'\0'));
}

/// Text too long for the room is cut by the trusting form too, as long as no blanks are due.
TEST_P(Spacing, theTrustingFormCutsText)
{
    std::size_t const most = image.unitSize == 1 ? image.capacity : 3;
    auto const text = letters(most + 3);
    for (int const width : {0, 1, -1, 3}) {
        for (std::size_t const room : {std::size_t{3}, most}) {
            std::u16string const before(image.capacity - room, u'#');
            Laid receiver(image, before);
            addTrusting(receiver, text, width);
            EXPECT_TRUE(became(receiver, image.capacity, before + text.substr(0, room) + u'\0'));
        }
    }
}

TEST_P(Spacing, appendsOwnUnits)
{
    Laid receiver(image, u"ab");
    receiver->addSpacing(receiver->textAt(), 4);
    EXPECT_TRUE(became(receiver, 6, u"abab  \0"sv));
}

struct OverrunRow
{
    char const* family;
    std::size_t capacity;
    Text before;
    Text added;
    int width;
    int length;
    /// All units from text[0] to behind the last one that was written, as far as they are behind
    /// the object. Everything else behind it is as it was.
    std::size_t behindAt;
    Text behind;
};

/// Without room the trusting form writes past the text. In the current images the blanks run past
/// the object.
constexpr OverrunRow currentRows[] = {
    // text[14] and the pad byte text[15] are inside the object.
    {"current8", 14, u"abcdefghijklmn", u"", 1, 15, 16, u""},
    {"current8", 14, u"abcdefghijklmn", u"", 2, 16, 16, u"\0"sv},
    {"current8", 14, u"abcdefghijklmn", u"", 5, 19, 16, u"   \0"sv},
    {"current8", 14, u"abcdefghijklmn", u"", -5, 19, 16, u"   \0"sv},
    {"current8", 7, u"abcdefg", u"", 1, 8, 8, u"\0"sv},
    {"current8", 7, u"abcdefg", u"", 3, 10, 8, u"  \0"sv},
    // The text is cut to the room that there was, and the field is filled up none the less.
    {"current8", 6, u"abcd", u"xyz", 5, 9, 8, u" \0"sv},
    {"current8", 6, u"abcd", u"xyz", -5, 9, 8, u"y\0"sv},
    {"current16", 10, u"abcdefghij", u"", 1, 11, 11, u"\0"sv},
    {"current16", 10, u"abcdefghij", u"", 3, 13, 11, u"  \0"sv},
    {"current16", 10, u"abcdefghij", u"", -3, 13, 11, u"  \0"sv},
    // A text of five in a field of 20 with room for two: 18 blanks and two units.
    {"current16", 10, u"abcdefgh", u"12345", -20, 28, 11, u"               12\0"sv},
};

/// In an older image blanks land on the length. Its low byte or its unit is then 32, the next ones
/// go where that points, and only then the blanks are added to it. A terminator on the length makes
/// it 0.
constexpr OverrunRow olderRows[] = {
    {"even8", 14, u"abcdefghijklmn", u"", 1, 15, 18, u""},
    {"even8", 14, u"abcdefghijklmn", u"", 2, 0, 18, u""},
    {"even8", 14, u"abcdefghijklmn", u"", -2, 0, 18, u""},
    {"even8", 14, u"abcdefghijklmn", u"", 3, 35, 35, u"\0"sv},
    {"even8", 14, u"abcdefghijklmn", u"", 4, 36, 35, u" \0"sv},
    {"even8", 14, u"abcdefghijklmn", u"", 5, 37, 35, u"  \0"sv},
    {"even8", 14, u"abcdefghijklmn", u"", -5, 37, 35, u"  \0"sv},
    {"even8", 6, u"abcd", u"", 4, 0, 10, u""},
    // Without a filler the length is met one blank earlier.
    {"uneven8", 7, u"abcdefg", u"", 1, 0, 10, u""},
    {"uneven8", 7, u"abcdefg", u"", 2, 34, 34, u"\0"sv},
    {"uneven8", 7, u"abcdefg", u"", 3, 35, 34, u" \0"sv},
    {"uneven8", 7, u"abcdefg", u"", -3, 35, 34, u" \0"sv},
    {"older16", 10, u"abcdefghij", u"", 1, 0, 13, u""},
    {"older16", 10, u"abcdefghij", u"", -1, 0, 13, u""},
    {"older16", 10, u"abcdefghij", u"", 2, 34, 34, u"\0"sv},
    {"older16", 10, u"abcdefghij", u"", 3, 35, 34, u" \0"sv},
    {"older16", 10, u"abcdefghij", u"", 5, 37, 34, u"   \0"sv},
    {"older16", 10, u"abcdefghij", u"", -5, 37, 34, u"   \0"sv},
    {"older16", 10, u"abcdefgh", u"", 3, 0, 13, u""},
    // Right-aligned text follows the blanks to where the length now points.
    {"older16", 10, u"abcdefghi", u"1", -4, 36, 35, u"1\0"sv},
};

void expectOverrun(OverrunRow const& row)
{
    SCOPED_TRACE(row.family + (' ' + std::to_string(row.capacity)) + ", " +
                 std::to_string(row.width));
    Image const& image = imageNamed(row.family, row.capacity);
    Laid receiver(image, row.before);
    auto const added = stored(image, std::u16string(row.added) + u'\0');
    receiver->addSpacing(added.data(), row.width);
    EXPECT_EQ(receiver.value().length(), row.length);
    Bytes expected(receiver->behind().size(), guardByte);
    auto const written = stored(image, row.behind);
    auto const at = image.textAt + image.unitSize * row.behindAt - image.size;
    std::copy(written.begin(), written.end(), expected.begin() + static_cast<long>(at));
    EXPECT_EQ(receiver->behind(), expected);
}

TEST(SpacingOverrun, currentImagesAreOverrunBehindTheObject)
{
    for (auto const& row : currentRows)
        expectOverrun(row);
}

TEST(SpacingOverrun, olderImagesAreOverrunOverTheirLength)
{
    for (auto const& row : olderRows)
        expectOverrun(row);
}

TEST(SpacingOverrun, aTextIsCutInAFieldThatIsNot)
{
    Image const& six = imageNamed("current8", 6);
    Laid left(six, u"abcd");
    left->addSpacing("xyz", 5);
    EXPECT_EQ(left.bytes(), (Bytes{9, 0, 'a', 'b', 'c', 'd', 'x', 'y', ' ', ' '}));
    Laid right(six, u"abcd");
    right->addSpacing("xyz", -5);
    EXPECT_EQ(right.bytes(), (Bytes{9, 0, 'a', 'b', 'c', 'd', ' ', ' ', ' ', 'x'}));
}

struct NumberRow
{
    Text before;
    long long value;
    signed char width;
    Text result;
};

/// A field width and no grouping; the number is cut where the capacity ends.
constexpr NumberRow numberRows[] = {
    {u"", 12345, 3, u"12345"},     {u"", 12345, 0, u"12345"}, {u"", 123, -6, u"   123"},
    {u"", 123, 6, u"123   "},      {u"n=", -5, 4, u"n=-5  "}, {u"n=", -5, -4, u"n=  -5"},
    {u"", 0, 3, u"0  "},           {u"", 0, 0, u"0"},         {u"", -1, -3, u" -1"},
    {u"", 12345, -8, u"   12345"},
};

TEST_P(Spacing, numbersInFields)
{
    for (auto const& row : numberRows) {
        if (!image.fits(row.result))
            continue;
        SCOPED_TRACE(std::to_string(row.value) + ", " + std::to_string(row.width));
        Laid receiver(image, row.before);
        receiver->addNrSpacing(row.value, row.width);
        EXPECT_TRUE(became(receiver, row.result.size(), std::u16string(row.result) + u'\0'));
    }
}

TEST_P(Spacing, theLongestNumber)
{
    for (int const width : {0, 1, -1, 20, -20}) {
        Laid receiver(image, u"");
        receiver->addNrSpacing(LLONG_MIN, static_cast<signed char>(width));
        auto const expected = image.cut(u"-9223372036854775808");
        EXPECT_TRUE(became(receiver, expected.size(), expected + u'\0'));
    }
}

TEST_P(Spacing, theWidestFields)
{
    auto const blanks = [this](std::size_t width) {
        return std::u16string(std::min(width, image.capacity) - 1, u' ');
    };
    Laid left(image, u"");
    left->addNrSpacing(7LL, static_cast<signed char>(127));
    EXPECT_TRUE(holds(*left, u"7" + blanks(127)));
    EXPECT_TRUE(left.guardsStand());

    Laid right(image, u"");
    right->addNrSpacing(7LL, static_cast<signed char>(-128));
    EXPECT_TRUE(holds(*right, blanks(128) + u"7"));
    EXPECT_TRUE(right.guardsStand());
}

TEST_P(Spacing, fieldsOfNumbersShrinkToTheRoom)
{
    auto const before = letters(image.capacity - 6);
    Laid right(image, before);
    right->addNrSpacing(12345, -8);
    EXPECT_TRUE(became(right, image.capacity, before + u" 12345" + u'\0'));

    auto const most = letters(image.capacity - 2);
    Laid cutNumber(image, most);
    cutNumber->addNrSpacing(12345, -8);
    EXPECT_TRUE(became(cutNumber, image.capacity, most + u"12" + u'\0'));

    Laid full(image, letters(image.capacity));
    full->addNrSpacing(1, 3);
    EXPECT_TRUE(became(full, image.capacity, letters(image.capacity) + u'\0'));
}

} // namespace
} // namespace strings
