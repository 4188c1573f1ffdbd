// The overlay of the 8-bit strings: text crosses from any capacity to any other.

#include "tests/strings/rows8.h"

namespace guarded {
namespace {

/// Runs one check against a source of every capacity that matters.
template <typename Check>
void forEverySource(Check const& check)
{
    auto const run = [&check]<int N>() {
        Guarded<_qvString8_allSize<N>> source;
        check(source);
    };
    run.template operator()<6>();
    run.template operator()<7>();
    run.template operator()<8>();
    run.template operator()<14>();
    run.template operator()<15>();
    run.template operator()<250>();
    run.template operator()<5000>();
}

template <typename S>
class Overlay8 : public testing::Test
{};
TYPED_TEST_SUITE(Overlay8, MainStrings8, ImageName);

TYPED_TEST(Overlay8, assignmentTakesAsMuchOfAnyCapacityAsFits)
{
    forEverySource([]<typename Source, std::size_t Room>(Guarded<Source, Room>& source) {
        std::size_t const capacity = ImageOf<Source>::capacity;
        for (std::size_t const length : {std::size_t{0}, std::size_t{5}, capacity}) {
            SCOPED_TRACE(testing::Message() << length << " in " << capacity);
            source.lay(letters(length), 'z');
            Guarded<TypeParam> string;
            string.lay("", 0x33);
            *string = const_cast<_qvString8_Uni_pointer*>(source->asUni());
            EXPECT_EQ(string.bytes(), keptImage<TypeParam>(cut<TypeParam>(letters(length)), 0x33));
            EXPECT_TRUE(string.guardsStand());

            // As asUni() hands it out: not by way of the constructor, which does not cut.
            string.lay("", 0x33);
            *string = source->asUni();
            EXPECT_EQ(string.bytes(), keptImage<TypeParam>(cut<TypeParam>(letters(length)), 0x33));
            EXPECT_TRUE(string.guardsStand());
            EXPECT_EQ(source.bytes(), keptImage<Source>(letters(length), 'z'));
        }
    });
}

TYPED_TEST(Overlay8, constructionTakesTextThatFitsFromAnyCapacity)
{
    forEverySource([]<typename Source, std::size_t Room>(Guarded<Source, Room>& source) {
        std::size_t const fits = std::min(ImageOf<Source>::capacity, ImageOf<TypeParam>::capacity);
        for (std::size_t const length : {std::size_t{0}, std::size_t{5}, fits}) {
            SCOPED_TRACE(testing::Message() << length << " in " << ImageOf<Source>::capacity);
            source.lay(letters(length), 'z');
            Guarded<TypeParam> const string(source->asUni());
            EXPECT_EQ(string.bytes(), keptImage<TypeParam>(letters(length)));
            EXPECT_TRUE(string.guardsStand());
        }
    });
}

TYPED_TEST(Overlay8, zerosInsideAndHighBytesCross)
{
    Guarded<_qvString8_allSize<15>> source;
    source.lay(oddText);
    Guarded<TypeParam> const built(source->asUni());
    EXPECT_EQ(built.bytes(), keptImage<TypeParam>(oddText));
    Guarded<TypeParam> assigned;
    assigned.lay("", 0x33);
    *assigned = const_cast<_qvString8_Uni_pointer*>(source->asUni());
    EXPECT_EQ(assigned.bytes(), keptImage<TypeParam>(oddText, 0x33));
}

TEST(Overlay8Cases, constructionFromALongerTextIsNotClampedAndPassesTheObject)
{
    // Laid down so: the caller vouches for the length. 14 characters and a terminator from byte 2
    // on are 17 bytes, seven more than a six has.
    Guarded<_qvString8_allSize<14>> source;
    source.lay("abcdefghijklmn");
    Guarded<_qvString8_allSize<6>> const string(source->asUni());
    EXPECT_EQ(string.bytes(), (Bytes{14, 0, 'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'}));
    Bytes behind = string.behind();
    behind.resize(8);
    EXPECT_EQ(behind, (Bytes{'i', 'j', 'k', 'l', 'm', 'n', 0, guardByte}));
}

} // namespace
} // namespace guarded
