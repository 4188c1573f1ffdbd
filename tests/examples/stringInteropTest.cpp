// The example that joins the strings to the texts of the C++ library.

#include "examples/stringInterop.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using namespace std::string_view_literals;
using interop::assign;
using interop::formatted;
using interop::toU16;
using interop::view;

template <typename String>
concept CanBeViewed = requires(String&& string)
{
    view(std::forward<String>(string));
};

static_assert(CanBeViewed<_qvString8_allSize<10>&> && CanBeViewed<_qvString8_allSize<10> const&>);
static_assert(!CanBeViewed<_qvString8_allSize<10>> && !CanBeViewed<_qvString8_allSize<10> const>);

TEST(View, ShowsTheTextWithItsZeroBytes)
{
    _qvString8_allSize<10> const empty;
    EXPECT_EQ(view(empty), "");
    _qvString8_allSize<10> const string("a\0b", 3);
    EXPECT_EQ(view(string), "a\0b"sv);
    _qvString8_allSize<6> const full("123456789");
    EXPECT_EQ(view(full), "123456");
}

TEST(View, ShowsWhatTheStringHoldsLater)
{
    _qvString8_allSize<10> string("abc");
    std::string_view const shown = view(string);
    string.makeUpper();
    EXPECT_EQ(shown, "ABC");
}

TEST(View, StaysInsideTheCapacity)
{
    _qvString<500> const wide = _qvString<500>(std::string(300, 'x').c_str());
    _qvString8_allSize<250> const narrowed = wide.to_qvString8_250();
    ASSERT_EQ(narrowed.length, 300);
    EXPECT_EQ(view(narrowed).size(), 250u);
}

TEST(AssignBytes, TakesTheTextWithItsZeroBytes)
{
    _qvString8_allSize<10> string("before");
    EXPECT_TRUE(assign(string, "a\0b"sv));
    EXPECT_EQ(view(string), "a\0b"sv);
    EXPECT_TRUE(assign(string, std::string_view()));
    EXPECT_TRUE(string == "");
}

TEST(AssignBytes, CutsAtTheCapacityAndTells)
{
    _qvString8_allSize<6> string;
    EXPECT_TRUE(assign(string, "123456"));
    EXPECT_EQ(view(string), "123456");
    EXPECT_FALSE(assign(string, "abcdefg"));
    EXPECT_EQ(view(string), "abcdef");
    EXPECT_FALSE(assign(string, std::string(65537, 'x'))); // the count does not wrap
    EXPECT_EQ(view(string), "xxxxxx");
}

TEST(AssignBytes, TakesAPartOfItself)
{
    _qvString8_allSize<20> string("scenes/shot");
    EXPECT_TRUE(assign(string, view(string).substr(7)));
    EXPECT_EQ(view(string), "shot");
}

TEST(Units, GoThereAndBackUnchanged)
{
    std::u16string const text{u'a', u'\0', 0xD83D, 0xDE00, 0xFFFF};
    _qvString<10> string("before");
    EXPECT_TRUE(assign(string, text));
    EXPECT_EQ(string.length, 5);
    EXPECT_EQ(string.text[2], 0xD83D);
    EXPECT_EQ(toU16(string), text);
    EXPECT_TRUE(assign(string, std::u16string_view()));
    EXPECT_EQ(toU16(string), u"");
}

TEST(Units, AreCutAtTheCapacity)
{
    _qvString<10> string;
    EXPECT_TRUE(assign(string, u"0123456789"));
    EXPECT_EQ(toU16(string), u"0123456789");
    EXPECT_FALSE(assign(string, u"abcdefghijk"));
    EXPECT_EQ(toU16(string), u"abcdefghij");
}

TEST(Formatted, PutsTheValuesIn)
{
    EXPECT_EQ(formatted<20>("plain {braces").combined("}"), "plain {braces}");
    EXPECT_EQ(formatted<50>("{}{}, {}", "a", std::string_view("b"), 'c'), "ab, c");
    EXPECT_EQ(formatted<50>("[{}]", _qvString8_allSize<6>("in")), "[in]");
    EXPECT_EQ(formatted<50>("{} {}", true, false), "true false");
    EXPECT_EQ(formatted<50>("{} {}", LLONG_MIN, ULLONG_MAX),
              "-9223372036854775808 18446744073709551615");
    EXPECT_EQ(formatted<50>("{} {} {}", 0.1, 1.5F, 1e300), "0.1 1.5 1e+300");
    EXPECT_EQ(formatted<50>("{}", "{}"), "{}"); // what was put in is not searched
}

TEST(Formatted, KeepsZeroBytesAndCutsAtTheCapacity)
{
    _qvString8_allSize<10> const zero = formatted<10>("<{}>", "a\0b"sv);
    EXPECT_EQ(view(zero), "<a\0b>"sv);
    EXPECT_EQ(formatted<6>("{} of {}", 12, 345), "12 of ");
    EXPECT_EQ(formatted<6>("{} of {}", 1, 345), "1 of 3");
}

#ifdef __cpp_lib_format
TEST(StdFormat, TakesTheStrings)
{
    EXPECT_EQ(std::format("[{:>5}]", _qvString8_allSize<10>("abc")), "[  abc]");
    EXPECT_EQ(std::format("{}", _qvString8_allSize<10>("a\0b", 3)), "a\0b"sv);
}
#endif

} // namespace
