/// The current 8-bit string as its own argument: overlapping moves lose nothing.

#include "tests/strings/rows8.h"

namespace guarded {
namespace {

template <typename S>
class Alias8 : public testing::Test
{
protected:
    static constexpr unsigned char rest = 0x33;

    Guarded<S> string;
    /// The receiver under another name, so that compilers do not warn of `s = s` and `s += s`.
    S& self = *string;
};
TYPED_TEST_SUITE(Alias8, MainStrings8, ImageName);

TYPED_TEST(Alias8, assignmentOfItselfChangesNothing)
{
    this->string.lay("abc", this->rest);
    Bytes const before = this->string.bytes();
    *this->string = static_cast<TypeParam const&>(this->self);
    EXPECT_EQ(this->string.bytes(), before);
    *this->string = this->string->asChar();
    EXPECT_EQ(this->string.bytes(), before);
    *this->string = const_cast<_qvString8_Uni_pointer*>(this->string->asUni());
    EXPECT_EQ(this->string.bytes(), before);
    this->string->fromChar(this->string->asChar(), 3);
    EXPECT_EQ(this->string.bytes(), before);
    EXPECT_TRUE(this->string.guardsStand());
}

TYPED_TEST(Alias8, assignmentOfItsOwnTailMovesTheTextDown)
{
    std::string const full = letters(ImageOf<TypeParam>::capacity);
    for (std::size_t const from : {std::size_t{1}, std::size_t{2}, full.size() - 1, full.size()}) {
        SCOPED_TRACE(from);
        Bytes expected = keptImage<TypeParam>(full, this->rest);
        std::string const tail = full.substr(from) + '\0';
        std::copy(tail.begin(), tail.end(), expected.begin() + 2);
        expected[0] = static_cast<unsigned char>((full.size() - from) % 256);
        expected[1] = static_cast<unsigned char>((full.size() - from) / 256);

        this->string.lay(full, this->rest);
        *this->string = this->string->asChar() + from;
        EXPECT_EQ(this->string.bytes(), expected);

        this->string.lay(full, this->rest);
        this->string->fromChar(this->string->asChar() + from, static_cast<int>(full.size() - from));
        EXPECT_EQ(this->string.bytes(), expected);
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Alias8, assignmentOfOneOfItsOwnCharacters)
{
    for (std::size_t const index : {std::size_t{0}, std::size_t{1}, std::size_t{2}}) {
        this->string.lay("abc", this->rest);
        *this->string = this->string->asChar()[index];
        EXPECT_TRUE(holds(*this->string, std::string(1, "abc"[index]))) << index;
        EXPECT_EQ(textByte(*this->string, 2), 'c');
    }
}

TYPED_TEST(Alias8, createCharStringFromOneOfTheReceiversCharacters)
{
    this->string.lay("abc", this->rest);
    *this->string = TypeParam::createCharString(this->string->asChar()[1], 4);
    EXPECT_TRUE(holds(*this->string, "bbbb"));
}

TEST(Alias8Ranges, overlappingRangesOfEveryLengthMoveWhole)
{
    Guarded<_qvString8_allSize<250>> string;
    std::string const text = letters(250);
    for (std::size_t distance = 1; distance <= 25; ++distance) {
        for (unsigned int length = 1; length <= 70; ++length) {
            SCOPED_TRACE(testing::Message() << length << " by " << distance);
            string.lay(text);
            string->fromChar(string->asChar() + distance, static_cast<int>(length));
            EXPECT_TRUE(holds(*string, text.substr(distance, length)));

            string.lay(text).layLength(30);
            string->add(string->asChar() + 30 - distance, length);
            EXPECT_TRUE(holds(*string, text.substr(0, 30) + text.substr(30 - distance, length)));
        }
    }
}

TEST(Alias8Ranges, overlappingRangesOfLongTextsMoveWhole)
{
    Guarded<_qvString8_allSize<5000>> string;
    std::string const text = letters(5000);
    for (std::size_t const distance : {1U, 25U, 900U, 2047U, 2048U, 2049U, 2500U}) {
        for (unsigned int const length : {2047U, 2048U, 2049U, 2500U, 4096U, 4097U, 5000U}) {
            SCOPED_TRACE(testing::Message() << length << " by " << distance);
            std::size_t const inside = std::min<std::size_t>(length, 5000 - distance);
            string.lay(text);
            string->fromChar(string->asChar() + distance, static_cast<int>(inside));
            EXPECT_TRUE(holds(*string, text.substr(distance, inside)));

            string.lay(text).layLength(distance);
            string->add(string->asChar(), length);
            EXPECT_TRUE(holds(*string, text.substr(0, distance) + text.substr(0, inside)));
            EXPECT_TRUE(string.guardsStand());
        }
    }
}

} // namespace
} // namespace guarded
