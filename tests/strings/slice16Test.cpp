/// Parts of 16-bit strings by value.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images16;
using namespace std::string_view_literals;

template <typename S>
class Slice16 : public testing::Test
{};
TYPED_TEST_SUITE(Slice16, MainImages, ImageName);

/// A result that started from zeros: nothing but the length and this text is in it.
template <typename S>
testing::AssertionResult isZeroedBut(S const& string, Text text)
{
    if (guarded::bytesOf(string) != imageOf<S>(text.size(), text, 0, 0)) {
        return testing::AssertionFailure() << "not the clean image of \"" << shown(text)
                                           << "\" but \"" << shown(textOf(string)) << '"';
    }
    return testing::AssertionSuccess();
}

TYPED_TEST(Slice16, leftByCount)
{
    struct Row
    {
        Text text;
        int count;
        Text result;
    };
    constexpr Row rows[] = {
        {u"abcd", 2, u"ab"},
        {u"abcd", 0, u""},
        {u"abcd", 1, u"a"},
        {u"abcd", 4, u"abcd"},
        {u"abcd", 9, u"abcd"},
        {u"abcd", 65535, u"abcd"},
        {u"abcd", 65536, u"abcd"},
        {u"abcd", 65541, u"abcd"},
        {u"abcd", INT_MAX, u"abcd"},
        {u"", 0, u""},
        {u"", 3, u""},
        {u"a\0b"sv, 2, u"a\0"sv},
        {u"\x0141\xFFE4z", 2, u"\x0141\xFFE4"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(shown(row.text) + ", " + std::to_string(row.count));
        Laid<TypeParam> receiver(row.text);
        auto const before = receiver.bytes();
        TypeParam const& string = *receiver;
        EXPECT_TRUE(isZeroedBut(string.left(row.count), row.result));
        EXPECT_EQ(receiver.bytes(), before);
    }
}

TYPED_TEST(Slice16, leftAroundTheCapacity)
{
    auto const text = letters(capacity<TypeParam>);
    auto const full = stringOf<TypeParam>(text);
    int const n = intCapacity<TypeParam>;
    EXPECT_TRUE(isZeroedBut(full.left(n - 1), text.substr(0, text.size() - 1)));
    EXPECT_TRUE(isZeroedBut(full.left(n), text));
    EXPECT_TRUE(isZeroedBut(full.left(n + 1), text));
}

/// A negative count is no 'all': it gives the whole text area, stale units included.
TYPED_TEST(Slice16, leftByANegativeCountGivesTheTextArea)
{
    for (auto const text : {u"abcd"sv, u""sv}) {
        for (int const count : {-1, -2, -intCapacity<TypeParam>, -65536, INT_MIN}) {
            SCOPED_TRACE(count);
            Laid<TypeParam> receiver(text);
            receiver.stale(5, u"q");
            EXPECT_TRUE(isZeroedBut(receiver->left(count), textArea(*receiver)));
        }
    }
}

/// On "abcd".
TYPED_TEST(Slice16, midInsideTheText)
{
    struct Row
    {
        int start;
        int count;
        Text result;
    };
    constexpr Row rows[] = {
        {1, 2, u"bc"}, {0, 4, u"abcd"}, {0, 1, u"a"}, {3, 1, u"d"},      {2, 2, u"cd"},
        {0, 0, u""},   {2, 0, u""},     {-7, 0, u""}, {INT_MAX, 0, u""}, {INT_MIN, 0, u""},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(std::to_string(row.start) + ", " + std::to_string(row.count));
        Laid<TypeParam> receiver(u"abcd");
        auto const before = receiver.bytes();
        TypeParam const& string = *receiver;
        EXPECT_TRUE(isZeroedBut(string.mid(row.start, row.count), row.result));
        EXPECT_EQ(receiver.bytes(), before);
    }
}

/// Neither start nor count is held against the length: a range past the end gives stale units.
TYPED_TEST(Slice16, midPastTheEnd)
{
    Laid<TypeParam> receiver(u"abcd");
    receiver.stale(5, u"xy");
    EXPECT_TRUE(isZeroedBut(receiver->mid(3, 3), u"d\0x"sv));
    EXPECT_TRUE(isZeroedBut(receiver->mid(5, 1), u"x"));
    EXPECT_TRUE(isZeroedBut(receiver->mid(5, 2), u"xy"));
    EXPECT_TRUE(isZeroedBut(receiver->mid(3, 5), ownUnits(*receiver, 3, 5)));
}

TEST(SliceExamples16, midOfAHundred)
{
    Laid<_qvString<250>> current(u"abcde");
    auto const expected = std::u16string(u"cde\0", 4) + std::u16string(96, u'\xAAAA');
    EXPECT_TRUE(holds(current->mid(2, 100), expected));
    Laid<_qvString_old<250>> older(u"abcde");
    EXPECT_TRUE(holds(older->mid(2, 100), expected));
}

/// Out of the text area a range meets the object's other fields, and zeros outside of the object.
TYPED_TEST(Slice16, midOutsideOfTheTextReadsOwnBytesOnly)
{
    int const n = intCapacity<TypeParam>;
    Laid<TypeParam> receiver(u"abcd");
    receiver.stale(5, u"xy");
    for (int const start : {-1000, -4, -3, -2, -1, 0, 1, n - 1, n, n + 1, n + 2, n + 3, n + 4,
                            65535, INT_MAX - 3, INT_MAX, INT_MIN, INT_MIN + 1}) {
        for (int const count :
             {1, 2, 4, n - 1, n, n + 1, 65535, 65536, 65541, INT_MAX, -1, INT_MIN}) {
            SCOPED_TRACE(std::to_string(start) + ", " + std::to_string(count));
            bool const isCut = count < 0 || count > n;
            auto const length = isCut ? capacity<TypeParam> : static_cast<std::size_t>(count);
            EXPECT_TRUE(
                isZeroedBut(receiver->mid(start, count), ownUnits(*receiver, start, length)));
        }
    }
    EXPECT_TRUE(receiver.guardsStand());
}

/// The same with all units written down, since the images differ in what stands around the text.
TEST(SliceImages16, unitsAroundTheTextInEachImage)
{
    auto const full = letters(10);
    Laid<_qvString<10>> current(full);
    EXPECT_TRUE(holds(current->mid(9, 6), u"j\0\0\0\0\0"sv));
    EXPECT_TRUE(holds(current->mid(-3, 5), u"\0\x000A\xAAAA"
                                           u"ab"sv));

    // The older image has its length and its spare word behind the text.
    Laid<_qvString_old<10>> older(full);
    EXPECT_TRUE(holds(older->mid(9, 6), u"j\0\x000A\xAAAA\0\0"sv));
    EXPECT_TRUE(holds(older->mid(-2, 4), u"\0\0ab"sv));
}

struct CutRow
{
    Text text;
    Unit unit;
    bool include;
    Text result;
    std::size_t length;
    Text after;
};

/// At position 0 the flag works the other way round: with it the result is empty, without it the
/// result is the unit as the call gave it. The found unit leaves the receiver in either case, and
/// with nothing behind it only the length changes.
constexpr CutRow cutRows[] = {
    {u"a/b/c", u'/', false, u"a", 3, u"b/c\0c\0"sv},
    {u"a/b/c", u'/', true, u"a/", 3, u"b/c\0c\0"sv},
    {u"/abc", u'/', true, u"", 3, u"abc\0\0"sv},
    {u"/abc", u'/', false, u"/", 3, u"abc\0\0"sv},
    {u"aXb", u'x', false, u"a", 1, u"b\0b\0"sv},
    {u"aXb", u'x', true, u"aX", 1, u"b\0b\0"sv},
    {u"Abc", u'a', false, u"a", 2, u"bc\0\0"sv},
    {u"abc", u'A', false, u"A", 2, u"bc\0\0"sv},
    {u"Abc", u'a', true, u"", 2, u"bc\0\0"sv},
    {u"ab/", u'/', false, u"ab", 0, u"ab/\0"sv},
    {u"ab/", u'/', true, u"ab/", 0, u"ab/\0"sv},
    {u"/", u'/', false, u"/", 0, u"/\0"sv},
    {u"/", u'/', true, u"", 0, u"/\0"sv},
    {u"a//b", u'/', false, u"a", 2, u"/b\0b\0"sv},
    {u"//a", u'/', false, u"/", 2, u"/a\0\0"sv},
    {u"a\0b"sv, 0, false, u"a", 1, u"b\0b\0"sv},
    {u"a\0b"sv, 0, true, u"a\0"sv, 1, u"b\0b\0"sv},
    {u"\0b"sv, 0, false, u"\0"sv, 1, u"b\0\0"sv},
    {u"x\x0141y", 0x0141, true, u"x\x0141", 1, u"y\0y\0"sv},
    {u"A\x0141y", 0x0141, false, u"A", 1, u"y\0y\0"sv},
    {u"\x0141"
     u"Ay",
     0x61, false, u"\x0141", 1, u"y\0y\0"sv},
    {u"x\xE4\xFFE4y", 0xFFE4, false, u"x\xE4", 1, u"y\0\xFFE4y\0"sv},
};

TYPED_TEST(Slice16, cutAtAUnit)
{
    for (auto const& row : cutRows) {
        SCOPED_TRACE(shown(row.text) + ", " + std::to_string(row.unit) +
                     (row.include ? " with" : " without"));
        Laid<TypeParam> receiver(row.text);
        auto const before = receiver.bytes();
        TypeParam const& string = *receiver;
        EXPECT_TRUE(isZeroedBut(string.left(row.unit, row.include), row.result));
        EXPECT_EQ(receiver.bytes(), before);

        TypeParam const result = receiver->leftNCut(row.unit, row.include);
        EXPECT_TRUE(isZeroedBut(result, row.result));
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

/// Without the unit the result is a copy of every byte, and the cut leaves a cleared receiver whose
/// spare word alone stays.
TYPED_TEST(Slice16, cutWithoutTheUnit)
{
    for (bool const include : {true, false}) {
        for (Text const text : {u"abc"sv, u""sv}) {
            Laid<TypeParam> receiver(text);
            receiver.stale(text.size() + 1, u"/x");
            if (text.empty()) {
                receiver.stale(0, u"/");
            }
            auto const before = receiver.bytes();
            EXPECT_EQ(guarded::bytesOf(receiver->left(Unit{u'/'}, include)), before);
            EXPECT_EQ(guarded::bytesOf(receiver->left(Unit{0xE4}, include)), before);
            EXPECT_EQ(receiver.bytes(), before);

            TypeParam const result = receiver->leftNCut(Unit{u'/'}, include);
            EXPECT_EQ(guarded::bytesOf(result), before);
            EXPECT_EQ(receiver.bytes(), imageOf<TypeParam>(0, u"", 0, staleByte));
            EXPECT_TRUE(receiver.guardsStand());
        }
    }
}

TYPED_TEST(Slice16, leftNCutWalksThroughAFullString)
{
    std::u16string text(capacity<TypeParam>, u'x');
    text[1] = u'/';
    text[capacity<TypeParam> - 2] = u'/';
    Laid<TypeParam> receiver(text);
    Unit const slash = u'/';
    EXPECT_TRUE(holds(receiver->leftNCut(slash, false), u"x"));
    EXPECT_TRUE(
        holds(receiver->leftNCut(slash, false), std::u16string(capacity<TypeParam> - 4, u'x')));
    EXPECT_TRUE(holds(*receiver, u"x"));
    EXPECT_TRUE(holds(receiver->leftNCut(slash, false), u"x"));
    EXPECT_TRUE(holds(*receiver, u""));
    EXPECT_TRUE(receiver.guardsStand());
}

} // namespace
