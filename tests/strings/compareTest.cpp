/// Equality and order of all strings, the oddities that are kept among them.

#include "tests/strings/laid.h"

#include <climits>

namespace strings {
namespace {

using namespace std::string_view_literals;

class Compare : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Compare, testing::ValuesIn(allImages()), imageName);

struct PairRow
{
    Text left;
    Text right;
    bool equal;
    bool equalFolded;
    int foldedOrder; ///< sign of compare
    int exactOrder;  ///< sign of compareSameCase, which knows no tie-break by length
    int order;       ///< -1 less, 0 neither, 1 greater
};

/// Stored bytes decide the order, low byte first, so 0x0141 is before 0x0042.
constexpr PairRow pairRows[] = {
    {u"", u"", true, true, 0, 0, 0},
    {u"a", u"a", true, true, 0, 0, 0},
    {u"a", u"A", false, true, 0, 1, 1},
    {u"abc", u"abc", true, true, 0, 0, 0},
    {u"@[`{", u"@[`{", true, true, 0, 0, 0},
    {u"abort", u"ABORT", false, true, 0, 1, 1},
    {u"abort", u"aborT ", false, false, -1, 1, 1},
    {u"xabc", u"yabc", false, false, -1, -1, -1},
    {u"Hello", u"hELLO", false, true, 0, -1, -1},
    {u"hello", u"HELLO", false, true, 0, 1, 1},
    // A text and its prefix: the exact comparison has no tie-break.
    {u"abc", u"abcd", false, false, -1, 0, -1},
    {u"abc", u"ab", false, false, 1, 0, 1},
    {u"a", u"", false, false, 1, 0, 1},
    {u"abc", u"ABCD", false, false, -1, 1, 1},
    {u"abc", u"abd", false, false, -1, -1, -1},
    {u"b", u"abc", false, false, 1, 1, 1},
    {u"a", u"B", false, false, -1, 1, 1},
    {u"ABx", u"abX", false, true, 0, -1, -1},
    // Between the two alphabets are characters that are above one and below the other.
    {u"a", u"_", false, false, -1, 1, 1},
    // What is beside the letters is no letter.
    {u"[", u"{", false, false, -1, -1, -1},
    {u"@", u"`", false, false, -1, -1, -1},
    // Bytes order as unsigned values, and those above 0x7F have no case.
    {u"\x80", u"z", false, false, 1, 1, 1},
    {u"z", u"\xFF", false, false, -1, -1, -1},
    {u"\xE4", u"z", false, false, 1, 1, 1},
    {u"\xE4", u"\xC4", false, false, 1, 1, 1},
    {u"ab\xFF", u"AB\xFF", false, true, 0, 1, 1},
    // A zero inside is a character like any other.
    {u"a\0b"sv, u"a\0b"sv, true, true, 0, 0, 0},
    {u"a\0b"sv, u"a\0c"sv, false, false, -1, -1, -1},
    {u"a\0b"sv, u"A\0B"sv, false, true, 0, 1, 1},
    {u"a\0b"sv, u"a\0B"sv, false, true, 0, 1, 1},
    {u"a\0"sv, u"a"sv, false, false, 1, 0, 1},
    {u"\0"sv, u""sv, false, false, 1, 0, 1},
    // Of units, too, only the ASCII letters fold.
    {u"\xFFE4", u"\xFFC4", false, false, 1, 1, 1},
    {u"\xFFE4", u"\xE4", false, false, 1, 1, 1},
    {u"\x0161", u"\x0141", false, false, 1, 1, 1},
    {u"\x0101", u"\x0100", false, false, 1, 1, 1},
    {u"\xFF61", u"\xFF41", false, false, 1, 1, 1},
    {u"az\x0141q", u"AZ\x0141Q", false, true, 0, 1, 1},
    // Units that agree in one of their bytes only.
    {u"\x0141", u"\x41", false, false, 1, 1, 1},
    {u"\x4101", u"\x4102", false, false, -1, -1, -1},
    {u"\x0141", u"\x42", false, false, -1, -1, -1},
    {u"\x0100", u"\x01", false, false, -1, -1, -1},
    {u"\xFF01", u"\x02", false, false, -1, -1, -1},
};

TEST_P(Compare, pairsOfStrings)
{
    for (auto const& row : pairRows) {
        if (!image.fits(row.left, row.right))
            continue;
        SCOPED_TRACE(shown(row.left) + " and " + shown(row.right));
        // Different bytes behind the texts and in the spare bytes have no say.
        Laid const left(image, row.left);
        Laid const right(image, row.right, 0x11);
        auto const bytesLeft = left.bytes();
        auto const bytesRight = right.bytes();

        EXPECT_EQ(left->equals(right), row.equal);
        EXPECT_EQ(right->equals(left), row.equal);
        EXPECT_EQ(left->differs(right), !row.equal);
        EXPECT_EQ(left->isEqualSameCase(right), row.equal);
        EXPECT_EQ(left->isEqual(right), row.equalFolded);
        EXPECT_EQ(right->isEqual(left), row.equalFolded);
        EXPECT_EQ(signOf(left->compare(right)), row.foldedOrder);
        EXPECT_EQ(signOf(right->compare(left)), -row.foldedOrder);
        EXPECT_EQ(signOf(left->compareSameCase(right)), row.exactOrder);
        EXPECT_EQ(signOf(right->compareSameCase(left)), -row.exactOrder);
        EXPECT_EQ(left->isLess(right), row.order < 0);
        EXPECT_EQ(left->isGreater(right), row.order > 0);
        EXPECT_EQ(right->isLess(left), row.order > 0);
        EXPECT_EQ(right->isGreater(left), row.order < 0);

        EXPECT_EQ(left.bytes(), bytesLeft);
        EXPECT_EQ(right.bytes(), bytesRight);
    }
}

TEST_P(Compare, countedUnits)
{
    for (auto const& row : pairRows) {
        if (!image.fits(row.left, row.right))
            continue;
        SCOPED_TRACE(shown(row.left) + " and " + shown(row.right));
        Laid const left(image, row.left);
        auto const right = stored(image, row.right);
        void const* const units = right.data();
        auto const count = static_cast<int>(row.right.size());
        EXPECT_EQ(left->isEqualSameCase(units, count), row.equal);
        EXPECT_EQ(left->isEqual(units, count), row.equalFolded);
        // The count is compared as it stands.
        for (int const other : {count + 1, count - 1, count + 65536, count - 65536, -1}) {
            if (other != left.value().length()) {
                EXPECT_FALSE(left->isEqualSameCase(units, other)) << other;
                EXPECT_FALSE(left->isEqual(units, other)) << other;
            }
        }
    }
}

TEST_P(Compare, countsThatAreNotTheLengthReadNothing)
{
    Laid const receiver(image, u"abc");
    for (int const count : {-1, 0, 1, 2, 4, 65535, 65536, 65539, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(count);
        EXPECT_FALSE(receiver->isEqual(nullUnits, count));
        EXPECT_FALSE(receiver->isEqualSameCase(nullUnits, count));
    }
}

TEST_P(Compare, noUnitsEqualNoUnits)
{
    for (Text const stale : {u"x"sv, u"\0"sv}) {
        Laid receiver(image, u"");
        receiver.stale(0, stale);
        EXPECT_TRUE(receiver->isEqual(nullUnits, 0));
        EXPECT_TRUE(receiver->isEqualSameCase(nullUnits, 0));
        EXPECT_FALSE(receiver->isEqual(nullUnits, -1));
        EXPECT_FALSE(receiver->isEqualSameCase(nullUnits, 65536));
    }
}

/// Where only the lengths differ the answer is exactly one.
TEST_P(Compare, equalPrefixesOrderByExactlyOne)
{
    auto const shorter = stringOf(image, u"aBc");
    auto const longer = stringOf(image, u"AbCdef");
    EXPECT_EQ(shorter->compare(longer), -1);
    EXPECT_EQ(longer->compare(shorter), 1);
    EXPECT_EQ(shorter->compare(shorter), 0);
    EXPECT_EQ(shorter->compare(stringOf(image, u"ABC")), 0);
    EXPECT_EQ(stringOf(image, u"")->compare(shorter), -1);
    EXPECT_EQ(shorter->compare(stringOf(image, u"")), 1);
}

TEST_P(Compare, fullStringsAreComparedToTheLastUnit)
{
    auto const text = letters(image.capacity);
    Laid const full(image, text);
    auto const same = stringOf(image, text);
    auto const upper = stringOf(image, upperOf(text));
    EXPECT_TRUE(full->equals(same));
    EXPECT_FALSE(full->equals(upper));
    EXPECT_TRUE(full->isEqual(upper));
    EXPECT_TRUE(full->isEqualUpperCaseInput(upper));
    EXPECT_TRUE(upper->isEqualLowerCaseInput(full));
    EXPECT_EQ(full->compare(upper), 0);
    EXPECT_TRUE(full->equals(narrowed(text).c_str()));
    EXPECT_TRUE(full->isEqual(stored(image, upperOf(text)).data(), image.intCapacity()));

    auto const n = image.capacity;
    for (std::size_t const at : {std::size_t{0}, std::size_t{1}, n / 2, n - 2, n - 1}) {
        SCOPED_TRACE(at);
        auto other = text;
        other[at] = u'~';
        auto const different = stringOf(image, other);
        EXPECT_FALSE(full->equals(different));
        EXPECT_FALSE(full->isEqual(different));
        EXPECT_FALSE(upper->isEqual(different));
        EXPECT_FALSE(full->isEqualSameCase(different));
        EXPECT_TRUE(full->isLess(different));
        EXPECT_TRUE(different->isGreater(full));
        EXPECT_LT(full->compare(different), 0);
        EXPECT_GT(different->compareSameCase(full), 0);
    }
}

/// However long the text: units behind the first difference that differ the other way are not
/// asked.
TEST_P(Compare, theFirstDifferenceDecides)
{
    std::u16string const text(std::min<std::size_t>(image.capacity, 67), u'm');
    for (std::size_t at = 0; at < text.size(); ++at) {
        SCOPED_TRACE(at);
        auto const end = text.size() - at - 1;
        auto const smaller = text.substr(0, at) + u'C' + std::u16string(end, u'Z');
        auto const greater = text.substr(0, at) + u'D' + std::u16string(end, u'Y');
        Laid const left(image, smaller);
        Laid const right(image, greater);
        EXPECT_LT(left->compareSameCase(right), 0);
        EXPECT_GT(right->compareSameCase(left), 0);
        EXPECT_TRUE(left->isLess(right));
        EXPECT_FALSE(right->isLess(left));
        EXPECT_TRUE(right->isGreater(left));
        EXPECT_FALSE(left->isGreater(right));
        auto const upper = stringOf(image, upperOf(greater));
        EXPECT_LT(left->compare(upper), 0);
        EXPECT_GT(upper->compare(left), 0);
    }
}

TEST_P(Compare, aStringEqualsItself)
{
    Laid const self(image, u"aB\xE4");
    EXPECT_TRUE(self->equals(self));
    EXPECT_FALSE(self->differs(self));
    EXPECT_TRUE(self->isEqual(self));
    EXPECT_TRUE(self->isEqual(self->textAt(), 3));
    EXPECT_TRUE(self->isEqualSameCase(self));
    EXPECT_EQ(self->compare(self), 0);
    EXPECT_EQ(self->compareSameCase(self), 0);
    EXPECT_FALSE(self->isLess(self));
    EXPECT_FALSE(self->isGreater(self));
}

/// The first unit is compared before the lengths are, also where it belongs to no text any more.
TEST_P(Compare, emptyStringsDifferByAStaleFirstUnit)
{
    Laid clean(image, u"");
    Laid staleX(image, u"");
    Laid alsoX(image, u"");
    staleX.stale(0, u"xy");
    alsoX.stale(0, u"xz");

    EXPECT_FALSE(clean->equals(staleX));
    EXPECT_FALSE(staleX->equals(clean));
    EXPECT_TRUE(clean->differs(staleX));
    EXPECT_FALSE(clean->isEqualSameCase(staleX));
    EXPECT_FALSE(staleX->isEqualSameCase(clean));
    EXPECT_TRUE(staleX->equals(alsoX));
    EXPECT_FALSE(staleX->differs(alsoX));
    EXPECT_TRUE(staleX->isEqualSameCase(alsoX));

    EXPECT_TRUE(clean->isEqual(staleX));
    EXPECT_TRUE(staleX->isEqual(clean));
    EXPECT_EQ(clean->compare(staleX), 0);
    EXPECT_EQ(clean->compareSameCase(staleX), 0);
    EXPECT_FALSE(clean->isLess(staleX));
    EXPECT_FALSE(clean->isGreater(staleX));
}

/// Of a text and its prefix only what both have is compared in exact order.
TEST_P(Compare, staleUnitsHaveNoOrder)
{
    Laid prefix(image, u"a");
    Laid const text(image, u"abc");
    for (Text const stale : {u"z"sv, u"\1"sv}) {
        prefix.stale(1, stale);
        EXPECT_EQ(prefix->compareSameCase(text), 0);
        EXPECT_EQ(text->compareSameCase(prefix), 0);
        EXPECT_TRUE(prefix->isLess(text));
        EXPECT_TRUE(text->isGreater(prefix));
        EXPECT_LT(prefix->compare(text), 0);
        EXPECT_GT(text->compare(prefix), 0);
    }
}

/// A length of 0 has nothing to fold, so the stale first unit stays as it is in the folded copy.
TEST_P(Compare, foldedCopiesKeepAStaleFirstUnit)
{
    Laid const clean(image, u"");
    Laid lower(image, u"");
    Laid alsoLower(image, u"");
    Laid upper(image, u"");
    lower.stale(0, u"a");
    alsoLower.stale(0, u"a");
    upper.stale(0, u"A");

    EXPECT_TRUE(lower->isEqualUpperCaseInput(alsoLower));
    EXPECT_TRUE(lower->isEqualLowerCaseInput(alsoLower));
    EXPECT_FALSE(lower->isEqualUpperCaseInput(upper));
    EXPECT_TRUE(upper->isEqualLowerCaseInput(upper));
    EXPECT_FALSE(upper->isEqualLowerCaseInput(lower));
    EXPECT_FALSE(lower->isEqualUpperCaseInput(clean));
    EXPECT_FALSE(lower->isEqualLowerCaseInput(clean));
    EXPECT_TRUE(clean->isEqualUpperCaseInput(clean));
    EXPECT_TRUE(clean->isEqualLowerCaseInput(clean));
}

struct FoldedInputRow
{
    Text receiver;
    Text input;
    bool equalUpper;
    bool equalLower;
};

constexpr FoldedInputRow foldedInputRows[] = {
    {u"Hello", u"HELLO", true, false},
    {u"Hello", u"hello", false, true},
    {u"Hello", u"Hello", false, false},
    {u"12-_", u"12-_", true, true},
    {u"", u"", true, true},
    {u"abc", u"ABC", true, false},
    {u"aBc", u"ABC", true, false},
    {u"ABC", u"abc", false, true},
    {u"ABC", u"ABC", true, false},
    {u"abc", u"abc", false, true},
    {u"abc", u"aBC", false, false},
    {u"abc", u"ABCD", false, false},
    {u"abcd", u"ABC", false, false},
    {u"\xE4", u"\xE4", true, true},
    {u"\xE4", u"\xC4", false, false},
    {u"\xE4\x0161", u"\xE4\x0161", true, true},
    {u"a\0b"sv, u"A\0B"sv, true, false},
    {u"A\0B"sv, u"a\0b"sv, false, true},
    {u"a", u"", false, false},
    {u"", u"A", false, false},
};

/// The argument is promised to be folded and is not folded again.
TEST_P(Compare, foldedInputIsTakenAsItStands)
{
    for (auto const& row : foldedInputRows) {
        if (!image.fits(row.receiver, row.input))
            continue;
        SCOPED_TRACE(shown(row.receiver) + " and " + shown(row.input));
        Laid const receiver(image, row.receiver);
        Laid const input(image, row.input, 0x33);
        auto const before = receiver.bytes();
        EXPECT_EQ(receiver->isEqualUpperCaseInput(input), row.equalUpper);
        EXPECT_EQ(receiver->isEqualLowerCaseInput(input), row.equalLower);
        EXPECT_EQ(receiver.bytes(), before);
    }
}

/// Long texts are compared many units at a time: the first and the last one count like others.
TEST_P(Compare, foldedInputDiffersAtAnyPlace)
{
    for (std::size_t const length : {5u, 9u, 12u, 16u, 17u, 40u, 63u, 64u, 65u, 100u}) {
        if (length > image.capacity)
            continue;
        std::u16string const lower(length, u'z');
        std::u16string const upper(length, u'Z');
        Laid const receiver(image, lower);
        EXPECT_TRUE(receiver->isEqualUpperCaseInput(Laid(image, upper, 0x33)));
        EXPECT_TRUE(receiver->isEqualLowerCaseInput(Laid(image, lower, 0x33)));
        for (std::size_t const place : {std::size_t{0}, length / 3, length / 2, length - 1}) {
            SCOPED_TRACE(std::to_string(place) + " of " + std::to_string(length));
            auto input = lower;
            input[place] = u'Z';
            EXPECT_FALSE(receiver->isEqualLowerCaseInput(Laid(image, input)));
            input = upper;
            input[place] = u'z';
            EXPECT_FALSE(receiver->isEqualUpperCaseInput(Laid(image, input)));
        }
    }
}

struct TextRow
{
    Text receiver;
    char const* text;
    bool equal;
};

/// Bytes are zero-extended; a sign-extended text of the same bytes does not equal them.
constexpr TextRow textRows[] = {
    {u"abc", "abc", true},     {u"abc", "abC", false},
    {u"abc", "ab", false},     {u"abc", "abcd", false},
    {u"abc", "xbc", false},    {u"abc", "", false},
    {u"", "", true},           {u"", "a", false},
    {u"\xE4", "\xE4", true},   {u"\xE4", "\xC4", false},
    {u"a\0b"sv, "a", false},   {u"\0"sv, "", false},
    {u"b\xFF", "b\xFF", true}, {u"abc", nullText, false},
    {u"", nullText, false},    {u"\xFFE4", "\xE4", false},
    {u"\x0141", "A", false},
};

/// The current 16-bit string answers no to a null text both times.
TEST_P(Compare, zeroTerminatedText)
{
    for (auto const& row : textRows) {
        if (!image.fits(row.receiver))
            continue;
        SCOPED_TRACE(shown(row.receiver) + " and " + (row.text ? row.text : "null"));
        Laid const receiver(image, row.receiver);
        EXPECT_EQ(receiver->equals(row.text), row.equal);
        bool const isNoBothTimes = row.text == nullptr && image.unitSize == 2 && image.isCurrent;
        bool const differs = !row.equal && !isNoBothTimes;
        EXPECT_EQ(receiver->differs(row.text), differs);
    }
}

/// Only the low 16 bits of a text's length count.
TEST_P(Compare, textLengthsWrapAt65536)
{
    Laid const five(image, u"xxxxx");
    Laid const empty(image, u"");
    for (std::size_t const size : {65535U, 65536U, 65540U})
        EXPECT_FALSE(five->equals(std::string(size, 'x').c_str())) << size;
    EXPECT_TRUE(five->equals(std::string(65541, 'x').c_str()));
    EXPECT_FALSE(five->differs(std::string(65541, 'x').c_str()));
    // In 8 bits the first byte is compared, in 16 two empty texts are equal.
    EXPECT_EQ(empty->equals(std::string(65536, 'x').c_str()), image.unitSize == 2);
}

// Behind the shorter text nothing counts, not even where the longer one goes on like a terminator.
TEST_P(Compare, staleTextBehindTheShorterOneDoesNotCount)
{
    Laid shorter(image, u"ab");
    Laid const longer(image, u"ab\0a"sv);
    shorter.stale(3, u"z");
    EXPECT_TRUE(shorter->isLess(longer));
    EXPECT_FALSE(shorter->isGreater(longer));
    EXPECT_TRUE(longer->isGreater(shorter));
    EXPECT_FALSE(longer->isLess(shorter));
    EXPECT_EQ(shorter->compareSameCase(longer), 0);
    EXPECT_LT(shorter->compare(longer), 0);
}

class CompareBytes : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, CompareBytes, testing::ValuesIn(bytePairImages()), imageName);

TEST_P(CompareBytes, everyPairOfBytes)
{
    Laid left(image, u"?");
    Laid right(image, u"?");
    for (Unit a = 0; a < 256; ++a) {
        left.stale(0, {&a, 1});
        for (Unit b = 0; b < 256; ++b) {
            right.stale(0, {&b, 1});
            AnyString const& l = *left;
            AnyString const& r = *right;
            void const* const text = r.textAt();
            bool const equal = a == b;
            bool const folded = upperOf(a) == upperOf(b);
            bool const fine =
                l.equals(r) == equal && l.differs(r) != equal && l.isEqualSameCase(r) == equal &&
                l.isEqualSameCase(text, 1) == equal && l.isEqual(r) == folded &&
                l.isEqual(text, 1) == folded && l.isEqualUpperCaseInput(r) == (upperOf(a) == b) &&
                l.isEqualLowerCaseInput(r) == (lowerOf(a) == b) &&
                signOf(l.compare(r)) == signOf(upperOf(a) - upperOf(b)) &&
                signOf(l.compareSameCase(r)) == signOf(a - b) && l.isLess(r) == (a < b) &&
                l.isGreater(r) == (a > b);
            ASSERT_TRUE(fine) << "bytes " << +a << " and " << +b;
        }
    }
}

} // namespace
} // namespace strings
