// What the list asks of the heap, to the byte, and what becomes of it when the heap refuses.

#include "qv/support/qvStringList.h"
#include "tests/support/heapStandIns.h"
#include "tests/support/listElements.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

using qvTest::elements;
using qvTest::fill;
using qvTest::HeapWatch;
using qvTest::text500;
using qvTest::Texts;

using Text = _qvString<500>;
using List = _qvStringList;
using Calls = std::vector<std::string>;

TEST(QvStringListMemory, GrowsByExactlyOneElementEachTime)
{
    HeapWatch heap;
    {
        List list;
        EXPECT_EQ(heap.takeCalls(), Calls{});
        fill(list, {"a"});
        EXPECT_EQ(heap.takeCalls(), (Calls{"calloc(1, 1006)"}));
        fill(list, {"b", "c"});
        EXPECT_EQ(heap.takeCalls(), (Calls{"realloc(2012)", "realloc(3018)"}));
        list.insert(0, text500("d"));
        EXPECT_EQ(heap.takeCalls(), (Calls{"realloc(4024)"}));
        list.insert(99, text500("e"));
        EXPECT_EQ(heap.takeCalls(), (Calls{"realloc(5030)"}));
    }
    EXPECT_EQ(heap.takeCalls(), (Calls{"free"}));
    EXPECT_EQ(heap.liveBlocks(), 0U);
}

TEST(QvStringListMemory, NeverShrinksButResizesToTheCountAtTheNextAppend)
{
    HeapWatch heap;
    List list;
    fill(list, {"a", "b", "c"});
    heap.takeCalls();
    for (int i = 0; i < 3; ++i)
        list.removeAt(0);
    EXPECT_EQ(heap.takeCalls(), Calls{});
    EXPECT_EQ(heap.liveBlocks(), 1U);
    fill(list, {"d"});
    EXPECT_EQ(heap.takeCalls(), (Calls{"realloc(1006)"}));
    EXPECT_EQ(elements(list), (Texts{"d"}));
}

TEST(QvStringListMemory, AllocatesForNothingElse)
{
    HeapWatch heap;
    List list;
    fill(list, {"b", "a", "B", "A"});
    heap.takeCalls();
    list.insert(-1, text500("x"));
    list.append(text500("a"), true, true);
    list.removeAt(4);
    list.removeAt(3);
    list.find(text500("A"), false);
    list.findContains(text500("A"), false);
    list.at(1);
    list.atAsChar(1);
    list.asString8();
    EXPECT_EQ(heap.takeCalls(), Calls{});
}

// One by one, as the slowest sort there is does it.
void exchangeNeighbours(List& list, bool descending)
{
    for (int limit = list.count - 1; limit >= 1; --limit) {
        for (int i = 0; i < limit; ++i) {
            int const order = list.items[i].compare(list.items[i + 1]);
            if (descending ? order < 0 : order > 0) {
                Text const held = list.items[i];
                list.items[i] = list.items[i + 1];
                list.items[i + 1] = held;
            }
        }
    }
}

// Texts of two letters in both cases, so that many are equal; old units behind them, and a mark in
// the reserved bytes of each place.
void fillWithMarks(List& list, int count)
{
    std::uint32_t seed = static_cast<std::uint32_t>(count);
    for (int i = 0; i < count; ++i) {
        std::string text;
        for (int letter = 0; letter < 3; ++letter) {
            seed = seed * 1664525 + 1013904223;
            text += "aAbB"[seed >> 30];
        }
        list.append(text500(text), false, false);
        list.items[i].text[3] = static_cast<unsigned short>(i);
        list.items[i].length = static_cast<unsigned short>(seed >> 13 & 3);
        list.items[i].reserved = static_cast<unsigned short>(0x7700 + i);
    }
}

TEST(QvStringListMemory, SortsToTheByteAsExchangesOfNeighboursDo)
{
    for (int const count : {0, 1, 2, 3, 4, 5, 8, 9, 31, 32, 33, 100}) {
        for (bool const descending : {false, true}) {
            for (bool const hasMemory : {true, false}) {
                List list;
                List expected;
                fillWithMarks(list, count);
                fillWithMarks(expected, count);
                exchangeNeighbours(expected, descending);
                HeapWatch heap;
                if (!hasMemory)
                    heap.failNext();
                list.sort(descending);
                heap.cancelFailure();
                ASSERT_EQ(std::memcmp(list.items, expected.items,
                                      static_cast<std::size_t>(count) * sizeof(Text)),
                          0)
                    << count << descending << hasMemory;
                ASSERT_EQ(heap.liveBlocks(), 0U);
            }
        }
    }
}

TEST(QvStringListMemory, AsksForTwoNumbersAnElementToSort)
{
    HeapWatch heap;
    List list;
    fill(list, {"b"});
    heap.takeCalls();
    list.sort(false);
    EXPECT_EQ(heap.takeCalls(), Calls{});
    fill(list, {"a", "B"});
    heap.takeCalls();
    list.sort(false);
    EXPECT_EQ(heap.takeCalls(), (Calls{"calloc(6, 4)", "free"}));
}

TEST(QvStringListMemory, InitFreesOnce)
{
    HeapWatch heap;
    List list;
    list.init();
    EXPECT_EQ(heap.takeCalls(), Calls{});
    fill(list, {"a", "b"});
    heap.takeCalls();
    list.init();
    list.init();
    EXPECT_EQ(heap.takeCalls(), (Calls{"free"}));
    EXPECT_EQ(heap.liveBlocks(), 0U);
    fill(list, {"c"});
    EXPECT_EQ(heap.takeCalls(), (Calls{"calloc(1, 1006)"}));
}

TEST(QvStringListMemory, TakesItsOwnElementsBeforeTheBlockMoves)
{
    HeapWatch heap;
    List list;
    fill(list, {"a", "b", "c"});
    list.append(list.items[1], false, false);
    EXPECT_EQ(elements(list), (Texts{"a", "b", "c", "b"}));
    list.append(list.at(0), true, false);
    EXPECT_EQ(elements(list), (Texts{"a", "b", "c", "b"}));
    list.insert(0, list.at(2));
    EXPECT_EQ(elements(list), (Texts{"c", "a", "b", "c", "b"}));
    list.insert(2, list.items[4]);
    EXPECT_EQ(elements(list), (Texts{"c", "a", "b", "b", "c", "b"}));
    list.insert(1, list.items[0]);
    EXPECT_EQ(elements(list), (Texts{"c", "c", "a", "b", "b", "c", "b"}));
    list.insert(100, list.at(2));
    EXPECT_EQ(elements(list), (Texts{"c", "c", "a", "b", "b", "c", "b", "a"}));
}

TEST(QvStringListMemory, LosesTheListWhenItCannotGrow)
{
    HeapWatch heap;
    List list;
    fill(list, {"a", "b"});
    list.atAsChar(1);
    heap.takeCalls();
    heap.failNext();
    list.append(text500("c"), false, false);
    EXPECT_EQ(heap.takeCalls(), (Calls{"realloc(3018)", "free"}));
    EXPECT_EQ(list.items, nullptr);
    EXPECT_EQ(list.count, 0);
    EXPECT_STREQ(list.charBuffer, "b");
    EXPECT_EQ(heap.liveBlocks(), 0U);
    // It goes on from the start.
    fill(list, {"d"});
    EXPECT_EQ(heap.takeCalls(), (Calls{"calloc(1, 1006)"}));
    EXPECT_EQ(elements(list), (Texts{"d"}));
}

TEST(QvStringListMemory, StaysEmptyWhenItCannotBegin)
{
    HeapWatch heap;
    List list;
    heap.failNext();
    list.append(text500("a"), false, false);
    EXPECT_EQ(heap.takeCalls(), (Calls{"calloc(1, 1006)"}));
    EXPECT_EQ(list.items, nullptr);
    EXPECT_EQ(list.count, 0);
    heap.failNext();
    list.append(text500("a"), true, true);
    EXPECT_EQ(heap.takeCalls(), (Calls{"calloc(1, 1006)"}));
    EXPECT_EQ(list.count, 0);
}

TEST(QvStringListMemory, InsertReturnsQuietlyWhenTheListIsLost)
{
    HeapWatch heap;
    for (int const index : {0, 1, 2, 5}) {
        List list;
        heap.failNext();
        list.insert(index, text500("x"));
        EXPECT_EQ(list.items, nullptr);
        EXPECT_EQ(list.count, 0);
        fill(list, {"a", "b"});
        heap.failNext();
        list.insert(index, list.items[1]);
        EXPECT_EQ(list.items, nullptr);
        EXPECT_EQ(list.count, 0);
    }
    EXPECT_EQ(heap.liveBlocks(), 0U);
}

// A refused double asks for nothing, so nothing can be lost.
TEST(QvStringListMemory, SearchesForDoublesBeforeItGrows)
{
    HeapWatch heap;
    List list;
    fill(list, {"a"});
    heap.failNext();
    list.append(text500("A"), true, false);
    EXPECT_TRUE(heap.cancelFailure());
    EXPECT_EQ(elements(list), (Texts{"a"}));
}

TEST(QvStringListCopyFrom, CopiesDeepAndWhole)
{
    HeapWatch heap;
    {
        List source;
        fill(source, {"a", "b", "c"});
        for (int i = 0; i < 3; ++i)
            source.items[i].reserved = static_cast<unsigned short>(0x7700 + i);
        source.removeAt(2);
        source.atAsChar(0);
        List copy;
        fill(copy, {"old"});
        copy.atAsChar(0);
        heap.takeCalls();

        copy.copyFrom(source);
        EXPECT_EQ(heap.takeCalls(), (Calls{"free", "calloc(2, 1006)"}));
        EXPECT_EQ(copy.count, 2);
        EXPECT_NE(copy.items, source.items);
        // All 1006 bytes of each, the reserved word too.
        EXPECT_EQ(std::memcmp(copy.items, source.items, 2012), 0);
        EXPECT_STREQ(copy.charBuffer, "old");
        EXPECT_STREQ(source.charBuffer, "a");

        // From here on they go their own ways.
        source.items[0].text[0] = 'x';
        fill(copy, {"d"});
        EXPECT_EQ(heap.takeCalls(), (Calls{"realloc(3018)"}));
        EXPECT_EQ(elements(copy), (Texts{"a", "b", "d"}));
        EXPECT_EQ(elements(source), (Texts{"x", "b"}));
    }
    EXPECT_EQ(heap.liveBlocks(), 0U);
}

TEST(QvStringListCopyFrom, AllocatesForAnEmptyListToo)
{
    HeapWatch heap;
    {
        List source;
        List copy;
        copy.copyFrom(source);
        EXPECT_EQ(heap.takeCalls(), (Calls{"calloc(0, 1006)"}));
        fill(copy, {"a"});
        heap.takeCalls();
        copy.copyFrom(source);
        EXPECT_EQ(heap.takeCalls(), (Calls{"free", "calloc(0, 1006)"}));
        EXPECT_EQ(copy.count, 0);
        EXPECT_EQ(copy.find(text500(""), true), -1);
        EXPECT_EQ(copy.asString8().length, 0);
        // The empty block counts as one, so the next append resizes it.
        ASSERT_NE(copy.items, nullptr);
        fill(copy, {"b"});
        EXPECT_EQ(heap.takeCalls(), (Calls{"realloc(1006)"}));
        EXPECT_EQ(elements(copy), (Texts{"b"}));

        heap.failNext();
        copy.copyFrom(source);
        EXPECT_EQ(copy.items, nullptr);
        EXPECT_EQ(copy.count, 0);
        heap.takeCalls();
        fill(copy, {"c"});
        EXPECT_EQ(heap.takeCalls(), (Calls{"calloc(1, 1006)"}));
    }
    EXPECT_EQ(heap.liveBlocks(), 0U);
}

// A copy without memory is a fault, not a short list.
TEST(QvStringListCopyFromDeathTest, StopsTheProcessWhenItCannotAllocate)
{
    HeapWatch heap;
    List source;
    fill(source, {"a"});
    List copy;
    EXPECT_EXIT(
        {
            heap.failNext();
            copy.copyFrom(source);
        },
        testing::KilledBySignal(SIGABRT), "");
}

} // namespace
