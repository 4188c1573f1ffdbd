/// Starts and ends of the 8-bit strings where the 16-bit ones differ: high bytes, which counts pass
/// the gate, and what is cut at the capacity.

#include "tests/strings/laid.h"

#include <climits>

namespace strings {
namespace {

class Affix8 : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Affix8, testing::ValuesIn(images8()), imageName);

TEST_P(Affix8, highBytes)
{
    Laid const text(image, u"\xE4z\xE4");
    EXPECT_TRUE(text->startsWith("\xE4Z"));
    EXPECT_FALSE(text->startsWith("\xC4z"));
    EXPECT_TRUE(text->startsWithCaseSen("\xE4z"));
    EXPECT_TRUE(text->endsWith("Z\xE4"));
    EXPECT_FALSE(text->endsWith("\xC4"));
    EXPECT_TRUE(text->startsWith("\xE4", 1));
    EXPECT_TRUE(text->endsWith("\xE4", 1));
    EXPECT_TRUE(text->endsWith('\xE4'));
    EXPECT_FALSE(text->endsWith('\xC4'));
}

TEST_P(Affix8, aStringEndsWithItsOwnText)
{
    Laid const text(image, u"aB");
    auto const* const own = static_cast<char const*>(text->textAt());
    EXPECT_TRUE(text->startsWith(own));
    EXPECT_TRUE(text->startsWithCaseSen(own));
    EXPECT_TRUE(text->startsWith(own, 2));
    EXPECT_TRUE(text->endsWith(own + 1));
    EXPECT_TRUE(text->endsWith(own + 1, 1));
}

/// Unlike the folded forms the exact one does not cut its text at the capacity.
TEST_P(Affix8, anExactStartIsNotCut)
{
    Laid const full(image, letters(image.capacity));
    EXPECT_FALSE(full->startsWithCaseSen((narrowed(letters(image.capacity)) + "gh").c_str()));
}

struct CountedRow
{
    int count;
    bool starts;
};

/// A count passes when its low 16 bits less 1 are below the length, and those bits are compared.
/// The bytes of the text are "abX" against a receiver "ABc": two of them match.
constexpr CountedRow countedRows[] = {
    {0, false},          {1, true},      {2, true},       {3, false},       {4, false},
    {-1, false},         {-2, false},    {-65533, false}, {-65534, true},   {-65535, true},
    {-65536, false},     {65535, false}, {65536, false},  {65537, true},    {65538, true},
    {65539, false},      {65540, false}, {65541, false},  {INT_MAX, false}, {INT_MIN, false},
    {INT_MIN + 1, true},
};

TEST_P(Affix8, countedBeginnings)
{
    Laid const text(image, u"ABc");
    Laid const empty(image, u"");
    auto const bytes = unterminated("abX");
    for (auto const& row : countedRows) {
        SCOPED_TRACE(row.count);
        EXPECT_EQ(text->startsWith(bytes.data(), row.count), row.starts);
        EXPECT_FALSE(empty->startsWith(bytes.data(), row.count));
    }
}

/// The gate is the same 16-bit comparison that all other affixes pass.
TEST_P(Affix8, theGateOfAnEndLooksAt16Bits)
{
    Laid const text(image, u"abcd");
    EXPECT_FALSE(text->endsWith("cd", -1));
    EXPECT_FALSE(text->endsWith("cd", 65536));
    EXPECT_FALSE(text->endsWith("cd", INT_MIN));
    EXPECT_TRUE(text->endsWith("cd", 65537));
    EXPECT_TRUE(text->endsWith("cd", 65540));
    EXPECT_FALSE(text->endsWith("cd", 65541));
    EXPECT_TRUE(text->endsWith("cd", -65535));
    EXPECT_FALSE(text->endsWith("", 1));
    EXPECT_FALSE(text->endsWith("", 4));
}

} // namespace
} // namespace strings
