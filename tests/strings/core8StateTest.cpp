// Length and state of the 8-bit string: the members that clear, measure and set the length.

#include "tests/strings/core8Rows.h"

#include <type_traits>

namespace {

using namespace guarded;

template <typename S>
class Core8State : public testing::Test
{
protected:
    Guarded<S> string;
};
TYPED_TEST_SUITE(Core8State, MainStrings8, ImageName);

// Both names of the text are the array itself, also of a constant.
TYPED_TEST(Core8State, TextIsReachedByEitherName)
{
    this->string.lay("abc", 0x33);
    TypeParam const& constant = *this->string;
    EXPECT_EQ(this->string->asChar(), constant.text);
    EXPECT_EQ(this->string->toChar(), constant.text);
    EXPECT_EQ(constant.asChar(), constant.text);
    EXPECT_EQ(constant.toChar(), constant.text);
}

TYPED_TEST(Core8State, ClearLeavesThePadAlone)
{
    this->string.lay("abc", 0x33);
    this->string->clear();
    EXPECT_EQ(this->string.bytes(), clearedImage<TypeParam>("", 0x33));
    EXPECT_TRUE(this->string.guardsStand());
}

TYPED_TEST(Core8State, ClearUnusedClearsFromTheLengthToTheEndOfTheText)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    for (std::size_t const length :
         {std::size_t{0}, std::size_t{1}, std::size_t{3}, capacity - 1, capacity}) {
        SCOPED_TRACE(length);
        this->string.lay(letters(length), 0x33).layText(length, 'T');
        this->string->clearUnused();
        EXPECT_EQ(this->string.bytes(), clearedImage<TypeParam>(letters(length), 0x33));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8State, ClearUnusedTrustsTheLengthOverAZeroInside)
{
    this->string.lay(oddText, 0x33);
    this->string->clearUnused();
    EXPECT_EQ(this->string.bytes(), clearedImage<TypeParam>(oddText, 0x33));
}

TYPED_TEST(Core8State, ClearUnusedMakesEqualTextsEqualInTheirBytes)
{
    Guarded<TypeParam> other;
    other.lay("abc", 0x11);
    this->string.lay("abc", 0x22);
    this->string->clearUnused();
    other->clearUnused();
    Bytes mine = this->string.bytes();
    Bytes others = other.bytes();
    mine.resize(ImageOf<TypeParam>::spareAt);
    others.resize(ImageOf<TypeParam>::spareAt);
    EXPECT_EQ(mine, others);
}

TYPED_TEST(Core8State, CalcLengthFindsTheFirstZero)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    for (std::size_t const zeroAt :
         {std::size_t{0}, std::size_t{1}, std::size_t{4}, capacity - 1}) {
        for (std::size_t const oldLength : {std::size_t{0}, capacity, std::size_t{65535}}) {
            SCOPED_TRACE(testing::Message() << "zero at " << zeroAt << ", length " << oldLength);
            this->string.lay("", 0x33).layLength(oldLength);
            this->string.layText(0, 0x33).layText(zeroAt, 0);
            this->string->calcLength();
            EXPECT_EQ(this->string.bytes(),
                      keptImage<TypeParam>(std::string(zeroAt, '\x33'), 0x33));
            EXPECT_TRUE(this->string.guardsStand());
        }
    }
}

TYPED_TEST(Core8State, CalcLengthWithoutAZeroIsTheCapacityAndEndsTheText)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    // The byte at text[N] is no part of the search: it becomes the terminator whatever it was.
    for (unsigned char const last : {std::uint8_t{0}, std::uint8_t{'q'}}) {
        this->string.lay("", 0x33).layText(0, 0x33).layText(capacity, last);
        this->string->calcLength();
        EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>(std::string(capacity, '\x33'), 0x33));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8State, CalcLengthServesTextWrittenThroughAsChar)
{
    std::memcpy(this->string->asChar(), "disk", 5);
    this->string->calcLength();
    EXPECT_TRUE(holds(*this->string, "disk"));
}

TYPED_TEST(Core8State, SetLengthKeepsTheValueBetweenZeroAndTheCapacity)
{
    int const full = static_cast<int>(ImageOf<TypeParam>::capacity);
    struct Row
    {
        int given;
        int length;
    };
    for (Row const& row :
         {Row{-32768, 0}, Row{-5, 0}, Row{-1, 0}, Row{0, 0}, Row{1, 1}, Row{3, 3},
          Row{full - 1, full - 1}, Row{full, full}, Row{full + 1, full}, Row{32767, full}}) {
        SCOPED_TRACE(row.given);
        this->string.lay("abcd", 0x33);
        this->string->setLength(static_cast<short>(row.given));

        // Only the terminator is written; a greater length shows whatever bytes are there.
        Bytes expected = keptImage<TypeParam>("abcd", 0x33);
        expected[0] = static_cast<unsigned char>(row.length % 256);
        expected[1] = static_cast<unsigned char>(row.length / 256);
        expected[static_cast<std::size_t>(2 + row.length)] = 0;
        EXPECT_EQ(this->string.bytes(), expected);
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8State, EmptyAndDataLookAtTheLengthAlone)
{
    TypeParam const& view = *this->string;
    this->string.lay("", 'x').layText(0, 'x');
    EXPECT_TRUE(view.isEmpty());
    EXPECT_FALSE(view.hasData());

    for (std::size_t const length : {std::size_t{1}, std::size_t{ImageOf<TypeParam>::capacity},
                                     std::size_t{256}, std::size_t{65535}}) {
        this->string.lay("", 0).layLength(length);
        EXPECT_FALSE(view.isEmpty()) << length;
        EXPECT_TRUE(view.hasData()) << length;
    }
}

TYPED_TEST(Core8State, AsCharAndToCharAreTheWritableText)
{
    this->string.lay("abc");
    auto* const object = reinterpret_cast<char*>(&*this->string);
    EXPECT_EQ(this->string->asChar(), object + 2);
    EXPECT_EQ(this->string->toChar(), object + 2);
    this->string->asChar()[0] = 'X';
    this->string->toChar()[1] = 'Y';
    EXPECT_TRUE(holds(*this->string, "XYc"));
}

TYPED_TEST(Core8State, AsUniIsTheObjectItself)
{
    auto const* const view = this->string->asUni();
    static_assert(std::is_same_v<decltype(this->string->asUni()), _qvString8_Uni_pointer const*>);
    EXPECT_EQ(static_cast<void const*>(view), static_cast<void const*>(&*this->string));
}

TEST(Core8StateCases, ClearOfASixLeavesItsByteNineAlone)
{
    Guarded<_qvString8_allSize<6>> string;
    string.lay("abcdef", 0x77);
    string->clear();
    EXPECT_EQ(string.bytes(), (Bytes{0, 0, 0, 0, 0, 0, 0, 0, 0, 0x77}));
}

template <typename S>
void findsAZeroAtEveryPlace()
{
    Guarded<S> string;
    for (std::size_t zeroAt = 0; zeroAt <= ImageOf<S>::capacity; ++zeroAt) {
        string.lay("", 'x').layText(0, 'x').layText(zeroAt, 0);
        string->calcLength();
        EXPECT_TRUE(holds(*string, std::string(zeroAt, 'x'))) << ImageOf<S>::capacity;
    }
}

// Compilers take several bytes at once and the rest apart: here of 0 to 3.
TEST(Core8StateCases, CalcLengthFindsAZeroAtEveryPlace)
{
    findsAZeroAtEveryPlace<_qvString8_allSize<6>>();
    findsAZeroAtEveryPlace<_qvString8_allSize<7>>();
    findsAZeroAtEveryPlace<_qvString8_allSize<8>>();
    findsAZeroAtEveryPlace<_qvString8_allSize<25>>();
}

} // namespace
