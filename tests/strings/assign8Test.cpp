/// The assignments of the current 8-bit string that no other has: what each writes, and that
/// nothing else changes.

#include "tests/strings/rows8.h"

namespace guarded {
namespace {

template <typename S>
class Assign8 : public testing::Test
{
protected:
    /// A receiver that holds "old" and 0x33 in every byte behind its terminator.
    Assign8() { string.lay("old", oldRest); }

    /// What the receiver's image has to be after `text` and its terminator were written over it.
    static Bytes written(std::string_view text)
    {
        Bytes image = imageBytes<S>(text.size(), std::string_view{"old\0", 4}, oldRest, oldRest);
        std::string const withTerminator = std::string(text) + '\0';
        for (std::size_t i = 0; i < withTerminator.size(); ++i) {
            image[ImageOf<S>::textAt + i] = static_cast<unsigned char>(withTerminator[i]);
        }
        return image;
    }

    /// The old image with the length set to 0 and nothing else.
    static Bytes onlyLengthCleared()
    {
        return imageBytes<S>(0, std::string_view{"old\0", 4}, oldRest, oldRest);
    }

    static constexpr unsigned char oldRest = 0x33;
    Guarded<S> string;
};
TYPED_TEST_SUITE(Assign8, MainStrings8, ImageName);

TYPED_TEST(Assign8, nullTextSetsTheLengthAndLeavesTheTextReadable)
{
    *this->string = static_cast<char const*>(nullptr);
    EXPECT_EQ(this->string.bytes(), this->onlyLengthCleared());
    EXPECT_STREQ(this->string->asChar(), "old");
    EXPECT_TRUE(this->string->isEmpty());
}

TYPED_TEST(Assign8, nullptrIsTheNullText)
{
    TypeParam& assigned = *this->string = nullptr;
    EXPECT_EQ(&assigned, &*this->string);
    EXPECT_EQ(this->string.bytes(), this->onlyLengthCleared());
    EXPECT_STREQ(this->string->asChar(), "old");
    EXPECT_TRUE(this->string->isEmpty());
    EXPECT_TRUE(this->string.guardsStand());
}

template <typename S>
concept takesAmbiguousZero = requires(S s)
{
    s = 0;
}
|| requires(S s)
{
    s = NULL;
}
|| requires(S s)
{
    s = {};
};

TYPED_TEST(Assign8, noOtherZeroIsTheNullText)
{
    static_assert(!takesAmbiguousZero<TypeParam>);
    int const zero = 0;
    *this->string = zero; // a character, as any number
    EXPECT_EQ(this->string.bytes(), this->written(std::string_view{"\0", 1}));
    this->string.lay("old", this->oldRest);
    *this->string = false;
    EXPECT_EQ(this->string.bytes(), this->written(std::string_view{"\0", 1}));
}

TYPED_TEST(Assign8, standardStringIsCountedIn16BitsAndCutAtTheCapacity)
{
    for (SourceRow const& row : sourceRows<TypeParam>()) {
        SCOPED_TRACE(row.given);
        std::string const source = letters(row.given);
        this->string.lay("old", this->oldRest);
        *this->string = source;
        EXPECT_EQ(this->string.bytes(),
                  this->written(cut<TypeParam>(source.substr(0, row.counted))));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Assign8, standardStringKeepsZerosInside)
{
    *this->string = oddText;
    EXPECT_EQ(this->string.bytes(), this->written(oddText));
}

TYPED_TEST(Assign8, overlayIsCutAtTheCapacity)
{
    Guarded<_qvString8_allSize<5000>> source;
    for (std::size_t const length : {std::size_t{0}, std::size_t{1}, std::size_t{6},
                                     std::size_t{250}, std::size_t{4999}, std::size_t{5000}}) {
        SCOPED_TRACE(length);
        source.lay(letters(length));
        this->string.lay("old", this->oldRest);
        *this->string = const_cast<_qvString8_Uni_pointer*>(source->asUni());
        EXPECT_EQ(this->string.bytes(), this->written(cut<TypeParam>(letters(length))));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Assign8, overlayWithADamagedLengthIsCutAtTheCapacity)
{
    Guarded<_qvString8_allSize<5000>> source;
    source.lay(letters(5000)).layLength(65535);
    *this->string = const_cast<_qvString8_Uni_pointer*>(source->asUni());
    EXPECT_EQ(this->string.bytes(), this->written(cut<TypeParam>(letters(5000))));
    EXPECT_TRUE(this->string.guardsStand());
}

TYPED_TEST(Assign8, fromCharTakesItsCountByTheLow16Bits)
{
    std::string const source = longSource<TypeParam>();
    for (CountRow const& row : countRows<TypeParam>()) {
        SCOPED_TRACE(row.given);
        this->string.lay("old", this->oldRest);
        this->string->fromChar(source.c_str(), row.given);
        EXPECT_EQ(this->string.bytes(),
                  this->written(cut<TypeParam>(source.substr(0, row.counted))));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Assign8, fromCharStopsAtNoZeroAndNeedsNoTerminator)
{
    this->string->fromChar(oddText.data(), 5);
    EXPECT_EQ(this->string.bytes(), this->written(oddText));

    std::vector<char> const unterminated{'a', 'b', 'c'};
    this->string.lay("old", this->oldRest);
    this->string->fromChar(unterminated.data(), 3);
    EXPECT_EQ(this->string.bytes(), this->written("abc"));
}

TYPED_TEST(Assign8, fromCharOfNullSetsTheLengthAlone)
{
    for (int const count : {-1, 0, 3, 65541}) {
        SCOPED_TRACE(count);
        this->string.lay("old", this->oldRest);
        this->string->fromChar(nullptr, count);
        EXPECT_EQ(this->string.bytes(), this->onlyLengthCleared());
        EXPECT_STREQ(this->string->asChar(), "old");
    }
}

} // namespace
} // namespace guarded
