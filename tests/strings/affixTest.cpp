/// Starts and ends of all strings.

#include "tests/strings/laid.h"

#include <climits>

namespace strings {
namespace {

using namespace std::string_view_literals;

class Affix : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Affix, testing::ValuesIn(allImages()), imageName);

struct AffixRow
{
    Text text;
    Text affix;
    bool starts;
    bool startsExactly;
    bool ends;
};

constexpr AffixRow affixRows[] = {
    {u"abc", u"a", true, true, false},
    {u"abc", u"A", true, false, false},
    {u"abc", u"AB", true, false, false},
    {u"abc", u"abc", true, true, true},
    {u"abc", u"ABC", true, false, true},
    {u"abc", u"abcd", false, false, false},
    {u"abc", u"xabc", false, false, false},
    {u"abc", u"bc", false, false, true},
    {u"abc", u"BC", false, false, true},
    {u"abc", u"c", false, false, true},
    {u"abc", u"b", false, false, false},
    {u"aBa", u"Ab", true, false, false},
    {u"aBa", u"bA", false, false, true},
    {u"aa", u"a", true, true, true},
    {u"ab", u"c", false, false, false},
    {u"abcABC", u"abcabc", true, false, true},
    {u"abcABC", u"abcABC", true, true, true},
    {u"abcABC", u"abcABCd", false, false, false},
    {u"abcABC", u"xabcABC", false, false, false},
    {u"ABort", u"abORT", true, false, true},
    {u"abort", u"abx", false, false, false},
    {u"abort", u"aborts", false, false, false},
    {u"-abort", u"-", true, true, false},
    {u"-", u"-", true, true, true},
    {u"-", u"--", false, false, false},
    // Nothing has no beginning and no end, and is none.
    {u"abc", u"", false, false, false},
    {u"", u"", false, false, false},
    {u"", u"a", false, false, false},
    {u"[x[", u"{", false, false, false},
    // Zeros are characters of a string.
    {u"a\0bc\0"sv, u"A\0B"sv, true, false, false},
    {u"a\0bc\0"sv, u"A\0C"sv, false, false, false},
    {u"a\0bc\0"sv, u"a\0b"sv, true, true, false},
    {u"a\0bc\0"sv, u"a\0B"sv, true, false, false},
    {u"a\0bc\0"sv, u"C\0"sv, false, false, true},
    {u"a\0bc\0"sv, u"C", false, false, false},
    {u"a\0b"sv, u"A", true, false, false},
    {u"a\0b"sv, u"ab", false, false, false},
    {u"\0b"sv, u"b", false, false, true},
};

TEST_P(Affix, stringsAndTexts)
{
    for (auto const& row : affixRows) {
        if (!image.fits(row.text, row.affix))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + shown(row.affix));
        Laid const text(image, row.text);
        Laid const affix(image, row.affix, 0x11);
        auto const before = text.bytes();
        EXPECT_EQ(text->startsWith(affix), row.starts);
        EXPECT_EQ(text->startsWithCaseSen(affix), row.startsExactly);
        EXPECT_EQ(text->endsWith(affix), row.ends);

        std::string const bytes = narrowed(row.affix);
        int const length = static_cast<int>(row.affix.size());
        EXPECT_EQ(text->startsWith(unterminated(bytes).data(), length), row.starts);
        if (bytes.find('\0') == std::string::npos) {
            EXPECT_EQ(text->startsWith(bytes.c_str()), row.starts);
            EXPECT_EQ(text->startsWithCaseSen(bytes.c_str()), row.startsExactly);
            EXPECT_EQ(text->endsWith(bytes.c_str()), row.ends);
            if (row.affix.size() <= row.text.size()) {
                EXPECT_EQ(text->endsWith(bytes.c_str(), length), row.ends);
            }
        }
        EXPECT_EQ(text.bytes(), before);
    }
}

/// Units that no byte becomes in both widths.
TEST_P(Affix, highUnits)
{
    constexpr AffixRow rows[] = {
        {u"\xE4"
         u"b\xE4",
         u"\xE4", true, true, true},
        {u"\xE4"
         u"b\xE4",
         u"\xC4", false, false, false},
        {u"\xE4z", u"\xE4Z", true, false, true},
        {u"\xE4z", u"\xC4z", false, false, false},
        {u"\x0141\xE4"
         u"b\0c\x4101"sv,
         u"\x0141\xE4"
         u"B",
         true, false, false},
        {u"\x0141\xE4"
         u"b\0c\x4101"sv,
         u"\x0141\xE4"
         u"b\0"sv,
         true, true, false},
        {u"\x0141\xE4"
         u"b\0c\x4101"sv,
         u"\x0161", false, false, false},
        {u"\x0141\xE4"
         u"b\0c\x4101"sv,
         u"\x41", false, false, false},
        {u"\x0141\xE4"
         u"b\0c\x4101"sv,
         u"\0C\x4101"sv, false, false, true},
        {u"\x0141\xE4"
         u"b\0c\x4101"sv,
         u"\x4102", false, false, false},
    };
    for (auto const& row : rows) {
        if (!image.fits(row.text, row.affix))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + shown(row.affix));
        Laid const text(image, row.text);
        auto const affix = stringOf(image, row.affix);
        EXPECT_EQ(text->startsWith(affix), row.starts);
        EXPECT_EQ(text->startsWithCaseSen(affix), row.startsExactly);
        EXPECT_EQ(text->endsWith(affix), row.ends);
        EXPECT_TRUE(text->startsWith(text) && text->startsWithCaseSen(text) &&
                    text->endsWith(text));
    }
}

TEST_P(Affix, aStringIsItsOwnAffix)
{
    Laid const text(image, u"aB");
    EXPECT_TRUE(text->startsWith(text));
    EXPECT_TRUE(text->startsWithCaseSen(text));
    EXPECT_TRUE(text->endsWith(text));
}

TEST_P(Affix, nullTextsAreNoAffix)
{
    for (auto const text : {u"abc"sv, u""sv}) {
        Laid const string(image, text);
        EXPECT_FALSE(string->startsWith(nullText));
        EXPECT_FALSE(string->startsWithCaseSen(nullText));
        EXPECT_FALSE(string->endsWith(nullText));
        for (int const count : {-1, 0, 1, 2, 3, 65537})
            EXPECT_FALSE(string->startsWith(nullText, count));
        for (int const count : {0, 2})
            EXPECT_FALSE(string->endsWith(nullText, count));
    }
}

TEST_P(Affix, aStaleFirstUnitOfAnEmptyStringIsNoAffix)
{
    Laid empty(image, u"");
    empty.stale(0, u"a\0"sv);
    EXPECT_FALSE(empty->startsWith(u'a'));
    EXPECT_FALSE(empty->endsWith(u'a'));
    EXPECT_FALSE(empty->endsWith('a'));
    EXPECT_FALSE(empty->startsWith("a"));
    EXPECT_FALSE(empty->startsWith("a", 1));
    EXPECT_FALSE(empty->startsWith("", 0));
    EXPECT_FALSE(empty->startsWithCaseSen("a"));
    EXPECT_FALSE(empty->endsWith("a"));
    EXPECT_FALSE(empty->endsWith("a", 1));
    EXPECT_FALSE(empty->endsWith("", 0));
    EXPECT_FALSE(empty->endsWith("", 1));
    auto const a = stringOf(image, u"a");
    EXPECT_FALSE(a->startsWith(empty));
    EXPECT_FALSE(a->startsWithCaseSen(empty));
    EXPECT_FALSE(a->endsWith(empty));
}

TEST_P(Affix, staleTextIsNoPartOfTheReceiver)
{
    Laid text(image, u"a");
    text.stale(1, u"b\0"sv);
    EXPECT_FALSE(text->startsWith("ab"));
    EXPECT_TRUE(text->startsWith("a"));
    EXPECT_FALSE(text->endsWith("b"));

    Laid const longer(image, u"ab");
    EXPECT_FALSE(text->startsWith(longer));
    EXPECT_FALSE(text->startsWithCaseSen(longer));
    EXPECT_FALSE(text->endsWith(longer));
}

struct AffixUnitRow
{
    Text text;
    Unit unit;
    bool starts;
    bool ends;
};

/// Exact, in spite of the plain names.
constexpr AffixUnitRow affixUnitRows[] = {
    {u"abc", u'a', true, false},
    {u"abc", u'A', false, false},
    {u"abc", u'b', false, false},
    {u"abc", u'c', false, true},
    {u"abc", u'C', false, false},
    {u"ab", u'B', false, false},
    {u"a", u'a', true, true},
    {u"", u'a', false, false},
    {u"", 0, false, false},
    {u"\0b"sv, 0, true, false},
    {u"\0a\0"sv, 0, true, true},
    {u"a\0bc\0"sv, 0, false, true},
    {u"aB\xE4", u'B', false, false},
    {u"aB\xE4", 0xE4, false, true},
    {u"aB\xE4", 0xC4, false, false},
    {u"\x0141x\xFFE4", 0x0141, true, false},
    {u"\x0141x\xFFE4", 0xFFE4, false, true},
    {u"\x0141x\xFFE4", 0x41, false, false},
    {u"\x0141x\xFFE4", 0xE4, false, false},
};

TEST_P(Affix, singleUnitsAreExact)
{
    for (auto const& row : affixUnitRows) {
        if (!image.fits(row.text))
            continue;
        SCOPED_TRACE(shown(row.text) + ", " + std::to_string(row.unit));
        Laid text(image, row.text);
        text.stale(row.text.size(), u"z");
        EXPECT_EQ(text->startsWith(row.unit), row.starts);
        EXPECT_EQ(text->endsWith(row.unit), row.ends);
        EXPECT_FALSE(text->endsWith(u'z'));
        if (row.unit < 0x80) {
            EXPECT_EQ(text->endsWith(static_cast<char>(row.unit)), row.ends);
        }
    }
}

/// The folded forms cut a text at the capacity before they compare it.
TEST_P(Affix, longTextsAgainstAFullString)
{
    auto const text = letters(image.capacity);
    auto const bytes = narrowed(text);
    int const n = image.intCapacity();
    Laid const full(image, text);
    for (auto const& longer : {bytes + "gh", narrowed(letters(image.capacity + 3))}) {
        EXPECT_TRUE(full->startsWith(longer.c_str()));
        EXPECT_TRUE(full->endsWith(longer.c_str()));
        EXPECT_TRUE(full->startsWith(longer.c_str(), n));
        EXPECT_FALSE(full->startsWith(longer.c_str(), n + 1));
    }
    EXPECT_TRUE(full->startsWith((narrowed(upperOf(text)) + "GH").c_str()));
    EXPECT_TRUE(full->startsWithCaseSen(bytes.c_str()));
    EXPECT_FALSE(full->endsWith(bytes.c_str(), n + 1));
    EXPECT_TRUE(full->endsWith(bytes.c_str(), n));
    EXPECT_TRUE(full->endsWith(bytes.c_str(), 1));

    auto const longer = narrowed(letters(image.capacity + 2));
    EXPECT_FALSE(stringOf(image, letters(image.capacity - 1))->startsWith(longer.c_str()));
    auto other = text;
    other.back() = u'#';
    EXPECT_FALSE(stringOf(image, other)->startsWith(longer.c_str()));
}

/// Only the low 16 bits of a text's length count.
TEST_P(Affix, textLengthsWrapAt65536)
{
    Laid const text(image, u"aaa");
    struct Row
    {
        std::size_t length;
        bool isAffix;
    };
    for (auto const& row : {Row{65535, false}, Row{65536, false}, Row{65537, true},
                            Row{65539, true}, Row{65540, false}}) {
        SCOPED_TRACE(row.length);
        std::string const affix(row.length, 'a');
        EXPECT_EQ(text->startsWith(affix.c_str()), row.isAffix);
        EXPECT_EQ(text->startsWithCaseSen(affix.c_str()), row.isAffix);
        EXPECT_EQ(text->endsWith(affix.c_str()), row.isAffix);
    }
    auto const lettersOf = [](std::size_t count) { return narrowed(letters(count)); };
    Laid const abcde(image, u"abcde");
    EXPECT_FALSE(abcde->startsWith(lettersOf(65536).c_str()));
    EXPECT_TRUE(abcde->startsWith(lettersOf(65541).c_str()));
    EXPECT_TRUE(abcde->startsWithCaseSen(lettersOf(65541).c_str()));
    EXPECT_TRUE(abcde->endsWith(lettersOf(65541).c_str()));
    EXPECT_FALSE(abcde->endsWith(lettersOf(65536).c_str()));
    EXPECT_FALSE(abcde->startsWith(lettersOf(65542).c_str()));
    Laid const abcdX(image, u"abcdX");
    EXPECT_FALSE(abcdX->startsWith(lettersOf(65541).c_str()));
    EXPECT_TRUE(abcdX->startsWith(lettersOf(65540).c_str()));
}

/// The count of endsWith only opens the gate; how much is compared comes from the text itself.
TEST_P(Affix, theCountOfAnEndIsOnlyAGate)
{
    Laid const text(image, u"abcd");
    EXPECT_TRUE(text->endsWith("CD", 1));
    EXPECT_TRUE(text->endsWith("CD", 2));
    EXPECT_TRUE(text->endsWith("cd", 3));
    EXPECT_TRUE(text->endsWith("CD", 4));
    EXPECT_TRUE(text->endsWith("d", 4));
    EXPECT_TRUE(text->endsWith("abcd", 1));
    EXPECT_FALSE(text->endsWith("dc", 1));
    EXPECT_FALSE(text->endsWith("cx", 1));
    EXPECT_FALSE(text->endsWith("abc", 3));
    EXPECT_FALSE(text->endsWith("cd", 0));
    EXPECT_FALSE(text->endsWith("cd", 5));
    EXPECT_FALSE(text->endsWith("cd", INT_MAX));
    EXPECT_FALSE(text->endsWith("", 0));
    EXPECT_FALSE(text->endsWith("", 5));
}

class AffixBytes : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, AffixBytes, testing::ValuesIn(bytePairImages()), imageName);

/// Of the forms for plain text the 16-bit ones find no high byte in a unit below 0x100.
TEST_P(AffixBytes, everyPairOfBytes)
{
    Laid text(image, u"?");
    Laid affix(image, u"?");
    for (Unit a = 0; a < 256; ++a) {
        text.stale(0, {&a, 1});
        for (Unit b = 0; b < 256; ++b) {
            affix.stale(0, {&b, 1});
            AnyString const& string = *text;
            char const c[] = {static_cast<char>(b), '\0'};
            bool const isChar = image.unitSize == 1 || b < 0x80;
            bool const exact = a == b;
            bool const folded = upperOf(a) == upperOf(b);
            // A zero byte is a character of a string, and the end of a text.
            bool const isInText = folded && b != 0;
            bool const fine =
                string.startsWith(affix) == folded && string.startsWithCaseSen(affix) == exact &&
                string.endsWith(affix) == folded && string.startsWith(b) == exact &&
                string.endsWith(b) == exact &&
                (!isChar || (string.endsWith(c[0]) == exact && string.startsWith(c) == isInText &&
                             string.startsWith(c, 1) == folded && string.endsWith(c) == isInText &&
                             (b == 0 || string.endsWith(c, 1) == isInText) &&
                             string.startsWithCaseSen(c) == (exact && b != 0)));
            ASSERT_TRUE(fine) << "bytes " << +a << " and " << +b;
        }
    }
}

} // namespace
} // namespace strings
