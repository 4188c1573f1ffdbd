/// Changing 16-bit strings in place: replacing, removing, trimming and folding. What rebuilds do at
/// the capacity and with the receiver as their own argument stands in splice16Test.cpp.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace images16;
using namespace std::string_view_literals;

template <typename S>
class Edit16 : public testing::Test
{};
TYPED_TEST_SUITE(Edit16, MainImages, ImageName);

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

template <typename S, typename Change>
void expectReplaced(ReplaceRow const& row, Change const& change)
{
    SCOPED_TRACE(shown(row.text) + ", " + shown(row.from) + " by " + shown(row.to));
    Laid<S> receiver(row.text);
    auto const from = stringOf<S>(row.from);
    auto const to = stringOf<S>(row.to);
    S const& returned = change(*receiver, from, to);
    EXPECT_EQ(&returned, &*receiver);
    EXPECT_TRUE(became(receiver, row.length, row.after));
}

TYPED_TEST(Edit16, replacesStrings)
{
    using S = TypeParam;
    for (auto const& row : replaceRows) {
        expectReplaced<S>(
            row, [](S& s, S const& from, S const& to) -> S const& { return s.replace(from, to); });
    }
    constexpr ReplaceRow exactRows[] = {
        {u"abc", u"b", u"XY", 4, u"aXYc\0"sv},       {u"abc", u"B", u"XY", 3, u"abc\0"sv},
        {u"aBAb", u"b", u"xx", 5, u"aBAxx\0"sv},     {u"aAaA", u"A", u"", 2, u"aa\0\0\0"sv},
        {u"abab", u"ab", u"", 0, u"ab\0b\0"sv},      {u"abc", u"ABC", u"", 3, u"abc\0"sv},
        {u"abc", u"", u"x", 3, u"abc\0"sv},          {u"aaa", u"a", u"aa", 6, u"aaaaaa\0"sv},
        {u"x\x0141", u"\x0141", u"y", 2, u"xy\0"sv},
    };
    for (auto const& row : exactRows) {
        expectReplaced<S>(row, [](S& s, S const& from, S const& to) -> S const& {
            return s.replaceCaseSen(from, to);
        });
    }
}

/// A plain text becomes a temporary string first, by sign extension.
TYPED_TEST(Edit16, takesPlainTextsAsArguments)
{
    Laid<TypeParam> receiver(u"a\xFFE4"
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

/// The unit put in stands as given, and the length never changes.
TYPED_TEST(Edit16, replacesUnits)
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
        SCOPED_TRACE(shown(row.text));
        Laid<TypeParam> receiver(row.text);
        TypeParam const& returned = receiver->replace(row.from, row.to);
        EXPECT_EQ(&returned, &*receiver);
        EXPECT_TRUE(became(receiver, row.text.size(), std::u16string(row.after) + u'\0'));
    }
}

TYPED_TEST(Edit16, oldTextBehindTheEndIsNotEdited)
{
    Laid<TypeParam> receiver(u"ab");
    receiver.stale(3, u"aAb");
    receiver->replace(Unit{u'a'}, Unit{u'x'});
    EXPECT_TRUE(became(receiver, 2, u"xb\0aAb"sv));
    receiver->makeUpper();
    EXPECT_TRUE(became(receiver, 2, u"XB\0aAb"sv));
    receiver->makeLower();
    EXPECT_TRUE(became(receiver, 2, u"xb\0aAb"sv));
    receiver->replace(stringOf<TypeParam>(u"a"), stringOf<TypeParam>(u"q"));
    EXPECT_TRUE(became(receiver, 2, u"xb\0aAb"sv));
    receiver->remove(stringOf<TypeParam>(u"a"));
    EXPECT_TRUE(became(receiver, 2, u"xb\0aAb"sv));
    receiver->remove(Unit{u'a'});
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

template <typename S, typename Change>
void expectRemoved(RemoveRow const& row, Change const& change)
{
    SCOPED_TRACE(shown(row.text) + " without " + shown(row.pattern));
    Laid<S> receiver(row.text);
    auto const pattern = stringOf<S>(row.pattern);
    S const& returned = change(*receiver, pattern);
    EXPECT_EQ(&returned, &*receiver);
    EXPECT_TRUE(became(receiver, row.length, row.after));
}

TYPED_TEST(Edit16, removesStrings)
{
    using S = TypeParam;
    for (auto const& row : removeRows) {
        expectRemoved<S>(row, [](S& s, S const& p) -> S const& { return s.remove(p); });
    }
    constexpr RemoveRow exactRows[] = {
        {u"aabb", u"AB", 4, u"aabb\0"sv},  {u"aabb", u"ab", 2, u"ab\0b\0"sv},
        {u"aAaA", u"A", 2, u"aa\0\0\0"sv}, {u"abab", u"ab", 0, u"ab\0b\0"sv},
        {u"abc", u"", 3, u"abc\0"sv},      {u"abc", u"abc", 0, u"abc\0"sv},
    };
    for (auto const& row : exactRows) {
        expectRemoved<S>(row, [](S& s, S const& p) -> S const& { return s.removeCaseSens(p); });
    }
}

/// The walk goes from the end to the start, and each cut leaves the end of what was longer. The
/// result is a copy of every byte, and stands alone.
TYPED_TEST(Edit16, removesUnitsAndReturnsACopy)
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
        SCOPED_TRACE(shown(row.text));
        Laid<TypeParam> receiver(row.text);
        TypeParam returned = receiver->remove(row.unit);
        EXPECT_TRUE(became(receiver, row.length, row.after));
        EXPECT_EQ(guarded::bytesOf(returned), receiver.bytes());
        returned = "q";
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

TYPED_TEST(Edit16, anEmptiedStringIsNotEqualToACleanOne)
{
    Laid<TypeParam> receiver(u"a");
    receiver->remove(Unit{u'a'});
    TypeParam const clean;
    EXPECT_TRUE(receiver->isEmpty());
    EXPECT_FALSE(*receiver == clean);
    EXPECT_TRUE(receiver->isEqual(clean));
    receiver->remove(Unit{u'a'});
    receiver->replace(Unit{u'a'}, Unit{u'x'});
    EXPECT_TRUE(became(receiver, 0, u"a\0"sv));
}

TYPED_TEST(Edit16, trimsBothEnds)
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
        SCOPED_TRACE(shown(row.text));
        Laid<TypeParam> receiver(row.text);
        receiver->trim();
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

TYPED_TEST(Edit16, trimAlwaysWritesTheTerminator)
{
    Laid<TypeParam> text(u"ab");
    text.stale(2, u"cd");
    text->trim();
    EXPECT_TRUE(became(text, 2, u"ab\0d"sv));

    Laid<TypeParam> empty(u"");
    empty.stale(0, u"xy");
    empty->trim();
    EXPECT_TRUE(became(empty, 0, u"\0y"sv));
}

TYPED_TEST(Edit16, trimsAFullString)
{
    std::u16string text(capacity<TypeParam>, u'x');
    text.front() = u' ';
    text.back() = u'\t';
    Laid<TypeParam> receiver(text);
    receiver->trim();
    EXPECT_TRUE(holds(*receiver, text.substr(1, text.size() - 2)));
    EXPECT_TRUE(receiver.guardsStand());

    Laid<TypeParam> blanks(std::u16string(capacity<TypeParam>, u' '));
    blanks->trim();
    EXPECT_TRUE(holds(*blanks, u""));
    EXPECT_TRUE(blanks.guardsStand());
}

TYPED_TEST(Edit16, foldsAFullStringToItsLastUnitAndNoFurther)
{
    auto const text = letters(capacity<TypeParam>);
    Laid<TypeParam> receiver(text);
    receiver.stale(capacity<TypeParam>, u"q");
    receiver->makeUpper();
    EXPECT_TRUE(became(receiver, capacity<TypeParam>, upperOf(text) + u'q'));
    receiver->makeLower();
    EXPECT_TRUE(became(receiver, capacity<TypeParam>, text + u'q'));

    Laid<TypeParam> empty(u"");
    empty.stale(0, u"a");
    empty->makeUpper();
    EXPECT_TRUE(became(empty, 0, u"a"sv));
}

} // namespace
