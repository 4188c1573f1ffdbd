/// Changing strings in place: replacing, removing, trimming and folding. What rebuilds do at the
/// capacity and with the receiver as their own argument is in spliceTest.cpp.

#include "tests/strings/laid.h"

namespace strings {
namespace {

using namespace std::string_view_literals;

class Edit : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Edit, testing::ValuesIn(allImages()), imageName);

/// `after` begins the text area, terminators included; behind it the stale units stay.
struct ReplaceRow
{
    Text text;
    Text from;
    Text to;
    std::size_t length;
    Text after;
};

constexpr ReplaceRow replaceRows[] = {
    {u"abc", u"b", u"XY", 4, u"aXYc\0"sv},
    {u"aBc", u"b", u"", 2, u"ac\0\0"sv},
    {u"abc", u"ABC", u"x", 1, u"x\0c\0"sv},
    {u"axbxc", u"X", u"-", 5, u"a-b-c\0"sv},
    // New text is stepped over, so it may hold what is replaced.
    {u"aaa", u"a", u"aa", 6, u"aaaaaa\0"sv},
    {u"abc", u"b", u"bb", 4, u"abbc\0"sv},
    {u"aaaa", u"aa", u"a", 2, u"aa\0\0\0"sv},
    // The new text goes in as it stands.
    {u"ABA", u"a", u"x", 3, u"xBx\0"sv},
    {u"axa", u"x", u"X", 3, u"aXa\0"sv},
    {u"axa", u"x", u"\x0141\xFFE4", 4,
     u"a\x0141\xFFE4"
     u"a\0"sv},
    // Nothing to find.
    {u"abc", u"", u"x", 3, u"abc\0"sv},
    {u"abc", u"x", u"y", 3, u"abc\0"sv},
    {u"abc", u"abcd", u"y", 3, u"abc\0"sv},
    {u"", u"a", u"b", 0, u"\0"sv},
    {u"", u"", u"b", 0, u"\0"sv},
    {u"\xE4", u"\xC4", u"x", 1, u"\xE4\0"sv},
    {u"\x0141", u"\x0161", u"x", 1, u"\x0141\0"sv},
    {u"\x0141", u"A", u"x", 1, u"\x0141\0"sv},
    {u"a\0b"sv, u"\0"sv, u"--", 4, u"a--b\0"sv},
    {u"a\0b"sv, u"\0B"sv, u"c", 2, u"ac\0\0"sv},
    // A string that ends empty keeps its first unit: no piece was copied that would end it.
    {u"abc", u"abc", u"", 0, u"abc\0"sv},
    {u"abab", u"ab", u"", 0, u"ab\0b\0"sv},
};

using Replace = void const* (AnyString::*)(AnyString const&, AnyString const&);

void expectReplaced(Image const& image, ReplaceRow const& row, Replace replace)
{
    if (!image.fits(row.text, row.from, row.to))
        return;
    SCOPED_TRACE(shown(row.text) + ", " + shown(row.from) + " by " + shown(row.to));
    Laid receiver(image, row.text);
    auto const from = stringOf(image, row.from);
    auto const to = stringOf(image, row.to);
    EXPECT_EQ(((*receiver).*replace)(from, to), receiver->object());
    EXPECT_TRUE(became(receiver, row.length, row.after));
}

TEST_P(Edit, replacesStrings)
{
    for (auto const& row : replaceRows)
        expectReplaced(image, row, &AnyString::replace);
}

TEST_P(Edit, replacesStringsExactly)
{
    constexpr ReplaceRow rows[] = {
        {u"abc", u"b", u"XY", 4, u"aXYc\0"sv},       {u"abc", u"B", u"XY", 3, u"abc\0"sv},
        {u"aBAb", u"b", u"xx", 5, u"aBAxx\0"sv},     {u"aAaA", u"A", u"", 2, u"aa\0\0\0"sv},
        {u"abab", u"ab", u"", 0, u"ab\0b\0"sv},      {u"abc", u"ABC", u"", 3, u"abc\0"sv},
        {u"abc", u"", u"x", 3, u"abc\0"sv},          {u"aaa", u"a", u"aa", 6, u"aaaaaa\0"sv},
        {u"x\x0141", u"\x0141", u"y", 2, u"xy\0"sv},
    };
    for (auto const& row : rows)
        expectReplaced(image, row, &AnyString::replaceCaseSen);
}

TEST_P(Edit, takesPlainTextsAsArguments)
{
    Laid receiver(image, u"abab");
    receiver->replace("B", "x");
    EXPECT_TRUE(became(receiver, 4, u"axax\0"sv));
    receiver->replaceCaseSen("x", "y");
    EXPECT_TRUE(became(receiver, 4, u"ayay\0"sv));
    receiver->remove("AY");
    EXPECT_TRUE(became(receiver, 0, u"ay\0y\0"sv));
    receiver->insert(0, "xy");
    EXPECT_TRUE(became(receiver, 2, u"xy\0y\0"sv));
    receiver->removeCaseSens("x");
    EXPECT_TRUE(became(receiver, 1, u"y\0\0y\0"sv));
}

/// The unit put in stands as given, and the length never changes.
TEST_P(Edit, replacesUnits)
{
    struct Row
    {
        Text text;
        Unit from;
        Unit to;
        Text after;
    };
    constexpr Row rows[] = {
        {u"aAbA", u'a', u'x', u"xxbx"},
        {u"aAbA", u'A', u'x', u"xxbx"},
        {u"aAb", u'a', u'A', u"AAb"},
        {u"abc", u'b', 0, u"a\0c"sv},
        {u"a\0c"sv, 0, u'b', u"abc"},
        {u"abc", u'x', u'y', u"abc"},
        {u"\xE4\xC4", 0xE4, u'x', u"x\xC4"},
        {u"[{", u'[', u'x', u"x{"},
        {u"", u'a', u'x', u""},
        {u"a\x0141\x0161", 0x0161, 0x0142, u"a\x0141\x0142"},
        {u"a\x0141", 0x41, 0xFFE4, u"\xFFE4\x0141"},
    };
    for (auto const& row : rows) {
        if (!image.fits(row.text, std::u16string{row.from, row.to}))
            continue;
        SCOPED_TRACE(shown(row.text));
        Laid receiver(image, row.text);
        EXPECT_EQ(receiver->replace(row.from, row.to), receiver->object());
        EXPECT_TRUE(became(receiver, row.text.size(), std::u16string(row.after) + u'\0'));
    }
}

TEST_P(Edit, oldTextBehindTheEndIsNotEdited)
{
    Laid receiver(image, u"ab");
    receiver.stale(3, u"aAb");
    receiver->replace(u'a', u'x');
    EXPECT_TRUE(became(receiver, 2, u"xb\0aAb"sv));
    receiver->makeUpper();
    EXPECT_TRUE(became(receiver, 2, u"XB\0aAb"sv));
    receiver->makeLower();
    EXPECT_TRUE(became(receiver, 2, u"xb\0aAb"sv));
    receiver->replace(stringOf(image, u"a"), stringOf(image, u"q"));
    EXPECT_TRUE(became(receiver, 2, u"xb\0aAb"sv));
    receiver->remove(stringOf(image, u"a"));
    EXPECT_TRUE(became(receiver, 2, u"xb\0aAb"sv));
    receiver->remove(u'a');
    EXPECT_TRUE(became(receiver, 2, u"xb\0aAb"sv));
}

struct RemoveRow
{
    Text text;
    Text pattern;
    std::size_t length;
    Text after;
};

constexpr RemoveRow removeRows[] = {
    {u"abab", u"ab", 0, u"ab\0b\0"sv},
    // Text that moves into the gap is looked at again, what forms across the gap is not.
    {u"aabb", u"ab", 2, u"ab\0b\0"sv},
    {u"aaaa", u"aa", 0, u"aa\0a\0"sv},
    {u"ababc", u"ab", 1, u"c\0c\0c\0"sv},
    {u"xabab", u"AB", 1, u"x\0b\0b\0"sv},
    {u"abaabb", u"ab", 2, u"ab\0b\0b\0"sv},
    {u"aXbxc", u"x", 3, u"abc\0\0\0"sv},
    {u"abc", u"C", 2, u"ab\0\0"sv},
    {u"abc", u"A", 2, u"bc\0\0"sv},
    {u"aaa", u"a", 0, u"a\0\0\0"sv},
    {u"abc", u"abc", 0, u"abc\0"sv},
    {u"abc", u"", 3, u"abc\0"sv},
    {u"abc", u"x", 3, u"abc\0"sv},
    {u"", u"a", 0, u"\0"sv},
    {u"a\0b"sv, u"\0"sv, 2, u"ab\0\0"sv},
    {u"\xE4x", u"\xC4", 2, u"\xE4x\0"sv},
    {u"a\x0141"
     u"b",
     u"\x0141", 2, u"ab\0\0"sv},
};

using Remove = void const* (AnyString::*)(AnyString const&);

void expectRemoved(Image const& image, RemoveRow const& row, Remove remove)
{
    if (!image.fits(row.text, row.pattern))
        return;
    SCOPED_TRACE(shown(row.text) + " without " + shown(row.pattern));
    Laid receiver(image, row.text);
    auto const pattern = stringOf(image, row.pattern);
    EXPECT_EQ(((*receiver).*remove)(pattern), receiver->object());
    EXPECT_TRUE(became(receiver, row.length, row.after));
}

TEST_P(Edit, removesStrings)
{
    for (auto const& row : removeRows)
        expectRemoved(image, row, &AnyString::remove);
}

TEST_P(Edit, removesStringsExactly)
{
    constexpr RemoveRow rows[] = {
        {u"aabb", u"AB", 4, u"aabb\0"sv},  {u"aabb", u"ab", 2, u"ab\0b\0"sv},
        {u"aAaA", u"A", 2, u"aa\0\0\0"sv}, {u"abab", u"ab", 0, u"ab\0b\0"sv},
        {u"abc", u"", 3, u"abc\0"sv},      {u"abc", u"abc", 0, u"abc\0"sv},
    };
    for (auto const& row : rows)
        expectRemoved(image, row, &AnyString::removeCaseSens);
}

/// The walk goes from the end to the start, and each cut leaves the end of what was longer. The
/// result is a copy of every byte.
TEST_P(Edit, removesUnitsAndReturnsACopy)
{
    struct Row
    {
        Text text;
        Unit unit;
        std::size_t length;
        Text after;
    };
    constexpr Row rows[] = {
        {u"AbaB", u'a', 2, u"bB\0\0\0"sv},
        {u"AbaB", u'A', 2, u"bB\0\0\0"sv},
        {u"abc", u'x', 3, u"abc\0"sv},
        {u"abc", u'C', 2, u"ab\0\0"sv},
        {u"aaa", u'a', 0, u"a\0\0\0"sv},
        {u"a", u'a', 0, u"a\0"sv},
        {u"", u'a', 0, u"\0"sv},
        {u"a\0b"sv, 0, 2, u"ab\0\0"sv},
        {u"\xE4\xC4", 0xE4, 1, u"\xC4\0\0"sv},
        {u"\x0141\x0161z", 0x0161, 2, u"\x0141z\0\0"sv},
        {u"\x0141"
         u"A",
         0x61, 1, u"\x0141\0\0"sv},
    };
    for (auto const& row : rows) {
        if (!image.fits(row.text))
            continue;
        SCOPED_TRACE(shown(row.text));
        Laid receiver(image, row.text);
        Value const returned = receiver->remove(row.unit);
        EXPECT_TRUE(became(receiver, row.length, row.after));
        EXPECT_EQ(returned.bytes, receiver.bytes());
    }
}

TEST_P(Edit, anEmptiedStringIsNotEqualToACleanOne)
{
    Laid receiver(image, u"a");
    receiver->remove(u'a');
    auto const clean = stringOf(image, u"");
    EXPECT_TRUE(receiver->isEmpty());
    EXPECT_FALSE(receiver->equals(clean));
    EXPECT_TRUE(receiver->isEqual(clean));
    receiver->remove(u'a');
    receiver->replace(u'a', u'x');
    EXPECT_TRUE(became(receiver, 0, u"a\0"sv));
}

TEST_P(Edit, trimsBothEnds)
{
    struct Row
    {
        Text text;
        std::size_t length;
        Text after;
    };
    constexpr Row rows[] = {
        {u"abc", 3, u"abc\0"sv},
        {u" a b\n", 3, u"a b\0\n\0"sv},
        {u"\t a b \r\n", 3, u"a b\0b \r\n\0"sv},
        {u"ab  ", 2, u"ab\0 \0"sv},
        {u"\r\tab", 2, u"ab\0b\0"sv},
        {u"\0ab\0"sv, 2, u"ab\0\0\0"sv},
        {u"a\0b"sv, 3, u"a\0b\0"sv},
        // Other control units and all units above the blank stay, also where a byte is a blank.
        {u" a\v", 2, u"a\v\0\0"sv},
        {u"\fa ", 2, u"\fa\0\0"sv},
        {u"\x00A0 ", 1, u"\x00A0\0\0"sv},
        {u" \x000B", 1, u"\x000B\0\0"sv},
        {u"\x0120"
         u"a\x0100",
         3,
         u"\x0120"
         u"a\x0100\0"sv},
        {u"\x2000"
         u"a\x3000",
         3,
         u"\x2000"
         u"a\x3000\0"sv},
        {u"\x0900"
         u"a\xFF20",
         3,
         u"\x0900"
         u"a\xFF20\0"sv},
        // Blanks alone: the first unit becomes zero and the rest stays.
        {u"   ", 0, u"\0  \0"sv},
        {u"\t\n\r ", 0, u"\0\n\r \0"sv},
        {u"\0\0"sv, 0, u"\0\0\0"sv},
        {u"", 0, u"\0"sv},
    };
    for (auto const& row : rows) {
        if (!image.fits(row.text))
            continue;
        SCOPED_TRACE(shown(row.text));
        Laid receiver(image, row.text);
        receiver->trim();
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

TEST_P(Edit, trimAlwaysWritesTheTerminator)
{
    Laid text(image, u"ab");
    text.stale(2, u"cd");
    text->trim();
    EXPECT_TRUE(became(text, 2, u"ab\0d"sv));

    Laid empty(image, u"");
    empty.stale(0, u"xy");
    empty->trim();
    EXPECT_TRUE(became(empty, 0, u"\0y"sv));
}

TEST_P(Edit, trimsAFullString)
{
    std::u16string text(image.capacity, u'x');
    text.front() = u' ';
    text.back() = u'\t';
    Laid receiver(image, text);
    receiver->trim();
    EXPECT_TRUE(holds(*receiver, text.substr(1, text.size() - 2)));
    EXPECT_TRUE(receiver.guardsStand());

    Laid blanks(image, std::u16string(image.capacity, u' '));
    blanks->trim();
    EXPECT_TRUE(holds(*blanks, u""));
    EXPECT_TRUE(blanks.guardsStand());
}

/// Zeros and units above 0x7F are folded in their place too.
TEST_P(Edit, foldsEachByteOfTheText)
{
    for (Unit unit = 0; unit < 256; ++unit) {
        std::u16string const text{u'\0', unit, u'z'};
        Laid up(image, text);
        up->makeUpper();
        EXPECT_TRUE(became(up, 3, std::u16string{u'\0', upperOf(unit), u'Z', u'\0'}));
        Laid down(image, text);
        down->makeLower();
        EXPECT_TRUE(became(down, 3, std::u16string{u'\0', lowerOf(unit), u'z', u'\0'}));
    }
}

TEST_P(Edit, foldsAFullStringToItsLastUnitAndNoFurther)
{
    auto const text = letters(image.capacity);
    Laid receiver(image, text);
    receiver.stale(image.capacity, u"q");
    receiver->makeUpper();
    EXPECT_TRUE(became(receiver, image.capacity, upperOf(text) + u'q'));
    receiver->makeLower();
    EXPECT_TRUE(became(receiver, image.capacity, text + u'q'));

    Laid empty(image, u"");
    empty.stale(0, u"a");
    empty->makeUpper();
    EXPECT_TRUE(became(empty, 0, u"a"sv));
}

class EditBytes : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, EditBytes, testing::ValuesIn(bytePairImages()), imageName);

TEST_P(EditBytes, everyPairOfBytes)
{
    Laid replaced(image, u"?!");
    Laid removed(image, u"?!");
    for (Unit a = 0; a < 256; ++a) {
        for (Unit b = 0; b < 256; ++b) {
            // The second character is there to stay.
            if (b == u'!')
                continue;
            bool const folded = upperOf(a) == upperOf(b);
            Unit const original[] = {a, u'!'};
            replaced.lay({original, 2});
            replaced->replace(b, u'#');
            Unit const expected[] = {folded ? u'#' : a, u'!'};
            ASSERT_TRUE(holds(*replaced, {expected, 2})) << "bytes " << +a << " and " << +b;

            removed.lay({original, 2});
            removed->remove(b);
            ASSERT_TRUE(holds(*removed, Text(original, 2).substr(folded)))
                << "bytes " << +a << " and " << +b;
        }
    }
}

} // namespace
} // namespace strings
