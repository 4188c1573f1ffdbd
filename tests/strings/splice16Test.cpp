/// The rebuilds of the 16-bit strings at their edges: positions, the capacity, ranges outside of
/// the text, and the receiver as its own argument.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images16;
using namespace std::string_view_literals;

template <typename S>
class Splice16 : public testing::Test
{};
TYPED_TEST_SUITE(Splice16, MainImages, ImageName);

/// On "abcd". A string that ends empty is left without a terminator at its start.
TYPED_TEST(Splice16, removesRanges)
{
    struct Row
    {
        int start;
        int count;
        std::size_t length;
        Text after;
    };
    constexpr Row rows[] = {
        {1, 2, 2, u"ad\0d\0"sv}, {2, 2, 2, u"ab\0d\0"sv}, {0, 4, 0, u"abcd\0"sv},
        {0, 1, 3, u"bcd\0\0"sv}, {3, 1, 3, u"abc\0\0"sv}, {1, 3, 1, u"a\0cd\0"sv},
        {0, 3, 1, u"d\0cd\0"sv}, {0, 0, 4, u"abcd\0"sv},  {2, 0, 4, u"abcd\0"sv},
        {4, 0, 4, u"abcd\0"sv},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(std::to_string(row.start) + ", " + std::to_string(row.count));
        Laid<TypeParam> receiver(u"abcd");
        receiver->remove(row.start, row.count);
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
    Laid<TypeParam> empty(u"");
    empty.stale(0, u"x");
    empty->remove(0, 0);
    EXPECT_TRUE(became(empty, 0, u"x"sv));
}

TYPED_TEST(Splice16, removesRangesOfAFullString)
{
    auto const text = letters(capacity<TypeParam>);
    int const n = intCapacity<TypeParam>;
    for (int const start : {0, 1, n - 2}) {
        Laid<TypeParam> receiver(text);
        receiver->remove(start, 2);
        auto expected = text;
        expected.erase(static_cast<std::size_t>(start), 2);
        EXPECT_TRUE(holds(*receiver, expected));
        EXPECT_TRUE(receiver.guardsStand());
    }
    Laid<TypeParam> receiver(text);
    receiver->remove(0, n);
    EXPECT_TRUE(became(receiver, 0, text + u'\0'));
}

/// A count above the length gives a full string. What stands behind the range goes into it: the
/// object's own bytes, and zeros where the object ends.
TYPED_TEST(Splice16, aRangeBehindTheEndReadsOwnBytesOnly)
{
    int const n = intCapacity<TypeParam>;
    for (int const start : {0, 1, 3, 4}) {
        for (int const count : {5, 6, n - 1, n, n + 1, n + 2, n + 3, 65536, INT_MAX - 4}) {
            SCOPED_TRACE(std::to_string(start) + ", " + std::to_string(count));
            Laid<TypeParam> receiver(u"abcd");
            receiver.stale(5, u"q");
            auto const kept = static_cast<std::size_t>(start);
            auto const expected = std::u16string(u"abcd").substr(0, kept) +
                                  ownUnits(*receiver, static_cast<long long>(start) + count,
                                           capacity<TypeParam> - kept);
            receiver->remove(start, count);
            EXPECT_TRUE(holds(*receiver, expected));
            EXPECT_TRUE(receiver.guardsStand());
        }
    }
}

/// The same with all units written down, since the older image has its other fields behind the
/// text.
TEST(SpliceRange16, unitsBehindTheTextInEachImage)
{
    Laid<_qvString<10>> current(u"abcd");
    current->remove(1, 8);
    EXPECT_TRUE(holds(*current, u"a\xAAAA\xAAAA\0\0\0\0\0\0\0"sv));
    EXPECT_TRUE(current.guardsStand());

    Laid<_qvString_old<10>> older(u"abcd");
    older->remove(1, 8);
    EXPECT_TRUE(holds(*older, u"a\xAAAA\xAAAA\x0004\xAAAA\0\0\0\0\0"sv));
    EXPECT_TRUE(older.guardsStand());
}

/// Far ahead of the object there is nothing of its own left to read.
TYPED_TEST(Splice16, aRangeFarAheadOfTheObjectGivesZeros)
{
    Laid<TypeParam> receiver(u"abcd");
    receiver.stale(5, u"q");
    receiver->remove(1, INT_MIN);
    EXPECT_TRUE(holds(*receiver, u"a" + std::u16string(capacity<TypeParam> - 1, u'\0')));
    EXPECT_TRUE(receiver.guardsStand());
}

/// A negative start takes the whole text area, and no room is left for what follows.
TYPED_TEST(Splice16, aNegativeStartOfARangeKeepsTheTextArea)
{
    Laid<TypeParam> receiver(u"abcd");
    receiver.stale(5, u"q");
    auto const area = textArea(*receiver);
    receiver->remove(-1, 5);
    EXPECT_TRUE(holds(*receiver, area));
    EXPECT_TRUE(receiver.guardsStand());
}

struct InsertRow
{
    int position;
    Text inserted;
    Text result;
};

/// On "abcd"; what does not fit into the capacity is lost at the end.
constexpr InsertRow insertRows[] = {
    {2, u"xy", u"abxycd"},
    {100, u"xy", u"abcdxy"},
    {0, u"xy", u"xyabcd"},
    {4, u"xy", u"abcdxy"},
    {5, u"xy", u"abcdxy"},
    {INT_MAX, u"xy", u"abcdxy"},
    {1, u"wxyz", u"awxyzbcd"},
    {3, u"uvwxyz01", u"abcuvwxyz01d"},
    {4, u"uvwxyz01", u"abcduvwxyz01"},
    {0, u"uvwxyz01", u"uvwxyz01abcd"},
    {2, u"", u"abcd"},
    {0, u"", u"abcd"},
    {9, u"", u"abcd"},
    {2, u"x\0y"sv, u"abx\0ycd"sv},
    {1, u"\xE4\x0141",
     u"a\xE4\x0141"
     u"bcd"},
};

TYPED_TEST(Splice16, insertsAndCutsAtTheCapacity)
{
    for (auto const& row : insertRows) {
        SCOPED_TRACE(shown(row.inserted) + " at " + std::to_string(row.position));
        Laid<TypeParam> receiver(u"abcd");
        auto const inserted = stringOf<TypeParam>(row.inserted);
        receiver->insert(row.position, inserted);
        auto const expected = cut<TypeParam>(std::u16string(row.result));
        EXPECT_TRUE(became(receiver, expected.size(), expected + u'\0'));
    }
}

TEST(SpliceExamples16, fiveUnitsIntoEightAtTen)
{
    Laid<_qvString<10>> current(u"abcdefgh");
    current->insert(2, stringOf<_qvString<10>>(u"12345"));
    EXPECT_TRUE(became(current, 10, u"ab12345cde\0"sv));
    Laid<_qvString_old<10>> older(u"abcdefgh");
    older->insert(2, stringOf<_qvString_old<10>>(u"12345"));
    EXPECT_TRUE(became(older, 10, u"ab12345cde\0"sv));
}

TYPED_TEST(Splice16, insertsIntoAFullString)
{
    auto const text = letters(capacity<TypeParam>);
    auto const inserted = stringOf<TypeParam>(u"##");
    int const n = intCapacity<TypeParam>;
    for (int const position : {0, 1, n - 1, n, n + 1}) {
        SCOPED_TRACE(position);
        Laid<TypeParam> receiver(text);
        receiver->insert(position, inserted);
        auto whole = text;
        whole.insert(std::min(static_cast<std::size_t>(position), whole.size()), u"##");
        EXPECT_TRUE(became(receiver, capacity<TypeParam>, cut<TypeParam>(whole) + u'\0'));
    }
}

TYPED_TEST(Splice16, insertingNothingIntoNothingWritesNothing)
{
    for (int const position : {0, 3}) {
        Laid<TypeParam> receiver(u"");
        receiver.stale(0, u"x");
        receiver->insert(position, stringOf<TypeParam>(u""));
        EXPECT_TRUE(became(receiver, 0, u"x"sv));
    }
    Laid<TypeParam> receiver(u"");
    receiver->insert(0, stringOf<TypeParam>(u"abc"));
    EXPECT_TRUE(became(receiver, 3, u"abc\0"sv));
}

/// A negative position is clipped only at the capacity: the head is the whole text area.
TYPED_TEST(Splice16, insertAtANegativePositionFillsTheString)
{
    for (int const position : {-1, -2, -100, -65536, INT_MIN + 1, INT_MIN}) {
        for (auto const inserted : {u"xy"sv, u""sv}) {
            SCOPED_TRACE(position);
            Laid<TypeParam> receiver(u"abcd");
            receiver.stale(5, u"q");
            auto const area = textArea(*receiver);
            receiver->insert(position, stringOf<TypeParam>(inserted));
            EXPECT_TRUE(became(receiver, capacity<TypeParam>, area + u'\0'));
        }
    }
}

struct OverflowRow
{
    Text text;
    Text from;
    Text to;
    Text atTen;
    Text atFifteen;
};

/// A replacement that outgrows the capacity loses the tail and goes on over what is left.
constexpr OverflowRow overflowRows[] = {
    {u"aXbXc", u"x", u"----", u"a----b----", u"a----b----c"},
    {u"abcabc", u"b", u"XXXXXX", u"aXXXXXXcaX", u"aXXXXXXcaXXXXXX"},
    {u"ababababab", u"a", u"xxx", u"xxxbxxxbxx", u"xxxbxxxbxxxbxxx"},
    // The last occurrence is cut in half by the first rebuild, and is no occurrence any more.
    {u"ab______ab", u"ab", u"xyz", u"xyz______a", u"xyz______xyz"},
    {u"aaaaaaaaaa", u"a", u"bb", u"bbbbbbbbbb", u"bbbbbbbbbbbbbbb"},
};

template <typename S>
class SpliceOverflow16 : public testing::Test
{};
using SmallImages =
    testing::Types<_qvString<10>, _qvString<15>, _qvString_old<10>, _qvString_old<15>>;
TYPED_TEST_SUITE(SpliceOverflow16, SmallImages, ImageName);

TYPED_TEST(SpliceOverflow16, replacesAsFarAsThereIsRoom)
{
    for (auto const& row : overflowRows) {
        SCOPED_TRACE(shown(row.text) + ", " + shown(row.from) + " by " + shown(row.to));
        auto const expected = capacity<TypeParam> == 10 ? row.atTen : row.atFifteen;
        auto const to = stringOf<TypeParam>(row.to);
        Laid<TypeParam> folded(row.text);
        folded->replace(stringOf<TypeParam>(upperOf(row.from)), to);
        EXPECT_TRUE(holds(*folded, expected));
        EXPECT_TRUE(folded.guardsStand());

        Laid<TypeParam> exact(row.from == u"x" ? u"axbxc"sv : row.text);
        exact->replaceCaseSen(stringOf<TypeParam>(row.from), to);
        EXPECT_TRUE(holds(*exact, expected));
        EXPECT_TRUE(exact.guardsStand());
    }
}

TYPED_TEST(Splice16, replacesThroughoutAFullString)
{
    auto const n = capacity<TypeParam>;
    Laid<TypeParam> receiver(std::u16string(n, u'a'));
    receiver->replace(stringOf<TypeParam>(u"A"), stringOf<TypeParam>(u"bb"));
    EXPECT_TRUE(became(receiver, n, std::u16string(n, u'b') + u'\0'));
    receiver->replaceCaseSen(stringOf<TypeParam>(u"bb"), stringOf<TypeParam>(u"c"));
    auto const odd = std::u16string(n % 2, u'b');
    EXPECT_TRUE(holds(*receiver, std::u16string(n / 2, u'c') + odd));
    receiver->remove(Unit{u'C'});
    EXPECT_EQ(textOf(*receiver), odd);
    EXPECT_TRUE(receiver.guardsStand());
}

/// Each step reads what is there when it runs: the receiver is emptied and gets its head before the
/// inserted text is read.
TYPED_TEST(Splice16, insertsAStringIntoItself)
{
    struct Row
    {
        Text text;
        int position;
        Text result;
    };
    constexpr Row rows[] = {
        {u"abcd", 2, u"ababcd"}, {u"abcd", 0, u"abcd"},     {u"abcd", 4, u"abcdabcd"},
        {u"abcd", 1, u"aabcd"},  {u"abcd", 9, u"abcdabcd"}, {u"", 0, u""},
        {u"", 5, u""},           {u"a", 1, u"aa"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(shown(row.text) + " at " + std::to_string(row.position));
        Laid<TypeParam> receiver(row.text);
        receiver->insert(row.position, *receiver);
        EXPECT_TRUE(holds(*receiver, row.result));
        EXPECT_TRUE(receiver.guardsStand());
    }
    Laid<TypeParam> receiver(u"abcd");
    auto const area = textArea(*receiver);
    receiver->insert(-1, *receiver);
    EXPECT_TRUE(became(receiver, capacity<TypeParam>, area + u'\0'));
}

TYPED_TEST(Splice16, replacesAStringByAnother)
{
    for (Text const to : {u"x"sv, u"uvwxyz"sv, u"abc"sv, u"abcabc"sv}) {
        SCOPED_TRACE(shown(to));
        Laid<TypeParam> folded(u"abc");
        folded->replace(*folded, stringOf<TypeParam>(to));
        EXPECT_TRUE(holds(*folded, to));
        EXPECT_TRUE(folded.guardsStand());

        Laid<TypeParam> exact(u"abc");
        exact->replaceCaseSen(*exact, stringOf<TypeParam>(to));
        EXPECT_TRUE(holds(*exact, to));
        EXPECT_TRUE(exact.guardsStand());
    }
}

/// The text put in is the head that the rebuild has just made of the receiver.
TYPED_TEST(Splice16, replacesByTheReceiverItself)
{
    struct Row
    {
        Text text;
        Text from;
        Text result;
    };
    constexpr Row rows[] = {
        {u"abc", u"b", u"aac"},       {u"bbb", u"b", u"bb"},    {u"abcb", u"b", u"aacb"},
        {u"bab", u"b", u"ab"},        {u"xbyb", u"b", u"xxyb"}, {u"abc", u"c", u"abab"},
        {u"abc", u"a", u"bc"},        {u"abc", u"x", u"abc"},   {u"abcd", u"", u"abcd"},
        {u"abcxd", u"x", u"abcabcd"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(shown(row.text) + ", " + shown(row.from));
        Laid<TypeParam> folded(row.text);
        folded->replace(stringOf<TypeParam>(upperOf(row.from)), *folded);
        EXPECT_TRUE(holds(*folded, row.result));
        EXPECT_TRUE(folded.guardsStand());

        Laid<TypeParam> exact(row.text);
        exact->replaceCaseSen(stringOf<TypeParam>(row.from), *exact);
        EXPECT_TRUE(holds(*exact, row.result));
        EXPECT_TRUE(exact.guardsStand());
    }
}

/// Nothing is left to search in, and no piece was copied that would end the text.
TYPED_TEST(Splice16, aStringTakenOutOfItselfLeavesItsOldUnits)
{
    using S = TypeParam;
    auto const emptied = [](Text text, auto const& change) {
        Laid<S> receiver(text);
        change(*receiver);
        EXPECT_TRUE(became(receiver, 0, std::u16string(text) + u'\0'));
    };
    for (auto const& text : {std::u16string(u"abc"), letters(capacity<S>)}) {
        emptied(text, [](S& s) { s.replace(s, s); });
        emptied(text, [](S& s) { s.replaceCaseSen(s, s); });
        emptied(text, [](S& s) { s.replace(s, stringOf<S>(u"")); });
        emptied(text, [](S& s) { s.replaceCaseSen(s, stringOf<S>(u"")); });
        emptied(text, [](S& s) { s.remove(s); });
        emptied(text, [](S& s) { s.removeCaseSens(s); });
    }
}

TYPED_TEST(Splice16, anEmptyStringTakenOutOfItselfStaysAsItIs)
{
    using S = TypeParam;
    auto const unchanged = [](auto const& change) {
        Laid<S> receiver(u"");
        receiver.stale(0, u"x");
        change(*receiver);
        EXPECT_TRUE(became(receiver, 0, u"x"sv));
    };
    unchanged([](S& s) { s.replace(s, s); });
    unchanged([](S& s) { s.replaceCaseSen(s, stringOf<S>(u"abc")); });
    unchanged([](S& s) { s.remove(s); });
    unchanged([](S& s) { s.removeCaseSens(s); });
    unchanged([](S& s) { s.insert(0, s); });
}

/// Units of the receiver as arguments are read before it changes.
TYPED_TEST(Splice16, ownUnitsAsArguments)
{
    Laid<TypeParam> removed(u"abab");
    removed->remove(textAt(*removed)[0]);
    EXPECT_TRUE(became(removed, 2, u"bb\0\0\0"sv));

    Laid<TypeParam> replaced(u"aba");
    replaced->replace(textAt(*replaced)[0], textAt(*replaced)[1]);
    EXPECT_TRUE(became(replaced, 3, u"bbb\0"sv));

    Laid<TypeParam> cutting(u"/ab");
    EXPECT_TRUE(holds(cutting->leftNCut(textAt(*cutting)[0], false), u"/"));
    EXPECT_TRUE(holds(*cutting, u"ab"));
}

} // namespace
