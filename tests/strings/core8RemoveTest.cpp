// remove(start, count) of the 8-bit string: the cut inside its contract, and what it delivers for a
// range that leaves the text.

#include "tests/strings/core8Rows.h"

#include <climits>

namespace {

using namespace guarded;

template <typename S>
class Core8Remove : public testing::Test
{
protected:
    Guarded<S> string;
};
TYPED_TEST_SUITE(Core8Remove, MainStrings8, CapacityName);

/// Starts a full-length expectation with `text`; `fill` stands in all bytes up to the capacity.
template <typename S>
std::string filled(std::string text, char fill)
{
    text.resize(ImageOf<S>::capacity, fill);
    return text;
}

TYPED_TEST(Core8Remove, CutsARangeOfTheText)
{
    struct Row
    {
        std::string_view text;
        int start;
        int count;
        std::string_view left;
        /// The text area's start afterwards: behind the new terminator the old bytes stand.
        std::string_view area;
    };
    for (Row const& row :
         {Row{"abcd", 1, 2, "ad", {"ad\0d\0", 5}}, Row{"abcd", 0, 1, "bcd", {"bcd\0\0", 5}},
          Row{"abcd", 0, 3, "d", {"d\0cd\0", 5}}, Row{"abcd", 2, 1, "abd", {"abd\0\0", 5}},
          Row{"abcd", 2, 2, "ab", {"ab\0d\0", 5}}, Row{"abcd", 3, 1, "abc", {"abc\0\0", 5}},
          Row{"abcd", 1, 3, "a", {"a\0cd\0", 5}}, Row{"abcd", 0, 0, "abcd", {"abcd\0", 5}},
          Row{"abcd", 2, 0, "abcd", {"abcd\0", 5}}, Row{"abcd", 4, 0, "abcd", {"abcd\0", 5}},
          Row{"-abort", 0, 1, "abort", {"abort\0\0", 7}},
          Row{{"a\0\xFF\0b", 5}, 1, 2, {"a\0b", 3}, {"a\0b\0b\0", 6}},
          Row{{"\0b", 2}, 0, 1, "b", {"b\0\0", 3}}}) {
        SCOPED_TRACE(testing::Message()
                     << row.text << " start " << row.start << " count " << row.count);
        this->string.lay(row.text, 0x33);
        this->string->remove(row.start, row.count);
        EXPECT_TRUE(holds(*this->string, row.left));
        EXPECT_EQ(this->string.bytes(),
                  imageBytes<TypeParam>(row.left.size(), row.area, 0x33, 0x33));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Remove, CutsAFullString)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    int const full = static_cast<int>(capacity);
    std::string const text = letters(capacity);
    struct Row
    {
        int start;
        int count;
    };
    for (Row const& row :
         {Row{0, 1}, Row{1, 1}, Row{full - 1, 1}, Row{1, full - 2}, Row{1, full - 1},
          Row{full / 2, full / 2}, Row{full, 0}, Row{0, 0}, Row{0, full - 1}}) {
        SCOPED_TRACE(testing::Message() << "start " << row.start << " count " << row.count);
        this->string.lay(text);
        this->string->remove(row.start, row.count);
        std::string expected = text;
        expected.erase(static_cast<std::size_t>(row.start), static_cast<std::size_t>(row.count));
        EXPECT_TRUE(holds(*this->string, expected));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Remove, CutOfEverythingSetsTheLengthAndLeavesTheText)
{
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    for (std::string const& text : {std::string("-"), std::string("abcd"), letters(capacity)}) {
        SCOPED_TRACE(text);
        this->string.lay(text, 0x33);
        this->string->remove(0, static_cast<int>(text.size()));
        EXPECT_EQ(this->string.bytes(), imageBytes<TypeParam>(0, text + '\0', 0x33, 0x33));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Remove, LoneDashStaysReadableBehindALengthOfZero)
{
    this->string.lay("-");
    this->string->remove(0, 1);
    EXPECT_TRUE(this->string->isEmpty());
    EXPECT_STREQ(this->string->asChar(), "-");
}

TYPED_TEST(Core8Remove, NothingCutFromAnEmptyStringWritesNothing)
{
    this->string.lay("", 0x33).layText(0, 'x');
    this->string->remove(0, 0);
    EXPECT_EQ(this->string.bytes(), imageBytes<TypeParam>(0, "x", 0x33, 0x33));
}

TYPED_TEST(Core8Remove, CountAboveTheLengthGivesAFullStringFromBehindTheRange)
{
    // "abc", its terminator, then 0x33 in the text and 0x44 in the pad: the object's own bytes are
    // delivered as far as it goes, zeros behind it, and never the 0xA5 that stands around it.
    std::size_t const capacity = ImageOf<TypeParam>::capacity;
    struct Row
    {
        int start;
        int count;
    };
    for (Row const& row : {Row{0, 4}, Row{1, 4}, Row{2, 4}, Row{3, 4}, Row{0, 5}, Row{1, 5},
                           Row{2, static_cast<int>(capacity)}, Row{0, static_cast<int>(capacity)},
                           Row{1, static_cast<int>(capacity) + 1}}) {
        SCOPED_TRACE(testing::Message() << "start " << row.start << " count " << row.count);
        std::string object = std::string("abc\0", 4) + std::string(capacity + 1 - 4, '\x33') +
                             std::string(ImageOf<TypeParam>::spareSize, '\x44');
        object.resize(3 * capacity, '\0');
        std::string const expected =
            cut<TypeParam>(object.substr(0, static_cast<std::size_t>(row.start)) +
                           object.substr(static_cast<std::size_t>(row.start + row.count)));

        this->string.lay("abc", 0x33);
        if (ImageOf<TypeParam>::spareSize != 0) {
            this->string.layText(capacity + 1, 0x44);
        }
        this->string->remove(row.start, row.count);
        EXPECT_EQ(this->string.bytes(), imageBytes<TypeParam>(capacity, expected + '\0', 0, 0x44));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Remove, CountFarBeyondTheObjectGivesZeros)
{
    for (int const count : {70000, INT_MAX, INT_MIN}) {
        SCOPED_TRACE(count);
        this->string.lay("abc", 0x33);
        this->string->remove(1, count);
        EXPECT_TRUE(holds(*this->string, filled<TypeParam>("a", '\0')));
        EXPECT_TRUE(this->string.guardsStand());
    }
}

TYPED_TEST(Core8Remove, NegativeStartTakesTheWholeTextAreaAsItStands)
{
    this->string.lay("abc", 0x33);
    this->string->remove(-1, 1);
    EXPECT_TRUE(holds(*this->string, filled<TypeParam>(std::string("abc\0", 4), '\x33')));
    EXPECT_TRUE(this->string.guardsStand());
}

TYPED_TEST(Core8Remove, NegativeCountTakesTheRestFromBeforeTheStart)
{
    this->string.lay("abc", 0x33);
    this->string->remove(1, -1);
    EXPECT_TRUE(holds(*this->string, "aabc"));
    EXPECT_TRUE(this->string.guardsStand());
}

TEST(Core8RemoveCases, CountAboveTheLengthInASix)
{
    Guarded<_qvString8_allSize<6>> string;
    string.lay("abc", 0x33).layText(7, 0x44);
    string->remove(1, 4);
    EXPECT_EQ(string.bytes(), (Bytes{6, 0, 'a', 0x33, 0x33, 0x44, 0, 0, 0, 0x44}));
}

TEST(Core8RemoveCases, CountAboveTheLengthInASeven)
{
    Guarded<_qvString8_allSize<7>> string;
    string.lay("abc", 0x33);
    string->remove(1, 4);
    EXPECT_EQ(string.bytes(), (Bytes{7, 0, 'a', 0x33, 0x33, 0x33, 0, 0, 0, 0}));
}

} // namespace
