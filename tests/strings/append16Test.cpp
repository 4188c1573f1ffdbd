/// Appends to the 16-bit strings: how each of them widens bytes and measures raw units.

#include "tests/strings/guarded16.h"

namespace images16 {
namespace {

using namespace std::string_view_literals;

template <typename S>
class Append16 : public testing::Test
{};
TYPED_TEST_SUITE(Append16, MainImages, ImageName);

struct WidenRow
{
    char const* bytes;
    Text byZeros;
    Text bySign;
};

constexpr WidenRow widenRows[] = {
    {"", u"xy", u"xy"},
    {"abc", u"xyabc", u"xyabc"},
    {"\x7F\x80\xFF", u"xy\x7F\x80\xFF", u"xy\x7F\xFF80\xFFFF"},
    {"\xE4z", u"xy\xE4z", u"xy\xFFE4z"},
};

/// The asymmetry is meant: one way widens by zeros, its neighbour by the sign.
TYPED_TEST(Append16, textIsWidenedByZerosOrByTheSign)
{
    for (auto const& row : widenRows) {
        Laid<TypeParam> added(u"xy");
        added->add(row.bytes);
        EXPECT_TRUE(became(added, row.byZeros.size(), std::u16string(row.byZeros) + u'\0'));

        Laid<TypeParam> appended(u"xy");
        *appended += row.bytes;
        EXPECT_TRUE(became(appended, row.bySign.size(), std::u16string(row.bySign) + u'\0'));

        EXPECT_TRUE(holds(Laid<TypeParam>(u"xy")->combined(row.bytes), row.byZeros));
    }
    for (char const character : {'\x80', '\xE4'}) {
        auto const unit = signExtended(static_cast<unsigned char>(character));
        Laid<TypeParam> receiver(u"xy");
        *receiver += character;
        EXPECT_TRUE(became(receiver, 3, std::u16string{u'x', u'y', unit, u'\0'}));
        EXPECT_TRUE(holds(*Laid<TypeParam>(u"xy") + character, std::u16string{u'x', u'y', unit}));
    }
}

/// A raw text ends at its first zero and is measured up to 1024 units.
TYPED_TEST(Append16, rawTexts)
{
    auto const append = [](Laid<TypeParam>& receiver, Unit const* units, Text expected) {
        *receiver += units;
        EXPECT_TRUE(became(receiver, expected.size(), std::u16string(expected) + u'\0'));
    };
    Laid<TypeParam> measured(u"xy");
    append(measured, raw(u"\xE4\x0141\xFFE4").data(), u"xy\xE4\x0141\xFFE4");
    Laid<TypeParam> ending(u"xy");
    append(ending, raw(u"a\0b"sv).data(), u"xya");
    Laid<TypeParam> longest(u"");
    append(longest, raw(letters(2000)).data(), cut<TypeParam>(letters(1024)));
    Laid<TypeParam> own(u"abc");
    append(own, textAt(*own), u"abcabc");

    Laid<TypeParam> untouched(u"ab");
    untouched.stale(2, u"zz");
    *untouched += nullUnits;
    EXPECT_TRUE(became(untouched, 2, u"abzz"sv));
    *untouched += raw(u"").data();
    EXPECT_TRUE(became(untouched, 2, u"ab\0z"sv));
}

TYPED_TEST(Append16, rawTextsAreCutAtTheCapacity)
{
    auto const n = capacity<TypeParam>;
    for (std::size_t const size : {n - 3, n - 1, n}) {
        for (std::size_t const more : {std::size_t{1}, std::size_t{3}, std::size_t{9}}) {
            SCOPED_TRACE(std::to_string(size) + " and " + std::to_string(more));
            std::u16string const start(size, u'#');
            Laid<TypeParam> receiver(start);
            receiver.stale(size, u"z");
            *receiver += raw(letters(more)).data();
            auto const expected = cut<TypeParam>(start + letters(more));
            EXPECT_TRUE(became(receiver, expected.size(), expected + u'\0'));
        }
    }
}

} // namespace
} // namespace images16
