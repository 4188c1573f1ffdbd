/// Length upkeep of all strings, clearing, and the string of one repeated unit.

#include "tests/strings/laid.h"

#include <climits>

namespace strings {
namespace {

using namespace std::string_view_literals;

class State : public OverImages
{};
INSTANTIATE_TEST_SUITE_P(, State, testing::ValuesIn(allImages()), imageName);

TEST_P(State, clearKeepsTheSpareBytes)
{
    for (Text const text : {u"abc"sv, u""sv}) {
        Laid string(image, text);
        string.laySpare(0x44);
        string->clear();
        EXPECT_EQ(string.bytes(), imageOf(image, 0, u"", 0, 0x44));
        EXPECT_TRUE(string.guardsStand());
    }
}

TEST_P(State, clearUnusedClearsFromTheLengthToTheEndOfTheText)
{
    std::size_t const n = image.capacity;
    for (std::size_t const length : {std::size_t{0}, std::size_t{1}, std::size_t{3}, n - 1, n}) {
        SCOPED_TRACE(length);
        Laid string(image, letters(length));
        string.laySpare(0x44).stale(length, u"T");
        string->clearUnused();
        EXPECT_EQ(string.bytes(), imageOf(image, length, letters(length), 0, 0x44));
        EXPECT_TRUE(string.guardsStand());
    }
}

TEST_P(State, clearUnusedTrustsTheLengthOverAZeroInside)
{
    Laid string(image, u"\xFF\0\x80z\0"sv);
    string->clearUnused();
    EXPECT_EQ(string.bytes(), imageOf(image, 5, u"\xFF\0\x80z\0"sv, 0, staleByte));
}

/// A text that was written straight into the units ends at its first zero.
TEST_P(State, calcLengthFindsTheFirstZero)
{
    std::size_t const n = image.capacity;
    for (std::size_t const zeroAt : {std::size_t{0}, std::size_t{1}, std::size_t{4}, n - 1}) {
        for (std::size_t const oldLength :
             {std::size_t{0}, std::size_t{2}, n, std::size_t{65535}}) {
            SCOPED_TRACE(std::to_string(zeroAt) + ", length " + std::to_string(oldLength));
            auto text = letters(n);
            text[zeroAt] = u'\0';
            Laid string(image, u"");
            string.stale(0, text + u'z').layLength(oldLength);
            string->calcLength();
            EXPECT_TRUE(became(string, zeroAt, text + u'z'));
        }
    }
}

/// The unit at text[N] is no part of the search: it becomes the terminator whatever it was.
TEST_P(State, calcLengthWithoutAZeroIsTheCapacityAndEndsTheText)
{
    auto const text = letters(image.capacity);
    for (Unit const last : {u'\0', u'z'}) {
        Laid string(image, u"");
        string.stale(0, text + last);
        string->calcLength();
        EXPECT_TRUE(became(string, image.capacity, text + u'\0'));
    }
}

/// Compilers take several units at once and the rest apart: here of 0 to 3.
TEST(StateCases, calcLengthFindsAZeroAtEveryPlace)
{
    for (Image const* image : allImages()) {
        if (image->capacity > 48)
            continue;
        for (std::size_t zeroAt = 0; zeroAt <= image->capacity; ++zeroAt) {
            Laid string(*image, u"");
            std::u16string const text(zeroAt, u'x');
            string.stale(0, std::u16string(image->capacity + 1, u'x')).stale(zeroAt, u"\0"sv);
            string->calcLength();
            EXPECT_TRUE(holds(*string, text)) << image->family << ' ' << image->capacity;
        }
    }
}

/// Only the terminator is written; a greater length shows whatever units are there.
TEST_P(State, setLengthKeepsTheValueBetweenZeroAndTheCapacity)
{
    int const n = image.intCapacity();
    struct Row
    {
        int given;
        int length;
    };
    for (auto const& row :
         {Row{-32768, 0}, Row{-5, 0}, Row{-1, 0}, Row{0, 0}, Row{1, 1}, Row{2, 2}, Row{3, 3},
          Row{4, 4}, Row{6, 6}, Row{n - 1, n - 1}, Row{n, n}, Row{n + 1, n}, Row{32767, n},
          // negative as a signed 16-bit value
          Row{40000, 0}}) {
        SCOPED_TRACE(row.given);
        auto text = letters(image.capacity) + u'z';
        Laid string(image, u"");
        string.stale(0, text);
        string->setLength(static_cast<short>(row.given));
        auto const length = static_cast<std::size_t>(row.length);
        text[length] = u'\0';
        EXPECT_TRUE(became(string, length, text));
    }
}

/// The length alone decides, not the first unit.
TEST_P(State, emptyAndDataLookAtTheLengthAlone)
{
    Laid string(image, u"");
    string.stale(0, u"x");
    EXPECT_TRUE(string->isEmpty());
    EXPECT_FALSE(string->hasData());
    string.lay(u"");
    for (std::size_t const length :
         {std::size_t{1}, image.capacity, std::size_t{256}, std::size_t{65535}}) {
        string.layLength(length);
        EXPECT_FALSE(string->isEmpty()) << length;
        EXPECT_TRUE(string->hasData()) << length;
    }
}

TEST_P(State, createCharStringRepeatsUpToTheCapacity)
{
    std::size_t const n = image.capacity;
    int const full = image.intCapacity();
    struct Row
    {
        int count;
        std::size_t length;
    };
    // Below 1 the sign decides; above, the low 16 bits and then the capacity.
    auto const rows = {Row{INT_MIN, 0}, Row{-65535, 0},   Row{-1, 0},    Row{0, 0},
                       Row{1, 1},       Row{2, 2},        Row{3, 3},     Row{full - 1, n - 1},
                       Row{full, n},    Row{full + 1, n}, Row{65535, n}, Row{65536, 0},
                       Row{65537, 1},   Row{65538, 2},    Row{65541, 5}, Row{131072, 0},
                       Row{131075, 3},  Row{INT_MAX, n}};
    Laid const any(image, u"");
    for (Unit const unit : {u'x', u'\xE4', u'\0', u'\x0141', u'\xFFE4'}) {
        if (!image.fits(Text(&unit, 1)))
            continue;
        for (auto const& row : rows) {
            SCOPED_TRACE(row.count);
            EXPECT_TRUE(isZeroedBut(any->createCharString(unit, row.count),
                                    std::u16string(row.length, unit)));
        }
    }
}

} // namespace
} // namespace strings
