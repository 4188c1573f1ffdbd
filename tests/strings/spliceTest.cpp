/// The rebuilds of all strings at their edges: positions, the capacity, ranges outside of the text,
/// and the receiver as its own argument.

#include "tests/strings/laid.h"

#include <climits>

namespace strings {
namespace {

using namespace std::string_view_literals;

class Splice : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Splice, testing::ValuesIn(allImages()), imageName);

/// A string that ends empty is left without a terminator at its start.
TEST_P(Splice, removesRanges)
{
    struct Row
    {
        Text text;
        int start;
        int count;
        std::size_t length;
        Text after;
    };
    constexpr Row rows[] = {
        {u"abcd", 1, 2, 2, u"ad\0d\0"sv},
        {u"abcd", 2, 2, 2, u"ab\0d\0"sv},
        {u"abcd", 0, 4, 0, u"abcd\0"sv},
        {u"abcd", 0, 1, 3, u"bcd\0\0"sv},
        {u"abcd", 2, 1, 3, u"abd\0\0"sv},
        {u"abcd", 3, 1, 3, u"abc\0\0"sv},
        {u"abcd", 1, 3, 1, u"a\0cd\0"sv},
        {u"abcd", 0, 3, 1, u"d\0cd\0"sv},
        {u"abcd", 0, 0, 4, u"abcd\0"sv},
        {u"abcd", 2, 0, 4, u"abcd\0"sv},
        {u"abcd", 4, 0, 4, u"abcd\0"sv},
        {u"-abort", 0, 1, 5, u"abort\0\0"sv},
        {u"a\0\xFF\0b"sv, 1, 2, 3, u"a\0b\0b\0"sv},
        {u"\0b"sv, 0, 1, 1, u"b\0\0"sv},
        {u"-", 0, 1, 0, u"-\0"sv},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(shown(row.text) + ", " + std::to_string(row.start) + ", " +
                     std::to_string(row.count));
        Laid receiver(image, row.text);
        receiver->remove(row.start, row.count);
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
    Laid empty(image, u"");
    empty.stale(0, u"x");
    empty->remove(0, 0);
    EXPECT_TRUE(became(empty, 0, u"x"sv));
}

TEST_P(Splice, removesRangesOfAFullString)
{
    auto const text = letters(image.capacity);
    int const n = image.intCapacity();
    struct Row
    {
        int start;
        int count;
    };
    for (auto const& row :
         {Row{0, 2}, Row{1, 2}, Row{n - 2, 2}, Row{0, 1}, Row{1, 1}, Row{n - 1, 1}, Row{1, n - 2},
          Row{1, n - 1}, Row{n / 2, n / 2}, Row{n, 0}, Row{0, 0}, Row{0, n - 1}}) {
        SCOPED_TRACE(std::to_string(row.start) + ", " + std::to_string(row.count));
        Laid receiver(image, text);
        receiver->remove(row.start, row.count);
        auto expected = text;
        expected.erase(static_cast<std::size_t>(row.start), static_cast<std::size_t>(row.count));
        EXPECT_TRUE(holds(*receiver, expected));
        EXPECT_TRUE(receiver.guardsStand());
    }
    Laid receiver(image, text);
    receiver->remove(0, n);
    EXPECT_TRUE(became(receiver, 0, text + u'\0'));
}

/// A count above the length gives a full string. Behind the range are the object's own bytes, and
/// zeros where the object ends: they become its text.
TEST_P(Splice, aRangeBehindTheEndReadsOwnBytesOnly)
{
    int const n = image.intCapacity();
    for (int const start : {0, 1, 2, 3, 4}) {
        for (int const count : {5, 6, n - 1, n, n + 1, n + 2, n + 3, 65536, 70000, INT_MAX - 4}) {
            SCOPED_TRACE(std::to_string(start) + ", " + std::to_string(count));
            Laid receiver(image, u"abcd");
            receiver.laySpare(0x44).stale(5, u"q");
            auto const kept = static_cast<std::size_t>(start);
            auto const before = receiver.value();
            auto const expected =
                before.units(0, kept) +
                before.units(static_cast<long long>(start) + count, image.capacity - kept);
            receiver->remove(start, count);
            EXPECT_EQ(receiver.bytes(),
                      imageOf(image, image.capacity, expected + u'\0', staleByte, 0x44));
            EXPECT_TRUE(receiver.guardsStand());
        }
    }
}

/// The same with all units written down, since the images differ in what follows the text.
TEST(SpliceRange, unitsBehindTheTextInEachImage)
{
    struct Row
    {
        char const* family;
        std::size_t capacity;
        int count;
        Text after;
    };
    constexpr Row rows[] = {
        {"current8", 6, 5, u"a\xAA\x44\0\0\0\0"sv},
        {"current8", 7, 5, u"a\xAA\xAA\0\0\0\0\0"sv},
        {"even8", 6, 5, u"a\xAA\x44\x04\0\0\0"sv},
        {"uneven8", 7, 5, u"a\xAA\xAA\x04\0\0\0\0"sv},
        {"current16", 10, 8, u"a\xAAAA\xAAAA\0\0\0\0\0\0\0\0"sv},
        {"older16", 10, 8, u"a\xAAAA\xAAAA\x0004\x4444\0\0\0\0\0\0"sv},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.family + std::to_string(row.capacity));
        Image const& image = imageNamed(row.family, row.capacity);
        Laid receiver(image, u"abcd");
        receiver.laySpare(0x44);
        receiver->remove(1, row.count);
        EXPECT_EQ(receiver.bytes(), imageOf(image, row.capacity, row.after, staleByte, 0x44));
        EXPECT_TRUE(receiver.guardsStand());
    }
}

/// Far from the object there is nothing of its own left to read.
TEST_P(Splice, aRangeFarFromTheObjectGivesZeros)
{
    for (int const count : {INT_MIN, INT_MAX}) {
        SCOPED_TRACE(count);
        Laid receiver(image, u"abcd");
        receiver.stale(5, u"q");
        receiver->remove(1, count);
        EXPECT_TRUE(holds(*receiver, u"a" + std::u16string(image.capacity - 1, u'\0')));
        EXPECT_TRUE(receiver.guardsStand());
    }
}

/// A negative start takes the whole text area, and no room is left for what follows.
TEST_P(Splice, aNegativeStartOfARangeKeepsTheTextArea)
{
    for (int const count : {1, 5}) {
        Laid receiver(image, u"abcd");
        receiver.stale(5, u"q");
        auto const area = receiver.value().area();
        receiver->remove(-1, count);
        EXPECT_TRUE(holds(*receiver, area));
        EXPECT_TRUE(receiver.guardsStand());
    }
}

TEST_P(Splice, aNegativeCountTakesTheRestFromAheadOfTheStart)
{
    Laid receiver(image, u"abc");
    receiver->remove(1, -1);
    EXPECT_TRUE(became(receiver, 4, u"aabc\0"sv));
}

/// On "abcd"; what does not fit into the capacity is lost at the end.
TEST_P(Splice, insertsAndCutsAtTheCapacity)
{
    struct Row
    {
        int position;
        Text inserted;
        Text result;
    };
    constexpr Row rows[] = {
        {2, u"xy", u"abxycd"},
        {100, u"xy", u"abcdxy"},
        {0, u"xy", u"xyabcd"},
        {4, u"xy", u"abcdxy"},
        {5, u"xy", u"abcdxy"},
        {INT_MAX, u"xy", u"abcdxy"},
        {1, u"wxyz", u"awxyzbcd"},
        {3, u"uvwxyz", u"abcuvwxyzd"},
        {4, u"uvwxyz", u"abcduvwxyz"},
        {0, u"uvwxyz", u"uvwxyzabcd"},
        {3, u"uvwxyz01", u"abcuvwxyz01d"},
        {4, u"uvwxyz01", u"abcduvwxyz01"},
        {0, u"uvwxyz01", u"uvwxyz01abcd"},
        {2, u"", u"abcd"},
        {0, u"", u"abcd"},
        {9, u"", u"abcd"},
        {2, u"x\0y"sv, u"abx\0ycd"sv},
        {1, u"\xE4",
         u"a\xE4"
         u"bcd"},
        {1, u"\xE4\x0141",
         u"a\xE4\x0141"
         u"bcd"},
    };
    for (auto const& row : rows) {
        if (!image.fits(row.inserted))
            continue;
        SCOPED_TRACE(shown(row.inserted) + " at " + std::to_string(row.position));
        Laid receiver(image, u"abcd");
        receiver->insert(row.position, stringOf(image, row.inserted));
        auto const expected = image.cut(row.result);
        EXPECT_TRUE(became(receiver, expected.size(), expected + u'\0'));
    }
}

TEST_P(Splice, insertsFiveUnitsIntoEightAtTen)
{
    if (image.capacity != 10)
        return;
    Laid receiver(image, u"abcdefgh");
    receiver->insert(2, stringOf(image, u"12345"));
    EXPECT_TRUE(became(receiver, 10, u"ab12345cde\0"sv));
}

TEST_P(Splice, insertsIntoAFullString)
{
    auto const text = letters(image.capacity);
    auto const inserted = stringOf(image, u"##");
    int const n = image.intCapacity();
    for (int const position : {0, 1, n - 1, n, n + 1}) {
        SCOPED_TRACE(position);
        Laid receiver(image, text);
        receiver->insert(position, inserted);
        auto whole = text;
        whole.insert(std::min(static_cast<std::size_t>(position), whole.size()), u"##");
        EXPECT_TRUE(became(receiver, image.capacity, image.cut(whole) + u'\0'));
    }
}

TEST_P(Splice, insertingNothingIntoNothingWritesNothing)
{
    for (int const position : {0, 3}) {
        Laid receiver(image, u"");
        receiver.stale(0, u"x");
        receiver->insert(position, stringOf(image, u""));
        EXPECT_TRUE(became(receiver, 0, u"x"sv));
    }
    Laid receiver(image, u"");
    receiver->insert(0, stringOf(image, u"abc"));
    EXPECT_TRUE(became(receiver, 3, u"abc\0"sv));
}

/// A negative position is clipped only at the capacity: the head is the whole text area.
TEST_P(Splice, insertAtANegativePositionFillsTheString)
{
    for (int const position : {-1, -2, -100, -65536, INT_MIN + 1, INT_MIN}) {
        for (auto const inserted : {u"xy"sv, u""sv}) {
            SCOPED_TRACE(position);
            Laid receiver(image, u"abcd");
            receiver.stale(5, u"q");
            auto const area = receiver.value().area();
            receiver->insert(position, stringOf(image, inserted));
            EXPECT_TRUE(became(receiver, image.capacity, area + u'\0'));
        }
    }
}

struct OverflowRow
{
    std::size_t capacity;
    Text text;
    Text from;
    Text to;
    Text result;
};

/// A replacement that outgrows the capacity loses the tail and goes on over what is left.
constexpr OverflowRow overflowRows[] = {
    {6, u"aXbXc", u"x", u"--", u"a--b--"},
    {7, u"aXbXc", u"x", u"--", u"a--b--c"},
    {8, u"aXbXc", u"x", u"--", u"a--b--c"},
    {6, u"abcabc", u"b", u"XXXX", u"aXXXXc"},
    {7, u"abcabc", u"b", u"XXXX", u"aXXXXca"},
    {8, u"abcabc", u"b", u"XXXX", u"aXXXXcaX"},
    {6, u"ababab", u"a", u"xxx", u"xxxbxx"},
    {7, u"ababab", u"a", u"xxx", u"xxxbxxx"},
    {8, u"ababab", u"a", u"xxx", u"xxxbxxxb"},
    // The last occurrence is cut in half by the first rebuild, and is no occurrence any more.
    {6, u"ab__ab", u"ab", u"xyz", u"xyz__a"},
    {7, u"ab__ab", u"ab", u"xyz", u"xyz__xy"},
    {8, u"ab__ab", u"ab", u"xyz", u"xyz__xyz"},
    {6, u"aaaaaa", u"a", u"bb", u"bbbbbb"},
    {7, u"aaaaaa", u"a", u"bb", u"bbbbbbb"},
    {8, u"aaaaaa", u"a", u"bb", u"bbbbbbbb"},
    {6, u"abcdef", u"f", u"12", u"abcde1"},
    {7, u"abcdef", u"f", u"12", u"abcde12"},
    {8, u"abcdef", u"f", u"12", u"abcde12"},
    {6, u"abcdef", u"abcdef", u"123456", u"123456"},
    {7, u"abcdef", u"abcdef", u"123456", u"123456"},
    {8, u"abcdef", u"abcdef", u"123456", u"123456"},
    {10, u"aXbXc", u"x", u"----", u"a----b----"},
    {15, u"aXbXc", u"x", u"----", u"a----b----c"},
    {10, u"abcabc", u"b", u"XXXXXX", u"aXXXXXXcaX"},
    {15, u"abcabc", u"b", u"XXXXXX", u"aXXXXXXcaXXXXXX"},
    {10, u"ababababab", u"a", u"xxx", u"xxxbxxxbxx"},
    {15, u"ababababab", u"a", u"xxx", u"xxxbxxxbxxxbxxx"},
    {10, u"ab______ab", u"ab", u"xyz", u"xyz______a"},
    {15, u"ab______ab", u"ab", u"xyz", u"xyz______xyz"},
    {10, u"aaaaaaaaaa", u"a", u"bb", u"bbbbbbbbbb"},
    {15, u"aaaaaaaaaa", u"a", u"bb", u"bbbbbbbbbbbbbbb"},
};

TEST(SpliceOverflow, replacesAsFarAsThereIsRoom)
{
    for (Image const* image : smallImages()) {
        for (auto const& row : overflowRows) {
            if (row.capacity != image->capacity)
                continue;
            SCOPED_TRACE(image->family + (": " + shown(row.text)) + ", " + shown(row.from) +
                         " by " + shown(row.to));
            auto const to = stringOf(*image, row.to);
            Laid folded(*image, row.text);
            folded->replace(stringOf(*image, upperOf(row.from)), to);
            EXPECT_TRUE(holds(*folded, row.result));
            EXPECT_TRUE(folded.guardsStand());

            Laid exact(*image, row.from == u"x" ? u"axbxc"sv : row.text);
            exact->replaceCaseSen(stringOf(*image, row.from), to);
            EXPECT_TRUE(holds(*exact, row.result));
            EXPECT_TRUE(exact.guardsStand());
        }
    }
}

TEST_P(Splice, replacesThroughoutAFullString)
{
    auto const n = image.capacity;
    Laid receiver(image, std::u16string(n, u'a'));
    receiver->replace(stringOf(image, u"A"), stringOf(image, u"bb"));
    EXPECT_TRUE(became(receiver, n, std::u16string(n, u'b') + u'\0'));
    receiver->replaceCaseSen(stringOf(image, u"bb"), stringOf(image, u"c"));
    auto const odd = std::u16string(n % 2, u'b');
    EXPECT_TRUE(holds(*receiver, std::u16string(n / 2, u'c') + odd));
    receiver->remove(u'C');
    EXPECT_EQ(receiver.value().text(), odd);
    EXPECT_TRUE(receiver.guardsStand());
}

/// Each removal moves the rest to the front; the last one leaves its first unit there, in its case.
TEST_P(Splice, removedTextsLeaveTheFirstUnitOfTheLast)
{
    Laid receiver(image, u"abAB");
    receiver->remove(stringOf(image, u"aB"));
    EXPECT_TRUE(became(receiver, 0, u"AB\0B\0"sv));

    Laid thrice(image, u"abABaB");
    thrice->remove(stringOf(image, u"AB"));
    EXPECT_TRUE(became(thrice, 0, u"aB\0B\0B\0"sv));
}

/// Each step reads what is there when it runs: the receiver is emptied and gets its head before the
/// inserted text is read.
TEST_P(Splice, insertsAStringIntoItself)
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
        Laid receiver(image, row.text);
        receiver->insert(row.position, *receiver);
        EXPECT_TRUE(holds(*receiver, image.cut(row.result)));
        EXPECT_TRUE(receiver.guardsStand());
    }
    Laid receiver(image, u"abcd");
    auto const area = receiver.value().area();
    receiver->insert(-1, *receiver);
    EXPECT_TRUE(became(receiver, image.capacity, area + u'\0'));
}

TEST_P(Splice, replacesAStringByAnother)
{
    for (Text const to : {u"x"sv, u"uvwxyz"sv, u"abc"sv, u"abcabc"sv}) {
        SCOPED_TRACE(shown(to));
        Laid folded(image, u"abc");
        folded->replace(*folded, stringOf(image, to));
        EXPECT_TRUE(holds(*folded, to));
        EXPECT_TRUE(folded.guardsStand());

        Laid exact(image, u"abc");
        exact->replaceCaseSen(*exact, stringOf(image, to));
        EXPECT_TRUE(holds(*exact, to));
        EXPECT_TRUE(exact.guardsStand());
    }
}

/// The text put in is the head that the rebuild has just made of the receiver.
TEST_P(Splice, replacesByTheReceiverItself)
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
        Laid folded(image, row.text);
        folded->replace(stringOf(image, upperOf(row.from)), *folded);
        EXPECT_TRUE(holds(*folded, image.cut(row.result)));
        EXPECT_TRUE(folded.guardsStand());

        Laid exact(image, row.text);
        exact->replaceCaseSen(stringOf(image, row.from), *exact);
        EXPECT_TRUE(holds(*exact, image.cut(row.result)));
        EXPECT_TRUE(exact.guardsStand());
    }
}

/// Nothing is left to search in, and no piece was copied that would end the text.
TEST_P(Splice, aStringTakenOutOfItselfLeavesItsOldUnits)
{
    for (auto const& text : {std::u16string(u"abc"), letters(image.capacity)}) {
        auto const emptied = [&](void (*change)(AnyString&, AnyString const& empty)) {
            Laid receiver(image, text);
            change(*receiver, stringOf(image, u""));
            EXPECT_TRUE(became(receiver, 0, text + u'\0'));
        };
        emptied([](AnyString& s, AnyString const&) { s.replace(s, s); });
        emptied([](AnyString& s, AnyString const&) { s.replaceCaseSen(s, s); });
        emptied([](AnyString& s, AnyString const& empty) { s.replace(s, empty); });
        emptied([](AnyString& s, AnyString const& empty) { s.replaceCaseSen(s, empty); });
        emptied([](AnyString& s, AnyString const&) { s.remove(s); });
        emptied([](AnyString& s, AnyString const&) { s.removeCaseSens(s); });
    }
}

TEST_P(Splice, anEmptyStringTakenOutOfItselfStaysAsItIs)
{
    auto const unchanged = [&](void (*change)(AnyString&, AnyString const& abc)) {
        Laid receiver(image, u"");
        receiver.stale(0, u"x");
        change(*receiver, stringOf(image, u"abc"));
        EXPECT_TRUE(became(receiver, 0, u"x"sv));
    };
    unchanged([](AnyString& s, AnyString const&) { s.replace(s, s); });
    unchanged([](AnyString& s, AnyString const& abc) { s.replaceCaseSen(s, abc); });
    unchanged([](AnyString& s, AnyString const&) { s.remove(s); });
    unchanged([](AnyString& s, AnyString const&) { s.removeCaseSens(s); });
    unchanged([](AnyString& s, AnyString const&) { s.insert(0, s); });
}

TEST_P(Splice, insertsAFullStringIntoItself)
{
    auto const text = letters(image.capacity);
    Laid grown(image, text);
    grown->insert(image.intCapacity() / 2, *grown);
    auto const half = text.substr(0, image.capacity / 2);
    auto const expected = half + half + text.substr(half.size());
    EXPECT_TRUE(became(grown, image.capacity, image.cut(expected) + u'\0'));
}

/// Units of the receiver as arguments are read before it changes.
TEST_P(Splice, ownUnitsAsArguments)
{
    Laid removed(image, u"abab");
    removed->removeOwn(0);
    EXPECT_TRUE(became(removed, 2, u"bb\0\0\0"sv));

    Laid replaced(image, u"aba");
    replaced->replaceByOwn(0, 1);
    EXPECT_TRUE(became(replaced, 3, u"bbb\0"sv));

    Laid cutting(image, u"/ab");
    EXPECT_TRUE(holds(cutting->leftNCutByOwn(0, false), u"/"));
    EXPECT_TRUE(holds(*cutting, u"ab"));
}

} // namespace
} // namespace strings
