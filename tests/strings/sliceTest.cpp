/// Parts of strings by value.

#include "tests/strings/laid.h"

#include <climits>

namespace strings {
namespace {

using namespace std::string_view_literals;

class Slice : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Slice, testing::ValuesIn(allImages()), imageName);

/// Behind the part that was taken the result is all zero, whatever stood behind the text.
TEST_P(Slice, leftByCount)
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
        if (!image.fits(row.text))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + std::to_string(row.count));
        Laid receiver(image, row.text);
        auto const before = receiver.bytes();
        AnyString const& string = *receiver;
        EXPECT_TRUE(isZeroedBut(string.left(row.count), row.result));
        EXPECT_EQ(receiver.bytes(), before);
    }
}

TEST_P(Slice, leftAroundTheCapacity)
{
    auto const text = letters(image.capacity);
    auto const full = stringOf(image, text);
    int const n = image.intCapacity();
    EXPECT_TRUE(isZeroedBut(full->left(n - 1), text.substr(0, text.size() - 1)));
    EXPECT_TRUE(isZeroedBut(full->left(n), text));
    EXPECT_TRUE(isZeroedBut(full->left(n + 1), text));
}

/// A negative count is no 'all': it gives the whole text area, stale units included.
TEST_P(Slice, leftByANegativeCountGivesTheTextArea)
{
    for (auto const text : {u"abcd"sv, u""sv}) {
        for (int const count : {-1, -2, -image.intCapacity(), -65536, INT_MIN}) {
            SCOPED_TRACE(count);
            Laid receiver(image, text);
            receiver.stale(5, u"q");
            EXPECT_TRUE(isZeroedBut(receiver->left(count), receiver.value().area()));
        }
    }
}

/// On "abcd".
TEST_P(Slice, midInsideTheText)
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
        Laid receiver(image, u"abcd");
        auto const before = receiver.bytes();
        AnyString const& string = *receiver;
        EXPECT_TRUE(isZeroedBut(string.mid(row.start, row.count), row.result));
        EXPECT_EQ(receiver.bytes(), before);
    }
}

/// Neither start nor count is held against the length: a range past the end gives stale units.
TEST_P(Slice, midPastTheEnd)
{
    Laid receiver(image, u"abcd");
    receiver.stale(5, u"xy");
    EXPECT_TRUE(isZeroedBut(receiver->mid(3, 3), u"d\0x"sv));
    EXPECT_TRUE(isZeroedBut(receiver->mid(5, 1), u"x"));
    EXPECT_TRUE(isZeroedBut(receiver->mid(5, 2), u"xy"));
    EXPECT_TRUE(isZeroedBut(receiver->mid(3, 5), receiver.value().units(3, 5)));
}

TEST_P(Slice, midOfAHundred)
{
    if (image.capacity != 250)
        return;
    Laid receiver(image, u"abcde");
    auto const stale = static_cast<Unit>(image.unitSize == 1 ? 0xAA : 0xAAAA);
    auto const expected = std::u16string(u"cde\0", 4) + std::u16string(96, stale);
    EXPECT_TRUE(isZeroedBut(receiver->mid(2, 100), expected));
}

/// Out of the text area a range meets the object's other fields, and zeros outside of the object.
TEST_P(Slice, midOutsideOfTheTextReadsOwnBytesOnly)
{
    int const n = image.intCapacity();
    Laid receiver(image, u"abcd");
    receiver.stale(5, u"xy");
    for (int const start : {-1000, -4, -3, -2, -1, 0, 1, n - 1, n, n + 1, n + 2, n + 3, n + 4,
                            n + 5, 65535, INT_MAX - 3, INT_MAX, INT_MIN, INT_MIN + 1}) {
        for (int const count :
             {1, 2, 4, n - 1, n, n + 1, 65535, 65536, 65541, INT_MAX, -1, INT_MIN}) {
            SCOPED_TRACE(std::to_string(start) + ", " + std::to_string(count));
            bool const isCut = count < 0 || count > n;
            auto const length = isCut ? image.capacity : static_cast<std::size_t>(count);
            EXPECT_TRUE(
                isZeroedBut(receiver->mid(start, count), receiver.value().units(start, length)));
        }
    }
    EXPECT_TRUE(receiver.guardsStand());
}

/// The same with all units written down, since the images differ in what stands around the text.
TEST(SliceImages, unitsAroundTheTextInEachImage)
{
    struct Row
    {
        char const* family;
        std::size_t capacity;
        int start;
        Text result;
    };
    constexpr Row rows[] = {
        {"current8", 14, 13, u"n\0\xAA\0\0\0\0\0\0\0\0\0\0"sv},
        {"current8", 14, -3, u"\0\x0E\0ab"sv},
        {"current8", 15, 14, u"o\0\0\0\0"sv},
        // The older images have their filler and their length behind the text.
        {"even8", 14, 13, u"n\0\xAA\x0E\0\0\0\0\0\0\0\0\0"sv},
        {"even8", 14, -2, u"\0\0ab"sv},
        {"uneven8", 15, 14, u"o\0\x0F\0\0"sv},
        {"uneven8", 15, -1, u"\0ab"sv},
        {"current16", 10, 9, u"j\0\0\0\0\0"sv},
        {"current16", 10, -3,
         u"\0\x000A\xAAAA"
         u"ab"sv},
        {"older16", 10, 9, u"j\0\x000A\xAAAA\0\0"sv},
        {"older16", 10, -2, u"\0\0ab"sv},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.family + (' ' + std::to_string(row.start)));
        Image const& image = imageNamed(row.family, row.capacity);
        Laid receiver(image, letters(row.capacity));
        EXPECT_TRUE(
            isZeroedBut(receiver->mid(row.start, static_cast<int>(row.result.size())), row.result));
    }

    // Behind a text that does not fill the string is what was there before.
    Laid receiver(imageNamed("current8", 15), letters(14));
    EXPECT_TRUE(isZeroedBut(receiver->mid(13, 5), u"n\0\xAA\0\0"sv));
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
    {u"ab/c", u'/', true, u"ab/", 1, u"c\0/c\0"sv},
    {u"ab/c", u'/', false, u"ab", 1, u"c\0/c\0"sv},
    {u"aXbx", u'x', true, u"aX", 2, u"bx\0x\0"sv},
    {u"aXbx", u'x', false, u"a", 2, u"bx\0x\0"sv},
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
    {u"x\xE4y", 0xE4, false, u"x", 1, u"y\0y\0"sv},
    {u"x\x0141y", 0x0141, true, u"x\x0141", 1, u"y\0y\0"sv},
    {u"A\x0141y", 0x0141, false, u"A", 1, u"y\0y\0"sv},
    {u"\x0141"
     u"Ay",
     0x61, false, u"\x0141", 1, u"y\0y\0"sv},
    {u"x\xE4\xFFE4y", 0xFFE4, false, u"x\xE4", 1, u"y\0\xFFE4y\0"sv},
};

TEST_P(Slice, cutAtAUnit)
{
    for (auto const& row : cutRows) {
        if (!image.fits(row.text))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + std::to_string(row.unit) +
                     (row.include ? " with" : " without"));
        Laid receiver(image, row.text);
        auto const before = receiver.bytes();
        AnyString const& string = *receiver;
        EXPECT_TRUE(isZeroedBut(string.left(row.unit, row.include), row.result));
        EXPECT_EQ(receiver.bytes(), before);

        Value const result = receiver->leftNCut(row.unit, row.include);
        EXPECT_TRUE(isZeroedBut(result, row.result));
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

/// Without the unit the result is a copy of every byte, and the cut leaves a cleared receiver whose
/// spare word alone stays.
TEST_P(Slice, cutWithoutTheUnit)
{
    for (bool const include : {true, false}) {
        for (Text const text : {u"abc"sv, u""sv}) {
            Laid receiver(image, text);
            receiver.stale(text.size() + 1, u"/x");
            if (text.empty()) {
                receiver.stale(0, u"/");
            }
            auto const before = receiver.bytes();
            EXPECT_EQ(receiver->left(u'/', include).bytes, before);
            EXPECT_EQ(receiver->left(0xE4, include).bytes, before);
            EXPECT_EQ(receiver.bytes(), before);

            Value const result = receiver->leftNCut(u'/', include);
            EXPECT_EQ(result.bytes, before);
            EXPECT_EQ(receiver.bytes(), imageOf(image, 0, u"", 0, staleByte));
            EXPECT_TRUE(receiver.guardsStand());
        }
    }
}

TEST_P(Slice, leftNCutWalksThroughAFullString)
{
    std::u16string text(image.capacity, u'x');
    text[1] = u'/';
    text[image.capacity - 2] = u'/';
    Laid receiver(image, text);
    Unit const slash = u'/';
    EXPECT_TRUE(holds(receiver->leftNCut(slash, false), u"x"));
    EXPECT_TRUE(holds(receiver->leftNCut(slash, false), std::u16string(image.capacity - 4, u'x')));
    EXPECT_TRUE(holds(*receiver, u"x"));
    EXPECT_TRUE(holds(receiver->leftNCut(slash, false), u"x"));
    EXPECT_TRUE(holds(*receiver, u""));
    EXPECT_TRUE(receiver.guardsStand());
}

} // namespace
} // namespace strings
