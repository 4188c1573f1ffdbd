/// The older 16-bit image: how it comes over to the current one, and its one member of its own.
/// What it has in common with the current string runs in the other tests over both.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace images16 {
namespace {

using namespace std::string_view_literals;

/// The older string of the same capacity.
template <typename S>
using OldOf = _qvString_old<intCapacity<S>>;

/// Each capacity that exists, named by its current string.
template <typename S>
class Legacy16 : public testing::Test
{};
TYPED_TEST_SUITE(Legacy16, AllCapacities16<_qvString>, ImageName);

constexpr Text rows[] = {
    u""sv, u"abc"sv, u"a\0b"sv, u"\xE4\x0141\xFFE4\xFFFF"sv, u"abcdefghi"sv,
};

/// Old text comes over with all N units of the text, stale ones included. The spare words stay what
/// they were, and so does text[N].
TYPED_TEST(Legacy16, comesOver)
{
    using S = TypeParam;
    using Old = OldOf<TypeParam>;
    for (auto const& row : rows) {
        SCOPED_TRACE(shown(row));
        Laid<Old> source(row, 0x33);
        auto const before = source.bytes();
        auto expected = std::u16string(row) + u'\0';
        expected.resize(capacity<S>, u'\x3333');
        expected += u'\xAAAA';

        Guarded<S> const constructed(static_cast<Old const&>(*source));
        EXPECT_EQ(constructed.bytes(), imageOf<S>(row.size(), expected, staleByte, staleByte));
        EXPECT_TRUE(constructed.guardsStand());

        Laid<S> assigned(u"xyz");
        assigned.stale(0, u"xyzw\0"sv);
        *assigned = static_cast<Old const&>(*source);
        EXPECT_EQ(assigned.bytes(), imageOf<S>(row.size(), expected, staleByte, staleByte));
        EXPECT_TRUE(assigned.guardsStand());
        EXPECT_EQ(source.bytes(), before);
    }
}

/// The terminator is written where the length says, whatever stood there.
TYPED_TEST(Legacy16, comesOverWithItsTerminator)
{
    using S = TypeParam;
    using Old = OldOf<TypeParam>;
    Laid<Old> source(u"abc");
    source.stale(3, u"defg\0"sv);
    Guarded<S> const string(static_cast<Old const&>(*source));
    EXPECT_EQ(string.bytes(), imageOf<S>(3, u"abc\0efg\0"sv, staleByte, staleByte));

    auto const text = letters(capacity<S>);
    Laid<Old> full(text);
    full.stale(capacity<S>, u"z");
    Guarded<S> const constructed(static_cast<Old const&>(*full));
    EXPECT_EQ(constructed.bytes(), imageOf<S>(text.size(), text + u'\0', staleByte, staleByte));
    Laid<S> assigned(u"");
    *assigned = static_cast<Old const&>(*full);
    EXPECT_TRUE(became(assigned, text.size(), text + u'\0'));
}

/// A damaged length is not repaired: the terminator goes past the object.
TEST(LegacyDamage16, aLengthAboveTheCapacityComesOverAsItStands)
{
    Laid<_qvString_old<10>> source(u"abc");
    source.layLength(20);
    auto const check = [](Guarded<_qvString<10>>& string) {
        EXPECT_EQ(guarded::lengthOf(*string), 20);
        EXPECT_EQ(ownUnits(*string, 0, 5), u"abc\0\xAAAA"sv);
        Bytes behind(string.behind().size(), guarded::guardByte);
        behind[18] = behind[19] = 0;
        EXPECT_EQ(string.behind(), behind);
    };
    Guarded<_qvString<10>> constructed(static_cast<_qvString_old<10> const&>(*source));
    check(constructed);
    Laid<_qvString<10>> assigned(u"");
    *assigned = static_cast<_qvString_old<10> const&>(*source);
    check(assigned);
}

TYPED_TEST(Legacy16, comesOverAtItsOwnCapacityOnlyAndNeverGoesBack)
{
    using S = TypeParam;
    using Old = OldOf<TypeParam>;
    using Other = _qvString_old<capacity<S> == 10 ? 15 : 10>;
    static_assert(std::is_constructible_v<S, Old const&>);
    static_assert(std::is_assignable_v<S&, Old const&>);
    static_assert(!std::is_constructible_v<S, Other const&>);
    static_assert(!std::is_assignable_v<S&, Other const&>);
    static_assert(!std::is_constructible_v<Old, S const&>);
    static_assert(!std::is_assignable_v<Old&, S const&>);
    static_assert(!std::is_constructible_v<Old, std::string const&>);
    static_assert(!std::is_assignable_v<Old&, std::string const&>);
    static_assert(!std::is_constructible_v<Old, _qvString_Uni_pointer const*>);
    static_assert(!std::is_constructible_v<Old, _qvString8_Uni_pointer const*>);
    static_assert(!std::is_assignable_v<Old&, _qvString_Uni_pointer*>);
}

/// The same text in both images: same size, other order of fields.
TEST(LegacyImage16, threeUnitsAt250)
{
    _qvString_old<250> const older("abc");
    _qvString<250> const current("abc");
    auto const oldBytes = guarded::bytesOf(older);
    auto const bytes = guarded::bytesOf(current);
    ASSERT_EQ(oldBytes.size(), 506U);
    ASSERT_EQ(bytes.size(), 506U);
    EXPECT_NE(oldBytes, bytes);
    EXPECT_EQ(oldBytes[0], 'a');
    EXPECT_EQ(oldBytes[502], 3);
    EXPECT_EQ(oldBytes[503], 0);
    EXPECT_EQ(bytes[0], 3);
    EXPECT_EQ(bytes[4], 'a');
    EXPECT_TRUE(current == _qvString<250>(older));
}

/// A character is compared as a signed 32-bit value and without a fold.
TEST(LegacyStart16, startsWithACharacter)
{
    struct Row
    {
        Text text;
        char character;
        bool starts;
    };
    constexpr Row startRows[] = {
        {u"abc", 'a', true},      {u"abc", 'A', false},       {u"abc", 'b', false},
        {u"", 'a', false},        {u"", '\0', false},         {u"\0a"sv, '\0', true},
        {u"\xE4", '\xE4', false}, {u"\xFFE4", '\xE4', false}, {u"\x0141", 'A', false},
        {u"\x7F", '\x7F', true},  {u"\xFFFF", '\xFF', false},
    };
    for (auto const& row : startRows) {
        Laid<_qvString_old<10>> small(row.text);
        EXPECT_EQ(small->startsWith(row.character), row.starts) << shown(row.text);
        Laid<_qvString_old<2500>> const large(row.text);
        auto const& constant = const_cast<Laid<_qvString_old<2500>>&>(large).object();
        EXPECT_EQ(std::as_const(constant).startsWith(row.character), row.starts) << shown(row.text);
    }
    EXPECT_FALSE(_qvString_old<10>("\xE4").startsWith('\xE4'));
    Laid<_qvString_old<15>> emptied(u"a");
    *emptied = nullUnits;
    EXPECT_FALSE(emptied->startsWith('a'));
}

/// Integers go through the signed 64-bit form, so a large unsigned one comes out negative.
TEST(LegacyNumber16, unsignedNumbersAreSigned)
{
    Laid<_qvString_old<25>> string(u"");
    string->addNr(static_cast<long long>(18446744073709551615ULL));
    EXPECT_TRUE(became(string, 2, u"-1\0"sv));
    string->addNr(7);
    string->addNr(8U);
    EXPECT_TRUE(became(string, 4, u"-178\0"sv));
}

/// The two spare words: what constructors clear and clearing leaves.
TEST(LegacySpare16, clearLeavesTheTrailerAndConstructionZeroesIt)
{
    Laid<_qvString_old<48>> string(u"abc");
    string->clear();
    EXPECT_EQ(string->trailer, 0xAAAA);
    EXPECT_EQ(_qvString_old<48>().trailer, 0);
    EXPECT_EQ(string->length, 0);
}

} // namespace
} // namespace images16
