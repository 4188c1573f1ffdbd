// The list as an object: its fields, its growth and its positions.

#include "qv/support/qvStringList.h"

#include "tests/model/guardedObject.h"
#include "tests/support/listElements.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using qvTest::elements;
using qvTest::fill;
using qvTest::GuardedObject;
using qvTest::shown;
using qvTest::text500;
using qvTest::Texts;

using Text = _qvString<500>;
using List = _qvStringList;

static_assert(std::is_same_v<decltype(List::items), Text*>);
static_assert(std::is_same_v<decltype(List::count), int>);
static_assert(std::is_same_v<decltype(List::charBuffer), char[500]>);
static_assert(offsetof(List, items) == 0);
static_assert(offsetof(List, count) == 8);
static_assert(offsetof(List, charBuffer) == 12);
static_assert(!std::is_polymorphic_v<List>);
static_assert(sizeof(Text) == 1006);

// A copy would share the block, so copyFrom is the only way.
static_assert(!std::is_copy_constructible_v<List> && !std::is_copy_assignable_v<List>);
static_assert(!std::is_move_constructible_v<List> && !std::is_move_assignable_v<List>);

static_assert(
    std::is_same_v<decltype(&List::append), void (List::*)(Text const&, bool const&, bool const&)>);
static_assert(std::is_same_v<decltype(&List::insert), void (List::*)(int const&, Text const&)>);
static_assert(std::is_same_v<decltype(&List::removeAt), void (List::*)(int const&)>);
static_assert(std::is_same_v<decltype(&List::init), void (List::*)()>);
static_assert(std::is_same_v<decltype(&List::find), int (List::*)(Text const&, bool const&)>);
static_assert(
    std::is_same_v<decltype(&List::findContains), int (List::*)(Text const&, bool const&)>);
static_assert(std::is_same_v<decltype(&List::at), Text const& (List::*)(int const&) const>);
static_assert(std::is_same_v<decltype(&List::atAsChar), char const* (List::*)(int const&) const>);
static_assert(std::is_same_v<decltype(&List::sort), void (List::*)(bool const&)>);
static_assert(std::is_same_v<decltype(&List::copyFrom), void (List::*)(List const&)>);
// Callers know this one as not const.
static_assert(std::is_same_v<decltype(&List::asString8), _qvString8_allSize<1000> (List::*)()>);

bool allBytesZero(GuardedObject<List> const& list)
{
    return std::all_of(list.bytes(), list.bytes() + sizeof(List),
                       [](unsigned char byte) { return byte == 0; });
}

// Out of the sight of the checks of null references: a list that never held an element has its
// elements at null, and hands that out.
__attribute__((no_sanitize("undefined"))) std::uintptr_t addressAt(List const& list, int index)
{
    return reinterpret_cast<std::uintptr_t>(&list.at(index));
}

TEST(QvStringList, BeginsAsAnObjectOfZeros)
{
    GuardedObject<List> list(0xAA);
    EXPECT_TRUE(allBytesZero(list));
    EXPECT_TRUE(list.guardsIntact());
}

TEST(QvStringList, InitGivesBackTheBlockAndZeroesTheObject)
{
    GuardedObject<List> list(0xAA);
    fill(list.get(), {"one", "two"});
    list.get().atAsChar(1);
    list.get().init();
    EXPECT_TRUE(allBytesZero(list));
    EXPECT_TRUE(list.guardsIntact());
    // Again on an empty one, and in use from the start.
    list.get().init();
    EXPECT_TRUE(allBytesZero(list));
    fill(list.get(), {"three"});
    EXPECT_EQ(elements(list.get()), (Texts{"three"}));
    list.get().init();
}

TEST(QvStringList, IsEmptyWhenNew)
{
    List list;
    EXPECT_EQ(list.find(text500(""), true), -1);
    EXPECT_EQ(list.find(text500(""), false), -1);
    EXPECT_EQ(list.findContains(text500("a"), true), -1);
    EXPECT_EQ(list.findContains(text500("a"), false), -1);
    list.sort(false);
    list.sort(true);
    for (int const index : {INT_MIN, -1, 0, 1, INT_MAX})
        list.removeAt(index);
    EXPECT_EQ(list.asString8().length, 0);
    EXPECT_EQ(list.count, 0);
    EXPECT_EQ(list.items, nullptr);
    EXPECT_EQ(addressAt(list, 0), 0U);
    EXPECT_EQ(addressAt(list, -1), 0U);
    EXPECT_EQ(addressAt(list, 7), 0U);
}

// The destructor's own writes are looked at in storage that outlives the object.
TEST(QvStringList, DestructorClearsTheBlockAndNothingElse)
{
    GuardedObject<List> list(0xAA);
    fill(list.get(), {"one", "two"});
    list.get().atAsChar(0);
    unsigned char expected[sizeof(List)];
    std::memcpy(expected, list.bytes(), sizeof(List));
    std::memset(expected, 0, 8);
    list.get().~List();
    qvTest::keepBytes(list.bytes());
    EXPECT_EQ(std::memcmp(list.bytes(), expected, sizeof(List)), 0);
    EXPECT_TRUE(list.guardsIntact());
}

TEST(QvStringListAppend, AddsAtTheEnd)
{
    List list;
    fill(list, {"b", "", "a"});
    EXPECT_EQ(elements(list), (Texts{"b", "", "a"}));
    // Doubles are welcome without `unique`, whatever the case mode.
    list.append(text500("a"), false, true);
    list.append(text500("a"), false, false);
    EXPECT_EQ(elements(list), (Texts{"b", "", "a", "a", "a"}));
}

TEST(QvStringListAppend, TakesTheWholeCharacterArea)
{
    List list;
    Text text = text500(std::string(500, 'x'));
    text.length = 3;
    text.text[3] = 0;
    for (int i = 0; i < 2; ++i) {
        list.append(text, false, false);
        EXPECT_EQ(list.items[i].length, 3);
        EXPECT_EQ(std::memcmp(list.items[i].text, text.text, 1002), 0);
    }
}

TEST(QvStringListAppend, RefusesADoubleWhenAskedTo)
{
    struct Row
    {
        char const* text;
        bool unique;
        bool caseSensitive;
        Texts after;
    };
    for (Row const& row : {
             Row{"ABC", true, false, {"abc", ""}},
             Row{"ABC", true, true, {"abc", "", "ABC"}},
             Row{"ABC", false, false, {"abc", "", "ABC"}},
             Row{"ABC", false, true, {"abc", "", "ABC"}},
             Row{"abc", true, true, {"abc", ""}},
             Row{"abc", false, true, {"abc", "", "abc"}},
             Row{"ab", true, false, {"abc", "", "ab"}},
             Row{"", true, true, {"abc", ""}},
             Row{"", true, false, {"abc", ""}},
         }) {
        List list;
        fill(list, {"abc", ""});
        list.append(text500(row.text), row.unique, row.caseSensitive);
        EXPECT_EQ(elements(list), row.after) << row.text;
    }
}

TEST(QvStringListInsert, PutsTheTextAtThePosition)
{
    struct Row
    {
        int index;
        Texts after;
    };
    for (Row const& row : {
             Row{INT_MIN, {"a", "b", "c"}},
             Row{-1, {"a", "b", "c"}},
             Row{0, {"x", "a", "b", "c"}},
             Row{1, {"a", "x", "b", "c"}},
             Row{2, {"a", "b", "x", "c"}},
             // At the end and anywhere behind it, it appends.
             Row{3, {"a", "b", "c", "x"}},
             Row{4, {"a", "b", "c", "x"}},
             Row{8, {"a", "b", "c", "x"}},
             Row{INT_MAX, {"a", "b", "c", "x"}},
         }) {
        List list;
        fill(list, {"a", "b", "c"});
        list.insert(row.index, text500("x"));
        EXPECT_EQ(elements(list), row.after) << row.index;
    }
}

TEST(QvStringListInsert, WorksOnAnEmptyListAndNeverRefusesADouble)
{
    List list;
    list.insert(-1, text500("x"));
    EXPECT_EQ(list.items, nullptr);
    list.insert(0, text500("x"));
    EXPECT_EQ(elements(list), (Texts{"x"}));
    list.insert(0, text500("x"));
    EXPECT_EQ(elements(list), (Texts{"x", "x"}));
    // The position is a reference, and may be the very field that the append raises.
    list.insert(list.count, text500("y"));
    EXPECT_EQ(elements(list), (Texts{"x", "x", "y"}));
}

TEST(QvStringListRemoveAt, ClosesTheGap)
{
    struct Row
    {
        int index;
        Texts after;
    };
    for (Row const& row : {
             Row{INT_MIN, {"a", "b", "c"}},
             Row{-1, {"a", "b", "c"}},
             Row{0, {"b", "c"}},
             Row{1, {"a", "c"}},
             Row{2, {"a", "b"}},
             Row{3, {"a", "b", "c"}},
             Row{INT_MAX, {"a", "b", "c"}},
         }) {
        List list;
        fill(list, {"a", "b", "c"});
        Text const* const block = list.items;
        list.removeAt(row.index);
        EXPECT_EQ(elements(list), row.after) << row.index;
        EXPECT_EQ(list.items, block);
    }
}

TEST(QvStringListRemoveAt, LeavesStaleSlotsBehindTheCount)
{
    List list;
    fill(list, {"a", "b"});
    list.removeAt(0);
    EXPECT_EQ(shown(list.items[1]), "b");
    list.removeAt(0);
    EXPECT_EQ(list.count, 0);
    // The emptied list still has its block, and hands out what lies there.
    ASSERT_NE(list.items, nullptr);
    EXPECT_EQ(&list.at(0), list.items);
    EXPECT_EQ(shown(list.at(0)), "b");
    EXPECT_STREQ(list.atAsChar(0), "b");
    EXPECT_STREQ(list.atAsChar(-1), "b");
    EXPECT_EQ(list.find(text500("b"), true), -1);
    EXPECT_EQ(list.asString8().length, 0);
}

// An element moves as its length and its characters; the reserved word belongs to the slot.
TEST(QvStringList, KeepsTheReservedWordWithTheSlot)
{
    List list;
    Text text = text500("c");
    text.reserved = 0x1234;
    list.append(text, false, false);
    EXPECT_EQ(list.items[0].reserved, 0);
    fill(list, {"b", "a", "d"});
    auto const mark = [&list] {
        for (int i = 0; i < list.count; ++i)
            list.items[i].reserved = static_cast<unsigned short>(0x7700 + i);
    };
    auto const expectMarks = [&list](int slots) {
        for (int i = 0; i < slots; ++i)
            EXPECT_EQ(list.items[i].reserved, 0x7700 + i);
    };
    mark();
    list.sort(false);
    EXPECT_EQ(elements(list), (Texts{"a", "b", "c", "d"}));
    expectMarks(4);
    list.removeAt(1);
    expectMarks(4);
    // The block keeps its four slots, the freed one among them.
    list.insert(0, text);
    EXPECT_EQ(elements(list), (Texts{"c", "a", "c", "d"}));
    expectMarks(4);
}

// However short a text is, its whole character area travels with it, old units included.
TEST(QvStringList, MovesWholeCharacterAreas)
{
    auto const unitsOf = [](Text const& element) {
        return std::u16string(element.text, element.text + 501);
    };
    Text inserted = text500(std::string(500, 'i'));
    Text moved = text500(std::string(500, 'm'));
    inserted.length = moved.length = 0;
    inserted.text[0] = moved.text[0] = 0;
    List list;
    list.append(moved, false, false);
    list.insert(0, inserted);
    EXPECT_EQ(elements(list), (Texts{"", ""}));
    EXPECT_EQ(unitsOf(list.items[0]), unitsOf(inserted));
    EXPECT_EQ(unitsOf(list.items[1]), unitsOf(moved));
    list.removeAt(0);
    EXPECT_EQ(unitsOf(list.items[0]), unitsOf(moved));
}

TEST(QvStringListAt, FallsBackToTheFirstSlot)
{
    List list;
    fill(list, {"first", "second", "third"});
    EXPECT_EQ(&list.at(0), list.items);
    EXPECT_EQ(&list.at(1), list.items + 1);
    EXPECT_EQ(&list.at(2), list.items + 2);
    for (int const index : {INT_MIN, -1, 3, 1000000, INT_MAX}) {
        EXPECT_EQ(&list.at(index), list.items) << index;
        EXPECT_STREQ(list.atAsChar(index), "first") << index;
    }
    EXPECT_STREQ(list.atAsChar(1), "second");
    EXPECT_STREQ(list.atAsChar(2), "third");
}

TEST(QvStringListAtAsChar, GivesTheLowBytesInItsOwnBuffer)
{
    List list;
    list.append(qvTest::wideText500(u"A\x0141\xFFE4\x0100z"), false, false);
    List const& constant = list;
    char const* const text = constant.atAsChar(0);
    EXPECT_EQ(text, constant.charBuffer);
    EXPECT_EQ(std::string(text, 6), std::string("AA\xE4\0z\0", 6));
}

TEST(QvStringListAtAsChar, CopiesZeroUnitsLikeOthers)
{
    List list;
    fill(list, {std::string_view("a\0b", 3)});
    EXPECT_EQ(std::string(list.atAsChar(0), 4), std::string("a\0b\0", 4));
}

TEST(QvStringListAtAsChar, StopsAt499Characters)
{
    for (std::size_t const length : {498U, 499U, 500U}) {
        List list;
        std::string text(length, 'x');
        text.back() = 'y';
        fill(list, {text});
        std::memset(list.charBuffer, 'z', sizeof list.charBuffer);
        EXPECT_EQ(list.atAsChar(0), text.substr(0, 499)) << length;
    }
}

TEST(QvStringListAtAsChar, LeavesTheBufferBehindTheTerminator)
{
    List list;
    fill(list, {"long text", "no", ""});
    std::memset(list.charBuffer, 'z', sizeof list.charBuffer);
    std::string expected(500, 'z');
    list.atAsChar(0);
    expected.replace(0, 10, "long text", 10);
    EXPECT_EQ(std::string(list.charBuffer, 500), expected);
    // The next call changes what the first caller holds.
    list.atAsChar(1);
    expected.replace(0, 3, "no", 3);
    EXPECT_EQ(std::string(list.charBuffer, 500), expected);
    list.atAsChar(2);
    expected[0] = '\0';
    EXPECT_EQ(std::string(list.charBuffer, 500), expected);
}

} // namespace
