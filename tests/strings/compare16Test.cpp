/// Equality and order of the 16-bit strings, the oddities that are kept among them.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace images16;
using namespace std::string_view_literals;

template <typename S>
class Compare16 : public testing::Test
{};
TYPED_TEST_SUITE(Compare16, MainImages, ImageName);

template <typename S>
class CompareCurrent16 : public testing::Test
{};
TYPED_TEST_SUITE(CompareCurrent16, CurrentImages, ImageName);

struct PairRow
{
    Text left;
    Text right;
    bool exact;
    bool folded;
};

constexpr PairRow pairRows[] = {
    {u"", u"", true, true},
    {u"a", u"a", true, true},
    {u"a", u"A", false, true},
    {u"Hello", u"hELLO", false, true},
    {u"abc", u"abd", false, false},
    {u"abc", u"ab", false, false},
    {u"ab", u"abc", false, false},
    {u"a", u"", false, false},
    {u"", u"a", false, false},
    {u"a\0b"sv, u"a\0b"sv, true, true},
    {u"a\0b"sv, u"a\0B"sv, false, true},
    {u"a\0b"sv, u"a\0c"sv, false, false},
    // Only ASCII letters fold; the neighbours of the ranges do not.
    {u"\xE4", u"\xC4", false, false},
    {u"\xFFE4", u"\xFFC4", false, false},
    {u"\xFFE4", u"\xE4", false, false},
    {u"\x0161", u"\x0141", false, false},
    {u"\x0101", u"\x0100", false, false},
    {u"\xFF61", u"\xFF41", false, false},
    {u"[", u"{", false, false},
    {u"@", u"`", false, false},
    // Units that agree in one of their bytes only.
    {u"\x0141", u"\x41", false, false},
    {u"\x4101", u"\x4102", false, false},
    {u"az\x0141q", u"AZ\x0141Q", false, true},
};

TYPED_TEST(Compare16, equalityOfTwoStrings)
{
    for (auto const& row : pairRows) {
        SCOPED_TRACE(shown(row.left) + " and " + shown(row.right));
        // Different bytes behind the texts and in the spare words have no say.
        Laid<TypeParam> leftLaid(row.left);
        Laid<TypeParam> rightLaid(row.right, 0x33);
        TypeParam const& left = *leftLaid;
        TypeParam const& right = *rightLaid;
        EXPECT_EQ(left == right, row.exact);
        EXPECT_EQ(left != right, !row.exact);
        EXPECT_EQ(left.isEqualSameCase(right), row.exact);
        EXPECT_EQ(left.isEqual(right), row.folded);
        EXPECT_TRUE(left == left && left.isEqual(left) && left.isEqualSameCase(left));
        EXPECT_TRUE(leftLaid.guardsStand() && rightLaid.guardsStand());
    }
}

TYPED_TEST(Compare16, equalityWithCountedUnits)
{
    for (auto const& row : pairRows) {
        SCOPED_TRACE(shown(row.left) + " and " + shown(row.right));
        Laid<TypeParam> laid(row.left);
        TypeParam const& left = *laid;
        auto const right = unterminated(row.right);
        auto const count = static_cast<int>(right.size());
        Unit const* const units = right.data();
        EXPECT_EQ(left.isEqualSameCase(units, count), row.exact);
        EXPECT_EQ(left.isEqual(units, count), row.folded);
        // The count is compared as it stands.
        for (int const other : {count + 1, count - 1, count + 65536, count - 65536, -1}) {
            if (other != guarded::lengthOf(left)) {
                EXPECT_FALSE(left.isEqualSameCase(units, other)) << other;
                EXPECT_FALSE(left.isEqual(units, other)) << other;
            }
        }
    }
    TypeParam const empty;
    EXPECT_TRUE(empty.isEqualSameCase(nullUnits, 0));
    EXPECT_TRUE(empty.isEqual(nullUnits, 0));
    EXPECT_TRUE(empty.isEqual(nullText, 0));
}

/// The first unit is compared before the lengths: a string that was emptied without its text does
/// not equal a clean one, except where case is ignored.
TYPED_TEST(Compare16, aStaleFirstUnitShows)
{
    Laid<TypeParam> laid(u"abc");
    *laid = nullUnits;
    TypeParam const& stale = *laid;
    TypeParam const clean;
    EXPECT_FALSE(stale == clean);
    EXPECT_TRUE(stale != clean);
    EXPECT_FALSE(stale.isEqualSameCase(clean));
    EXPECT_FALSE(clean.isEqualSameCase(stale));
    EXPECT_TRUE(stale.isEqual(clean));
    EXPECT_TRUE(stale == "");
    EXPECT_TRUE(stale == raw(u"").data());
    EXPECT_TRUE(stale.isEqualSameCase(nullUnits, 0));

    // Two empty strings with the same stale unit are equal. Only units in use are folded.
    Laid<TypeParam> other(u"a");
    *other = nullUnits;
    EXPECT_TRUE(stale == *other);
    EXPECT_TRUE(stale.isEqualUpperCaseInput(*other));
    EXPECT_TRUE(stale.isEqualLowerCaseInput(*other));
    EXPECT_FALSE(stale.isEqualUpperCaseInput(clean));
    EXPECT_FALSE(stale.isEqualLowerCaseInput(clean));
}

struct BytesRow
{
    Text units;
    char const* bytes;
    bool equal;
};

/// Bytes are zero-extended here; a sign-extended text of the same bytes does not equal them.
constexpr BytesRow bytesRows[] = {
    {u"", "", true},           {u"abc", "abc", true},     {u"abc", "abC", false},
    {u"abc", "ab", false},     {u"ab", "abc", false},     {u"", "a", false},
    {u"a", "", false},         {u"\xE4", "\xE4", true},   {u"\xFFE4", "\xE4", false},
    {u"\x0141", "A", false},   {u"b\xFF", "b\xFF", true}, {u"a\0"sv, "a", false},
    {u"abc", nullText, false}, {u"", nullText, false},
};

TYPED_TEST(Compare16, equalityWithBytes)
{
    for (auto const& row : bytesRows) {
        Laid<TypeParam> laid(row.units);
        TypeParam const& string = *laid;
        EXPECT_EQ(string == row.bytes, row.equal) << shown(row.units);
    }
    Laid<TypeParam> laid(u"abc");
    EXPECT_TRUE(*laid == guarded::letters(65539).c_str());
    EXPECT_TRUE(TypeParam() == guarded::letters(65536).c_str());
}

/// Both answers to a null text are no.
TYPED_TEST(CompareCurrent16, inequalityWithBytes)
{
    for (auto const& row : bytesRows) {
        Laid<TypeParam> laid(row.units);
        TypeParam const& string = *laid;
        EXPECT_EQ(string != row.bytes, row.bytes != nullptr && !row.equal) << shown(row.units);
    }
    Laid<TypeParam> laid(u"abc");
    EXPECT_FALSE(*laid != guarded::letters(65539).c_str());
}

/// Of a raw text only as many bytes as the string has units are compared, so its first half.
TYPED_TEST(Compare16, equalityWithRawUnitsLooksAtTheFirstHalf)
{
    struct Row
    {
        Text string;
        Text raw;
        bool equal;
    };
    constexpr Row rows[] = {
        {u"", u"", true},
        {u"abcdef", u"abcdef", true},
        {u"abcdef", u"abcXYZ", true},
        {u"abcdef", u"abXdef", false},
        {u"abcdef", u"Abcdef", false},
        {u"abcdef", u"abcde", false},
        {u"abcdef", u"abcdefg", false},
        // An odd length ends in the middle of a unit: its low byte counts, its high byte does not.
        {u"abcde", u"ab\x0163XY", true},
        {u"abcde", u"abXde", false},
        {u"abcde", u"a\x0162\x63XY", false},
        {u"a", u"\x0161", true},
        {u"a", u"b", false},
        {u"ab", u"aX", true},
        {u"ab", u"\x0161X", false},
        {u"", u"a", false},
        {u"a", u"", false},
        // The raw text ends at its first zero, the string at its length.
        {u"a\0"sv, u"a\0"sv, false},
        {u"a\0"sv, u"ab"sv, true},
    };
    for (auto const& row : rows) {
        Laid<TypeParam> laid(row.string);
        TypeParam const& string = *laid;
        EXPECT_EQ(string == raw(row.raw).data(), row.equal)
            << shown(row.string) << " and " << shown(row.raw);
    }
    Laid<TypeParam> laid(u"");
    EXPECT_FALSE(*laid == nullUnits);
}

// Behind the shorter text nothing counts, not even where the longer one goes on like a terminator.
TYPED_TEST(Compare16, staleTextBehindTheShorterOneDoesNotCount)
{
    Laid<TypeParam> shorter(u"ab"sv);
    Laid<TypeParam> longer(u"ab\0a"sv);
    shorter.stale(3, u"z");
    EXPECT_TRUE(*shorter < *longer);
    EXPECT_FALSE(*shorter > *longer);
    EXPECT_TRUE(*longer > *shorter);
    EXPECT_FALSE(*longer < *shorter);
    EXPECT_EQ(shorter->compareSameCase(*longer), 0);
    EXPECT_LT(shorter->compare(*longer), 0);
}

TEST(CompareLargest16, rawUnitsAreMeasuredUpTo1024)
{
    auto const text = letters(2000);
    Laid<_qvString<2500>> longer(text);
    EXPECT_FALSE(*longer == raw(text).data());
    Laid<_qvString<2500>> bounded(letters(1024));
    EXPECT_TRUE(*bounded == raw(text).data());
    Laid<_qvString_old<2500>> older(letters(1024));
    EXPECT_TRUE(*older == raw(text).data());
}

/// A byte from 0x80 up is negative and equals no unit, neither of the two that it widens to.
TYPED_TEST(Compare16, foldedEqualityWithCountedBytes)
{
    struct Row
    {
        Text units;
        std::string_view bytes;
        bool equal;
    };
    constexpr Row rows[] = {
        {u"", "", true},          {u"abc", "abc", true},
        {u"abc", "ABC", true},    {u"aBc", "AbC", true},
        {u"abc", "abd", false},   {u"a\0b"sv, "A\0B"sv, true},
        {u"\xE4", "\xE4", false}, {u"\xFFE4", "\xE4", false},
        {u"\x80", "\x80", false}, {u"\xFFFF", "\xFF", false},
        {u"\x0141", "A", false},  {u"\x0161", "a", false},
        {u"[", "{", false},       {u"\x7F", "\x7F", true},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(shown(row.units));
        Laid<TypeParam> laid(row.units);
        TypeParam const& string = *laid;
        auto const bytes = unterminated(row.bytes);
        auto const count = static_cast<int>(bytes.size());
        char const* const text = bytes.data();
        EXPECT_EQ(string.isEqual(text, count), row.equal);
        EXPECT_FALSE(string.isEqual(text, count + 1));
        EXPECT_FALSE(string.isEqual(text, count - 1));
        EXPECT_FALSE(string.isEqual(text, count + 65536));
    }
}

/// The receiver is folded, the argument is promised to be.
TYPED_TEST(Compare16, equalityWithFoldedInput)
{
    struct Row
    {
        Text receiver;
        Text argument;
        bool upper;
        bool lower;
    };
    constexpr Row rows[] = {
        {u"", u"", true, true},
        {u"abc", u"ABC", true, false},
        {u"aBc", u"ABC", true, false},
        {u"ABC", u"abc", false, true},
        {u"ABC", u"ABC", true, false},
        {u"abc", u"abc", false, true},
        {u"abc", u"aBC", false, false},
        {u"123", u"123", true, true},
        {u"abc", u"ABCD", false, false},
        {u"abc", u"AB", false, false},
        {u"\xE4\x0161", u"\xE4\x0161", true, true},
        {u"\xE4", u"\xC4", false, false},
        {u"a\0b"sv, u"A\0B"sv, true, false},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(shown(row.receiver) + " and " + shown(row.argument));
        Laid<TypeParam> receiver(row.receiver);
        Laid<TypeParam> argument(row.argument, 0x33);
        auto const before = receiver.bytes();
        TypeParam const& string = *receiver;
        EXPECT_EQ(string.isEqualUpperCaseInput(*argument), row.upper);
        EXPECT_EQ(string.isEqualLowerCaseInput(*argument), row.lower);
        EXPECT_EQ(receiver.bytes(), before);
    }
}

struct OrderRow
{
    Text left;
    Text right;
    int compare;
    int sameCase;
    int order; ///< -1 less, 0 neither, 1 greater
};

/// Stored bytes decide, low byte first, so 0x0141 stands before 0x0042.
constexpr OrderRow orderRows[] = {
    {u"", u"", 0, 0, 0},
    {u"abc", u"abc", 0, 0, 0},
    // A text and its prefix: the exact comparison has no tie-break.
    {u"abc", u"abcd", -1, 0, -1},
    {u"abcd", u"abc", 1, 0, 1},
    {u"", u"a", -1, 0, -1},
    {u"a", u"", 1, 0, 1},
    {u"abc", u"abd", -1, -1, -1},
    {u"b", u"abc", 1, 1, 1},
    {u"Hello", u"hELLO", 0, -1, -1},
    {u"hello", u"HELLO", 0, 1, 1},
    {u"a", u"B", -1, 1, 1},
    {u"B", u"a", 1, -1, -1},
    // Folded up, the underscore stands behind all letters.
    {u"_", u"a", 1, -1, -1},
    {u"\x0141", u"\x42", -1, -1, -1},
    {u"\x42", u"\x0141", 1, 1, 1},
    {u"\x0141", u"\x41", 1, 1, 1},
    {u"\x0100", u"\x01", -1, -1, -1},
    {u"\xFFE4", u"\xE4", 1, 1, 1},
    {u"\xFF01", u"\x02", -1, -1, -1},
    {u"\xE4", u"z", 1, 1, 1},
    {u"a\0b"sv, u"a\0c"sv, -1, -1, -1},
    {u"a\0"sv, u"a"sv, 1, 0, 1},
    {u"ABx", u"abX", 0, -1, -1},
};

TYPED_TEST(Compare16, order)
{
    for (auto const& row : orderRows) {
        SCOPED_TRACE(shown(row.left) + " and " + shown(row.right));
        Laid<TypeParam> leftLaid(row.left);
        Laid<TypeParam> rightLaid(row.right, 0x33);
        auto const before = leftLaid.bytes();
        TypeParam const& left = *leftLaid;
        TypeParam const& right = *rightLaid;
        EXPECT_EQ(signOf(left.compare(right)), row.compare);
        EXPECT_EQ(signOf(right.compare(left)), -row.compare);
        EXPECT_EQ(signOf(left.compareSameCase(right)), row.sameCase);
        EXPECT_EQ(signOf(right.compareSameCase(left)), -row.sameCase);
        EXPECT_EQ(left < right, row.order < 0);
        EXPECT_EQ(left > right, row.order > 0);
        EXPECT_EQ(right<left, row.order> 0);
        EXPECT_EQ(right > left, row.order < 0);
        EXPECT_EQ(leftLaid.bytes(), before);
    }
}

/// Where only the lengths differ the answer is exactly one.
TYPED_TEST(Compare16, theTieBreakIsExact)
{
    auto const shorter = stringOf<TypeParam>(u"abc");
    auto const longer = stringOf<TypeParam>(u"ABCdefg");
    EXPECT_EQ(shorter.compare(longer), -1);
    EXPECT_EQ(longer.compare(shorter), 1);
    EXPECT_EQ(shorter.compare(shorter), 0);
}

TYPED_TEST(Compare16, fullTextsThatDifferInTheirLastUnit)
{
    auto const text = letters(capacity<TypeParam> - 1);
    auto const lower = stringOf<TypeParam>(text + u'x');
    auto const upper = stringOf<TypeParam>(upperOf(text + u'x'));
    auto const other = stringOf<TypeParam>(text + u'y');
    EXPECT_TRUE(lower.isEqual(upper));
    EXPECT_FALSE(lower == upper);
    EXPECT_EQ(lower.compare(upper), 0);
    EXPECT_TRUE(lower.isEqualUpperCaseInput(upper));
    EXPECT_TRUE(upper.isEqualLowerCaseInput(lower));
    EXPECT_FALSE(lower.isEqual(other));
    EXPECT_FALSE(lower == other);
    EXPECT_FALSE(lower.isEqualSameCase(other));
    EXPECT_TRUE(lower < other && other > lower);
    EXPECT_LT(lower.compare(other), 0);
    EXPECT_GT(other.compareSameCase(lower), 0);
    EXPECT_EQ(lower == raw(text + u'y').data(), capacity<TypeParam> <= 1024);
}

} // namespace
