/// Searches of the 16-bit strings for bytes, which become units by the sign.

#include "tests/strings/laid.h"

namespace strings {
namespace {

using namespace std::string_view_literals;

class Search16 : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Search16, testing::ValuesIn(images16()), imageName);

/// The form without a start is cut at the capacity too, and starts at 0.
TEST_P(Search16, indexOfPlainText)
{
    Laid text(image, u"abC\xFFE4\xE4");
    EXPECT_EQ(text->indexOfText("b"), 1);
    EXPECT_EQ(text->indexOfText("BC"), 1);
    EXPECT_EQ(text->indexOfText("x"), -1);
    EXPECT_EQ(text->indexOfText(""), -1);
    EXPECT_EQ(text->indexOfText(nullText), -1);
    EXPECT_EQ(text->indexOfText("\xE4"), 3);
    EXPECT_EQ(text->indexOfText("abcdefghijklmnop"), -1);

    Laid full(image, letters(image.capacity));
    EXPECT_EQ(full->indexOfText(narrowed(letters(image.capacity + 4)).c_str()), 0);
    EXPECT_EQ(full->indexOfText(narrowed(letters(65536)).c_str()), -1);

    Laid stale(image, u"ab");
    stale.stale(2, u"cde");
    EXPECT_EQ(stale->indexOfText("c"), -1);
}

struct ContainsWideRow
{
    Text text;
    char const* pattern;
    bool folded;
    bool exact;
    bool upperInput;
};

constexpr ContainsWideRow containsWideRows[] = {
    {u"x\xFFE4", "\xE4", true, true, true},
    {u"x\xE4", "\xE4", false, false, false},
    {u"x\xFFE4z", "X\xE4", true, false, true},
};

TEST_P(Search16, containsTexts)
{
    for (auto const& row : containsWideRows) {
        SCOPED_TRACE(shown(row.text));
        Laid const text(image, row.text);
        EXPECT_EQ(text->contains(row.pattern), row.folded);
        EXPECT_EQ(text->containsCaseSen(row.pattern), row.exact);
        EXPECT_EQ(text->containsUpperCaseInput(row.pattern), row.upperInput);
    }
    EXPECT_TRUE(Laid(image, u"x\xFFE4")->containsCaseSen("\xE4", 1));
}

struct CharacterRow
{
    Text text;
    char character;
    bool contained;
};

/// Only the containment of a high character finds its sign-extended unit; counts compare 32 bits,
/// where it equals no unit.
constexpr CharacterRow characterRows[] = {
    {u"x\xFFE4\xFFE4", '\xE4', true}, {u"x\xE4", '\xE4', false},     {u"x\xFFC4", '\xE4', false},
    {u"\xFFFF\xFF", '\xFF', true},    {u"\xFF80\x80", '\x80', true},
};

TEST_P(Search16, highCharacters)
{
    for (auto const& row : characterRows) {
        SCOPED_TRACE(shown(row.text));
        Laid const text(image, row.text);
        EXPECT_EQ(text->contains(row.character), row.contained);
        EXPECT_EQ(text->count(row.character), 0);
        EXPECT_EQ(text->countCaseSen(row.character), 0);
    }
}

} // namespace
} // namespace strings
