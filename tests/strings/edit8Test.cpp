/// Changing 8-bit strings in place, on the current image and on both older ones: replacing,
/// removing, trimming and folding. What splices do at the capacity and with the receiver as their
/// own argument stands in splice8Test.cpp.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace images8;
using namespace std::string_view_literals;

template <typename S>
class Edit8 : public testing::Test
{};
TYPED_TEST_SUITE(Edit8, AllImages, ImageName);

/// `after` begins the text area, terminators included; behind it the stale bytes stay.
struct ReplaceRow
{
    std::string_view text;
    std::string_view from;
    std::string_view to;
    std::size_t length;
    std::string_view after;
};

constexpr ReplaceRow replaceRows[] = {
    {"abc", "b", "XY", 4, "aXYc\0"sv},
    {"aBc", "b", "", 2, "ac\0\0"sv},
    {"abc", "ABC", "x", 1, "x\0c\0"sv},
    {"axbxc", "X", "-", 5, "a-b-c\0"sv},
    // New text is stepped over, so it may hold what is replaced.
    {"aaa", "a", "aa", 6, "aaaaaa\0"sv},
    {"abc", "b", "bb", 4, "abbc\0"sv},
    {"aaaa", "aa", "a", 2, "aa\0\0\0"sv},
    // The new text goes in as it stands.
    {"ABA", "a", "x", 3, "xBx\0"sv},
    {"axa", "x", "X", 3, "aXa\0"sv},
    // Nothing to find.
    {"abc", "", "x", 3, "abc\0"sv},
    {"abc", "x", "y", 3, "abc\0"sv},
    {"abc", "abcd", "y", 3, "abc\0"sv},
    {"", "a", "b", 0, "\0"sv},
    {"", "", "b", 0, "\0"sv},
    {"\xE4", "\xC4", "x", 1, "\xE4\0"sv},
    {"a\0b"sv, "\0"sv, "--", 4, "a--b\0"sv},
    {"a\0b"sv, "\0B"sv, "c", 2, "ac\0\0"sv},
    // A string that ends empty keeps its first byte: no piece was copied that would end it.
    {"abc", "abc", "", 0, "abc\0"sv},
    {"abab", "ab", "", 0, "ab\0b\0"sv},
};

TYPED_TEST(Edit8, replacesStringsIgnoringCase)
{
    for (auto const& row : replaceRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::string(row.from) + " by " +
                     std::string(row.to));
        Laid<TypeParam> receiver(row.text);
        auto const from = stringOf<TypeParam>(row.from);
        auto const to = stringOf<TypeParam>(row.to);
        auto const& returned = receiver->replace(from, to);
        EXPECT_EQ(&returned, &*receiver);
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

constexpr ReplaceRow exactReplaceRows[] = {
    {"abc", "b", "XY", 4, "aXYc\0"sv},   {"abc", "B", "XY", 3, "abc\0"sv},
    {"aBAb", "b", "xx", 5, "aBAxx\0"sv}, {"aAaA", "A", "", 2, "aa\0\0\0"sv},
    {"abab", "ab", "", 0, "ab\0b\0"sv},  {"abc", "ABC", "", 3, "abc\0"sv},
    {"abc", "", "x", 3, "abc\0"sv},      {"aaa", "a", "aa", 6, "aaaaaa\0"sv},
};

TYPED_TEST(Edit8, replacesStringsExactly)
{
    for (auto const& row : exactReplaceRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::string(row.from) + " by " +
                     std::string(row.to));
        Laid<TypeParam> receiver(row.text);
        auto const from = stringOf<TypeParam>(row.from);
        auto const to = stringOf<TypeParam>(row.to);
        auto const& returned = receiver->replaceCaseSen(from, to);
        EXPECT_EQ(&returned, &*receiver);
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

TYPED_TEST(Edit8, takesPlainTextsAsArguments)
{
    Laid<TypeParam> receiver("abab");
    receiver->replace("B", "x");
    EXPECT_TRUE(became(receiver, 4, "axax\0"sv));
    receiver->replaceCaseSen("x", "y");
    EXPECT_TRUE(became(receiver, 4, "ayay\0"sv));
    receiver->remove("AY");
    EXPECT_TRUE(became(receiver, 0, "ay\0y\0"sv));
    receiver->insert(0, "xy");
    EXPECT_TRUE(became(receiver, 2, "xy\0y\0"sv));
    receiver->removeCaseSens("x");
    EXPECT_TRUE(became(receiver, 1, "y\0\0y\0"sv));
}

struct ReplaceCharacterRow
{
    std::string_view text;
    char from;
    char to;
    std::string_view after;
};

constexpr ReplaceCharacterRow replaceCharacterRows[] = {
    {"aAbA", 'a', 'x', "xxbx"},         {"aAbA", 'A', 'x', "xxbx"},   {"aAb", 'a', 'A', "AAb"},
    {"abc", 'b', '\0', "a\0c"sv},       {"a\0c"sv, '\0', 'b', "abc"}, {"abc", 'x', 'y', "abc"},
    {"\xE4\xC4", '\xE4', 'x', "x\xC4"}, {"[{", '[', 'x', "x{"},       {"", 'a', 'x', ""},
};

TYPED_TEST(Edit8, replacesCharactersIgnoringCase)
{
    for (auto const& row : replaceCharacterRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + row.from + " by " + row.to);
        Laid<TypeParam> receiver(row.text);
        receiver->replace(row.from, row.to);
        EXPECT_TRUE(became(receiver, row.text.size(), std::string(row.after) + '\0'));
    }
}

TYPED_TEST(Edit8, oldTextBehindTheEndIsNotEdited)
{
    Laid<TypeParam> receiver("ab");
    receiver.stale(3, "aAb");
    receiver->replace('a', 'x');
    EXPECT_TRUE(became(receiver, 2, "xb\0aAb"sv));
    receiver->makeUpper();
    EXPECT_TRUE(became(receiver, 2, "XB\0aAb"sv));
    receiver->makeLower();
    EXPECT_TRUE(became(receiver, 2, "xb\0aAb"sv));
    receiver->replace(stringOf<TypeParam>("a"), stringOf<TypeParam>("q"));
    EXPECT_TRUE(became(receiver, 2, "xb\0aAb"sv));
    receiver->remove(stringOf<TypeParam>("a"));
    EXPECT_TRUE(became(receiver, 2, "xb\0aAb"sv));
    receiver->remove('a');
    EXPECT_TRUE(became(receiver, 2, "xb\0aAb"sv));
}

struct RemoveRow
{
    std::string_view text;
    std::string_view pattern;
    std::size_t length;
    std::string_view after;
};

constexpr RemoveRow removeRows[] = {
    {"abab", "ab", 0, "ab\0b\0"sv},
    // Text that moves into the gap is looked at again, what forms across the gap is not.
    {"aabb", "ab", 2, "ab\0b\0"sv},
    {"ababc", "ab", 1, "c\0c\0c\0"sv},
    {"xabab", "AB", 1, "x\0b\0b\0"sv},
    {"abaabb", "ab", 2, "ab\0b\0b\0"sv},
    {"aXbxc", "x", 3, "abc\0\0\0"sv},
    {"abc", "C", 2, "ab\0\0"sv},
    {"abc", "A", 2, "bc\0\0"sv},
    {"aaa", "a", 0, "a\0\0\0"sv},
    {"abc", "abc", 0, "abc\0"sv},
    {"abc", "", 3, "abc\0"sv},
    {"abc", "x", 3, "abc\0"sv},
    {"", "a", 0, "\0"sv},
    {"a\0b"sv, "\0"sv, 2, "ab\0\0"sv},
    {"\xE4x", "\xC4", 2, "\xE4x\0"sv},
};

TYPED_TEST(Edit8, removesStringsIgnoringCase)
{
    for (auto const& row : removeRows) {
        SCOPED_TRACE(std::string(row.text) + " without " + std::string(row.pattern));
        Laid<TypeParam> receiver(row.text);
        auto const pattern = stringOf<TypeParam>(row.pattern);
        auto const& returned = receiver->remove(pattern);
        EXPECT_EQ(&returned, &*receiver);
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

constexpr RemoveRow exactRemoveRows[] = {
    {"aabb", "AB", 4, "aabb\0"sv},  {"aabb", "ab", 2, "ab\0b\0"sv}, {"aAaA", "A", 2, "aa\0\0\0"sv},
    {"abab", "ab", 0, "ab\0b\0"sv}, {"abc", "", 3, "abc\0"sv},      {"abc", "abc", 0, "abc\0"sv},
};

TYPED_TEST(Edit8, removesStringsExactly)
{
    for (auto const& row : exactRemoveRows) {
        SCOPED_TRACE(std::string(row.text) + " without " + std::string(row.pattern));
        Laid<TypeParam> receiver(row.text);
        auto const pattern = stringOf<TypeParam>(row.pattern);
        auto const& returned = receiver->removeCaseSens(pattern);
        EXPECT_EQ(&returned, &*receiver);
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

struct RemoveCharacterRow
{
    std::string_view text;
    char character;
    std::size_t length;
    std::string_view after;
};

/// The walk goes from the end to the start, and each cut leaves the end of what was longer.
constexpr RemoveCharacterRow removeCharacterRows[] = {
    {"AbaB", 'a', 2, "bB\0\0\0"sv},
    {"AbaB", 'A', 2, "bB\0\0\0"sv},
    {"abc", 'x', 3, "abc\0"sv},
    {"abc", 'C', 2, "ab\0\0"sv},
    {"aaa", 'a', 0, "a\0\0\0"sv},
    {"a", 'a', 0, "a\0"sv},
    {"", 'a', 0, "\0"sv},
    {"a\0b"sv, '\0', 2, "ab\0\0"sv},
    {"\xE4\xC4", '\xE4', 1, "\xC4\0\0"sv},
};

TYPED_TEST(Edit8, removesCharactersAndReturnsACopy)
{
    for (auto const& row : removeCharacterRows) {
        SCOPED_TRACE(std::string(row.text) + " without " + row.character);
        Laid<TypeParam> receiver(row.text);
        TypeParam const returned = receiver->remove(row.character);
        EXPECT_TRUE(became(receiver, row.length, row.after));
        EXPECT_TRUE(areaIs(returned, row.length, row.after, guarded::staleByte));
    }
}

TYPED_TEST(Edit8, theCopyThatRemoveReturnsStandsAlone)
{
    Laid<TypeParam> receiver("aXbX");
    auto returned = receiver->remove('x');
    returned = "q";
    EXPECT_TRUE(guarded::holds(*receiver, "ab"));
    EXPECT_TRUE(guarded::holds(returned, "q"));
}

struct TrimRow
{
    std::string_view text;
    std::size_t length;
    std::string_view after;
};

constexpr TrimRow trimRows[] = {
    {"abc", 3, "abc\0"sv},
    {" a b\n", 3, "a b\0\n\0"sv},
    {"ab  ", 2, "ab\0 \0"sv},
    {"\r\tab", 2, "ab\0b\0"sv},
    {"\0ab\0"sv, 2, "ab\0\0\0"sv},
    {"a\0b"sv, 3, "a\0b\0"sv},
    // Vertical tab, form feed and bytes above 0x7F are no blanks.
    {" a\v", 2, "a\v\0\0"sv},
    {"\fa ", 2, "\fa\0\0"sv},
    {"\xA0 ", 1, "\xA0\0\0"sv},
    // Blanks alone: the first byte becomes zero and the rest stays.
    {"   ", 0, "\0  \0"sv},
    {"\t\n\r ", 0, "\0\n\r \0"sv},
    {"\0\0"sv, 0, "\0\0\0"sv},
    {"", 0, "\0"sv},
};

TYPED_TEST(Edit8, trimsBothEnds)
{
    for (auto const& row : trimRows) {
        SCOPED_TRACE(row.text);
        Laid<TypeParam> receiver(row.text);
        receiver->trim();
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

TYPED_TEST(Edit8, trimAlwaysWritesTheTerminator)
{
    Laid<TypeParam> text("ab");
    text.stale(2, "cd");
    text->trim();
    EXPECT_TRUE(became(text, 2, "ab\0d"sv));

    Laid<TypeParam> empty("");
    empty.stale(0, "xy");
    empty->trim();
    EXPECT_TRUE(became(empty, 0, "\0y"sv));
}

TYPED_TEST(Edit8, trimsAFullString)
{
    std::string text(capacity<TypeParam>, 'x');
    text.front() = ' ';
    text.back() = '\t';
    Laid<TypeParam> receiver(text);
    receiver->trim();
    EXPECT_TRUE(guarded::holds(*receiver, text.substr(1, text.size() - 2)));
    EXPECT_TRUE(receiver.guardsStand());

    Laid<TypeParam> blanks(std::string(capacity<TypeParam>, ' '));
    blanks->trim();
    EXPECT_TRUE(guarded::holds(*blanks, ""));
    EXPECT_TRUE(blanks.guardsStand());
}

TYPED_TEST(Edit8, trimsTheMixedExample)
{
    constexpr auto mixed = "\t a b \r\n"sv;
    if (fits<TypeParam>(mixed)) {
        Laid<TypeParam> receiver(mixed);
        receiver->trim();
        EXPECT_TRUE(guarded::holds(*receiver, "a b"));
    }
}

/// Folds every byte in its place, zeros and bytes above 0x7F included.
TYPED_TEST(Edit8, foldsEachByteOfTheText)
{
    for (int i = 0; i < 256; ++i) {
        auto const byte = static_cast<unsigned char>(i);
        char const text[] = {'\0', static_cast<char>(byte), 'z'};
        std::string_view const laid(text, sizeof text);
        Laid<TypeParam> up(laid);
        up->makeUpper();
        char const upper[] = {'\0', static_cast<char>(upperOf(byte)), 'Z', '\0'};
        EXPECT_TRUE(became(up, 3, std::string_view(upper, sizeof upper)));

        Laid<TypeParam> down(laid);
        down->makeLower();
        char const lower[] = {'\0', static_cast<char>(lowerOf(byte)), 'z', '\0'};
        EXPECT_TRUE(became(down, 3, std::string_view(lower, sizeof lower)));
    }
}

TYPED_TEST(Edit8, foldsAFullStringToItsLastByteAndNoFurther)
{
    auto const text = guarded::letters(capacity<TypeParam>);
    Laid<TypeParam> receiver(text);
    receiver.stale(capacity<TypeParam>, "q");
    receiver->makeUpper();
    EXPECT_TRUE(became(receiver, capacity<TypeParam>, upperOf(text) + 'q'));
    receiver->makeLower();
    EXPECT_TRUE(became(receiver, capacity<TypeParam>, text + 'q'));
}

TYPED_TEST(Edit8, foldingAnEmptyStringKeepsItsStaleFirstByte)
{
    Laid<TypeParam> receiver("");
    receiver.stale(0, "a");
    receiver->makeUpper();
    EXPECT_TRUE(became(receiver, 0, "a"sv));
}

template <typename S>
class EditBytes8 : public testing::Test
{};
TYPED_TEST_SUITE(EditBytes8, BytePairImages, ImageName);

TYPED_TEST(EditBytes8, everyPairOfBytes)
{
    Laid<TypeParam> replaced("?!");
    Laid<TypeParam> removed("?!");
    for (int i = 0; i < 256; ++i) {
        for (int j = 0; j < 256; ++j) {
            // The second character is there to stay.
            if (j == '!') {
                continue;
            }
            auto const a = static_cast<unsigned char>(i);
            auto const b = static_cast<unsigned char>(j);
            bool const folded = upperOf(a) == upperOf(b);
            char const original[] = {static_cast<char>(a), '!'};
            replaced.lay(std::string_view(original, 2));
            replaced->replace(static_cast<char>(b), '#');
            char const expected[] = {folded ? '#' : static_cast<char>(a), '!'};
            ASSERT_TRUE(guarded::holds(*replaced, std::string_view(expected, 2)))
                << "bytes " << i << " and " << j;

            removed.lay(std::string_view(original, 2));
            removed->remove(static_cast<char>(b));
            ASSERT_TRUE(guarded::holds(*removed, std::string_view(original, 2).substr(folded)))
                << "bytes " << i << " and " << j;
        }
    }
}

} // namespace
