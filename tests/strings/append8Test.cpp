/// Appends to the 8-bit strings: of their own text, and of a 16-bit unit by its low byte.

#include "tests/strings/guarded.h"
#include "tests/strings/laid.h"

namespace {

using strings::Laid;

class Append8 : public strings::OverImages
{};
INSTANTIATE_TEST_SUITE_P(, Append8, testing::ValuesIn(strings::images8()), strings::imageName);

char const* ownText(Laid const& string, std::size_t index)
{
    return static_cast<char const*>(string->textAt(index));
}

TEST_P(Append8, ofItsOwnText)
{
    std::size_t const n = image.capacity;
    for (std::size_t const size :
         {std::size_t{1}, std::size_t{3}, std::size_t{4}, n / 2, n - 1, n}) {
        SCOPED_TRACE(size);
        auto const text = strings::letters(size);
        auto const doubled = image.cut(text + text);
        Laid added(image, text);
        EXPECT_TRUE(holds(added->combined(ownText(added, 0)), doubled));
        added->add(ownText(added, 0));
        EXPECT_TRUE(became(added, doubled.size(), doubled + u'\0'));
        Laid appended(image, text);
        appended->append(ownText(appended, 0));
        EXPECT_TRUE(became(appended, doubled.size(), doubled + u'\0'));
    }
    Laid tail(image, u"abc");
    tail->add(ownText(tail, 1));
    EXPECT_TRUE(holds(*tail, u"abcbc"));
    Laid last(image, u"abc");
    last->append(ownText(last, 2));
    EXPECT_TRUE(holds(*last, u"abcc"));
}

TEST_P(Append8, highBytes)
{
    Laid receiver(image, u"a");
    receiver->add("\xE4");
    receiver->append("\x80");
    receiver->append('\xFF');
    EXPECT_TRUE(became(receiver, 4, std::u16string(u"a\xE4\x80\xFF\0", 5)));
    EXPECT_TRUE(holds(receiver->plus('\xE4'), u"a\xE4\x80\xFF\xE4"));
    EXPECT_TRUE(holds(receiver->combined("\xE4"), u"a\xE4\x80\xFF\xE4"));
}

/// The current string alone takes 16-bit units.
template <typename S>
class AppendUnit8 : public testing::Test
{};
TYPED_TEST_SUITE(AppendUnit8, guarded::MainStrings8, guarded::ImageName);

TYPED_TEST(AppendUnit8, aUnitGoesInByItsLowByte)
{
    struct Row
    {
        unsigned short unit;
        char stored;
    };
    for (Row const& row : {Row{'x', 'x'}, Row{0x1278, 'x'}, Row{0x0100, '\0'}, Row{0, '\0'},
                           Row{0xFFFF, '\xFF'}, Row{0x00E4, '\xE4'}}) {
        SCOPED_TRACE(row.unit);
        guarded::Guarded<TypeParam> string;
        string.lay("ab").layText(2, 'z');
        *string += row.unit;
        std::string const expected{'a', 'b', row.stored, '\0'};
        EXPECT_EQ(string.bytes(), guarded::imageBytes<TypeParam>(3, expected, guarded::staleByte,
                                                                 guarded::staleByte));
        EXPECT_TRUE(string.guardsStand());
    }
}

TYPED_TEST(AppendUnit8, aUnitOntoAFullStringWritesNothing)
{
    std::size_t const n = guarded::ImageOf<TypeParam>::capacity;
    guarded::Guarded<TypeParam> string;
    string.lay(guarded::letters(n)).layText(n, 'z');
    auto const before = string.bytes();
    *string += static_cast<unsigned short>('x');
    EXPECT_EQ(string.bytes(), before);
    EXPECT_TRUE(string.guardsStand());
}

/// The unit form asks only whether the length is the capacity, so one above it still stores: at
/// text[7], the pad of a six, and the terminator behind the object.
TEST(AppendDamage8, aUnitIsStoredWhereTheLengthSays)
{
    guarded::Guarded<_qvString8_allSize<6>> string;
    string.lay("abcdef").layLength(7);
    *string += static_cast<unsigned short>('x');
    EXPECT_EQ(string.bytes(), (guarded::Bytes{8, 0, 'a', 'b', 'c', 'd', 'e', 'f', 0, 'x'}));
    EXPECT_EQ(string.behind()[0], 0);
    EXPECT_EQ(string.behind()[1], guarded::guardByte);
}

} // namespace
