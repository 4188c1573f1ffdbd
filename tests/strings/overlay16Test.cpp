/// Text that crosses capacities and widths through a view, which shows a length and a text and
/// knows no capacity. Only the current image takes part.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace images16 {
namespace {

using namespace std::string_view_literals;

template <typename S>
class Overlay16 : public testing::Test
{};
TYPED_TEST_SUITE(Overlay16, CurrentImages, ImageName);

constexpr Text rows[] = {
    u""sv, u"a"sv, u"abcdefghij"sv, u"a\0b"sv, u"\xE4\x0141\xFFE4\xFFFF"sv,
};

TYPED_TEST(Overlay16, isTheObjectItself)
{
    Laid<TypeParam> string(u"abc");
    TypeParam const& viewed = *string;
    _qvString_Uni_pointer* const view = viewed.asUni();
    EXPECT_EQ(static_cast<void const*>(view), static_cast<void const*>(&viewed));
}

/// The text and its terminator are written and nothing else.
template <typename S, int M>
void expectCrossing()
{
    for (auto const& row : rows) {
        SCOPED_TRACE(std::to_string(M) + " " + shown(row));
        Laid<_qvString<M>> source(row, 0x33);
        auto const before = source.bytes();
        auto const ended = std::u16string(row) + u'\0';

        Guarded<S> const constructed(static_cast<_qvString_Uni_pointer const*>((*source).asUni()));
        EXPECT_EQ(constructed.bytes(), imageOf<S>(row.size(), ended, staleByte, staleByte));
        EXPECT_TRUE(constructed.guardsStand());

        Laid<S> assigned(u"xyz");
        assigned.stale(0, u"\xAAAA\xAAAA\xAAAA\xAAAA");
        *assigned = (*source).asUni();
        EXPECT_TRUE(became(assigned, row.size(), ended));
        EXPECT_EQ(source.bytes(), before);
    }
}

TYPED_TEST(Overlay16, crossesCapacities)
{
    expectCrossing<TypeParam, 10>();
    expectCrossing<TypeParam, 15>();
    expectCrossing<TypeParam, 250>();
    expectCrossing<TypeParam, 2500>();
}

TYPED_TEST(Overlay16, crossesWithAFullText)
{
    auto const text = letters(capacity<TypeParam>);
    Laid<_qvString<2500>> source(text);
    Guarded<TypeParam> const constructed(
        static_cast<_qvString_Uni_pointer const*>(source->asUni()));
    EXPECT_TRUE(holds(TypeParam(static_cast<_qvString_Uni_pointer const*>(source->asUni())), text));
    EXPECT_TRUE(constructed.guardsStand());
    Laid<TypeParam> assigned(u"");
    *assigned = source->asUni();
    EXPECT_TRUE(became(assigned, text.size(), text + u'\0'));
}

TYPED_TEST(Overlay16, assignmentOfItsOwnView)
{
    Laid<TypeParam> string(u"abc");
    auto const before = string.bytes();
    *string = string->asUni();
    EXPECT_EQ(string.bytes(), before);
}

/// A view's length is trusted: what is longer than the receiver passes its end.
TEST(OverlayOverrun16, aLongerSourceIsNotClipped)
{
    Laid<_qvString<15>> const source(u"abcdefghijkl");
    auto const& viewed = const_cast<Laid<_qvString<15>>&>(source).object();
    auto const check = [](Guarded<_qvString<10>>& receiver) {
        EXPECT_EQ(guarded::lengthOf(*receiver), 12);
        EXPECT_EQ(ownUnits(*receiver, 0, 11), u"abcdefghijk");
        Bytes behind(receiver.behind().size(), guarded::guardByte);
        behind[0] = 'l';
        behind[1] = behind[2] = behind[3] = 0;
        EXPECT_EQ(receiver.behind(), behind);
    };
    Guarded<_qvString<10>> constructed(static_cast<_qvString_Uni_pointer const*>(viewed.asUni()));
    check(constructed);
    Laid<_qvString<10>> assigned(u"");
    *assigned = viewed.asUni();
    check(assigned);
}

/// A view of an 8-bit string is widened by sign extension into a cleared text, and clipped.
template <typename S, int M>
void expectWidening()
{
    struct Row
    {
        std::string_view bytes;
        Text units;
    };
    constexpr Row widened8[] = {
        {""sv, u""sv},
        {"a"sv, u"a"sv},
        {"abcdef"sv, u"abcdef"sv},
        {"\xE4"sv, u"\xFFE4"},
        {"\x7F\x80"sv, u"\x7F\xFF80"},
        {"a\0\xFF"sv, u"a\0\xFFFF"sv},
    };
    for (auto const& row : widened8) {
        SCOPED_TRACE(std::to_string(M) + " " + shown(row.units));
        Guarded<_qvString8_allSize<M>> source;
        source.lay(row.bytes);
        Guarded<S> const string(static_cast<_qvString8_Uni_pointer const*>(source->asUni()));
        EXPECT_EQ(string.bytes(), imageOf<S>(row.units.size(), row.units, 0, staleByte));
        EXPECT_TRUE(string.guardsStand());
    }
}

TYPED_TEST(Overlay16, crossesWidths)
{
    expectWidening<TypeParam, 6>();
    expectWidening<TypeParam, 7>();
    expectWidening<TypeParam, 250>();
    expectWidening<TypeParam, 5000>();
}

TYPED_TEST(Overlay16, clipsALongerTextOfBytes)
{
    for (std::size_t const size :
         {capacity<TypeParam> - 1, capacity<TypeParam>, capacity<TypeParam> + 1}) {
        Guarded<_qvString8_allSize<5000>> source;
        source.lay(guarded::letters(size));
        Guarded<TypeParam> const string(
            static_cast<_qvString8_Uni_pointer const*>(source->asUni()));
        auto const expected = cut<TypeParam>(letters(size));
        EXPECT_EQ(string.bytes(), imageOf<TypeParam>(expected.size(), expected, 0, staleByte));
        EXPECT_TRUE(string.guardsStand());
    }
}

TYPED_TEST(Overlay16, ofNoBytesIsEmpty)
{
    Guarded<TypeParam> const string(static_cast<_qvString8_Uni_pointer const*>(nullptr));
    EXPECT_EQ(string.bytes(), imageOf<TypeParam>(0, u"", 0, staleByte));
    EXPECT_TRUE(string.guardsStand());
}

} // namespace
} // namespace images16
