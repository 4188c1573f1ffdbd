/// Construction, state, assignment and append of the two older 8-bit strings, byte by byte in
/// their image.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <string_view>

namespace {

using namespace images8;
using namespace std::string_view_literals;

using guarded::Guarded;
using guarded::imageBytes;
using guarded::staleByte;

template <typename S>
class LegacyCore8 : public testing::Test
{};
TYPED_TEST_SUITE(LegacyCore8, LegacyImages, ImageName);

/// No constructor writes the spare bytes; all text behind the terminator is cleared.
TYPED_TEST(LegacyCore8, constructionClearsTheTextOnly)
{
    auto const expectBuilt = [](Guarded<TypeParam> const& built, std::string_view text) {
        EXPECT_EQ(built.bytes(), imageBytes<TypeParam>(text.size(), text, 0, staleByte));
        EXPECT_TRUE(built.guardsStand());
    };
    expectBuilt(Guarded<TypeParam>(), "");
    expectBuilt(Guarded<TypeParam>(nullText), "");
    expectBuilt(Guarded<TypeParam>(""), "");
    expectBuilt(Guarded<TypeParam>("abc"), "abc");
    expectBuilt(Guarded<TypeParam>("a\xE4"), "a\xE4");
    auto const longText = guarded::letters(capacity<TypeParam> + 3);
    expectBuilt(Guarded<TypeParam>(longText.c_str()), cut<TypeParam>(longText));
    expectBuilt(Guarded<TypeParam>(std::string(65536, 'x').c_str()), "");
    expectBuilt(Guarded<TypeParam>(std::string(65541, 'x').c_str()), "xxxxx");
}

TYPED_TEST(LegacyCore8, constructionByCountTakesZerosToo)
{
    int const n = intCapacity<TypeParam>;
    auto const letters = guarded::letters(capacity<TypeParam> + 1);
    struct Row
    {
        int count;
        std::size_t length;
    };
    for (auto const& row :
         {Row{0, 0}, Row{1, 1}, Row{n - 1, capacity<TypeParam> - 1}, Row{n, capacity<TypeParam>},
          Row{n + 1, capacity<TypeParam>}, Row{-1, capacity<TypeParam>},
          Row{65535, capacity<TypeParam>}, Row{65536, 0}, Row{65537, 1}, Row{65541, 5},
          Row{-65535, 1}, Row{INT_MIN, 0}}) {
        SCOPED_TRACE(row.count);
        Guarded<TypeParam> built(letters.c_str(), row.count);
        EXPECT_EQ(built.bytes(),
                  imageBytes<TypeParam>(row.length, letters.substr(0, row.length), 0, staleByte));
        EXPECT_TRUE(built.guardsStand());
    }
    Guarded<TypeParam> zeros(unterminated("a\0b"sv).data(), 3);
    EXPECT_EQ(zeros.bytes(), imageBytes<TypeParam>(3, "a\0b"sv, 0, staleByte));
}

TYPED_TEST(LegacyCore8, createCharString)
{
    char c = 'x';
    int const n = intCapacity<TypeParam>;
    struct Row
    {
        int count;
        std::size_t length;
    };
    for (auto const& row :
         {Row{0, 0}, Row{-1, 0}, Row{INT_MIN, 0}, Row{1, 1}, Row{n, capacity<TypeParam>},
          Row{n + 1, capacity<TypeParam>}, Row{65535, capacity<TypeParam>}, Row{65536, 0},
          Row{65537, 1}, Row{65538, 2}}) {
        SCOPED_TRACE(row.count);
        EXPECT_TRUE(areaIs(TypeParam::createCharString(c, row.count), row.length,
                           std::string(row.length, 'x'), 0));
    }
}

TYPED_TEST(LegacyCore8, clearing)
{
    Laid<TypeParam> cleared("abc");
    cleared->clear();
    EXPECT_EQ(cleared.bytes(), imageBytes<TypeParam>(0, "", 0, staleByte));
    EXPECT_TRUE(cleared.guardsStand());

    Laid<TypeParam> tidied("abc");
    tidied->clearUnused();
    EXPECT_EQ(tidied.bytes(), imageBytes<TypeParam>(3, "abc", 0, staleByte));
    EXPECT_TRUE(tidied.guardsStand());

    auto const letters = guarded::letters(capacity<TypeParam>);
    Laid<TypeParam> full(letters);
    full.layText(capacity<TypeParam>, 'z');
    full->clearUnused();
    EXPECT_TRUE(became(full, capacity<TypeParam>, letters + '\0'));
}

TYPED_TEST(LegacyCore8, calcLength)
{
    Laid<TypeParam> text("abc");
    text.layLength(0);
    text->calcLength();
    EXPECT_TRUE(became(text, 3, "abc\0"sv));

    Laid<TypeParam> empty("");
    empty.layLength(2);
    empty->calcLength();
    EXPECT_TRUE(became(empty, 0, "\0"sv));

    auto const letters = guarded::letters(capacity<TypeParam>);
    Laid<TypeParam> full(letters);
    full.layText(capacity<TypeParam>, 'z').layLength(0);
    full->calcLength();
    EXPECT_TRUE(became(full, capacity<TypeParam>, letters + '\0'));
}

TYPED_TEST(LegacyCore8, setLength)
{
    auto const n = static_cast<short>(intCapacity<TypeParam>);
    auto const letters = guarded::letters(capacity<TypeParam>);
    struct Row
    {
        short given;
        std::size_t length;
    };
    for (auto const& row :
         {Row{-5, 0}, Row{-32768, 0}, Row{0, 0}, Row{1, 1}, Row{n, capacity<TypeParam>},
          Row{static_cast<short>(n + 1), capacity<TypeParam>}, Row{32767, capacity<TypeParam>}}) {
        SCOPED_TRACE(row.given);
        Laid<TypeParam> receiver(letters);
        receiver->setLength(row.given);
        auto expected = letters + '\0';
        expected[row.length] = '\0';
        EXPECT_TRUE(became(receiver, row.length, expected));
    }
}

TYPED_TEST(LegacyCore8, isEmptyAndHasData)
{
    Laid<TypeParam> empty("");
    empty.stale(0, "x");
    EXPECT_TRUE(empty->isEmpty());
    EXPECT_FALSE(empty->hasData());
    Laid<TypeParam> text("\0"sv);
    EXPECT_FALSE(text->isEmpty());
    EXPECT_TRUE(text->hasData());
}

/// The whole text area travels, stale bytes included; the spare bytes do not.
TYPED_TEST(LegacyCore8, assignmentOfAString)
{
    Laid<TypeParam> source("abc", 0x11);
    Laid<TypeParam> target("xy");
    *target = *source;
    EXPECT_EQ(target.bytes(), imageBytes<TypeParam>(3, "abc\0"sv, 0x11, staleByte));
    EXPECT_TRUE(target.guardsStand());
    auto& self = *target;
    self = *target;
    EXPECT_EQ(target.bytes(), imageBytes<TypeParam>(3, "abc\0"sv, 0x11, staleByte));
}

/// A copy that is made as a whole takes the spare bytes along.
TYPED_TEST(LegacyCore8, wholeCopiesTakeTheSpareBytes)
{
    Laid<TypeParam> source("abc", 0x11);
    auto const expected = imageBytes<TypeParam>(4, "abcx\0"sv, 0x11, 0x11);
    EXPECT_EQ(guarded::bytesOf(*source + 'x'), expected);
    EXPECT_EQ(guarded::bytesOf(*source + stringOf<TypeParam>("x")), expected);
    EXPECT_EQ(guarded::bytesOf(source->combined("x")), expected);
    EXPECT_EQ(guarded::bytesOf(source->combined(stringOf<TypeParam>("x"))), expected);
    EXPECT_EQ(source.bytes(), imageBytes<TypeParam>(3, "abc\0"sv, 0x11, 0x11));
}

TYPED_TEST(LegacyCore8, assignmentOfTextAndCharacters)
{
    Laid<TypeParam> receiver("abcde");
    *receiver = "xy";
    EXPECT_TRUE(became(receiver, 2, "xy\0de\0"sv));
    *receiver = nullText;
    EXPECT_TRUE(became(receiver, 0, "xy\0de\0"sv));
    *receiver = 'q';
    EXPECT_TRUE(became(receiver, 1, "q\0\0de\0"sv));
    *receiver = '\0';
    EXPECT_TRUE(became(receiver, 1, "\0\0\0de\0"sv));
    *receiver = "";
    EXPECT_TRUE(became(receiver, 0, "\0\0\0de\0"sv));

    auto const letters = guarded::letters(capacity<TypeParam> + 1);
    Laid<TypeParam> full("");
    *full = letters.c_str();
    EXPECT_TRUE(became(full, capacity<TypeParam>, cut<TypeParam>(letters) + '\0'));
    *full = std::string(65541, 'x').c_str();
    EXPECT_TRUE(guarded::holds(*full, "xxxxx"));
}

TYPED_TEST(LegacyCore8, appendsCutAtTheCapacity)
{
    auto const room = capacity<TypeParam> - 2;
    auto const begun = guarded::letters(room);
    auto const expectCut = [&begun](auto const& append) {
        Laid<TypeParam> receiver(begun);
        append(*receiver);
        EXPECT_TRUE(became(receiver, capacity<TypeParam>, begun + "xy" + '\0'));
    };
    auto const xyz = stringOf<TypeParam>("xyz");
    expectCut([](TypeParam& s) { s.add("xyz"); });
    expectCut([](TypeParam& s) { s.add("xyz", 3U); });
    expectCut([](TypeParam& s) { s.add(std::string(70000, 'y').replace(0, 1, "x").c_str(), 2U); });
    expectCut([&xyz](TypeParam& s) { s.add(xyz); });
    expectCut([](TypeParam& s) { s += "xyz"; });
    expectCut([&xyz](TypeParam& s) { s += xyz; });
    expectCut([](TypeParam& s) {
        s += 'x';
        s += 'y';
        s += 'z';
    });
    expectCut([&xyz](TypeParam& s) { s = s + xyz; });
    expectCut([](TypeParam& s) { s = s + 'x' + 'y' + 'z'; });
    expectCut([](TypeParam& s) { s = s.combined("xyz"); });
    expectCut([&xyz](TypeParam& s) { s = s.combined(xyz); });
}

TYPED_TEST(LegacyCore8, appendsOfNothing)
{
    auto const expectRaw = [](std::string_view raw, auto const& append) {
        Laid<TypeParam> receiver("ab");
        receiver.stale(2, "z");
        append(*receiver);
        EXPECT_TRUE(became(receiver, 2, raw));
    };
    auto const empty = stringOf<TypeParam>("");
    expectRaw("abz", [](TypeParam& s) { s.add(nullText); });
    expectRaw("abz", [](TypeParam& s) { s.add(""); });
    expectRaw("abz", [](TypeParam& s) { s.add(std::string(65536, 'x').c_str()); });
    expectRaw("abz", [](TypeParam& s) { s.add(nullText, 3U); });
    expectRaw("abz", [](TypeParam& s) { s.add("x", 0U); });
    expectRaw("abz", [&empty](TypeParam& s) { s.add(empty); });
    expectRaw("abz", [](TypeParam& s) { s += nullText; });
    expectRaw("ab\0"sv, [](TypeParam& s) { s += ""; });
    expectRaw("ab\0"sv, [&empty](TypeParam& s) { s += empty; });
}

TYPED_TEST(LegacyCore8, appendsOfZerosAndHighBytes)
{
    Laid<TypeParam> receiver("a");
    receiver->add("\0b"sv.data(), 2U);
    EXPECT_TRUE(became(receiver, 3, "a\0b\0"sv));
    *receiver += '\xE4';
    EXPECT_TRUE(became(receiver, 4, "a\0b\xE4\0"sv));
}

/// Character by character the text meets itself again; as a block it doubles.
TYPED_TEST(LegacyCore8, appendsOfTheReceiverItself)
{
    Laid<TypeParam> repeated("abc");
    auto& self = *repeated;
    self += *repeated;
    std::string cycle(capacity<TypeParam>, 'a');
    for (std::size_t i = 0; i < cycle.size(); ++i) {
        cycle[i] = "abc"[i % 3];
    }
    EXPECT_TRUE(became(repeated, capacity<TypeParam>, cycle + '\0'));

    Laid<TypeParam> doubled("abc");
    doubled->add(*doubled);
    EXPECT_TRUE(became(doubled, 6, "abcabc\0"sv));
    EXPECT_TRUE(guarded::holds(*Laid<TypeParam>("abc") + *Laid<TypeParam>("abc"), "abcabc"));

    Laid<TypeParam> sum("abc");
    EXPECT_TRUE(guarded::holds(*sum + *sum, "abcabc"));
    EXPECT_TRUE(guarded::holds(sum->combined(*sum), "abcabc"));
}

} // namespace
