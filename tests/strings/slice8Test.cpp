/// Parts of 8-bit strings by value, on the current image and on both older ones.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images8;
using namespace std::string_view_literals;

template <typename S>
class Slice8 : public testing::Test
{};
TYPED_TEST_SUITE(Slice8, AllImages, ImageName);

struct LeftRow
{
    std::string_view text;
    int count;
    std::string_view result;
};

constexpr LeftRow leftRows[] = {
    {"abcd", 2, "ab"},
    {"abcd", 0, ""},
    {"abcd", 1, "a"},
    {"abcd", 4, "abcd"},
    {"abcd", 9, "abcd"},
    {"abcd", 65535, "abcd"},
    {"abcd", 65536, "abcd"},
    {"abcd", 65541, "abcd"},
    {"abcd", INT_MAX, "abcd"},
    {"", 0, ""},
    {"", 3, ""},
    {"a\0b"sv, 2, "a\0"sv},
};

/// Behind the part that was taken the result is all zero, whatever stood behind the text.
TYPED_TEST(Slice8, leftByCount)
{
    for (auto const& row : leftRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::to_string(row.count));
        Laid<TypeParam> receiver(row.text);
        auto const before = receiver.bytes();
        TypeParam const& string = *receiver;
        EXPECT_TRUE(areaIs(string.left(row.count), row.result.size(), row.result, 0));
        EXPECT_EQ(receiver.bytes(), before);
    }
}

TYPED_TEST(Slice8, leftAroundTheCapacity)
{
    auto const text = guarded::letters(capacity<TypeParam>);
    auto const full = stringOf<TypeParam>(text);
    int const n = intCapacity<TypeParam>;
    EXPECT_TRUE(
        areaIs(full.left(n - 1), capacity<TypeParam> - 1, text.substr(0, text.size() - 1), 0));
    EXPECT_TRUE(areaIs(full.left(n), capacity<TypeParam>, text, 0));
    EXPECT_TRUE(areaIs(full.left(n + 1), capacity<TypeParam>, text, 0));
}

/// A negative count is no 'all': it gives the whole text area, stale bytes included.
TYPED_TEST(Slice8, leftByANegativeCountGivesTheTextArea)
{
    for (auto const text : {"abcd"sv, ""sv}) {
        for (int const count : {-1, -2, -intCapacity<TypeParam>, -65536, INT_MIN}) {
            SCOPED_TRACE(count);
            Laid<TypeParam> receiver(text);
            receiver.stale(5, "q");
            auto const area = textArea(*receiver).substr(0, capacity<TypeParam>);
            EXPECT_TRUE(guarded::holds(receiver->left(count), area));
        }
    }
}

struct MidRow
{
    int start;
    int count;
    std::string_view result;
};

/// On "abcd".
constexpr MidRow midRows[] = {
    {1, 2, "bc"}, {0, 4, "abcd"}, {0, 1, "a"}, {3, 1, "d"},      {2, 2, "cd"},
    {0, 0, ""},   {2, 0, ""},     {-7, 0, ""}, {INT_MAX, 0, ""}, {INT_MIN, 0, ""},
};

TYPED_TEST(Slice8, midInsideTheText)
{
    for (auto const& row : midRows) {
        SCOPED_TRACE(std::to_string(row.start) + ", " + std::to_string(row.count));
        Laid<TypeParam> receiver("abcd");
        auto const before = receiver.bytes();
        TypeParam const& string = *receiver;
        EXPECT_TRUE(guarded::holds(string.mid(row.start, row.count), row.result));
        EXPECT_EQ(receiver.bytes(), before);
    }
}

/// Neither start nor count is held against the length: a range past the end gives stale bytes.
TYPED_TEST(Slice8, midPastTheEnd)
{
    Laid<TypeParam> receiver("abcd");
    receiver.stale(5, "xy");
    EXPECT_TRUE(guarded::holds(receiver->mid(3, 3), "d\0x"sv));
    EXPECT_TRUE(guarded::holds(receiver->mid(5, 1), "x"));
    EXPECT_TRUE(guarded::holds(receiver->mid(5, 2), "xy"));
    EXPECT_TRUE(guarded::holds(receiver->mid(3, 5), ownBytes(*receiver, 3, 5)));
}

/// Out of the text area a range meets the object's other bytes, and zeros outside of the object.
TYPED_TEST(Slice8, midOutsideOfTheTextReadsOwnBytesOnly)
{
    int const n = intCapacity<TypeParam>;
    Laid<TypeParam> receiver("abcd");
    receiver.stale(5, "xy");
    for (int const start : {-1000, -4, -3, -2, -1, 0, 1, n - 1, n, n + 1, n + 2, n + 3, n + 4,
                            n + 5, 65535, INT_MAX - 3, INT_MAX, INT_MIN, INT_MIN + 1}) {
        for (int const count :
             {1, 2, 4, n - 1, n, n + 1, 65535, 65536, 65541, INT_MAX, -1, INT_MIN}) {
            SCOPED_TRACE(std::to_string(start) + ", " + std::to_string(count));
            bool const isCut = count < 0 || count > n;
            auto const length = isCut ? capacity<TypeParam> : static_cast<std::size_t>(count);
            EXPECT_TRUE(
                guarded::holds(receiver->mid(start, count), ownBytes(*receiver, start, length)));
        }
    }
    EXPECT_TRUE(receiver.guardsStand());
}

/// The same with all bytes written down, since the images differ in what stands around the text.
TEST(SliceBytes8, bytesAroundTheTextInEachImage)
{
    auto const full = guarded::letters(14);

    Laid<_qvString8_allSize<14>> current(full);
    EXPECT_TRUE(guarded::holds(current->mid(13, 13), "n\0\xAA\0\0\0\0\0\0\0\0\0\0"sv));
    EXPECT_TRUE(guarded::holds(current->mid(-3, 5), "\0\x0E\0ab"sv));

    Laid<_qvString8_allSize<15>> currentOdd(full);
    EXPECT_TRUE(guarded::holds(currentOdd->mid(13, 5), "n\0\xAA\0\0"sv));

    // The older image has its filler and its length behind the text.
    Laid<_qvString8_evenSize_old<14>> even(full);
    EXPECT_TRUE(guarded::holds(even->mid(13, 13), "n\0\xAA\x0E\0\0\0\0\0\0\0\0\0"sv));
    EXPECT_TRUE(guarded::holds(even->mid(-2, 4), "\0\0ab"sv));

    Laid<_qvString8_UnevenSize_old<15>> uneven(guarded::letters(15));
    EXPECT_TRUE(guarded::holds(uneven->mid(14, 5), "o\0\x0F\0\0"sv));
    EXPECT_TRUE(guarded::holds(uneven->mid(-1, 3), "\0ab"sv));
}

struct SeparatorRow
{
    std::string_view text;
    char separator;
    bool withSeparator;
    std::string_view result;
};

/// At position 0 the flag works the other way round: with it the result is empty, without it the
/// result is the separator as the call gave it.
constexpr SeparatorRow separatorRows[] = {
    {"ab/c", '/', true, "ab/"},      {"ab/c", '/', false, "ab"},   {"/abc", '/', true, ""},
    {"/abc", '/', false, "/"},       {"aXbx", 'x', true, "aX"},    {"aXbx", 'x', false, "a"},
    {"Abc", 'a', false, "a"},        {"abc", 'A', false, "A"},     {"Abc", 'a', true, ""},
    {"ab/", '/', true, "ab/"},       {"ab/", '/', false, "ab"},    {"/", '/', true, ""},
    {"/", '/', false, "/"},          {"a/b/c", '/', true, "a/"},   {"//a", '/', false, "/"},
    {"a\0b"sv, '\0', true, "a\0"sv}, {"a\0b"sv, '\0', false, "a"}, {"x\xE4y", '\xE4', false, "x"},
};

/// Behind the part that was taken the result is all zero.
TYPED_TEST(Slice8, leftBySeparator)
{
    for (auto const& row : separatorRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + row.separator +
                     (row.withSeparator ? " with" : " without"));
        Laid<TypeParam> receiver(row.text);
        auto const before = receiver.bytes();
        TypeParam const& string = *receiver;
        EXPECT_TRUE(areaIs(string.left(row.separator, row.withSeparator), row.result.size(),
                           row.result, 0));
        EXPECT_EQ(receiver.bytes(), before);
    }
}

/// Without a separator the result is a copy of the whole string, stale bytes included.
TYPED_TEST(Slice8, leftWithoutASeparatorCopiesAll)
{
    for (bool const withSeparator : {true, false}) {
        Laid<TypeParam> receiver("abc");
        receiver.stale(4, "/x");
        EXPECT_TRUE(areaIs(receiver->left('/', withSeparator), 3, "abc\0/x"sv, guarded::staleByte));
        EXPECT_TRUE(
            areaIs(receiver->left('\xE4', withSeparator), 3, "abc\0/x"sv, guarded::staleByte));

        Laid<TypeParam> empty("");
        empty.stale(0, "/");
        EXPECT_TRUE(areaIs(empty->left('/', withSeparator), 0, "/"sv, guarded::staleByte));
    }
}

struct CutRow
{
    std::string_view text;
    char separator;
    bool withSeparator;
    std::string_view result;
    std::size_t length;
    std::string_view after;
};

/// The separator leaves the receiver in either case. With nothing behind it only the length
/// changes.
constexpr CutRow cutRows[] = {
    {"a/b/c", '/', false, "a", 3, "b/c\0c\0"sv},
    {"a/b/c", '/', true, "a/", 3, "b/c\0c\0"sv},
    {"/abc", '/', true, "", 3, "abc\0\0"sv},
    {"/abc", '/', false, "/", 3, "abc\0\0"sv},
    {"aXb", 'x', false, "a", 1, "b\0b\0"sv},
    {"aXb", 'x', true, "aX", 1, "b\0b\0"sv},
    {"Abc", 'a', false, "a", 2, "bc\0\0"sv},
    {"ab/", '/', false, "ab", 0, "ab/\0"sv},
    {"ab/", '/', true, "ab/", 0, "ab/\0"sv},
    {"/", '/', false, "/", 0, "/\0"sv},
    {"/", '/', true, "", 0, "/\0"sv},
    {"a//b", '/', false, "a", 2, "/b\0b\0"sv},
    {"a\0b"sv, '\0', false, "a", 1, "b\0b\0"sv},
};

TYPED_TEST(Slice8, leftNCut)
{
    for (auto const& row : cutRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + row.separator +
                     (row.withSeparator ? " with" : " without"));
        Laid<TypeParam> receiver(row.text);
        TypeParam const result = receiver->leftNCut(row.separator, row.withSeparator);
        EXPECT_TRUE(areaIs(result, row.result.size(), row.result, 0));
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

/// Without a separator everything goes into the result, and the receiver is cleared; only the spare
/// bytes of its image stay.
TYPED_TEST(Slice8, leftNCutWithoutASeparatorClears)
{
    for (bool const withSeparator : {true, false}) {
        Laid<TypeParam> receiver("abc");
        receiver.stale(4, "/x");
        TypeParam const result = receiver->leftNCut('/', withSeparator);
        EXPECT_TRUE(areaIs(result, 3, "abc\0/x"sv, guarded::staleByte));
        EXPECT_EQ(receiver.bytes(), guarded::imageBytes<TypeParam>(0, "", 0, guarded::staleByte));
        EXPECT_TRUE(receiver.guardsStand());

        Laid<TypeParam> empty("");
        empty.stale(0, "/x");
        TypeParam const nothing = empty->leftNCut('/', withSeparator);
        EXPECT_TRUE(areaIs(nothing, 0, "/x"sv, guarded::staleByte));
        EXPECT_EQ(empty.bytes(), guarded::imageBytes<TypeParam>(0, "", 0, guarded::staleByte));
    }
}

TYPED_TEST(Slice8, leftNCutWalksThroughAFullString)
{
    std::string text(capacity<TypeParam>, 'x');
    text[1] = '/';
    text[capacity<TypeParam> - 2] = '/';
    Laid<TypeParam> receiver(text);
    EXPECT_TRUE(guarded::holds(receiver->leftNCut('/', false), "x"));
    EXPECT_TRUE(
        guarded::holds(receiver->leftNCut('/', false), std::string(capacity<TypeParam> - 4, 'x')));
    EXPECT_TRUE(guarded::holds(*receiver, "x"));
    EXPECT_TRUE(guarded::holds(receiver->leftNCut('/', false), "x"));
    EXPECT_TRUE(guarded::holds(*receiver, ""));
    EXPECT_TRUE(receiver.guardsStand());
}

} // namespace
