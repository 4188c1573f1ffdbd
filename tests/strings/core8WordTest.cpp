// isEqual and startsWith of the 8-bit string: the two comparisons that read a command word.

#include "tests/strings/core8Rows.h"

namespace {

using namespace guarded;

template <typename S>
class Core8Word : public testing::Test
{
protected:
    Guarded<S> string;
    Guarded<S> other;
};
TYPED_TEST_SUITE(Core8Word, MainStrings8, ImageName);

TYPED_TEST(Core8Word, IsEqualFoldsAsciiLettersOnly)
{
    struct Row
    {
        std::string_view left;
        std::string_view right;
        bool equal;
    };
    for (Row const& row :
         {Row{"Hello", "hELLO", true}, Row{"abort", "ABORT", true}, Row{"abort", "abort", true},
          Row{"abort", "abor", false}, Row{"abor", "abort", false}, Row{"abort", "aborT ", false},
          Row{"", "", true}, Row{"", "a", false}, Row{"a", "", false}, Row{"abcx", "abcy", false},
          Row{"xabc", "yabc", false}, Row{"@[`{", "@[`{", true}, Row{"@", "`", false},
          Row{"[", "{", false}, Row{"\xC4", "\xE4", false}, Row{"\xE4", "\xE4", true},
          Row{{"a\0B", 3}, {"A\0b", 3}, true}, Row{{"a\0b", 3}, {"a\0c", 3}, false},
          Row{{"a\0", 2}, "a", false}}) {
        SCOPED_TRACE(testing::Message() << row.left << " and " << row.right);
        // What stands behind the terminators differs everywhere.
        this->string.lay(row.left, 'l');
        this->other.lay(row.right, 'r');
        Bytes const left = this->string.bytes();
        Bytes const right = this->other.bytes();
        TypeParam const& receiver = *this->string;
        TypeParam const& argument = *this->other;
        EXPECT_EQ(receiver.isEqual(argument), row.equal);
        EXPECT_EQ(argument.isEqual(receiver), row.equal);
        EXPECT_EQ(this->string.bytes(), left);
        EXPECT_EQ(this->other.bytes(), right);
    }
}

TYPED_TEST(Core8Word, EmptyStringsAreEqualWhateverTheirStaleFirstByte)
{
    this->string.lay("", 'x').layText(0, 'x');
    this->other.lay("", 'y').layText(0, 'y');
    EXPECT_TRUE(this->string->isEqual(*this->other));
}

TYPED_TEST(Core8Word, IsEqualComparesUpToTheLastCharacterOfAFullString)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    std::string upper = letters(capacity);
    for (char& letter : upper) {
        letter = static_cast<char>(letter - 'a' + 'A');
    }
    this->string.lay(letters(capacity));
    this->other.lay(upper);
    EXPECT_TRUE(this->string->isEqual(*this->other));
    for (std::size_t const at :
         {std::size_t{0}, std::size_t{1}, capacity / 2, capacity - 2, capacity - 1}) {
        this->other.lay(upper).layText(at, '#');
        EXPECT_FALSE(this->string->isEqual(*this->other)) << at;
    }
}

TYPED_TEST(Core8Word, StartsWithFoldsBothSides)
{
    struct Row
    {
        std::string_view text;
        char const* start;
        bool starts;
    };
    for (Row const& row :
         {Row{"abort", "ab", true}, Row{"abort", "AB", true}, Row{"ABort", "abORT", true},
          Row{"abort", "a", true}, Row{"abort", "b", false}, Row{"abort", "abx", false},
          Row{"abort", "aborts", false}, Row{"abort", "", false}, Row{"", "", false},
          Row{"", "a", false}, Row{"-abort", "-", true}, Row{"-", "-", true}, Row{"-", "--", false},
          Row{"\xE4z", "\xE4Z", true}, Row{"\xE4z", "\xC4z", false}, Row{{"a\0b", 3}, "A", true},
          Row{{"a\0b", 3}, "ab", false}, Row{{"\0b", 2}, "b", false}}) {
        SCOPED_TRACE(testing::Message() << row.text << " and " << row.start);
        this->string.lay(row.text, 'x');
        TypeParam const& receiver = *this->string;
        Bytes const before = this->string.bytes();
        EXPECT_EQ(receiver.startsWith(row.start), row.starts);
        EXPECT_EQ(this->string.bytes(), before);
    }
}

TYPED_TEST(Core8Word, StartsWithNullIsFalse)
{
    this->string.lay("abc");
    EXPECT_FALSE(this->string->startsWith(static_cast<char const*>(nullptr)));
    this->string.lay("");
    EXPECT_FALSE(this->string->startsWith(static_cast<char const*>(nullptr)));
}

TYPED_TEST(Core8Word, StaleTextIsNoPartOfTheReceiver)
{
    this->string.lay("", 'x').layText(0, 'a').layText(1, 0);
    EXPECT_FALSE(this->string->startsWith("a"));
    this->string.lay("a", 'x').layText(1, 'b').layText(2, 0);
    EXPECT_FALSE(this->string->startsWith("ab"));
    EXPECT_TRUE(this->string->startsWith("a"));
}

TYPED_TEST(Core8Word, StartIsCutAtTheCapacity)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    std::string const longer = letters(capacity + 2);
    this->string.lay(letters(capacity));
    EXPECT_TRUE(this->string->startsWith(longer.c_str()));
    this->string.lay(letters(capacity - 1));
    EXPECT_FALSE(this->string->startsWith(longer.c_str()));
    this->string.lay(letters(capacity)).layText(capacity - 1, '#');
    EXPECT_FALSE(this->string->startsWith(longer.c_str()));
}

TYPED_TEST(Core8Word, StartIsMeasuredIn16Bits)
{
    this->string.lay("abcde");
    EXPECT_FALSE(this->string->startsWith(letters(65536).c_str()));
    EXPECT_TRUE(this->string->startsWith(letters(65541).c_str()));
    EXPECT_FALSE(this->string->startsWith(letters(65542).c_str()));
    this->string.lay("abcdX");
    EXPECT_FALSE(this->string->startsWith(letters(65541).c_str()));
    EXPECT_TRUE(this->string->startsWith(letters(65540).c_str()));
}

/// Upper case of the default locale, where only the 26 ASCII letters have one.
constexpr int upperOf(int byte)
{
    return byte >= 'a' && byte <= 'z' ? byte - 32 : byte;
}

TEST(Core8WordCases, AllPairsOfBytesAreEqualExactlyWhenTheirUpperCaseIs)
{
    Guarded<_qvString8_allSize<14>> left;
    Guarded<_qvString8_allSize<14>> right;
    int equalPairs = 0;
    for (int a = 0; a < 256; ++a) {
        for (int b = 0; b < 256; ++b) {
            // In the last place, so that no special case of a first byte hides it.
            left.lay("word_").layText(4, static_cast<unsigned char>(a));
            right.lay("WORD_").layText(4, static_cast<unsigned char>(b));
            bool const equal = left->isEqual(*right);
            ASSERT_EQ(equal, upperOf(a) == upperOf(b)) << a << " and " << b;
            equalPairs += equal ? 1 : 0;
        }
    }
    // 256 bytes equal themselves, and 26 letters have a partner in either direction.
    EXPECT_EQ(equalPairs, 308);
}

TEST(Core8WordCases, AllPairsOfBytesStartExactlyWhenTheirUpperCaseIsEqual)
{
    Guarded<_qvString8_allSize<7>> string;
    for (int a = 0; a < 256; ++a) {
        for (int b = 1; b < 256; ++b) {
            string.lay("_rest").layText(0, static_cast<unsigned char>(a));
            char const start[] = {static_cast<char>(b), '\0'};
            ASSERT_EQ(string->startsWith(start), upperOf(a) == upperOf(b)) << a << " and " << b;
        }
    }
}

} // namespace
