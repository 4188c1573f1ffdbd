// The 8-bit string as its own argument: what is read afresh while the receiver grows, what is read
// once, and that overlapping moves lose nothing.

#include "tests/strings/core8Rows.h"

namespace {

using namespace guarded;

template <typename S>
class Core8Alias : public testing::Test
{
protected:
    static constexpr unsigned char rest = 0x33;

    /// `text` over and over, until the capacity is full.
    static std::string repeated(std::string const& text)
    {
        std::string whole;
        while (whole.size() < ImageOf<S>::capacity) {
            whole += text;
        }
        return cut<S>(whole);
    }

    Guarded<S> string;
    /// The receiver under another name, so that compilers do not warn of `s = s` and `s += s`.
    S& self = *string;
};
TYPED_TEST_SUITE(Core8Alias, MainStrings8, ImageName);

TYPED_TEST(Core8Alias, PlusAssignOfItselfRepeatsTheTextUntilTheCapacityIsFull)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    for (std::string const& text : {std::string("a"), std::string("abc"), letters(capacity - 1),
                                    letters(capacity), std::string("a\0\xFF", 3)}) {
        SCOPED_TRACE(text.size());
        this->string.lay(text, this->rest);
        *this->string += this->self;
        EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>(this->repeated(text), this->rest));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Alias, PlusAssignOfAnEmptyStringToItselfStaysEmpty)
{
    this->string.lay("", this->rest).layText(0, 'x');
    *this->string += this->self;
    EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>("", this->rest));
}

TYPED_TEST(Core8Alias, AllOtherAppendsOfItselfReadTheLengthOnce)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    for (std::size_t const length :
         {std::size_t{1}, std::size_t{3}, std::size_t{4}, capacity / 2, capacity - 1, capacity}) {
        SCOPED_TRACE(length);
        std::string const text = letters(length);
        Bytes const doubled = keptImage<TypeParam>(cut<TypeParam>(text + text), this->rest);

        this->string.lay(text, this->rest);
        EXPECT_EQ(bytesOf(*this->string + this->self), doubled);
        EXPECT_EQ(bytesOf(this->string->combined(this->self)), doubled);
        EXPECT_EQ(bytesOf(this->string->combined(this->string->asChar())), doubled);
        EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>(text, this->rest));

        this->string->add(this->self);
        EXPECT_EQ(this->string.bytes(), doubled);
        this->string.lay(text, this->rest);
        this->string->add(this->string->asChar());
        EXPECT_EQ(this->string.bytes(), doubled);
        this->string.lay(text, this->rest);
        *this->string += this->string->asChar();
        EXPECT_EQ(this->string.bytes(), doubled);
        this->string.lay(text, this->rest);
        this->string->add(this->string->asChar(), static_cast<unsigned int>(length));
        EXPECT_EQ(this->string.bytes(), doubled);
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Alias, AppendOfItsOwnTailTakesTheTailAsItWas)
{
    this->string.lay("abc", this->rest);
    this->string->add(this->string->asChar() + 1);
    EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>("abcbc", this->rest));
    this->string.lay("abc", this->rest);
    *this->string += this->string->asChar() + 2;
    EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>("abcc", this->rest));
}

TYPED_TEST(Core8Alias, AppendOfAnOverlappingRangeTakesTheBytesAsTheyWere)
{
    // The range begins in the text and ends behind it, where the appended bytes go.
    this->string.lay("ab", this->rest).layText(3, 'y');
    this->string->add(this->string->asChar(), 4U);
    EXPECT_EQ(this->string.bytes(),
              keptImage<TypeParam>(std::string_view{"abab\0y", 6}, this->rest));
}

TYPED_TEST(Core8Alias, AppendOfOneOfItsOwnCharacters)
{
    this->string.lay("abc", this->rest);
    *this->string += this->string->asChar()[0];
    EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>("abca", this->rest));
    // The terminator itself: it becomes a zero inside the text.
    *this->string += this->string->asChar()[4];
    EXPECT_EQ(this->string.bytes(),
              keptImage<TypeParam>(std::string_view{"abca\0", 5}, this->rest));
}

TYPED_TEST(Core8Alias, AssignmentOfItselfChangesNothing)
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

TYPED_TEST(Core8Alias, AssignmentOfItsOwnTailMovesTheTextDown)
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

TYPED_TEST(Core8Alias, AssignmentOfOneOfItsOwnCharacters)
{
    for (std::size_t const index : {std::size_t{0}, std::size_t{1}, std::size_t{2}}) {
        this->string.lay("abc", this->rest);
        *this->string = this->string->asChar()[index];
        EXPECT_TRUE(holds(*this->string, std::string(1, "abc"[index]))) << index;
        EXPECT_EQ(textByte(*this->string, 2), 'c');
    }
}

TYPED_TEST(Core8Alias, CreateCharStringFromOneOfTheReceiversCharacters)
{
    this->string.lay("abc", this->rest);
    *this->string = TypeParam::createCharString(this->string->asChar()[1], 4);
    EXPECT_TRUE(holds(*this->string, "bbbb"));
}

TYPED_TEST(Core8Alias, AStringIsEqualToItselfAndStartsWithItself)
{
    this->string.lay("aBc", this->rest);
    EXPECT_TRUE(this->string->isEqual(this->self));
    EXPECT_TRUE(this->string->startsWith(this->string->asChar()));
    EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>("aBc", this->rest));
}

TEST(Core8AliasCases, OverlappingRangesOfEveryLengthMoveWhole)
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

TEST(Core8AliasCases, OverlappingRangesOfLongTextsMoveWhole)
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

TEST(Core8AliasCases, AbcInSevenRepeatsWithPlusAssignAndDoublesWithAdd)
{
    _qvString8_allSize<7> repeated("abc");
    _qvString8_allSize<7> const& same = repeated;
    repeated += same;
    EXPECT_TRUE(holds(repeated, "abcabca"));

    _qvString8_allSize<7> doubled("abc");
    doubled.add(doubled);
    EXPECT_TRUE(holds(doubled, "abcabc"));
    _qvString8_allSize<7> sum("abc");
    EXPECT_TRUE(holds(sum + sum, "abcabc"));
}

} // namespace
