/// Starts and ends of the 16-bit strings where the 8-bit ones differ: bytes become units by the
/// sign, and counts are compared as they stand.

#include "tests/strings/laid.h"

namespace strings {
namespace {

using namespace std::string_view_literals;

class Affix16 : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Affix16, testing::ValuesIn(images16()), imageName);

/// A character is compared as a signed 32-bit value, so a high one ends no text.
TEST_P(Affix16, endsWithACharacter)
{
    struct Row
    {
        Text text;
        char character;
        bool ends;
    };
    constexpr Row rows[] = {
        {u"\xE4", '\xE4', false}, {u"\xFFE4", '\xE4', false}, {u"\x0141", 'A', false},
        {u"\x7F", '\x7F', true},  {u"\xFFFF", '\xFF', false},
    };
    for (auto const& row : rows)
        EXPECT_EQ(Laid(image, row.text)->endsWith(row.character), row.ends) << shown(row.text);
}

TEST_P(Affix16, textsAreWidenedByTheSign)
{
    struct Row
    {
        Text text;
        char const* affix;
        bool isAffix;
    };
    constexpr Row rows[] = {
        {u"\xFFE4x\xFFE4", "\xE4", true},
        {u"\xE4x\xE4", "\xE4", false},
        {u"\x0141x\x0141", "A", false},
        {u"\x0161x\x0161", "a", false},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(shown(row.text));
        Laid const text(image, row.text);
        EXPECT_EQ(text->startsWith(row.affix), row.isAffix);
        EXPECT_EQ(text->startsWithCaseSen(row.affix), row.isAffix);
        EXPECT_EQ(text->endsWith(row.affix), row.isAffix);
        EXPECT_EQ(text->endsWith(row.affix, 1), row.isAffix);
    }
}

/// An affix is clipped at the capacity, so a longer one can match a full text, exactly too.
TEST_P(Affix16, anExactStartIsCutToo)
{
    Laid const full(image, letters(image.capacity));
    EXPECT_TRUE(full->startsWithCaseSen(narrowed(letters(image.capacity + 3)).c_str()));
}

/// Counted bytes need no end.
TEST_P(Affix16, startsWithCountedBytes)
{
    struct Row
    {
        std::string_view bytes;
        int count;
        bool starts;
    };
    constexpr Row rows[] = {
        {"ab"sv, 2, true},
        {"AB"sv, 2, true},
        {"abX"sv, 2, true},
        {"abX"sv, 3, false},
        {"ab\0\xE4"sv, 4, true},
        {"ab\0\xC4"sv, 4, false},
        {"ab"sv, 0, false},
        {"b"sv, 1, false},
        {"ab\0\xE4xyz"sv, 5, false},
        // The count is held against the length before it is cut to 16 bits.
        {"ab"sv, 65536, false},
        {"ab"sv, 65537, false},
        // A negative one passes, and its low 16 bits are read.
        {"ab"sv, -65535, true},
        {"xb"sv, -65535, false},
        {"ab"sv, -65536, false},
        {"aB"sv, -65534, true},
    };
    Laid const text(image, u"ab\0\xFFE4"sv);
    for (auto const& row : rows) {
        auto const bytes = unterminated(row.bytes);
        EXPECT_EQ(text->startsWith(bytes.data(), row.count), row.starts)
            << row.bytes << ", " << row.count;
    }
    auto const bytes = unterminated(narrowed(letters(image.capacity)));
    EXPECT_TRUE(stringOf(image, letters(image.capacity))->startsWith(bytes.data(), -1));
    EXPECT_FALSE(stringOf(image, letters(image.capacity - 1))->startsWith(bytes.data(), -1));
}

/// The gate is one of 32 bits, and nothing ends every text behind it.
TEST_P(Affix16, endsWithBehindACountedGate)
{
    Laid const text(image, u"abc");
    EXPECT_TRUE(text->endsWith("bc", -1));
    EXPECT_FALSE(text->endsWith("bc", 65537));
    EXPECT_TRUE(text->endsWith("", 1));
    EXPECT_TRUE(text->endsWith("", 3));
    EXPECT_FALSE(text->endsWith("", 4));
    EXPECT_TRUE(text->endsWith(narrowed(letters(65536)).c_str(), 1));
    EXPECT_TRUE(text->endsWith(narrowed(letters(65539)).c_str(), 1));
}

} // namespace
} // namespace strings
