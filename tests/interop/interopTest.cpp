// The fixed strings beside the texts of the C++ library.

#include "qv/strings/interop.h"

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <unordered_map>

namespace {

using namespace std::string_view_literals;
using qvInterop::assign;
using qvInterop::U16Text;
using qvInterop::view;

using Text = _qvString8_allSize<10>;
using EvenOld = _qvString8_evenSize_old<10>;
using UnevenOld = _qvString8_UnevenSize_old<7>;
using Wide = _qvString<10>;
using WideOld = _qvString_old<10>;

// --- Views ---

template <typename String>
concept CanBeViewed = requires(String&& string)
{
    view(std::forward<String>(string));
};

static_assert(CanBeViewed<Text&> && CanBeViewed<Text const&>);
static_assert(!CanBeViewed<Text> && !CanBeViewed<Text const>);
static_assert(!CanBeViewed<Wide&> && !CanBeViewed<std::string&>);
static_assert(std::is_convertible_v<U16Text<10> const&, std::u16string_view>);
static_assert(!std::is_convertible_v<U16Text<10>, std::u16string_view>);

TEST(View, ShowsTheTextWithItsZeroBytes)
{
    Text const empty;
    EXPECT_EQ(view(empty), "");
    Text const string("a\0b", 3);
    EXPECT_EQ(view(string), "a\0b"sv);
    _qvString8_allSize<6> const full("123456789");
    EXPECT_EQ(view(full), "123456");
    EvenOld const even("a\0b", 3);
    EXPECT_EQ(view(even), "a\0b"sv);
    UnevenOld const uneven("123456789");
    EXPECT_EQ(view(uneven), "1234567");
}

TEST(View, ShowsWhatTheStringHoldsLater)
{
    Text string("abc");
    std::string_view const shown = view(string);
    string.makeUpper();
    EXPECT_EQ(shown, "ABC");
}

TEST(View, StaysInsideTheCapacity)
{
    Text damaged("1234567890");
    damaged.length = 11;
    EXPECT_EQ(view(damaged), "1234567890");
    damaged.length = 65535;
    EXPECT_EQ(view(damaged), "1234567890");
    EvenOld even("1234567890");
    even.length = 11;
    EXPECT_EQ(view(even), "1234567890");
}

TEST(View, ShowsOlderImagesWithoutMembers)
{
    _qvString8_evenSize_old<125> image{};
    std::memcpy(image.text, "shot", 5);
    image.length = 4;
    EXPECT_EQ(view(image), "shot");
}

TEST(AssignBytes, TakesTheTextWithItsZeroBytes)
{
    Text string("before");
    EXPECT_TRUE(assign(string, "a\0b"sv));
    EXPECT_EQ(view(string), "a\0b"sv);
    EXPECT_EQ(std::string_view(string.text, 7), "a\0b\0re\0"sv);
    EXPECT_TRUE(assign(string, std::string_view()));
    EXPECT_EQ(string.length, 0);
    EXPECT_EQ(string.text[0], 0);
}

TEST(AssignBytes, CutsAtTheCapacityAndTells)
{
    _qvString8_allSize<6> string;
    EXPECT_TRUE(assign(string, "123456"));
    EXPECT_STREQ(string.asChar(), "123456");
    EXPECT_FALSE(assign(string, "abcdefg"));
    EXPECT_STREQ(string.asChar(), "abcdef");
    EXPECT_FALSE(assign(string, std::string(65537, 'x'))); // the count does not wrap
    EXPECT_STREQ(string.asChar(), "xxxxxx");
    UnevenOld uneven;
    EXPECT_FALSE(assign(uneven, "12345678"));
    EXPECT_STREQ(uneven.text, "1234567");
}

TEST(AssignBytes, TakesAPartOfItself)
{
    _qvString8_allSize<20> string("scenes/shot_scenes");
    EXPECT_TRUE(assign(string, view(string).substr(3)));
    EXPECT_EQ(view(string), "nes/shot_scenes");
}

template <typename String>
struct Units : ::testing::Test
{};
using WideStrings = ::testing::Types<Wide, WideOld>;
TYPED_TEST_SUITE(Units, WideStrings);

TYPED_TEST(Units, GoThereAndBackUnchanged)
{
    std::u16string const text{u'a', u'\0', 0xD83D, 0xDE00, 0xFFFF};
    TypeParam string("before");
    EXPECT_TRUE(assign(string, text));
    EXPECT_EQ(string.length, 5);
    EXPECT_EQ(string.text[2], 0xD83D);
    EXPECT_EQ(string.text[5], 0);
    U16Text const units(string);
    EXPECT_TRUE(std::u16string_view(units) == text);
    EXPECT_TRUE(assign(string, std::u16string_view()));
    EXPECT_EQ(string.length, 0);
}

TYPED_TEST(Units, AreCutAtTheCapacity)
{
    TypeParam string;
    EXPECT_TRUE(assign(string, u"0123456789"));
    EXPECT_FALSE(assign(string, u"abcdefghijk"));
    string.length = 300;
    U16Text const units(string);
    EXPECT_TRUE(std::u16string_view(units) == u"abcdefghij");
}

// --- Streams ---

template <typename... Values>
std::string streamed(Values const&... values)
{
    std::ostringstream stream;
    (stream << ... << values);
    return stream.str();
}

TEST(Stream, TakesTheStrings)
{
    EXPECT_EQ(streamed(Text("a\0b", 3), EvenOld("cd"), UnevenOld("ef"), Wide("gh"), WideOld("ij")),
              "a\0bcdefghij"sv);
    EXPECT_EQ(streamed(std::setw(5), std::left, Text("abc"), '|', std::setw(4), Wide("de"), '|'),
              "abc  |de  |");
    _qvString8_evenSize_old<125> image{};
    image.text[0] = 'x';
    image.length = 1;
    EXPECT_EQ(streamed(image), "x");
}

TEST(Stream, WritesUnitsAsUtf8)
{
    Wide string;
    assign(string, u"\u007F\u0080\u07FF\u0800\uFFFF");
    EXPECT_EQ(streamed(string), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    assign(string, u"\U00010000\U0010FFFF\uD7FF\uE000");
    EXPECT_EQ(streamed(string), "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF\xED\x9F\xBF\xEE\x80\x80");
    unsigned short const halves[] = {0xDC00, 0xD800, 'a', 0xDBFF, 0xD800, 0xDFFF, 0xD800};
    EXPECT_EQ(streamed(Wide(halves, 7)), "\xEF\xBF\xBD\xEF\xBF\xBD"
                                         "a\xEF\xBF\xBD\xF0\x90\x8F\xBF\xEF\xBF\xBD");
}

// --- GoogleTest ---

TEST(PrintTo, ShowsTextAndDamage)
{
    using ::testing::PrintToString;
    EXPECT_EQ(PrintToString(Text("say \"a\\b\"")), R"("say \"a\\b\"")");
    EXPECT_EQ(PrintToString(Text("\0\x1F ~\x7F\xFF", 6)), R"("\x00\x1F ~\x7F\xFF")");
    EXPECT_EQ(PrintToString(EvenOld("ab")), R"("ab")");
    EXPECT_EQ(PrintToString(UnevenOld("ab")), R"("ab")");
    unsigned short const units[] = {'a', 0x20AC, 0, 0xD83D};
    EXPECT_EQ(PrintToString(Wide(units, 4)), R"(u"a\x20AC\x0000\xD83D")");
    EXPECT_EQ(PrintToString(WideOld("ab")), R"(u"ab")");
    Text damaged("1234567890");
    damaged.length = 300;
    EXPECT_EQ(PrintToString(damaged), R"("1234567890" (length 300 of 10))");
}

// --- Hashes ---

TEST(Hash, GoesByLengthAndText)
{
    std::hash<Text> const hash;
    Text string("shot_9");
    string = "shot"; // the rest stays behind the terminator
    EXPECT_EQ(hash(string), hash(Text("shot")));
    EXPECT_EQ(hash(string), std::hash<std::string_view>{}("shot"));
    EXPECT_NE(hash(string), hash(Text("shot_9")));
    EXPECT_NE(hash(string), hash(Text("SHOT")));
    EXPECT_NE(hash(Text("a\0b", 3)), hash(Text("a\0c", 3)));
    Text damaged("1234567890");
    damaged.length = 65535;
    EXPECT_EQ(hash(damaged), hash(Text("1234567890")));
    EXPECT_NE(std::hash<Wide>{}(Wide("ab")), std::hash<Wide>{}(Wide("ac"))); // the last unit counts
}

template <typename Key>
int countedBy()
{
    std::unordered_map<Key, int> counts;
    ++counts[Key("abc")];
    ++counts[Key("abc")];
    ++counts[Key("abd")];
    return counts[Key("abc")] * 10 + static_cast<int>(counts.size());
}

TEST(Hash, MakesKeysOfTheStrings)
{
    EXPECT_EQ(countedBy<Text>(), 22);
    EXPECT_EQ(countedBy<EvenOld>(), 22);
    EXPECT_EQ(countedBy<UnevenOld>(), 22);
    EXPECT_EQ(countedBy<Wide>(), 22);
    EXPECT_EQ(countedBy<WideOld>(), 22);
}

// --- std::format ---

#ifdef __cpp_lib_format
TEST(StdFormat, TakesTheStrings)
{
    EXPECT_EQ(std::format("[{:>5}]", Text("abc")), "[  abc]");
    EXPECT_EQ(std::format("{}{}{}", Text("a\0b", 3), EvenOld("cd"), UnevenOld("ef")), "a\0bcdef"sv);
    unsigned short const euro[] = {0x20AC};
    EXPECT_EQ(std::format("{}{}", Wide(euro, 1), WideOld(euro, 1)), "\xE2\x82\xAC\xE2\x82\xAC");
}
#endif

} // namespace
