/// All 65,536 units through both folds and through every member that folds. The two folds are
/// written down a second time in guarded16.h.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace images16 {
namespace {

template <typename S>
class Fold16 : public testing::Test
{};
TYPED_TEST_SUITE(Fold16, SmallestImages, ImageName);

template <typename S>
class FoldInPlace16 : public testing::Test
{};
TYPED_TEST_SUITE(FoldInPlace16, MainImages, ImageName);

TEST(FoldTable16, onlyAsciiLettersChange)
{
    int changedUp = 0;
    int changedDown = 0;
    for (unsigned i = 0; i < 65536; ++i) {
        auto const unit = static_cast<char16_t>(i);
        changedUp += upperOf(unit) != unit;
        changedDown += lowerOf(unit) != unit;
    }
    EXPECT_EQ(changedUp, 26);
    EXPECT_EQ(changedDown, 26);
    EXPECT_EQ(upperOf(u'a'), u'A');
    EXPECT_EQ(upperOf(u'z'), u'Z');
    EXPECT_EQ(lowerOf(u'A'), u'a');
    EXPECT_EQ(lowerOf(u'Z'), u'z');
}

template <typename S>
testing::AssertionResult foldsInPlace(Text text)
{
    std::u16string upper(text);
    std::u16string lower(text);
    for (std::size_t i = 0; i < text.size(); ++i) {
        upper[i] = upperOf(text[i]);
        lower[i] = lowerOf(text[i]);
    }
    Laid<S> up(text);
    up->makeUpper();
    Laid<S> down(text);
    down->makeLower();
    if (!holds(*up, upper) || !holds(*down, lower)) {
        return testing::AssertionFailure() << shown(text);
    }
    return up.guardsStand() ? down.guardsStand() : up.guardsStand();
}

/// In full strings, so that a fold over blocks meets every unit, and the letters and their
/// neighbours at each place of a block.
TYPED_TEST(FoldInPlace16, allUnits)
{
    std::u16string all;
    for (unsigned i = 0; i < 65536; ++i) {
        all += static_cast<char16_t>(i);
    }
    auto const n = capacity<TypeParam>;
    for (std::size_t first = 0; first < all.size(); first += n) {
        ASSERT_TRUE(foldsInPlace<TypeParam>(Text(all).substr(first, n)));
    }
    for (std::size_t first = 0x30; first < 0x90; ++first) {
        ASSERT_TRUE(foldsInPlace<TypeParam>(Text(all).substr(first, n)));
    }
}

/// Every unit against itself and against the unit that a case apart would be.
TYPED_TEST(Fold16, throughTheMembersThatFold)
{
    using S = TypeParam;
    for (unsigned i = 0; i < 65536; ++i) {
        auto const unit = static_cast<char16_t>(i);
        for (char16_t const other : {unit, static_cast<char16_t>(unit ^ 0x20U)}) {
            bool const same = upperOf(unit) == upperOf(other);
            char16_t const texts[] = {u'q', u'x', unit};
            auto const longer = stringOf<S>({texts, 3});
            auto const left = stringOf<S>({texts + 1, 2});
            char16_t const upperText[] = {u'X', other};
            auto const right = stringOf<S>({upperText, 2});
            ASSERT_EQ(left.isEqual(right), same) << i;
            ASSERT_EQ(left.isEqual(textAt(right), 2), same) << i;
            ASSERT_EQ(left.compare(right) == 0, same) << i;
            ASSERT_EQ(longer.indexOf(right, 0), same ? 1 : -1) << i;
            ASSERT_EQ(left.contains(right), same) << i;
            ASSERT_EQ(left.startsWith(right), same) << i;
            ASSERT_EQ(longer.endsWith(right), same) << i;
            ASSERT_EQ(left.isEqualUpperCaseInput(right), upperOf(unit) == other) << i;
            ASSERT_EQ(longer.containsUpperCaseInput(right), upperOf(unit) == other) << i;
            char16_t const lowerText[] = {u'x', other};
            ASSERT_EQ(left.isEqualLowerCaseInput(stringOf<S>({lowerText, 2})),
                      lowerOf(unit) == other)
                << i;
        }
    }
}

TYPED_TEST(Fold16, throughTheMembersForOneUnit)
{
    using S = TypeParam;
    Laid<S> edited(u"");
    for (unsigned i = 1; i < 65536; ++i) {
        auto const unit = static_cast<char16_t>(i);
        for (char16_t const other : {unit, static_cast<char16_t>(unit ^ 0x20U)}) {
            bool const same = upperOf(unit) == upperOf(other);
            // Zeros stand around it, and nothing folds to zero.
            char16_t const units[] = {u'\0', unit, u'\0'};
            Text const text(units, 3);
            Unit const sought = other;
            if (sought == 0) {
                continue;
            }
            auto const string = stringOf<S>(text);
            ASSERT_EQ(string.indexOf(sought, 0), same ? 1 : -1) << i;
            ASSERT_EQ(string.indexOfCaseSen(sought, 0), unit == other ? 1 : -1) << i;
            ASSERT_EQ(string.lastIndexOf(sought, -1), unit == other ? 1 : -1) << i;
            ASSERT_EQ(string.left(sought, true).length, same ? 2 : 3) << i;

            edited.lay(storedBytes(text) + '\0');
            edited.layLength(3);
            edited->replace(sought, Unit{u'#'});
            char16_t const replaced[] = {u'\0', same ? u'#' : unit, u'\0'};
            ASSERT_TRUE(holds(*edited, Text(replaced, 3))) << i;

            edited.lay(storedBytes(text) + '\0');
            edited.layLength(3);
            edited->remove(sought);
            ASSERT_TRUE(holds(*edited, same ? Text(u"\0\0", 2) : text)) << i;
        }
    }
}

/// Bytes through the members that widen them and fold.
TYPED_TEST(Fold16, throughTheMembersForCharacters)
{
    for (int byte = 0; byte < 256; ++byte) {
        auto const character = static_cast<char>(byte);
        auto const extended = signExtended(static_cast<unsigned char>(byte));
        for (unsigned i = 0; i < 65536; i += i < 0x200 || i >= 0xFE00 ? 1 : 251) {
            auto const unit = static_cast<char16_t>(i);
            auto const string = stringOf<TypeParam>({&unit, 1});
            bool const folded = upperOf(unit) == upperOf(extended);
            ASSERT_EQ(string.contains(character), folded) << i << ' ' << byte;
            ASSERT_EQ(string.count(character), folded && byte < 0x80 ? 1 : 0) << i << ' ' << byte;
            ASSERT_EQ(string.isEqual(&character, 1), folded && byte < 0x80) << i << ' ' << byte;
            bool const exact = unit == extended && byte < 0x80;
            ASSERT_EQ(string.countCaseSen(character), exact ? 1 : 0) << i << ' ' << byte;
            ASSERT_EQ(string.endsWith(character), exact) << i << ' ' << byte;
        }
    }
}

} // namespace
} // namespace images16
