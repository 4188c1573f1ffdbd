/// What the constructors of all strings from plain text write, on storage that was full of stale
/// bytes: all text behind the terminator is cleared. The spare word of a 16-bit string is cleared
/// too, the spare bytes of an 8-bit one keep what the storage held.

#include "tests/strings/laid.h"

#include <climits>

namespace strings {
namespace {

using namespace std::string_view_literals;

class Construct : public OverImages
{
protected:
    void expectBuilt(Laid const& built, Text text) const
    {
        unsigned char const spare = image.unitSize == 2 ? 0 : staleByte;
        EXPECT_EQ(built.bytes(), imageOf(image, text.size(), text, 0, spare));
        EXPECT_TRUE(built.guardsStand());
    }

    Laid string{*GetParam(), u""};
};
INSTANTIATE_TEST_SUITE_P(, Construct, testing::ValuesIn(allImages()), imageName);

TEST_P(Construct, nothing)
{
    string->construct();
    expectBuilt(string, u"");
    string->construct(nullText);
    expectBuilt(string, u"");
    string->construct(nullText, 0);
    expectBuilt(string, u"");
    string->construct("");
    expectBuilt(string, u"");
}

/// Lengths around the capacity and around the 16-bit limit of every measured length.
TEST_P(Construct, textIsMeasuredIn16BitsAndCutAtTheCapacity)
{
    std::size_t const n = image.capacity;
    for (std::size_t const size :
         {std::size_t{1}, std::size_t{5}, n - 1, n, n + 1, n + 5, n + 300, std::size_t{65535},
          std::size_t{65536}, std::size_t{65537}, std::size_t{65539}, std::size_t{65541},
          std::size_t{131072}, std::size_t{131077}}) {
        SCOPED_TRACE(size);
        string->construct(narrowed(letters(size)).c_str());
        expectBuilt(string, image.cut(letters(size % 65536)));
    }
    string->construct("\x7F\x01\0zzz");
    expectBuilt(string, u"\x7F\x01");
}

/// A count is cut to its low 16 bits, so a negative one is large. Exactly the counted bytes are
/// read: behind them there is nothing to read.
TEST_P(Construct, countsAreTakenByTheirLow16Bits)
{
    std::size_t const n = image.capacity;
    int const full = image.intCapacity();
    struct Row
    {
        int given;
        std::size_t counted;
    };
    for (auto const& row :
         {Row{0, 0},       Row{1, 1},        Row{3, 3},         Row{full - 1, n - 1},
          Row{full, n},    Row{full + 1, n}, Row{1024, 1024},   Row{2500, 2500},
          Row{2501, 2501}, Row{-1, 65535},   Row{-65531, 5},    Row{-65533, 3},
          Row{-65535, 1},  Row{-65536, 0},   Row{65535, 65535}, Row{65536, 0},
          Row{65537, 1},   Row{65541, 5},    Row{65556, 20},    Row{INT_MAX, 65535},
          Row{INT_MIN, 0}}) {
        SCOPED_TRACE(row.given);
        auto const text = image.cut(letters(row.counted));
        string->construct(unterminated(narrowed(text)).data(), row.given);
        expectBuilt(string, text);
    }
    string->construct("a\0b\0", 4);
    expectBuilt(string, u"a\0b\0"sv);
}

/// A copy moves every byte, the spare ones and what is behind the terminator among them.
TEST_P(Construct, aCopyMovesEveryByte)
{
    Laid source(image, u"abc", 0x55);
    source.laySpare(0x44);
    auto const before = source.bytes();
    string->construct(source);
    EXPECT_EQ(string.bytes(), before);
    EXPECT_TRUE(string.guardsStand());
    EXPECT_EQ(source.bytes(), before);
}

/// Short texts are copied and short rests cleared in pieces of several sizes: each length counts. A
/// long rest is cleared from an aligned byte on, whatever the bytes ahead of it.
TEST_P(Construct, everyLengthIsCopiedAndTheRestCleared)
{
    std::size_t const most = image.capacity <= 250 ? image.capacity : 70;
    for (std::size_t length = 0; length <= most; ++length) {
        SCOPED_TRACE(length);
        string->construct(narrowed(letters(length)).c_str());
        expectBuilt(string, letters(length));
    }
}

TEST(ConstructImage, bytesOfShortTexts)
{
    struct Row
    {
        char const* family;
        std::size_t capacity;
        char const* text;
        Bytes bytes;
    };
    for (auto const& row :
         {Row{"current8", 6, "abcdefghij", {6, 0, 'a', 'b', 'c', 'd', 'e', 'f', 0, staleByte}},
          Row{"current8", 7, "abcdefg", {7, 0, 'a', 'b', 'c', 'd', 'e', 'f', 'g', 0}},
          Row{"even8", 6, "abc", {'a', 'b', 'c', 0, 0, 0, 0, staleByte, 3, 0}},
          Row{"uneven8", 7, "abcdefg", {'a', 'b', 'c', 'd', 'e', 'f', 'g', 0, 7, 0}}}) {
        Laid string(imageNamed(row.family, row.capacity), u"");
        string->construct(row.text);
        EXPECT_EQ(string.bytes(), row.bytes) << row.family;
    }
}

TEST(ConstructImage, theLengthIsStoredLowByteFirst)
{
    Laid string(imageNamed("current8", 5000), u"");
    string->construct(narrowed(letters(300)).c_str());
    EXPECT_EQ(string.bytes()[0], 0x2C);
    EXPECT_EQ(string.bytes()[1], 0x01);
}

} // namespace
} // namespace strings
