// Every append of the 8-bit string. One result, reached by three routes that differ in what they do
// with an empty source and with a full receiver.

#include "tests/strings/core8Rows.h"

namespace {

using namespace guarded;

template <typename S>
class Core8Append : public testing::Test
{
protected:
    static constexpr unsigned char rest = 0x33;

    /// Lays `text` with a byte in the terminator's place that shows whether it was rewritten.
    void layWithoutTerminator(std::string_view text)
    {
        string.lay(text, rest).layText(text.size(), rest);
    }

    /// The image while nothing at all was written after layWithoutTerminator.
    static Bytes untouched(std::string_view text)
    {
        return imageBytes<S>(text.size(), text, rest, rest);
    }

    /// Lengths of the receiver that leave much room, little, and none.
    static std::vector<std::size_t> startLengths()
    {
        std::size_t const capacity = ImageOf<S>::capacity;
        return {0, 1, 3, capacity - 3, capacity - 1, capacity};
    }

    /// What stands in the receiver after `added` came behind `start`, by the capacity rule.
    static Bytes appended(std::string const& start, std::string const& added)
    {
        return keptImage<S>(cut<S>(start + added), rest);
    }

    Guarded<S> string;
};
TYPED_TEST_SUITE(Core8Append, MainStrings8, ImageName);

TYPED_TEST(Core8Append, AddTextIsCutAtTheCapacity)
{
    for (std::size_t const startLength : this->startLengths()) {
        std::string const start(startLength, '-');
        for (SourceRow const& row : sourceRows<TypeParam>()) {
            if (row.counted == 0) {
                continue;
            }
            SCOPED_TRACE(testing::Message() << row.given << " onto " << startLength);
            std::string const source = letters(row.given);
            this->layWithoutTerminator(start);
            this->string->add(source.c_str());
            EXPECT_EQ(this->string.bytes(), this->appended(start, source.substr(0, row.counted)));
            EXPECT_TRUE(this->string.guardsStand());
        }
    }
}

TYPED_TEST(Core8Append, AddOfNothingWritesNothing)
{
    std::string const countsAsEmpty(65536, 'e');
    Guarded<TypeParam> emptyString;
    emptyString.lay("", 'z').layText(0, 'z');
    for (std::size_t const startLength : this->startLengths()) {
        SCOPED_TRACE(startLength);
        std::string const start = letters(startLength);
        this->layWithoutTerminator(start);
        this->string->add(static_cast<char const*>(nullptr));
        this->string->add("");
        this->string->add(countsAsEmpty.c_str());
        this->string->add(static_cast<char const*>(nullptr), 5U);
        this->string->add("abc", 0U);
        this->string->add(static_cast<TypeParam const&>(*emptyString));
        EXPECT_EQ(this->string.bytes(), this->untouched(start));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Append, AddByCountIsCutAtTheCapacityAndNotReducedTo16Bits)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    std::string const source = letters(140000);
    for (std::size_t const startLength : this->startLengths()) {
        std::string const start(startLength, '-');
        for (std::size_t const count :
             {std::size_t{1}, std::size_t{2}, std::size_t{3}, capacity - 1, capacity, capacity + 1,
              std::size_t{65535}, std::size_t{65536}, std::size_t{65541}, std::size_t{131072}}) {
            SCOPED_TRACE(testing::Message() << count << " onto " << startLength);
            this->layWithoutTerminator(start);
            this->string->add(source.c_str(), static_cast<unsigned int>(count));
            EXPECT_EQ(this->string.bytes(), this->appended(start, source.substr(0, count)));
            EXPECT_TRUE(this->string.guardsStand());
        }
    }
}

// Together with the length such a count passes 2^32; it is cut like any other.
TYPED_TEST(Core8Append, AddByACountNearTheGreatestIsCutAtTheCapacity)
{
    std::string const source = letters(ImageOf<TypeParam>::capacity);
    for (std::size_t const startLength : this->startLengths()) {
        std::string const start(startLength, '-');
        for (unsigned int const count : {0x7FFFFFFFU, 0x80000000U, UINT_MAX - 2, UINT_MAX}) {
            SCOPED_TRACE(testing::Message() << count << " onto " << startLength);
            this->layWithoutTerminator(start);
            this->string->add(source.c_str(), count);
            EXPECT_EQ(this->string.bytes(), this->appended(start, source));
            EXPECT_TRUE(this->string.guardsStand());
        }
    }
}

TYPED_TEST(Core8Append, AddByCountKeepsZerosInsideAndNeedsNoTerminator)
{
    this->string.lay("", this->rest);
    this->string->add(oddText.data(), 5U);
    EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>(oddText, this->rest));

    std::vector<char> const unterminated{'a', 'b', 'c'};
    this->string.lay("-", this->rest);
    this->string->add(unterminated.data(), 3U);
    EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>("-abc", this->rest));
}

TYPED_TEST(Core8Append, AddAndPlusAssignOfAStringAreCutAtTheCapacity)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    for (std::size_t const startLength : this->startLengths()) {
        std::string const start(startLength, '-');
        for (std::size_t const length : {std::size_t{1}, std::size_t{3}, capacity - 1, capacity}) {
            SCOPED_TRACE(testing::Message() << length << " onto " << startLength);
            Guarded<TypeParam> source;
            source.lay(letters(length), 'z');

            this->layWithoutTerminator(start);
            this->string->add(static_cast<TypeParam const&>(*source));
            EXPECT_EQ(this->string.bytes(), this->appended(start, letters(length)));
            EXPECT_TRUE(this->string.guardsStand());

            this->layWithoutTerminator(start);
            *this->string += static_cast<TypeParam const&>(*source);
            EXPECT_EQ(this->string.bytes(), this->appended(start, letters(length)));
            EXPECT_TRUE(this->string.guardsStand());
            EXPECT_EQ(source.bytes(), keptImage<TypeParam>(letters(length), 'z'));
        }
    }
}

TYPED_TEST(Core8Append, StringsAreAppendedWithTheirZerosInside)
{
    Guarded<TypeParam> source;
    source.lay(oddText);
    std::string const expected = "-" + oddText;
    this->string.lay("-", this->rest);
    this->string->add(static_cast<TypeParam const&>(*source));
    EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>(expected, this->rest));
    this->string.lay("-", this->rest);
    *this->string += static_cast<TypeParam const&>(*source);
    EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>(expected, this->rest));
}

TYPED_TEST(Core8Append, PlusAssignOfTextIsCutAtTheCapacity)
{
    for (std::size_t const startLength : this->startLengths()) {
        std::string const start(startLength, '-');
        for (SourceRow const& row : sourceRows<TypeParam>()) {
            SCOPED_TRACE(testing::Message() << row.given << " onto " << startLength);
            std::string const source = letters(row.given);
            this->layWithoutTerminator(start);
            *this->string += source.c_str();
            // An empty source rewrites the terminator here, unlike add.
            EXPECT_EQ(this->string.bytes(), this->appended(start, source.substr(0, row.counted)));
            EXPECT_TRUE(this->string.guardsStand());
        }
    }
}

TYPED_TEST(Core8Append, PlusAssignOfNullWritesNothing)
{
    this->layWithoutTerminator("abc");
    *this->string += static_cast<char const*>(nullptr);
    EXPECT_EQ(this->string.bytes(), this->untouched("abc"));
}

TYPED_TEST(Core8Append, PlusAssignOfAnEmptyStringRewritesTheTerminator)
{
    Guarded<TypeParam> source;
    source.lay("", 'z').layText(0, 'z');
    for (std::size_t const startLength : this->startLengths()) {
        SCOPED_TRACE(startLength);
        this->layWithoutTerminator(letters(startLength));
        *this->string += static_cast<TypeParam const&>(*source);
        EXPECT_EQ(this->string.bytes(), keptImage<TypeParam>(letters(startLength), this->rest));
    }
}

TYPED_TEST(Core8Append, BlocksOntoAFullStringRewriteTheTerminatorOnly)
{
    std::string const full = letters(ImageOf<TypeParam>::capacity);
    Guarded<TypeParam> source;
    source.lay("xyz");
    TypeParam const& text = *source;
    Bytes const terminated = keptImage<TypeParam>(full, this->rest);

    this->layWithoutTerminator(full);
    this->string->add("xyz");
    EXPECT_EQ(this->string.bytes(), terminated);
    this->layWithoutTerminator(full);
    this->string->add("xyz", 3U);
    EXPECT_EQ(this->string.bytes(), terminated);
    this->layWithoutTerminator(full);
    this->string->add(text);
    EXPECT_EQ(this->string.bytes(), terminated);
    this->layWithoutTerminator(full);
    *this->string += "xyz";
    EXPECT_EQ(this->string.bytes(), terminated);
    this->layWithoutTerminator(full);
    *this->string += text;
    EXPECT_EQ(this->string.bytes(), terminated);
    EXPECT_TRUE(this->string.guardsStand());
}

TYPED_TEST(Core8Append, OneCharacterGoesBehindTheText)
{
    for (std::size_t const startLength : this->startLengths()) {
        if (startLength == ImageOf<TypeParam>::capacity) {
            continue;
        }
        std::string const start = letters(startLength);
        for (char const character : {'x', '\0', '\x80', '\xFF'}) {
            SCOPED_TRACE(testing::Message()
                         << static_cast<int>(character) << " onto " << startLength);
            this->layWithoutTerminator(start);
            *this->string += character;
            EXPECT_EQ(this->string.bytes(), this->appended(start, std::string(1, character)));
            EXPECT_TRUE(this->string.guardsStand());
        }
    }
}

TYPED_TEST(Core8Append, OneUnitGoesInByItsLowByte)
{
    struct Row
    {
        unsigned short unit;
        char stored;
    };
    for (Row const& row : {Row{'x', 'x'}, Row{0x1278, 'x'}, Row{0x0100, '\0'}, Row{0, '\0'},
                           Row{0xFFFF, '\xFF'}, Row{0x00E4, '\xE4'}}) {
        SCOPED_TRACE(row.unit);
        this->layWithoutTerminator("ab");
        *this->string += row.unit;
        EXPECT_EQ(this->string.bytes(), this->appended("ab", std::string(1, row.stored)));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Append, OneCharacterOntoAFullStringWritesNothing)
{
    std::string const full = letters(ImageOf<TypeParam>::capacity);
    this->layWithoutTerminator(full);
    *this->string += 'x';
    *this->string += static_cast<unsigned short>('x');
    EXPECT_EQ(this->string.bytes(), this->untouched(full));
    EXPECT_TRUE(this->string.guardsStand());
}

TYPED_TEST(Core8Append, OneCharacterOntoADamagedLengthWritesNothing)
{
    std::string const full = letters(ImageOf<TypeParam>::capacity);
    for (std::size_t const length : {full.size() + 1, full.size() + 2, std::size_t{65535}}) {
        this->string.lay(full, this->rest).layLength(length);
        Bytes const before = this->string.bytes();
        *this->string += 'x';
        EXPECT_EQ(this->string.bytes(), before) << length;
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Append, PlusReturnsTheReceiverWithMoreAndAllItsOtherBytes)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    Guarded<TypeParam> source;
    source.lay("XYZ", 'z');
    TypeParam const& more = *source;
    for (std::size_t const startLength : this->startLengths()) {
        SCOPED_TRACE(startLength);
        std::string const start = letters(startLength);
        this->string.lay(start, this->rest);
        Bytes const before = this->string.bytes();

        EXPECT_EQ(bytesOf(*this->string + 'x'), this->appended(start, "x"));
        EXPECT_EQ(bytesOf(*this->string + more), this->appended(start, "XYZ"));
        EXPECT_EQ(bytesOf(*this->string + TypeParam("")), before);
        EXPECT_EQ(this->string.bytes(), before);
        EXPECT_EQ(source.bytes(), keptImage<TypeParam>("XYZ", 'z'));
    }
    this->string.lay(letters(capacity), this->rest).layText(capacity, this->rest);
    EXPECT_EQ(bytesOf(*this->string + 'x'), this->string.bytes());
    EXPECT_EQ(bytesOf(*this->string + more), keptImage<TypeParam>(letters(capacity), this->rest));
}

TYPED_TEST(Core8Append, CombinedReturnsWhatAddAndPlusWouldGive)
{
    Guarded<TypeParam> source;
    source.lay("XYZ", 'z');
    TypeParam const& more = *source;
    std::string const countsAsEmpty(65536, 'e');
    for (std::size_t const startLength : this->startLengths()) {
        SCOPED_TRACE(startLength);
        std::string const start = letters(startLength);
        this->layWithoutTerminator(start);
        TypeParam const& receiver = *this->string;

        EXPECT_EQ(bytesOf(receiver.combined("XYZ")), this->appended(start, "XYZ"));
        EXPECT_EQ(bytesOf(receiver.combined(more)), this->appended(start, "XYZ"));
        // As add: nothing is written for an empty text. As operator+=: the terminator is.
        EXPECT_EQ(bytesOf(receiver.combined("")), this->untouched(start));
        EXPECT_EQ(bytesOf(receiver.combined(countsAsEmpty.c_str())), this->untouched(start));
        EXPECT_EQ(bytesOf(receiver.combined(static_cast<char const*>(nullptr))),
                  this->untouched(start));
        EXPECT_EQ(bytesOf(receiver.combined(TypeParam(""))), this->appended(start, ""));
        EXPECT_EQ(this->string.bytes(), this->untouched(start));
    }
}

TEST(Core8AppendCases, OneUnitOntoADamagedLengthIsStoredWhereTheLengthSays)
{
    // The unit form asks only whether the length is the capacity, so one above it still stores:
    // at text[7], the pad of a six, and the terminator behind the object.
    Guarded<_qvString8_allSize<6>> string;
    string.lay("abcdef").layLength(7);
    *string += static_cast<unsigned short>('x');
    EXPECT_EQ(string.bytes(), (Bytes{8, 0, 'a', 'b', 'c', 'd', 'e', 'f', 0, 'x'}));
    EXPECT_EQ(string.behind()[0], 0);
    EXPECT_EQ(string.behind()[1], guardByte);
}

} // namespace
