/// Hexadecimal numbers to text and back in the current 8-bit string.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>
#include <string_view>

namespace images8 {
namespace {

using namespace std::string_view_literals;

template <typename S>
class Hex8 : public testing::Test
{};
TYPED_TEST_SUITE(Hex8, guarded::MainStrings8, ImageName);

void expectText(std::string const& value, std::string_view digits, std::string const& text,
                guarded::Seen const& receiver, testing::AssertionResult const& guards)
{
    SCOPED_TRACE(value + " as " + std::string(digits));
    EXPECT_TRUE(became(receiver, guards, text.size(), text + '\0'));
}

/// Appends the code to strings with all the room there is, and with room for one digit less than
/// the code has.
template <typename S, typename Value>
void expectCode(Value value, std::string_view digits)
{
    auto const shown = std::to_string(value);
    Laid<S> receiver("");
    receiver->addHexCode(value);
    expectText(shown, digits, std::string(digits), guarded::seen(*receiver),
               receiver.guardsStand());

    auto const begun = guarded::letters(capacity<S> - digits.size() + 1);
    Laid<S> tight(begun);
    tight->addHexCode(value);
    auto const whole = (begun + std::string(digits)).substr(0, capacity<S>);
    expectText(shown, digits, whole, guarded::seen(*tight), tight.guardsStand());
}

TYPED_TEST(Hex8, appendsChars)
{
    expectCode<TypeParam>(static_cast<signed char>(0), "00");
    expectCode<TypeParam>(static_cast<signed char>(10), "0A");
    expectCode<TypeParam>(static_cast<signed char>(127), "7F");
    expectCode<TypeParam>(static_cast<unsigned char>(0), "00");
    expectCode<TypeParam>(static_cast<unsigned char>(10), "0A");
    expectCode<TypeParam>(static_cast<unsigned char>(0xA5), "A5");
    expectCode<TypeParam>(static_cast<unsigned char>(255), "FF");
}

/// A negative char is 8 digits wide before its last two are taken, and a small capacity has already
/// cut some of those off.
TYPED_TEST(Hex8, appendsNegativeChars)
{
    bool const six = capacity<TypeParam> == 6;
    bool const seven = capacity<TypeParam> == 7;
    expectCode<TypeParam>(static_cast<signed char>(-1), "FF");
    expectCode<TypeParam>(static_cast<signed char>(-128), six ? "FF" : seven ? "F8" : "80");
    expectCode<TypeParam>(static_cast<signed char>(-91), six ? "FF" : seven ? "FA" : "A5");
}

TYPED_TEST(Hex8, appendsShorts)
{
    expectCode<TypeParam>(static_cast<short>(0), "0000");
    expectCode<TypeParam>(static_cast<short>(10), "000A");
    expectCode<TypeParam>(static_cast<short>(32767), "7FFF");
    expectCode<TypeParam>(static_cast<unsigned short>(10), "000A");
    expectCode<TypeParam>(static_cast<unsigned short>(0xBEEF), "BEEF");
    expectCode<TypeParam>(static_cast<unsigned short>(65535), "FFFF");
}

/// A negative short keeps the 8 digits that it is promoted to.
TYPED_TEST(Hex8, appendsNegativeShorts)
{
    expectCode<TypeParam>(static_cast<short>(-1), cut<TypeParam>("FFFFFFFF"));
    expectCode<TypeParam>(static_cast<short>(-123), cut<TypeParam>("FFFFFF85"));
    expectCode<TypeParam>(static_cast<short>(-32768), cut<TypeParam>("FFFF8000"));
}

/// Capacities 6 and 7 keep the first of the 8 digits.
TYPED_TEST(Hex8, appendsInts)
{
    expectCode<TypeParam>(0, cut<TypeParam>("00000000"));
    expectCode<TypeParam>(255, cut<TypeParam>("000000FF"));
    expectCode<TypeParam>(0x12345678, cut<TypeParam>("12345678"));
    expectCode<TypeParam>(-1, cut<TypeParam>("FFFFFFFF"));
    expectCode<TypeParam>(INT_MIN, cut<TypeParam>("80000000"));
    expectCode<TypeParam>(255U, cut<TypeParam>("000000FF"));
    expectCode<TypeParam>(0x89ABCDEFU, cut<TypeParam>("89ABCDEF"));
    expectCode<TypeParam>(UINT_MAX, cut<TypeParam>("FFFFFFFF"));
}

TEST(HexCut8, theSmallCapacities)
{
    Laid<_qvString8_allSize<6>> six("");
    six->addHexCode(0x12345678);
    EXPECT_TRUE(became(six, 6, "123456\0"sv));

    Laid<_qvString8_allSize<6>> zeros("");
    zeros->addHexCode(255);
    EXPECT_TRUE(became(zeros, 6, "000000\0"sv));

    Laid<_qvString8_allSize<7>> seven("");
    seven->addHexCode(static_cast<short>(-123));
    EXPECT_TRUE(became(seven, 7, "FFFFFF8\0"sv));

    Laid<_qvString8_allSize<8>> eight("");
    eight->addHexCode(255);
    EXPECT_TRUE(became(eight, 8, "000000FF\0"sv));
}

TYPED_TEST(Hex8, aFullStringGetsOnlyItsTerminator)
{
    auto const text = guarded::letters(capacity<TypeParam>);
    Laid<TypeParam> receiver(text);
    receiver.stale(capacity<TypeParam>, "z");
    receiver->addHexCode(static_cast<unsigned char>(10));
    EXPECT_TRUE(became(receiver, capacity<TypeParam>, text + '\0'));
}

struct FieldRow
{
    std::string_view text;
    int bits;
    bool asSigned;
    long long value;
    bool ok;
};

constexpr FieldRow fieldRows[] = {
    {"FF10", 8, true, -1, true},
    {"FF10", 8, false, 255, true},
    {"7F10", 8, true, 127, true},
    {"8010", 8, true, -128, true},
    {"ff10", 8, true, -1, true},
    {"8000", 16, true, -32768, true},
    {"8000", 16, false, 32768, true},
    {"7FFF", 16, true, 32767, true},
    {"FFFF10", 16, true, -1, true},
    {"12345", 16, false, 0x1234, true},
    {"F", 8, true, 15, true},
    {"FF", 32, true, 255, true},
    {"FF", 32, false, 255, true},
    {"ABCDEF", 24, false, 0xABCDEF, true},
    // Only 32, 16 and 8 bits have a signed form.
    {"123", 12, true, 0, false},
    {"123", 12, false, 0x123, true},
    {"FFFF", 64, true, 0, false},
    {"FFFF", 64, false, 65535, true},
    {"1", 4, true, 0, false},
    {"A1", 4, false, 10, true},
    {"FF", 9, true, 0, false},
    {"FF", 11, false, 255, true},
    // No digits: the signed form fails, the unsigned one calls everything a success.
    {"G1", 8, true, 0, false},
    {"G1", 8, false, 0, true},
    {"1G", 8, true, 1, true},
    {"1G", 8, false, 1, true},
    {"", 8, true, 0, false},
    {"", 8, false, 0, true},
    {"FF", 3, true, 0, false},
    {"FF", 3, false, 0, true},
    {"FF", 0, true, 0, false},
    {"FF", 0, false, 0, true},
    {"FF", -3, false, 0, true},
    {"FF", -8, true, 0, false},
    {"FF", -8, false, 0, true},
    {"FF", INT_MIN, false, 0, true},
    // The parsers' own white space, sign and prefix.
    {" 1", 8, true, 1, true},
    {"-1", 8, true, -1, true},
    {"-1", 8, false, -1, true},
    {"0x1F", 16, true, 31, true},
    {"0x1F", 16, false, 31, true},
    {"1\0"
     "F"sv,
     16, false, 1, true},
    // The number of digits counts as a signed 16-bit value.
    {"FF", 4 * 65536, false, 0, true},
    {"FF", 4 * 65537, false, 15, true},
    {"FF", 4 * 32768, false, 0, true},
    {"FF", 4 * 32767, false, 255, true},
    {"FF", 4 * 65535, false, 0, true},
};

TYPED_TEST(Hex8, readsFields)
{
    for (auto const& row : fieldRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::to_string(row.bits) +
                     (row.asSigned ? " signed" : " unsigned"));
        Laid<TypeParam> text(row.text);
        auto const before = text.bytes();
        bool ok = !row.ok;
        EXPECT_EQ(text->toIntFromHex(row.bits, row.asSigned, false, &ok), row.value);
        EXPECT_EQ(ok, row.ok);
        EXPECT_EQ(text->toIntFromHex(row.bits, row.asSigned, false, nullptr), row.value);
        EXPECT_EQ(text.bytes(), before);
    }
}

TYPED_TEST(Hex8, readsWideFields)
{
    struct Row
    {
        std::string_view text;
        int bits;
        bool asSigned;
        long long value;
    };
    for (auto const& row :
         {Row{"FFFFFFFF", 32, true, -1}, Row{"FFFFFFFF", 32, false, 4294967295LL},
          Row{"80000000", 32, true, INT_MIN}, Row{"7FFFFFFF", 32, true, INT_MAX},
          Row{"123456789A", 40, false, 0x123456789ALL}, Row{"000000000000000F", 64, false, 15},
          Row{"7FFFFFFFFFFFFFFF", 64, false, LLONG_MAX},
          // Out of range is the platform's: the largest value.
          Row{"FFFFFFFFFFFFFFFF", 64, false, LLONG_MAX}}) {
        if (!fits<TypeParam>(row.text)) {
            continue;
        }
        SCOPED_TRACE(row.text);
        Laid<TypeParam> text(row.text);
        bool ok = false;
        EXPECT_EQ(text->toIntFromHex(row.bits, row.asSigned, false, &ok), row.value);
        EXPECT_TRUE(ok);
    }
}

/// The field is read from the stored text, whatever the length says.
TYPED_TEST(Hex8, staleDigitsAreRead)
{
    TypeParam emptied("FF");
    emptied = nullText;
    bool ok = false;
    EXPECT_EQ(emptied.toIntFromHex(8, false, false, &ok), 255);
    EXPECT_TRUE(ok);
    EXPECT_EQ(emptied.toIntFromHex(8, true, false, &ok), -1);
    EXPECT_TRUE(ok);
}

struct CutRow
{
    std::string_view text;
    int bits;
    long long value; ///< unsigned
    std::size_t length;
    std::string_view after;
};

constexpr CutRow cutRows[] = {
    {"FF10", 8, 255, 2,
     "10\0"
     "0\0"sv},
    {"FF10", 16, 0xFF10, 0, "FF10\0"sv},
    {"FF10", 4, 15, 3, "F10\0\0"sv},
    {"FF10", 12, 0xFF1, 1,
     "0\0"
     "10\0"sv},
    {"FF10", 0, 0, 4, "FF10\0"sv},
    {"FF10", 3, 0, 4, "FF10\0"sv},
    {"FF10", -3, 0, 4, "FF10\0"sv},
    {"G1F", 8, 0, 1, "F\0F\0"sv},
    {"", 0, 0, 0, "\0"sv},
};

TYPED_TEST(Hex8, cutsFieldsOff)
{
    for (auto const& row : cutRows) {
        SCOPED_TRACE(std::string(row.text) + ", " + std::to_string(row.bits));
        Laid<TypeParam> receiver(row.text);
        bool ok = false;
        EXPECT_EQ(receiver->toIntFromHex(row.bits, false, true, &ok), row.value);
        EXPECT_TRUE(ok);
        EXPECT_TRUE(became(receiver, row.length, row.after));
    }
}

/// The field is cut off whether its value is accepted or not.
TYPED_TEST(Hex8, cutsRefusedFieldsToo)
{
    Laid<TypeParam> noDigits("GGFF");
    bool ok = true;
    EXPECT_EQ(noDigits->toIntFromHex(8, true, true, &ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_TRUE(became(noDigits, 2,
                       "FF\0"
                       "F\0"sv));

    Laid<TypeParam> noWidth("123F");
    ok = true;
    EXPECT_EQ(noWidth->toIntFromHex(12, true, true, &ok), 0);
    EXPECT_FALSE(ok);
    EXPECT_TRUE(became(noWidth, 1,
                       "F\0"
                       "3F\0"sv));
}

TYPED_TEST(Hex8, walksThroughAPackedRecord)
{
    Laid<TypeParam> record("01FFA0");
    bool ok = false;
    EXPECT_EQ(record->toIntFromHex(8, true, true, &ok), 1);
    EXPECT_TRUE(ok);
    EXPECT_EQ(record->toIntFromHex(8, true, true, &ok), -1);
    EXPECT_TRUE(ok);
    EXPECT_EQ(record->toIntFromHex(8, false, true, &ok), 160);
    EXPECT_TRUE(ok);
    EXPECT_EQ(guarded::lengthOf(*record), 0);
    EXPECT_TRUE(record.guardsStand());
}

TYPED_TEST(Hex8, aFieldOfTheWholeTextLeavesItsBytes)
{
    constexpr auto digits = "00000010"sv;
    if (!fits<TypeParam>(digits)) {
        return;
    }
    Laid<TypeParam> receiver(digits);
    bool ok = false;
    EXPECT_EQ(receiver->toIntFromHex(32, false, true, &ok), 16);
    EXPECT_TRUE(ok);
    EXPECT_TRUE(became(receiver, 0, "00000010\0"sv));
}

/// A field wider than the text wraps the rest to a full string of what stands behind the field: the
/// object's own bytes, and zeros where the object ends.
TYPED_TEST(Hex8, aFieldWiderThanTheTextFillsTheString)
{
    for (int const digits : {3, 4, 5, 6, 7, 8, 16, intCapacity<TypeParam>,
                             intCapacity<TypeParam> + 1, intCapacity<TypeParam> + 2, 32767}) {
        SCOPED_TRACE(digits);
        Laid<TypeParam> receiver("1F");
        receiver.stale(3, "xyz");
        auto const expected = ownBytes(*receiver, digits, capacity<TypeParam>);
        bool ok = false;
        EXPECT_EQ(receiver->toIntFromHex(4 * digits, false, true, &ok), 31);
        EXPECT_TRUE(ok);
        EXPECT_TRUE(guarded::holds(*receiver, expected));
        EXPECT_TRUE(receiver.guardsStand());
    }
}

/// A field of a negative width begins ahead of the text, where the length lies. The length is 0
/// when the rest moves, so two zeros lead the text.
TEST(HexCut8, aFieldOfANegativeWidthMovesTheClearedLengthIn)
{
    Laid<_qvString8_allSize<14>> receiver("abcd");
    bool ok = false;
    EXPECT_EQ(receiver->toIntFromHex(-8, false, true, &ok), 0);
    EXPECT_TRUE(ok);
    EXPECT_TRUE(became(receiver, 6, "\0\0abcd\0"sv));
}

/// In capacities 6 and 7 a field of 32 bits is wider than any text.
TEST(HexCut8, aWideFieldInASmallCapacity)
{
    Laid<_qvString8_allSize<6>> six("123456");
    bool ok = false;
    EXPECT_EQ(six->toIntFromHex(32, true, true, &ok), 0x123456);
    EXPECT_TRUE(ok);
    EXPECT_TRUE(guarded::holds(*six, "\0\0\0\0\0\0"sv));
    EXPECT_TRUE(six.guardsStand());

    Laid<_qvString8_allSize<7>> seven("1234567");
    EXPECT_EQ(seven->toIntFromHex(32, false, true, &ok), 0x1234567);
    EXPECT_TRUE(guarded::holds(*seven, "\0\0\0\0\0\0\0"sv));
    EXPECT_TRUE(seven.guardsStand());

    // Four digits of two: the stale text and the pad byte move to the start.
    Laid<_qvString8_allSize<6>> stale("1F");
    EXPECT_EQ(stale->toIntFromHex(16, false, true, &ok), 31);
    EXPECT_TRUE(guarded::holds(*stale, "\xAA\xAA\xAA\xAA\0\0"sv));
}

} // namespace
} // namespace images8
