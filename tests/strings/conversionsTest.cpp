// docs/string-conversions.md says how text comes from type to type. Each of its expressions is run
// here, over a long text, one with a zero inside, a unit of 0x80 and up and, where the source may
// be null, a null one; what comes out has to be what the cells of its row say.

#include "qv/strings/interop.h"
#include "tests/layout/documentTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

/// The names of the document. Its N is one of two numbers, since no large capacity is one of both
/// widths.
template <int N8, int N16>
struct World
{
    using S8 = _qvString8_allSize<N8>;
    using S16 = _qvString<N16>;
    using Even = _qvString8_evenSize_old<N8>;
    using Old16 = _qvString_old<N16>;

    S8 to8 = "old";
    S16 to16 = "old";
    Even toEven = "old";
    Old16 toOld16 = "old";
    std::string toString = "old";
    std::u16string toU16string = u"old";
    char const* toBytes = "old";
    unsigned short const* toUnits = nullptr;
    char buffer[std::size_t{N8} + 1] = "old";

    _qvString8_allSize<5000> from8;
    _qvString<2500> from16;
    _qvString8_evenSize_old<5000> fromEven;
    _qvString_old<2500> fromOld16;
    Even sameEven;
    _qvString8_UnevenSize_old<N8> sameUneven = {};
    Old16 sameOld16;
    std::string string;
    std::u16string u16string;
    std::vector<unsigned short> unitArray;
    char const* bytes = nullptr;
    unsigned short const* units = nullptr;
    int count;

    /// Makes the text the source of all kinds, in bytes its low bytes. Null is null raw text with
    /// the count as given.
    World(std::u16string const* text, int given) : count(given)
    {
        if (text == nullptr)
            return;
        u16string = *text;
        for (char16_t const unit : *text) {
            string += static_cast<char>(unit);
            unitArray.push_back(unit);
        }
        unitArray.push_back(0);
        qvInterop::assign(from8, string);
        qvInterop::assign(fromEven, string);
        qvInterop::assign(sameEven, string);
        qvInterop::assign(sameUneven, string);
        qvInterop::assign(from16, u16string);
        qvInterop::assign(fromOld16, u16string);
        qvInterop::assign(sameOld16, u16string);
        bytes = string.c_str();
        units = unitArray.data();
        count = static_cast<int>(text->size());
    }

    World(World const&) = delete;
    World& operator=(World const&) = delete;
};

constexpr int N = 10;
using Small = World<N, N>;
using Large = World<3000, 2500>;

/// What a target holds, a unit for each byte.
template <qvInterop::FixedString String>
std::u16string textOf(String const& string)
{
    std::u16string text;
    for (std::size_t i = 0; i < string.length; ++i)
        text += static_cast<std::make_unsigned_t<typename String::Unit>>(string.text[i]);
    return text;
}
std::u16string textOf(std::string const& string)
{
    std::u16string text;
    for (char const c : string)
        text += static_cast<unsigned char>(c);
    return text;
}
std::u16string textOf(std::u16string const& string)
{
    return string;
}
std::u16string textOf(unsigned short const* units)
{
    std::u16string text;
    for (; *units != 0; ++units)
        text += *units;
    return text;
}

/// What null left behind in a target that held "old".
template <typename Target>
std::string afterNull(Target const& target)
{
    if constexpr (qvInterop::FixedString<Target>) {
        if (target.length == 0)
            return target.text[0] == 0 ? "empty" : "length 0";
    }
    return textOf(target) == u"old" ? "no change" : "a text";
}

/// An expression, and what its target holds after it.
struct Step
{
    char const* expression;
    std::u16string (*inSmall)(std::u16string const&);
    std::u16string (*inLarge)(std::u16string const&);
    std::string (*afterNull)(int count);
};

#define IN(WORLD, ...)                                                                             \
    struct In##WORLD : WORLD                                                                       \
    {                                                                                              \
        explicit In##WORLD(std::u16string const* text, int given = 0) : WORLD(text, given)         \
        {                                                                                          \
            __VA_ARGS__                                                                            \
        }                                                                                          \
    };

#define STEP(TARGET, ...)                                                                          \
    [] {                                                                                           \
        IN(Small, __VA_ARGS__)                                                                     \
        IN(Large, __VA_ARGS__)                                                                     \
        return Step{#__VA_ARGS__,                                                                  \
                    [](std::u16string const& text) { return textOf(InSmall(&text).TARGET); },      \
                    [](std::u16string const& text) { return textOf(InLarge(&text).TARGET); },      \
                    [](int count) { return afterNull(InSmall(nullptr, count).TARGET); }};          \
    }()

// clang-format off
std::vector<Step> steps()
{
    return {
        STEP(to8, to8 = from8.asUni();),
        STEP(to8, to8 = S8(from8.asUni());),
        STEP(to8, to8 = sameEven;),
        STEP(to8, to8 = sameUneven;),
        STEP(to8, qvInterop::assign(to8, qvInterop::view(fromEven));),
        STEP(to8, to8 = S8(from16.text);),
        STEP(to8, to8 = S8(fromOld16.text);),
        STEP(to8, to8 = string;),
        STEP(to8, qvInterop::assign(to16, u16string); to8 = S8(to16.text);),
        STEP(to8, to8 = bytes;),
        STEP(to8, to8 = S8(bytes);),
        STEP(to8, to8.fromChar(bytes, count);),
        STEP(to8, to8 = S8(bytes, count);),
        STEP(to8, to8 = S8(units);),

        STEP(to16, to16 = S16(from16.text, from16.length);),
        STEP(to16, to16 = from16.asUni();),
        STEP(to16, to16 = sameOld16;),
        STEP(to16, to16 = S16(fromOld16.text, fromOld16.length);),
        STEP(to16, to16 = S16(from8.asUni());),
        STEP(to16, to16 = from8.asChar();),
        STEP(to16, to16 = S16(fromEven.text, fromEven.length);),
        STEP(to16, to16 = fromEven.text;),
        STEP(to16, to16 = string;),
        STEP(to16, qvInterop::assign(to16, u16string);),
        STEP(to16, to16 = bytes;),
        STEP(to16, to16 = S16(bytes);),
        STEP(to16, to16 = S16(bytes, count);),
        STEP(to16, to16 = units;),
        STEP(to16, to16 = S16(units);),
        STEP(to16, to16 = S16(units, count);),

        STEP(toEven, qvInterop::assign(toEven, qvInterop::view(from8));),
        STEP(toEven, toEven = from8.asChar();),
        STEP(toEven, toEven = from16.to_qvString8_250().asChar();),
        STEP(toEven, qvInterop::assign(toEven, string);),
        STEP(toEven, toEven = bytes;),
        STEP(toEven, toEven = Even(bytes, count);),

        STEP(toOld16, toOld16 = Old16(from16.text, from16.length);),
        STEP(toOld16, toOld16 = Old16(from8.asChar(), from8.length);),
        STEP(toOld16, toOld16 = from8.asChar();),
        STEP(toOld16, toOld16 = Old16(string.data(), static_cast<int>(string.size()));),
        STEP(toOld16, qvInterop::assign(toOld16, u16string);),
        STEP(toOld16, toOld16 = bytes;),
        STEP(toOld16, toOld16 = Old16(bytes, count);),
        STEP(toOld16, toOld16 = units;),
        STEP(toOld16, toOld16 = Old16(units, count);),

        STEP(toString, toString = qvInterop::view(from8);),
        STEP(toString, toString = qvInterop::view(fromEven);),
        STEP(toString, qvInterop::Utf8Text const utf8(from16); toString = std::string_view(utf8);),
        STEP(toString, qvInterop::Utf8Text const utf8(fromOld16); toString = std::string_view(utf8);),
        STEP(toString, toString = from16.to_qvString8_250().asChar();),
        STEP(toString, toString = from16.to_qvString8_500().asChar();),
        STEP(toU16string, qvInterop::U16Text const copy(from16); toU16string = std::u16string_view(copy);),
        STEP(toU16string, qvInterop::U16Text const copy(fromOld16); toU16string = std::u16string_view(copy);),
        STEP(toBytes, toBytes = from8.asChar();),
        STEP(toBytes, toBytes = fromEven.text;),
        STEP(buffer, from16.toChar(buffer, sizeof buffer);),
        STEP(buffer, fromOld16.toChar(buffer, sizeof buffer);),
        STEP(toUnits, toUnits = from16.text;),
        STEP(toUnits, toUnits = fromOld16.text;),
    };
}
// clang-format on

std::string withoutBlanks(std::string text)
{
    std::erase(text, ' ');
    return text;
}

std::u16string letters(std::size_t count)
{
    std::u16string text;
    for (std::size_t i = 0; i < count; ++i)
        text += static_cast<char16_t>('a' + i % 26);
    return text;
}

/// The rows of the document by their expressions.
std::vector<documents::Cells> documentRows()
{
    std::vector<documents::Cells> rows;
    auto const document =
        documents::readDocument(std::string(QV_DOCS_DIR) + "/string-conversions.md");
    for (auto const& table : documents::tablesHeaded(
             document, {"From", "Expression", "Cut", "Zero inside", "0x80 and up", "Null"}))
        rows.insert(rows.end(), table.rows.begin(), table.rows.end());
    return rows;
}

/// How much of a text is left that is longer than 1024 units and fits into the large strings.
std::size_t keptOf2000(std::string const& cut)
{
    for (std::size_t const limit : {249U, 499U, 1024U})
        if (cut.ends_with("at " + std::to_string(limit)))
            return limit;
    return 2000;
}

/// The same in the small ones. Sources of the capacity N hold no more than that.
std::size_t keptInSmall(std::string const& cut, std::string const& expression)
{
    bool const isOfSame = expression.find("same") != std::string::npos;
    bool const isCutAtN = cut.starts_with("at N") || cut == "at the size less 1" || isOfSame;
    return isCutAtN ? N : keptOf2000(cut);
}

bool holdsOne(std::string const& text, std::vector<char const*> const& parts)
{
    return std::any_of(parts.begin(), parts.end(),
                       [&text](char const* part) { return text.find(part) != std::string::npos; });
}

/// The document's words for what became of the unit U+01E4, of which a byte text has the low byte.
std::string wordsForHighUnit(std::u16string const& result, std::string const& expression)
{
    if (result == u"\uFFE4")
        return "sign-extended";
    if (result == u"\u00C7\u00A4")
        return "UTF-8";
    if (result == u"\u01E4")
        return "same";
    if (result != u"\u00E4")
        return "something else";
    if (holdsOne(expression, {"from16", "fromOld16", "u16string", "units"}))
        return "low byte";
    return holdsOne(expression, {"to16", "toOld16"}) ? "zero-extended" : "same";
}

// Trying these with a text that does not fit, or with a null source and a count, would end the
// test.
std::set<std::string> const notCut = {"to8 = S8(from8.asUni());", "to16 = from16.asUni();"};
std::set<std::string> const neverNull = {"to8 = S8(bytes, count);", "to16 = S16(units, count);",
                                         "toEven = Even(bytes, count);",
                                         "toOld16 = Old16(units, count);"};

TEST(Conversions, theDocumentHasARowForEachStepAndNoOther)
{
    std::set<std::string> inDocument;
    std::set<std::string> tried;
    for (auto const& row : documentRows())
        inDocument.insert(withoutBlanks(row[1]));
    for (Step const& step : steps())
        tried.insert(withoutBlanks(step.expression));
    EXPECT_EQ(inDocument, tried);
    EXPECT_EQ(documentRows().size(), steps().size());
}

TEST(Conversions, theCellsSayWhatComesOut)
{
    for (auto const& row : documentRows()) {
        ASSERT_EQ(row.size(), 6U) << row[0];
        SCOPED_TRACE(row[1]);
        auto const all = steps();
        auto const step = std::find_if(all.begin(), all.end(), [&row](Step const& each) {
            return withoutBlanks(each.expression) == withoutBlanks(row[1]);
        });
        ASSERT_NE(step, all.end());
        std::string const& cut = row[2];
        std::string const& zero = row[3];
        std::string const& high = row[4];
        std::string const& null = row[5];

        std::set<std::string> const cuts = {"at N",       "at N, at 1024", "at N, at 249",
                                            "at 249",     "at 499",        "at the size less 1",
                                            "has to fit", "nothing"};
        EXPECT_TRUE(cuts.contains(cut)) << cut;
        EXPECT_EQ(cut == "has to fit", notCut.contains(row[1]));
        EXPECT_EQ(cut == "at the size less 1", holdsOne(row[1], {"sizeof buffer"}));
        EXPECT_EQ(step->inSmall(letters(N)), letters(N));
        if (!notCut.contains(row[1])) {
            EXPECT_EQ(step->inSmall(letters(2000)), letters(keptInSmall(cut, row[1])));
        }
        EXPECT_EQ(step->inLarge(letters(2000)), letters(keptOf2000(cut)));

        std::u16string const zeroInside(u"a\0b", 3);
        EXPECT_TRUE(zero == "kept" || zero == "ends") << zero;
        EXPECT_EQ(step->inSmall(zeroInside), zero == "kept" ? zeroInside : u"a");

        EXPECT_EQ(high, wordsForHighUnit(step->inSmall(u"\u01E4"), row[1]));

        EXPECT_EQ(null == "with count 0", neverNull.contains(row[1]));
        if (neverNull.contains(row[1])) {
            EXPECT_EQ(step->afterNull(0), "empty");
        } else if (holdsOne(row[1], {"bytes", "units"})) {
            EXPECT_EQ(step->afterNull(3), null);
        } else {
            EXPECT_EQ(null, "");
        }
    }
}

} // namespace
