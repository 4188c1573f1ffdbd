// The fixed strings in fmt.

#include "qv/strings/interop.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using namespace std::string_view_literals;

TEST(Fmt, TakesTheStrings)
{
    EXPECT_EQ(fmt::format("[{:>5}]", _qvString8_allSize<10>("abc")), "[  abc]");
    EXPECT_EQ(fmt::format("{}{}{}", _qvString8_allSize<10>("a\0b", 3),
                          _qvString8_evenSize_old<10>("cd"), _qvString8_UnevenSize_old<7>("ef")),
              "a\0bcdef"sv);
    unsigned short const euro[] = {0x20AC};
    EXPECT_EQ(fmt::format("{}{}", _qvString<10>(euro, 1), _qvString_old<10>(euro, 1)),
              "\xE2\x82\xAC\xE2\x82\xAC");
}

} // namespace
