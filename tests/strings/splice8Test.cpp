/// The splices of the 8-bit strings at their edges, on the current image and on both older ones:
/// positions, the capacity, ranges outside of the text, and the receiver as its own argument.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images8;
using namespace std::string_literals;
using namespace std::string_view_literals;

template <typename S>
class Splice8 : public testing::Test
{};
TYPED_TEST_SUITE(Splice8, AllImages, ImageName);

struct RangeRow
{
    int start;
    int count;
    std::size_t length;
    std::string_view after;
};

/// On "abcd". A string that ends empty is left without a terminator at its start.
constexpr RangeRow rangeRows[] = {
    {1, 2, 2, "ad\0d\0"sv}, {2, 2, 2, "ab\0d\0"sv}, {0, 4, 0, "abcd\0"sv},  {0, 1, 3, "bcd\0\0"sv},
    {3, 1, 3, "abc\0\0"sv}, {1, 3, 1, "a\0cd\0"sv}, {0, 3, 1, "d\0cd\0"sv}, {0, 0, 4, "abcd\0"sv},
    {2, 0, 4, "abcd\0"sv},  {4, 0, 4, "abcd\0"sv},
};

TYPED_TEST(Splice8, removesRanges)
{
    for (auto const& row : rangeRows) {
        SCOPED_TRACE(std::to_string(row.start) + ", " + std::to_string(row.count));
        Laid<TypeParam> receiver("abcd");
        receiver->remove(row.start, row.count);
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
    Laid<TypeParam> empty("");
    empty.stale(0, "x");
    empty->remove(0, 0);
    EXPECT_TRUE(became(empty, 0, "x"sv));
}

TYPED_TEST(Splice8, removesRangesOfAFullString)
{
    auto const text = guarded::letters(capacity<TypeParam>);
    int const n = intCapacity<TypeParam>;
    for (int const start : {0, 1, n - 2}) {
        Laid<TypeParam> receiver(text);
        receiver->remove(start, 2);
        auto expected = text;
        expected.erase(static_cast<std::size_t>(start), 2);
        EXPECT_TRUE(guarded::holds(*receiver, expected));
        EXPECT_TRUE(receiver.guardsStand());
    }
    Laid<TypeParam> receiver(text);
    receiver->remove(0, n);
    EXPECT_TRUE(became(receiver, 0, text + '\0'));
}

/// A count above the length gives a full string. What stands behind the range goes into it: the
/// object's own bytes, and zeros where the object ends.
TYPED_TEST(Splice8, aRangeBehindTheEndReadsOwnBytesOnly)
{
    int const n = intCapacity<TypeParam>;
    for (int const start : {0, 1, 3, 4}) {
        for (int const count : {5, 6, n - 1, n, n + 1, n + 3, 65536, INT_MAX - 4}) {
            SCOPED_TRACE(std::to_string(start) + ", " + std::to_string(count));
            Laid<TypeParam> receiver("abcd");
            receiver.stale(5, "q");
            auto const kept = static_cast<std::size_t>(start);
            auto const expected =
                "abcd"s.substr(0, kept) + ownBytes(*receiver, static_cast<long long>(start) + count,
                                                   capacity<TypeParam> - kept);
            receiver->remove(start, count);
            EXPECT_TRUE(guarded::holds(*receiver, expected));
            EXPECT_TRUE(receiver.guardsStand());
        }
    }
}

/// The same with all bytes written down, since the images differ in what follows the text.
TEST(SpliceRange8, bytesBehindTheTextInEachImage)
{
    Laid<_qvString8_allSize<6>> current("abcd");
    current->remove(1, 5);
    EXPECT_TRUE(guarded::holds(*current, "a\xAA\xAA\0\0\0"sv));

    Laid<_qvString8_allSize<7>> currentOdd("abcd");
    currentOdd->remove(1, 5);
    EXPECT_TRUE(guarded::holds(*currentOdd, "a\xAA\xAA\0\0\0\0"sv));

    Laid<_qvString8_evenSize_old<6>> even("abcd");
    even->remove(1, 5);
    EXPECT_TRUE(guarded::holds(*even, "a\xAA\xAA\x04\0\0"sv));

    Laid<_qvString8_UnevenSize_old<7>> uneven("abcd");
    uneven->remove(1, 5);
    EXPECT_TRUE(guarded::holds(*uneven, "a\xAA\xAA\x04\0\0\0"sv));
}

/// A negative start takes the whole text area, and no room is left for what follows.
TYPED_TEST(Splice8, aNegativeStartOfARangeKeepsTheTextArea)
{
    Laid<TypeParam> receiver("abcd");
    receiver.stale(5, "q");
    auto const area = textArea(*receiver).substr(0, capacity<TypeParam>);
    receiver->remove(-1, 5);
    EXPECT_TRUE(guarded::holds(*receiver, area));
    EXPECT_TRUE(receiver.guardsStand());
}

struct InsertRow
{
    int position;
    std::string_view inserted;
    std::string_view result;
};

/// On "abcd"; what does not fit into the capacity is lost at the end.
constexpr InsertRow insertRows[] = {
    {2, "xy", "abxycd"},
    {100, "xy", "abcdxy"},
    {0, "xy", "xyabcd"},
    {4, "xy", "abcdxy"},
    {5, "xy", "abcdxy"},
    {INT_MAX, "xy", "abcdxy"},
    {1, "wxyz", "awxyzbcd"},
    {3, "uvwxyz", "abcuvwxyzd"},
    {4, "uvwxyz", "abcduvwxyz"},
    {0, "uvwxyz", "uvwxyzabcd"},
    {2, "", "abcd"},
    {0, "", "abcd"},
    {9, "", "abcd"},
    {2, "x\0y"sv, "abx\0ycd"sv},
    {1, "\xE4",
     "a\xE4"
     "bcd"},
};

TYPED_TEST(Splice8, insertsAndCutsAtTheCapacity)
{
    for (auto const& row : insertRows) {
        SCOPED_TRACE(std::string(row.inserted) + " at " + std::to_string(row.position));
        Laid<TypeParam> receiver("abcd");
        auto const inserted = stringOf<TypeParam>(row.inserted);
        receiver->insert(row.position, inserted);
        auto const expected = cut<TypeParam>(row.result);
        EXPECT_TRUE(became(receiver, expected.size(), expected + '\0'));
    }
}

TYPED_TEST(Splice8, insertsIntoAFullString)
{
    auto const text = guarded::letters(capacity<TypeParam>);
    auto const inserted = stringOf<TypeParam>("##");
    int const n = intCapacity<TypeParam>;
    for (int const position : {0, 1, n - 1, n, n + 1}) {
        SCOPED_TRACE(position);
        Laid<TypeParam> receiver(text);
        receiver->insert(position, inserted);
        auto whole = text;
        whole.insert(std::min(static_cast<std::size_t>(position), whole.size()), "##");
        EXPECT_TRUE(became(receiver, capacity<TypeParam>, cut<TypeParam>(whole) + '\0'));
    }
}

TYPED_TEST(Splice8, insertingNothingIntoNothingWritesNothing)
{
    for (int const position : {0, 3}) {
        Laid<TypeParam> receiver("");
        receiver.stale(0, "x");
        receiver->insert(position, stringOf<TypeParam>(""));
        EXPECT_TRUE(became(receiver, 0, "x"sv));
    }
    Laid<TypeParam> receiver("");
    receiver->insert(0, stringOf<TypeParam>("abc"));
    EXPECT_TRUE(became(receiver, 3, "abc\0"sv));
}

/// A negative position takes the whole text area as the left part, stale bytes included.
TYPED_TEST(Splice8, insertAtANegativePositionFillsTheString)
{
    for (int const position : {-1, -2, -100, -65536, INT_MIN + 1, INT_MIN}) {
        for (auto const inserted : {"xy"sv, ""sv}) {
            SCOPED_TRACE(position);
            Laid<TypeParam> receiver("abcd");
            receiver.stale(5, "q");
            auto const area = textArea(*receiver).substr(0, capacity<TypeParam>);
            receiver->insert(position, stringOf<TypeParam>(inserted));
            EXPECT_TRUE(became(receiver, capacity<TypeParam>, area + '\0'));
        }
    }
}

struct OverflowRow
{
    std::string_view text;
    std::string_view from;
    std::string_view to;
    std::string_view results[3]; ///< at capacities 6, 7 and 8
};

/// A replacement that outgrows the capacity loses the tail and goes on over what is left.
constexpr OverflowRow overflowRows[] = {
    {"aXbXc", "x", "--", {"a--b--", "a--b--c", "a--b--c"}},
    {"abcabc", "b", "XXXX", {"aXXXXc", "aXXXXca", "aXXXXcaX"}},
    {"ababab", "a", "xxx", {"xxxbxx", "xxxbxxx", "xxxbxxxb"}},
    // The last occurrence is cut in half by the first splice, and is no occurrence any more.
    {"ab__ab", "ab", "xyz", {"xyz__a", "xyz__xy", "xyz__xyz"}},
    {"aaaaaa", "a", "bb", {"bbbbbb", "bbbbbbb", "bbbbbbbb"}},
    {"abcdef", "f", "12", {"abcde1", "abcde12", "abcde12"}},
    {"abcdef", "abcdef", "123456", {"123456", "123456", "123456"}},
};

template <typename S>
class SpliceOverflow8 : public testing::Test
{};
using SmallImages = testing::Types<_qvString8_allSize<6>, _qvString8_allSize<7>,
                                   _qvString8_allSize<8>, _qvString8_evenSize_old<6>,
                                   _qvString8_evenSize_old<8>, _qvString8_UnevenSize_old<7>>;
TYPED_TEST_SUITE(SpliceOverflow8, SmallImages, ImageName);

TYPED_TEST(SpliceOverflow8, replacesAsFarAsThereIsRoom)
{
    for (auto const& row : overflowRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::string(row.from) + " by " +
                     std::string(row.to));
        auto const expected = row.results[capacity<TypeParam> - 6];
        auto const from = stringOf<TypeParam>(row.from);
        auto const to = stringOf<TypeParam>(row.to);
        Laid<TypeParam> folded(row.text);
        folded->replace(stringOf<TypeParam>(upperOf(row.from)), to);
        EXPECT_TRUE(guarded::holds(*folded, expected));
        EXPECT_TRUE(folded.guardsStand());

        Laid<TypeParam> exact(row.from == "x" ? "axbxc"sv : row.text);
        exact->replaceCaseSen(from, to);
        EXPECT_TRUE(guarded::holds(*exact, expected));
        EXPECT_TRUE(exact.guardsStand());
    }
}

TYPED_TEST(Splice8, replacesThroughoutAFullString)
{
    Laid<TypeParam> receiver(std::string(capacity<TypeParam>, 'a'));
    receiver->replace(stringOf<TypeParam>("A"), stringOf<TypeParam>("bb"));
    EXPECT_TRUE(
        became(receiver, capacity<TypeParam>, std::string(capacity<TypeParam>, 'b') + '\0'));
    receiver->replaceCaseSen(stringOf<TypeParam>("bb"), stringOf<TypeParam>("c"));
    auto const shrunk =
        std::string(capacity<TypeParam> / 2, 'c') + std::string(capacity<TypeParam> % 2, 'b');
    EXPECT_TRUE(guarded::holds(*receiver, shrunk));
    receiver->remove('C');
    EXPECT_TRUE(guarded::textOf(*receiver) == std::string(capacity<TypeParam> % 2, 'b'));
    EXPECT_TRUE(receiver.guardsStand());
}

/// Each step reads what is there when it runs: the receiver is emptied and gets its left part
/// before the inserted text is read.
struct InsertSelfRow
{
    std::string_view text;
    int position;
    std::string_view result;
};

constexpr InsertSelfRow insertSelfRows[] = {
    {"abcd", 2, "ababcd"}, {"abcd", 0, "abcd"},     {"abcd", 4, "abcdabcd"},
    {"abcd", 1, "aabcd"},  {"abcd", 9, "abcdabcd"}, {"", 0, ""},
    {"", 5, ""},           {"a", 1, "aa"},
};

TYPED_TEST(Splice8, insertsAStringIntoItself)
{
    for (auto const& row : insertSelfRows) {
        SCOPED_TRACE(std::string(row.text) + " at " + std::to_string(row.position));
        Laid<TypeParam> receiver(row.text);
        receiver->insert(row.position, *receiver);
        EXPECT_TRUE(guarded::holds(*receiver, cut<TypeParam>(row.result)));
        EXPECT_TRUE(receiver.guardsStand());
    }
    Laid<TypeParam> receiver("abcd");
    auto const area = textArea(*receiver).substr(0, capacity<TypeParam>);
    receiver->insert(-1, *receiver);
    EXPECT_TRUE(became(receiver, capacity<TypeParam>, area + '\0'));
}

TYPED_TEST(Splice8, replacesAStringByAnother)
{
    for (auto const to : {"x"sv, "uvwxyz"sv, "abc"sv, "abcabc"sv}) {
        SCOPED_TRACE(to);
        Laid<TypeParam> folded("abc");
        folded->replace(*folded, stringOf<TypeParam>(to));
        EXPECT_TRUE(guarded::holds(*folded, to));
        EXPECT_TRUE(folded.guardsStand());

        Laid<TypeParam> exact("abc");
        exact->replaceCaseSen(*exact, stringOf<TypeParam>(to));
        EXPECT_TRUE(guarded::holds(*exact, to));
        EXPECT_TRUE(exact.guardsStand());
    }
}

struct ReplaceBySelfRow
{
    std::string_view text;
    std::string_view from;
    std::string_view result;
};

/// The text put in is the left part that the splice has just made of the receiver.
constexpr ReplaceBySelfRow replaceBySelfRows[] = {
    {"abc", "b", "aac"},   {"bbb", "b", "bb"},        {"abcb", "b", "aacb"}, {"bab", "b", "ab"},
    {"xbyb", "b", "xxyb"}, {"abc", "c", "abab"},      {"abc", "a", "bc"},    {"abc", "x", "abc"},
    {"abcd", "", "abcd"},  {"abcxd", "x", "abcabcd"},
};

TYPED_TEST(Splice8, replacesByTheReceiverItself)
{
    for (auto const& row : replaceBySelfRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::string(row.from));
        Laid<TypeParam> folded(row.text);
        folded->replace(stringOf<TypeParam>(upperOf(row.from)), *folded);
        EXPECT_TRUE(guarded::holds(*folded, cut<TypeParam>(row.result)));
        EXPECT_TRUE(folded.guardsStand());

        Laid<TypeParam> exact(row.text);
        exact->replaceCaseSen(stringOf<TypeParam>(row.from), *exact);
        EXPECT_TRUE(guarded::holds(*exact, cut<TypeParam>(row.result)));
        EXPECT_TRUE(exact.guardsStand());
    }
}

/// Nothing is left to search in, and no piece was copied that would end the text.
TYPED_TEST(Splice8, aStringTakenOutOfItselfLeavesItsOldBytes)
{
    auto const emptied = [](auto const& change) {
        Laid<TypeParam> receiver("abc");
        change(*receiver);
        EXPECT_TRUE(became(receiver, 0, "abc\0"sv));
    };
    emptied([](TypeParam& s) { s.replace(s, s); });
    emptied([](TypeParam& s) { s.replaceCaseSen(s, s); });
    emptied([](TypeParam& s) { s.replace(s, stringOf<TypeParam>("")); });
    emptied([](TypeParam& s) { s.replaceCaseSen(s, stringOf<TypeParam>("")); });
    emptied([](TypeParam& s) { s.remove(s); });
    emptied([](TypeParam& s) { s.removeCaseSens(s); });
}

TYPED_TEST(Splice8, anEmptyStringTakenOutOfItselfStaysAsItIs)
{
    auto const unchanged = [](auto const& change) {
        Laid<TypeParam> receiver("");
        receiver.stale(0, "x");
        change(*receiver);
        EXPECT_TRUE(became(receiver, 0, "x"sv));
    };
    unchanged([](TypeParam& s) { s.replace(s, s); });
    unchanged([](TypeParam& s) { s.replaceCaseSen(s, stringOf<TypeParam>("abc")); });
    unchanged([](TypeParam& s) { s.remove(s); });
    unchanged([](TypeParam& s) { s.removeCaseSens(s); });
    unchanged([](TypeParam& s) { s.insert(0, s); });
}

TYPED_TEST(Splice8, aFullStringTakenOutOfItself)
{
    auto const text = guarded::letters(capacity<TypeParam>);
    Laid<TypeParam> removed(text);
    removed->remove(*removed);
    EXPECT_TRUE(became(removed, 0, text + '\0'));

    Laid<TypeParam> grown(text);
    grown->insert(intCapacity<TypeParam> / 2, *grown);
    auto const half = text.substr(0, capacity<TypeParam> / 2);
    auto const expected = half + half + text.substr(half.size());
    EXPECT_TRUE(became(grown, capacity<TypeParam>, cut<TypeParam>(expected) + '\0'));
}

} // namespace
