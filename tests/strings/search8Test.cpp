/// Searches of the 8-bit strings for high characters and for the low byte of a 16-bit unit.

#include "tests/strings/images8.h"
#include "tests/strings/laid.h"

#include <climits>

namespace {

using namespace std::string_view_literals;

class Search8 : public strings::OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Search8, testing::ValuesIn(strings::images8()), strings::imageName);

TEST_P(Search8, highCharacters)
{
    strings::Laid const text(image, u"\xE4\xC4\xE4");
    EXPECT_EQ(text->count('\xE4'), 2);
    EXPECT_EQ(text->countCaseSen('\xE4'), 2);
    EXPECT_TRUE(text->contains('\xE4'));

    strings::Laid const dashed(image, u"a-\xE4");
    EXPECT_TRUE(dashed->contains("-\xE4"));
    EXPECT_TRUE(dashed->containsCaseSen("-\xE4"));
    EXPECT_TRUE(dashed->containsUpperCaseInput("-\xE4"));
    strings::Laid const lower(image, u"\xE4");
    EXPECT_FALSE(lower->contains("\xC4"));
    EXPECT_FALSE(lower->containsCaseSen("\xC4"));
    EXPECT_FALSE(lower->containsUpperCaseInput("\xC4"));
}

TEST_P(Search8, itsOwnTextIsContained)
{
    strings::Laid const text(image, u"a\0bc"sv);
    EXPECT_TRUE(text->containsCaseSen(static_cast<char const*>(text->textAt()), 4));
}

/// The current image alone has searches for the low byte of a 16-bit unit, and they are exact.
template <typename S>
class SearchUnit8 : public testing::Test
{};
TYPED_TEST_SUITE(SearchUnit8, guarded::MainStrings8, guarded::ImageName);

struct UnitRow
{
    std::string_view text;
    unsigned short unit;
    int start;
    int first;
    int last;
};

constexpr UnitRow unitRows[] = {
    {"bab", 'a', 0, 1, -1},      {"bab", 'A', 0, -1, -1},     {"bab", 'A', -1, -1, -1},
    {"bab", 0x0161, 0, 1, -1},   {"bab", 0xFF61, -1, 1, 1},   {"bab", 'b', 1, 2, 0},
    {"bab", 'b', 2, 2, 2},       {"bab", 'b', 3, 0, 2},       {"bab", 'b', -1, 0, 2},
    {"bab", 'b', INT_MIN, 0, 2}, {"bab", 'b', INT_MAX, 0, 2}, {"bab", 'a', 2, -1, 1},
    {"x\xE4", 0x00E4, 0, 1, -1}, {"x\xE4", 0x12E4, -1, 1, 1}, {"x\xE4", 0x00C4, -1, -1, -1},
    {"", 'a', 0, -1, -1},        {"", 'a', -1, -1, -1},       {"a\0b"sv, 0x0100, 0, 1, -1},
};

TYPED_TEST(SearchUnit8, lowBytes)
{
    for (auto const& row : unitRows) {
        SCOPED_TRACE(std::string(row.text) + ", unit " + std::to_string(row.unit) + " from " +
                     std::to_string(row.start));
        images8::Laid<TypeParam> text(row.text);
        TypeParam const& string = *text;
        EXPECT_EQ(string.indexOf(row.unit, row.start), row.first);
        EXPECT_EQ(string.lastIndexOf(row.unit, row.start), row.last);
    }
}

} // namespace
