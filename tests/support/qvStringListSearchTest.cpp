// Finding, ordering and the one-line form of the list.

#include "qv/support/qvStringList.h"
#include "tests/support/listElements.h"
#include "tests/usedStack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace {

using qvTest::elements;
using qvTest::fill;
using qvTest::staleEmpty500;
using qvTest::text500;
using qvTest::Texts;
using qvTest::wideText500;

using Text = _qvString<500>;
using List = _qvStringList;

TEST(QvStringListFind, GivesTheFirstEqualElement)
{
    List list;
    fill(list, {"alpha", "Beta", "beta", "", "beta", "alphabet", ""});
    struct Row
    {
        char const* text;
        int exact;
        int folded;
    };
    for (Row const row : {
             Row{"alpha", 0, 0},
             Row{"ALPHA", -1, 0},
             Row{"beta", 2, 1},
             Row{"Beta", 1, 1},
             Row{"bEtA", -1, 1},
             Row{"alph", -1, -1},
             Row{"lpha", -1, -1},
             Row{"alphabets", -1, -1},
             Row{"ALPHABET", -1, 5},
             Row{"", 3, 3},
         }) {
        EXPECT_EQ(list.find(text500(row.text), true), row.exact) << row.text;
        EXPECT_EQ(list.find(text500(row.text), false), row.folded) << row.text;
    }
}

// Exact equality looks at the first unit before it looks at the length.
TEST(QvStringListFind, SeesAStaleFirstUnitOnlyWhenExact)
{
    List list;
    list.append(staleEmpty500("abc"), false, false);
    fill(list, {""});
    EXPECT_EQ(list.find(text500(""), true), 1);
    EXPECT_EQ(list.find(text500(""), false), 0);
    EXPECT_EQ(list.find(staleEmpty500("a"), true), 0);
    EXPECT_EQ(list.find(staleEmpty500("x"), true), -1);
    EXPECT_EQ(list.find(staleEmpty500("x"), false), 0);
    // So a list may take both as different texts.
    list.append(staleEmpty500("x"), true, false);
    EXPECT_EQ(list.count, 2);
    list.append(staleEmpty500("x"), true, true);
    EXPECT_EQ(list.count, 3);
}

TEST(QvStringListFind, FoldsAsciiLettersOnly)
{
    List list;
    list.append(wideText500(u"\x00E4\x0161"), false, false);
    list.append(wideText500(u"\x0061\x0161"), false, false);
    EXPECT_EQ(list.find(wideText500(u"\x00C4\x0161"), false), -1);
    EXPECT_EQ(list.find(wideText500(u"\x00E4\x0141"), false), -1);
    EXPECT_EQ(list.find(wideText500(u"\x0041\x0161"), false), 1);
    EXPECT_EQ(list.find(wideText500(u"\x0041\x0161"), true), -1);
    EXPECT_EQ(list.find(wideText500(u"\xFFE4\x0161"), false), -1);
    EXPECT_EQ(list.find(wideText500(u"\x00E4\x0161"), true), 0);
}

TEST(QvStringListFind, LooksAtTheLastUnitOfAFullElement)
{
    List list;
    std::string text(500, 'x');
    text.back() = 'y';
    fill(list, {std::string(500, 'x'), text});
    EXPECT_EQ(list.find(text500(text), true), 1);
    text.back() = 'Y';
    EXPECT_EQ(list.find(text500(text), true), -1);
    EXPECT_EQ(list.find(text500(text), false), 1);
}

TEST(QvStringListFindContains, GivesTheFirstElementThatHoldsTheText)
{
    List list;
    fill(list, {"", "Renderer", "render farm", "FARM", "a render farm", "aab"});
    struct Row
    {
        char const* text;
        int exact;
        int folded;
    };
    for (Row const row : {
             Row{"render", 2, 1},
             Row{"Renderer", 1, 1},
             Row{"RENDERER", -1, 1},
             Row{"farm", 2, 2},
             Row{"FARM", 3, 2},
             Row{"FaRm", -1, 2},
             Row{"r f", 2, 2},
             Row{"a r", 4, 4},
             Row{"ab", 5, 5},
             Row{"render farms", -1, -1},
             // Nothing holds the empty text, not even an empty element.
             Row{"", -1, -1},
         }) {
        EXPECT_EQ(list.findContains(text500(row.text), true), row.exact) << row.text;
        EXPECT_EQ(list.findContains(text500(row.text), false), row.folded) << row.text;
    }
}

// Units of the same sum are no match, and folding applies inside longer texts too.
TEST(QvStringListFindContains, ComparesTheUnitsThemselves)
{
    List list;
    list.append(wideText500(u"xacy\x0162"), false, false);
    EXPECT_EQ(list.findContains(text500("bb"), true), -1);
    EXPECT_EQ(list.findContains(text500("bb"), false), -1);
    EXPECT_EQ(list.findContains(wideText500(u"Y\x0162"), false), 0);
    EXPECT_EQ(list.findContains(wideText500(u"Y\x0162"), true), -1);
    EXPECT_EQ(list.findContains(wideText500(u"y\x0142"), false), -1);
}

struct SortRow
{
    Texts before;
    Texts ascending;
    Texts descending;
};

TEST(QvStringListSort, OrdersWithoutCaseAndKeepsTheOrderOfEquals)
{
    for (SortRow const& row : {
             SortRow{{}, {}, {}},
             SortRow{{"b"}, {"b"}, {"b"}},
             SortRow{{"b", "a"}, {"a", "b"}, {"b", "a"}},
             SortRow{{"b", "A", "a"}, {"A", "a", "b"}, {"b", "A", "a"}},
             SortRow{{"a", "b", "A", "B"}, {"a", "A", "b", "B"}, {"b", "B", "a", "A"}},
             // A text stands before those that it begins.
             SortRow{{"abc", "ab"}, {"ab", "abc"}, {"abc", "ab"}},
             SortRow{{"abc", "", "ab", ""}, {"", "", "ab", "abc"}, {"abc", "ab", "", ""}},
             // Folded to upper case, letters stand before the underscore.
             SortRow{{"_", "z", "Z", "a"}, {"a", "z", "Z", "_"}, {"_", "z", "Z", "a"}},
             SortRow{
                 {"e", "d", "c", "b", "a"}, {"a", "b", "c", "d", "e"}, {"e", "d", "c", "b", "a"}},
             SortRow{{"10", "9", "1", "A", "-"},
                     {"-", "1", "10", "9", "A"},
                     {"A", "9", "10", "1", "-"}},
         }) {
        for (bool const descending : {false, true}) {
            List list;
            for (std::string const& text : row.before)
                list.append(text500(text), false, false);
            list.sort(descending);
            EXPECT_EQ(elements(list), descending ? row.descending : row.ascending);
        }
    }
}

// Units compare by their bytes in memory, the low one first.
TEST(QvStringListSort, OrdersWideUnitsByTheirLowByte)
{
    List list;
    for (std::u16string_view const text : {u"\x0042", u"\x0141", u"\x0241", u"\x0041", u"\xFF00"})
        list.append(wideText500(text), false, false);
    list.sort(false);
    EXPECT_EQ(elements(list), (Texts{"<FF00>", "A", "<0141>", "<0241>", "B"}));
    list.sort(true);
    EXPECT_EQ(elements(list), (Texts{"B", "<0241>", "<0141>", "A", "<FF00>"}));
}

// Bytes count as unsigned, and only ASCII letters fold.
TEST(QvStringListSort, PutsHighBytesBehindAscii)
{
    List list;
    fill(list, {"\xE4", "z", "\xC4", "~"});
    list.sort(false);
    EXPECT_EQ(elements(list), (Texts{"z", "~", "<00C4>", "<00E4>"}));
}

TEST(QvStringListSort, MovesWholeCharacterAreas)
{
    List list;
    list.append(text500("b"), false, false);
    list.append(staleEmpty500("stale"), false, false);
    list.sort(false);
    EXPECT_EQ(list.items[0].length, 0);
    EXPECT_EQ(list.items[1].length, 1);
    std::u16string const first(list.items[0].text, list.items[0].text + 6);
    EXPECT_EQ(first, (std::u16string{'s', 't', 'a', 'l', 'e', 0}));
    EXPECT_EQ(qvTest::shown(list.items[1]), "b");
}

// The text of the line, from an object that must hold zeros behind it.
std::string line(List& list)
{
    _qvString8_allSize<1000> const text = list.asString8();
    if (text.length > 1000)
        return "<length " + std::to_string(text.length) + ">";
    bool const zeros =
        std::all_of(text.text + text.length, text.text + 1001, [](char c) { return c == 0; });
    return std::string(text.text, text.length) + (zeros ? "" : "<no terminator>");
}

std::string lineOf(std::initializer_list<std::string_view> texts)
{
    List list;
    fill(list, texts);
    return line(list);
}

TEST(QvStringListAsString8, QuotesEachElement)
{
    EXPECT_EQ(lineOf({}), "");
    EXPECT_EQ(lineOf({""}), "'' ");
    EXPECT_EQ(lineOf({"one"}), "'one' ");
    EXPECT_EQ(lineOf({"one", "", "it's"}), "'one' '' 'it's' ");
}

TEST(QvStringListAsString8, IsEmptyForACountBelowZero)
{
    List list;
    fill(list, {"one"});
    list.count = -1;
    EXPECT_EQ(line(list), "");
    list.count = 1;
}

// The element is read to its first zero unit, whatever its length says.
TEST(QvStringListAsString8, ReadsElementsToTheirFirstZeroUnit)
{
    List list;
    fill(list, {std::string_view("a\0b", 3)});
    list.append(staleEmpty500("stale"), false, false);
    Text text = text500("longer");
    text.length = 2;
    list.append(text, false, false);
    EXPECT_EQ(line(list), "'a' 'stale' 'longer' ");
}

TEST(QvStringListAsString8, TakesTheLowByteOfEachUnit)
{
    List list;
    list.append(wideText500(u"A\x0141\xFFE4\x0100z"), false, false);
    EXPECT_EQ(line(list), std::string("'AA\xE4\0z' ", 8));
}

TEST(QvStringListAsString8, CutsTheLineAt1000Characters)
{
    std::string const x(500, 'x');
    std::string const y(500, 'y');
    EXPECT_EQ(lineOf({x}), "'" + x + "' ");
    EXPECT_EQ(lineOf({x, y}), "'" + x + "' '" + y.substr(0, 496));
    EXPECT_EQ(lineOf({x, y, "more", ""}), "'" + x + "' '" + y.substr(0, 496));

    // The second text begins at 504, behind its quote.
    struct Row
    {
        std::size_t length;
        std::string end;
    };
    for (Row const& row : {
             Row{492, "' 'n"},
             Row{493, "' '"},
             Row{494, "' "},
             // At 999 there is room for the first character of the closing pair only.
             Row{495, "'"},
             Row{496, ""},
         }) {
        std::string const text(row.length, 'y');
        std::string const expected = "'" + x + "' '" + text + row.end;
        EXPECT_EQ(expected.size(), 1000U);
        EXPECT_EQ(lineOf({x, text, "next"}), expected) << row.length;
    }
}

TEST(QvStringListAsString8, LeavesTheListAsItWas)
{
    List list;
    fill(list, {"one", "two"});
    list.atAsChar(1);
    line(list);
    EXPECT_EQ(elements(list), (Texts{"one", "two"}));
    EXPECT_STREQ(list.charBuffer, "two");
}

/// A damaged element ends where its object does, whatever is on the stack behind its copy.
TEST(QvStringListLine, ElementWithoutAZeroUnitIsShownAlone)
{
    List list;
    fill(list, {"a", "b"});
    std::fill(std::begin(list.items[0].text), std::end(list.items[0].text), u'x');
    useStack('y');
    EXPECT_EQ(line(list), "'" + std::string(501, 'x') + "' 'b' ");
}

} // namespace
