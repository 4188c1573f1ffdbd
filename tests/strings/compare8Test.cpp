/// Equality and order of the 8-bit strings, on the current image and on both older ones.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images8;
using namespace std::string_view_literals;

template <typename S>
class Compare8 : public testing::Test
{};
TYPED_TEST_SUITE(Compare8, AllImages, ImageName);

struct PairRow
{
    std::string_view left;
    std::string_view right;
    bool equal;
    bool equalFolded;
    int foldedOrder; ///< sign of compare
    int exactOrder;  ///< sign of compareSameCase, which knows no tie-break by length
    bool less;
    bool greater;
};

constexpr PairRow pairRows[] = {
    {"", "", true, true, 0, 0, false, false},
    {"abc", "abc", true, true, 0, 0, false, false},
    {"Hello", "hELLO", false, true, 0, -1, true, false},
    {"hELLO", "Hello", false, true, 0, 1, false, true},
    {"abc", "abcd", false, false, -1, 0, true, false},
    {"abcd", "abc", false, false, 1, 0, false, true},
    {"abc", "ABCD", false, false, -1, 1, false, true},
    {"ABCD", "abc", false, false, 1, -1, true, false},
    {"abc", "abd", false, false, -1, -1, true, false},
    {"abd", "abc", false, false, 1, 1, false, true},
    {"b", "abc", false, false, 1, 1, false, true},
    {"abc", "b", false, false, -1, -1, true, false},
    {"", "a", false, false, -1, 0, true, false},
    {"a", "", false, false, 1, 0, false, true},
    // Between the two alphabets lie characters that are above one and below the other.
    {"a", "_", false, false, -1, 1, false, true},
    {"_", "a", false, false, 1, -1, true, false},
    // What stands beside the letters is no letter.
    {"[", "{", false, false, -1, -1, true, false},
    {"@", "`", false, false, -1, -1, true, false},
    // Bytes order as unsigned values, and those above 0x7F have no case.
    {"\x80", "z", false, false, 1, 1, false, true},
    {"z", "\xFF", false, false, -1, -1, true, false},
    {"\xE4", "\xC4", false, false, 1, 1, false, true},
    {"ab\xFF", "AB\xFF", false, true, 0, 1, false, true},
    // A zero inside is a character like any other.
    {"a\0b"sv, "a\0b"sv, true, true, 0, 0, false, false},
    {"a\0b"sv, "a\0c"sv, false, false, -1, -1, true, false},
    {"a\0b"sv, "A\0B"sv, false, true, 0, 1, false, true},
    {"a\0"sv, "a"sv, false, false, 1, 0, false, true},
    {"\0"sv, ""sv, false, false, 1, 0, false, true},
};

TYPED_TEST(Compare8, pairsOfStrings)
{
    for (auto const& row : pairRows) {
        SCOPED_TRACE(std::string(row.left) + " against " + std::string(row.right));
        Laid<TypeParam> laidLeft(row.left);
        Laid<TypeParam> laidRight(row.right, 0x11);
        TypeParam const& left = *laidLeft;
        TypeParam const& right = *laidRight;
        auto const bytesLeft = laidLeft.bytes();
        auto const bytesRight = laidRight.bytes();

        EXPECT_EQ(left == right, row.equal);
        EXPECT_EQ(left != right, !row.equal);
        EXPECT_EQ(left.isEqualSameCase(right), row.equal);
        EXPECT_EQ(left.isEqual(right), row.equalFolded);
        EXPECT_EQ(signOf(left.compare(right)), row.foldedOrder);
        EXPECT_EQ(signOf(left.compareSameCase(right)), row.exactOrder);
        EXPECT_EQ(left < right, row.less);
        EXPECT_EQ(left > right, row.greater);

        auto const length = static_cast<int>(row.right.size());
        auto const bytes = unterminated(row.right);
        EXPECT_EQ(left.isEqualSameCase(bytes.data(), length), row.equal);
        EXPECT_EQ(left.isEqual(bytes.data(), length), row.equalFolded);

        EXPECT_EQ(laidLeft.bytes(), bytesLeft);
        EXPECT_EQ(laidRight.bytes(), bytesRight);
    }
}

TYPED_TEST(Compare8, equalPrefixesOrderByExactlyOne)
{
    auto const shorter = stringOf<TypeParam>("aBc");
    auto const longer = stringOf<TypeParam>("AbCd");
    EXPECT_EQ(shorter.compare(longer), -1);
    EXPECT_EQ(longer.compare(shorter), 1);
    EXPECT_EQ(shorter.compare(stringOf<TypeParam>("ABC")), 0);
    EXPECT_EQ(stringOf<TypeParam>("").compare(shorter), -1);
    EXPECT_EQ(shorter.compare(stringOf<TypeParam>("")), 1);
}

TYPED_TEST(Compare8, fullStringsAreComparedToTheLastCharacter)
{
    auto const text = guarded::letters(capacity<TypeParam>);
    auto other = text;
    other.back() = '~';
    Laid<TypeParam> full(text);
    auto const same = stringOf<TypeParam>(text);
    auto const upper = stringOf<TypeParam>(upperOf(text));
    auto const different = stringOf<TypeParam>(other);

    EXPECT_TRUE(*full == same);
    EXPECT_FALSE(*full == upper);
    EXPECT_TRUE(full->isEqual(upper));
    EXPECT_TRUE(full->isEqualUpperCaseInput(upper));
    EXPECT_EQ(full->compare(upper), 0);
    EXPECT_FALSE(*full == different);
    EXPECT_FALSE(full->isEqual(different));
    EXPECT_TRUE(*full < different);
    EXPECT_TRUE(different > *full);
    EXPECT_TRUE(*full == text.c_str());
    EXPECT_TRUE(full->isEqual(upperOf(text).c_str(), intCapacity<TypeParam>));
}

/// However long the text: what stands behind the first difference, the other way round, is not
/// asked.
TYPED_TEST(Compare8, theFirstDifferenceDecides)
{
    std::string const text(std::min<std::size_t>(capacity<TypeParam>, 67), 'm');
    for (std::size_t at = 0; at < text.size(); ++at) {
        SCOPED_TRACE(at);
        auto const smaller = text.substr(0, at) + 'C' + std::string(text.size() - at - 1, 'Z');
        auto const greater = text.substr(0, at) + 'D' + std::string(text.size() - at - 1, 'Y');
        Laid<TypeParam> left(smaller);
        Laid<TypeParam> right(greater);
        EXPECT_LT(left->compareSameCase(*right), 0);
        EXPECT_GT(right->compareSameCase(*left), 0);
        EXPECT_TRUE(*left < *right);
        EXPECT_FALSE(*right < *left);
        EXPECT_TRUE(*right > *left);
        EXPECT_FALSE(*left > *right);
        auto const upper = stringOf<TypeParam>(upperOf(greater));
        EXPECT_LT(left->compare(upper), 0);
        EXPECT_GT(upper.compare(*left), 0);
    }
}

TYPED_TEST(Compare8, aStringEqualsItself)
{
    Laid<TypeParam> laid("aB\xE4");
    TypeParam const& self = *laid;
    EXPECT_TRUE(self == laid.object());
    EXPECT_FALSE(self != laid.object());
    EXPECT_TRUE(self.isEqual(self));
    EXPECT_TRUE(self.isEqual(textAt(self), 3));
    EXPECT_TRUE(self.isEqualSameCase(self));
    EXPECT_TRUE(self == textAt(self));
    EXPECT_EQ(self.compare(self), 0);
    EXPECT_EQ(self.compareSameCase(self), 0);
    EXPECT_FALSE(self < laid.object());
    EXPECT_FALSE(self > laid.object());
}

/// The first byte is compared before the lengths are, also where it belongs to no text any more.
TYPED_TEST(Compare8, emptyStringsDifferByAStaleFirstByte)
{
    Laid<TypeParam> clean("");
    Laid<TypeParam> staleX("");
    Laid<TypeParam> alsoX("");
    staleX.stale(0, "xy");
    alsoX.stale(0, "xz");

    EXPECT_FALSE(*clean == *staleX);
    EXPECT_TRUE(*clean != *staleX);
    EXPECT_FALSE(clean->isEqualSameCase(*staleX));
    EXPECT_TRUE(*staleX == *alsoX);
    EXPECT_FALSE(*staleX != *alsoX);
    EXPECT_TRUE(staleX->isEqualSameCase(*alsoX));

    EXPECT_TRUE(clean->isEqual(*staleX));
    EXPECT_TRUE(staleX->isEqual(*clean));
    EXPECT_EQ(clean->compare(*staleX), 0);
    EXPECT_EQ(clean->compareSameCase(*staleX), 0);
    EXPECT_FALSE(*clean < *staleX);
    EXPECT_FALSE(*clean > *staleX);
}

/// A length of 0 has nothing to fold, so the stale first byte stays as it is in the folded copy.
TYPED_TEST(Compare8, foldedCopiesKeepAStaleFirstByte)
{
    Laid<TypeParam> lower("");
    Laid<TypeParam> alsoLower("");
    Laid<TypeParam> upper("");
    lower.stale(0, "a");
    alsoLower.stale(0, "a");
    upper.stale(0, "A");

    EXPECT_TRUE(lower->isEqualUpperCaseInput(*alsoLower));
    EXPECT_FALSE(lower->isEqualUpperCaseInput(*upper));
    EXPECT_TRUE(upper->isEqualLowerCaseInput(*upper));
    EXPECT_FALSE(upper->isEqualLowerCaseInput(*lower));
    EXPECT_FALSE(lower->isEqualUpperCaseInput(*Laid<TypeParam>("")));
    EXPECT_TRUE(Laid<TypeParam>("")->isEqualUpperCaseInput(*Laid<TypeParam>("")));
    EXPECT_TRUE(Laid<TypeParam>("")->isEqualLowerCaseInput(*Laid<TypeParam>("")));
}

struct FoldedInputRow
{
    std::string_view receiver;
    std::string_view input;
    bool equalUpper;
    bool equalLower;
};

constexpr FoldedInputRow foldedInputRows[] = {
    {"Hello", "HELLO", true, false},   {"Hello", "hello", false, true},
    {"Hello", "Hello", false, false},  {"12-_", "12-_", true, true},
    {"abc", "ABCD", false, false},     {"abcd", "ABC", false, false},
    {"\xE4", "\xE4", true, true},      {"\xE4", "\xC4", false, false},
    {"a\0b"sv, "A\0B"sv, true, false}, {"A\0B"sv, "a\0b"sv, false, true},
    {"a", "", false, false},           {"", "A", false, false},
};

/// The argument is promised to be folded and is not folded again.
TYPED_TEST(Compare8, foldedInputIsTakenAsItStands)
{
    for (auto const& row : foldedInputRows) {
        SCOPED_TRACE(std::string(row.receiver) + " against " + std::string(row.input));
        Laid<TypeParam> receiver(row.receiver);
        Laid<TypeParam> input(row.input);
        auto const before = receiver.bytes();
        EXPECT_EQ(receiver->isEqualUpperCaseInput(*input), row.equalUpper);
        EXPECT_EQ(receiver->isEqualLowerCaseInput(*input), row.equalLower);
        EXPECT_EQ(receiver.bytes(), before);
    }
}

struct TextRow
{
    std::string_view receiver;
    char const* text;
    bool equal;
};

constexpr TextRow textRows[] = {
    {"abc", "abc", true},    {"abc", "abC", false},  {"abc", "ab", false},
    {"abc", "abcd", false},  {"abc", "xbc", false},  {"abc", "", false},
    {"", "", true},          {"", "a", false},       {"\xE4", "\xE4", true},
    {"\xE4", "\xC4", false}, {"a\0b"sv, "a", false}, {"\0"sv, "", false},
    {"abc", nullptr, false}, {"", nullptr, false},
};

TYPED_TEST(Compare8, zeroTerminatedText)
{
    for (auto const& row : textRows) {
        SCOPED_TRACE(std::string(row.receiver) + " against " + (row.text ? row.text : "null"));
        Laid<TypeParam> receiver(row.receiver);
        TypeParam const& string = *receiver;
        EXPECT_EQ(string == row.text, row.equal);
        EXPECT_EQ(string != row.text, !row.equal);
    }
    Laid<TypeParam> receiver("abc");
    EXPECT_TRUE(*receiver == "abc");
    EXPECT_TRUE(*receiver != "abd");
}

TYPED_TEST(Compare8, aStaleFirstByteDecidesAgainstTextToo)
{
    Laid<TypeParam> receiver("");
    receiver.stale(0, "x");
    EXPECT_FALSE(*receiver == "");
    EXPECT_TRUE(*receiver != "");
    EXPECT_FALSE(*receiver == "x");
}

/// Only the low 16 bits of a text's length count.
TYPED_TEST(Compare8, textLengthsWrapAt65536)
{
    Laid<TypeParam> five("xxxxx");
    Laid<TypeParam> empty("");
    Laid<TypeParam> staleX("");
    staleX.stale(0, "x");
    EXPECT_FALSE(*five == std::string(65535, 'x').c_str());
    EXPECT_FALSE(*five == std::string(65536, 'x').c_str());
    EXPECT_FALSE(*five == std::string(65540, 'x').c_str());
    EXPECT_TRUE(*five == std::string(65541, 'x').c_str());
    EXPECT_FALSE(*five != std::string(65541, 'x').c_str());
    EXPECT_FALSE(*empty == std::string(65536, 'x').c_str());
    EXPECT_TRUE(*staleX == std::string(65536, 'x').c_str());
}

TYPED_TEST(Compare8, countsThatAreNotTheLengthReadNothing)
{
    Laid<TypeParam> receiver("abc");
    for (int const count : {-1, 0, 1, 2, 4, 65535, 65536, 65539, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(count);
        EXPECT_FALSE(receiver->isEqual(nullText, count));
        EXPECT_FALSE(receiver->isEqualSameCase(nullText, count));
    }
}

TYPED_TEST(Compare8, noCharactersEqualNoCharacters)
{
    Laid<TypeParam> receiver("");
    receiver.stale(0, "x");
    EXPECT_TRUE(receiver->isEqual(nullText, 0));
    EXPECT_TRUE(receiver->isEqualSameCase(nullText, 0));
    EXPECT_FALSE(receiver->isEqual(nullText, -1));
    EXPECT_FALSE(receiver->isEqualSameCase(nullText, 65536));
}

// Behind the shorter text nothing counts, not even where the longer one goes on like a terminator.
TYPED_TEST(Compare8, staleTextBehindTheShorterOneDoesNotCount)
{
    Laid<TypeParam> shorter("ab");
    Laid<TypeParam> longer("ab\0a"sv);
    shorter.stale(3, "z");
    EXPECT_TRUE(*shorter < *longer);
    EXPECT_FALSE(*shorter > *longer);
    EXPECT_TRUE(*longer > *shorter);
    EXPECT_FALSE(*longer < *shorter);
    EXPECT_EQ(shorter->compareSameCase(*longer), 0);
    EXPECT_LT(shorter->compare(*longer), 0);
}

template <typename S>
class CompareBytes8 : public testing::Test
{};
TYPED_TEST_SUITE(CompareBytes8, BytePairImages, ImageName);

TYPED_TEST(CompareBytes8, everyPairOfBytes)
{
    Laid<TypeParam> left("?");
    Laid<TypeParam> right("?");
    for (int i = 0; i < 256; ++i) {
        for (int j = 0; j < 256; ++j) {
            auto const a = static_cast<unsigned char>(i);
            auto const b = static_cast<unsigned char>(j);
            left.layText(0, a);
            right.layText(0, b);
            TypeParam const& l = *left;
            TypeParam const& r = *right;
            char const text[] = {static_cast<char>(b)};
            bool const equal = i == j;
            bool const folded = upperOf(a) == upperOf(b);
            bool const fine =
                (l == r) == equal && (l != r) != equal && l.isEqualSameCase(r) == equal &&
                l.isEqualSameCase(text, 1) == equal && l.isEqual(r) == folded &&
                l.isEqual(text, 1) == folded && l.isEqualUpperCaseInput(r) == (upperOf(a) == b) &&
                l.isEqualLowerCaseInput(r) == (lowerOf(a) == b) &&
                signOf(l.compare(r)) == signOf(upperOf(a) - upperOf(b)) &&
                signOf(l.compareSameCase(r)) == signOf(i - j) && (l < r) == (i < j) &&
                (l > r) == (i > j);
            ASSERT_TRUE(fine) << "bytes " << i << " and " << j;
        }
    }
}

} // namespace
