// Every assignment of the 8-bit string: what it writes, and that nothing else changes.

#include "tests/strings/core8Rows.h"

namespace {

using namespace guarded;

template <typename S>
class Core8Assign : public testing::Test
{
protected:
    /// A receiver that holds "old" and 0x33 in every byte behind its terminator.
    Core8Assign() { string.lay("old", oldRest); }

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
TYPED_TEST_SUITE(Core8Assign, MainStrings8, ImageName);

TYPED_TEST(Core8Assign, SameTypeTakesStaleTextAlongButNotThePad)
{
    Guarded<TypeParam> source;
    source.lay("abcd", 0x55);
    *this->string = static_cast<TypeParam const&>(*source);
    EXPECT_EQ(this->string.bytes(),
              imageBytes<TypeParam>(4, std::string_view{"abcd\0", 5}, 0x55, this->oldRest));
    EXPECT_TRUE(this->string.guardsStand());
    EXPECT_EQ(source.bytes(), keptImage<TypeParam>("abcd", 0x55));
}

TYPED_TEST(Core8Assign, SameTypeWritesNoTerminatorOfItsOwn)
{
    Guarded<TypeParam> source;
    source.lay("abcd", 0x55).layText(4, 'e');
    *this->string = static_cast<TypeParam const&>(*source);
    EXPECT_EQ(this->string.bytes(), imageBytes<TypeParam>(4, "abcde", 0x55, this->oldRest));
}

TYPED_TEST(Core8Assign, TextIsMeasuredIn16BitsAndCutAtTheCapacity)
{
    for (SourceRow const& row : sourceRows<TypeParam>()) {
        SCOPED_TRACE(row.given);
        std::string const source = letters(row.given);
        this->string.lay("old", this->oldRest);
        *this->string = source.c_str();
        EXPECT_EQ(this->string.bytes(),
                  this->written(cut<TypeParam>(source.substr(0, row.counted))));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Assign, NullTextSetsTheLengthAndLeavesTheTextReadable)
{
    *this->string = static_cast<char const*>(nullptr);
    EXPECT_EQ(this->string.bytes(), this->onlyLengthCleared());
    EXPECT_STREQ(this->string->asChar(), "old");
    EXPECT_TRUE(this->string->isEmpty());
}

TYPED_TEST(Core8Assign, EmptyTextWritesTheTerminator)
{
    *this->string = "";
    EXPECT_EQ(this->string.bytes(), this->written(""));
}

TYPED_TEST(Core8Assign, OneCharacterWritesTwoBytes)
{
    for (char const character : {'x', '\x80', '\xFF', '\0'}) {
        SCOPED_TRACE(static_cast<int>(character));
        this->string.lay("old", this->oldRest);
        *this->string = character;
        EXPECT_EQ(this->string.bytes(), this->written(std::string(1, character)));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Assign, ZeroCharacterHasLengthOneAndReadsAsEmpty)
{
    *this->string = '\0';
    EXPECT_EQ(lengthOf(*this->string), 1);
    EXPECT_STREQ(this->string->asChar(), "");
}

TYPED_TEST(Core8Assign, StandardStringIsCountedIn16BitsAndCutAtTheCapacity)
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

TYPED_TEST(Core8Assign, StandardStringKeepsZerosInside)
{
    *this->string = oddText;
    EXPECT_EQ(this->string.bytes(), this->written(oddText));
}

TYPED_TEST(Core8Assign, OverlayIsCutAtTheCapacity)
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

TYPED_TEST(Core8Assign, OverlayWithADamagedLengthIsCutAtTheCapacity)
{
    Guarded<_qvString8_allSize<5000>> source;
    source.lay(letters(5000)).layLength(65535);
    *this->string = const_cast<_qvString8_Uni_pointer*>(source->asUni());
    EXPECT_EQ(this->string.bytes(), this->written(cut<TypeParam>(letters(5000))));
    EXPECT_TRUE(this->string.guardsStand());
}

TYPED_TEST(Core8Assign, FromCharTakesItsCountByTheLow16Bits)
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

TYPED_TEST(Core8Assign, FromCharStopsAtNoZeroAndNeedsNoTerminator)
{
    this->string->fromChar(oddText.data(), 5);
    EXPECT_EQ(this->string.bytes(), this->written(oddText));

    std::vector<char> const unterminated{'a', 'b', 'c'};
    this->string.lay("old", this->oldRest);
    this->string->fromChar(unterminated.data(), 3);
    EXPECT_EQ(this->string.bytes(), this->written("abc"));
}

TYPED_TEST(Core8Assign, FromCharOfNullSetsTheLengthAlone)
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
