/// What the constructors of the 16-bit strings from characters and units write and what they keep,
/// on storage that was full of stale bytes, and how they widen bytes. What views of other strings
/// bring along is in overlay16Test.cpp.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace images16 {
namespace {

using namespace std::string_view_literals;

template <typename S>
class Construct16 : public testing::Test
{};
TYPED_TEST_SUITE(Construct16, MainImages, ImageName);

/// The constructors that clear the spare word clear everything behind the text too.
template <typename S>
testing::AssertionResult isClearedBehind(Guarded<S> const& string, Text text)
{
    auto const expected = imageOf<S>(text.size(), text, 0, 0);
    if (string.bytes() != expected) {
        return testing::AssertionFailure() << "not the clean image of \"" << shown(text) << '"';
    }
    return string.guardsStand();
}

/// The constructors from units clear the text and leave the spare word as it was.
template <typename S>
testing::AssertionResult keepsTheSpareWord(Guarded<S> const& string, Text text)
{
    auto const expected = imageOf<S>(text.size(), text, 0, staleByte);
    if (string.bytes() != expected) {
        return testing::AssertionFailure()
               << "not the image of \"" << shown(text) << "\" with its stale spare word";
    }
    return string.guardsStand();
}

/// A zero character counts as text, and a high one is sign-extended.
TYPED_TEST(Construct16, fromEachCharacter)
{
    for (int i = 0; i < 256; ++i) {
        auto const byte = static_cast<unsigned char>(i);
        Guarded<TypeParam> const string(static_cast<char>(byte));
        ASSERT_TRUE(isClearedBehind(string, std::u16string(1, signExtended(byte)))) << i;
    }
    EXPECT_TRUE(isClearedBehind(Guarded<TypeParam>('\xE4'), u"\xFFE4"));
    EXPECT_TRUE(isClearedBehind(Guarded<TypeParam>('\0'), u"\0"sv));
}

struct ConstructRow
{
    char const* bytes;
    Text units;
};

constexpr ConstructRow constructRows[] = {
    {"", u""},
    {nullText, u""},
    {"a", u"a"},
    {"abcDEF", u"abcDEF"},
    {"\x7F", u"\x7F"},
    {"\x80", u"\xFF80"},
    {"\xE4", u"\xFFE4"},
    {"\xFF", u"\xFFFF"},
    {"a\xC4z", u"a\xFFC4z"},
};

TYPED_TEST(Construct16, fromTextBySignExtension)
{
    for (auto const& row : constructRows) {
        EXPECT_TRUE(isClearedBehind(Guarded<TypeParam>(row.bytes), row.units)) << shown(row.units);
    }
}

struct CountRow
{
    int count;
    std::size_t read; ///< when the capacity does not end it before
};

/// A count is cut to its low 16 bits, so a negative one is large.
constexpr CountRow countRows[] = {
    {0, 0},     {1, 1},       {3, 3},       {9, 9},       {10, 10},         {65535, 65535},
    {65536, 0}, {65537, 1},   {65541, 5},   {-1, 65535},  {-65536, 0},      {-65533, 3},
    {11, 11},   {2500, 2500}, {2501, 2501}, {1024, 1024}, {65536 + 20, 20},
};

TYPED_TEST(Construct16, fromCountedBytesBySignExtensionAndFromNone)
{
    EXPECT_TRUE(isClearedBehind(Guarded<TypeParam>("a\0\xE4", 3), u"a\0\xFFE4"sv));
    EXPECT_TRUE(isClearedBehind(Guarded<TypeParam>(nullText, 5), u""));
    EXPECT_TRUE(isClearedBehind(Guarded<TypeParam>(nullText, -1), u""));
}

constexpr Text unitRows[] = {
    u"", u"a", u"abc", u"\x80\xE4\xFF", u"\x0100\x0141", u"\xFF80\xFFE4\xFFFF", u"\xD83D\xDE00",
};

TYPED_TEST(Construct16, fromUnitsAsTheyAre)
{
    for (auto const& row : unitRows) {
        auto const units = raw(row);
        EXPECT_TRUE(keepsTheSpareWord(Guarded<TypeParam>(units.data()), row)) << shown(row);
    }
    EXPECT_TRUE(keepsTheSpareWord(Guarded<TypeParam>(nullUnits), u""));
}

/// A raw text is measured up to 1024 units, also where more would fit.
TYPED_TEST(Construct16, fromLongRawTexts)
{
    for (std::size_t const size :
         {capacity<TypeParam> - 1, capacity<TypeParam>, capacity<TypeParam> + 1, std::size_t{1023},
          std::size_t{1024}, std::size_t{1025}, std::size_t{2000}}) {
        auto const units = raw(letters(size));
        auto const measured = letters(std::min<std::size_t>(size, 1024));
        Guarded<TypeParam> const string(units.data());
        EXPECT_TRUE(keepsTheSpareWord(string, cut<TypeParam>(measured))) << size;
    }
}

TEST(ConstructLargest16, theBoundOfMeasuredTextsIsNotThatOfCountedOnes)
{
    auto const units = raw(letters(2000));
    EXPECT_TRUE(holds(_qvString<2500>(units.data()), letters(1024)));
    EXPECT_TRUE(holds(_qvString<2500>(units.data(), 2000), letters(2000)));
    EXPECT_TRUE(holds(_qvString_old<2500>(units.data()), letters(1024)));
    EXPECT_TRUE(holds(_qvString_old<2500>(units.data(), 2000), letters(2000)));
}

TYPED_TEST(Construct16, fromCountedUnits)
{
    for (auto const& row : countRows) {
        SCOPED_TRACE(row.count);
        auto const text = letters(std::min(row.read, capacity<TypeParam>));
        auto const units = unterminated(text);
        Guarded<TypeParam> const string(static_cast<Unit const*>(units.data()), row.count);
        EXPECT_TRUE(keepsTheSpareWord(string, text));
    }
    auto const zeros = raw(u"a\0\x0141"sv);
    EXPECT_TRUE(keepsTheSpareWord(Guarded<TypeParam>(zeros.data(), 3), u"a\0\x0141"sv));
    EXPECT_TRUE(keepsTheSpareWord(Guarded<TypeParam>(nullUnits, 0), u""));
}

} // namespace
} // namespace images16
