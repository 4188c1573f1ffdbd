// The display names of all 256 command codes. People and other programs of the farm know them by
// these exact texts, so a change of one must show up here.

#include "qv/client/qvClientCommandName.h"

#include "qv/strings/qvString8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>

namespace {

using Text250 = _qvString8_allSize<250>;

// Index is the code.
constexpr char const* names[] = {
    // clang-format off
    "None",
    "Abort",
    "Enable",
    "Disable",
    "Allow little jobs",
    "Forbit little jobs",
    "Respect working hours",
    "Ignore working hours",
    "Restart client executable",
    "Wake up On Lan",
    "Restart machine",
    "Force restart machine",
    "Shutdown machine",
    "Force shutdown machine",
    "Wait",
    "Abort & Disable",
    "Ignore current CPU usage",
    "Reserve CPU for interactive user",
    "No 'Reserve CPU for interactive user'",
    "Shutdown client and Service",
    "Reload client config",
    "Reload user config",
    "Reload global config",
    "Reload all config",
    "Search for render applications",
    "Update service config",
    "(re-)Install Artist Workstation (qvSubmit Plugins, ...)",
    "(re-)Install qvService",
    "Shutdown qvClient",
    "Abort on Reset",
    "Deprecated - Clear & renew render apps",
    "Sync time with qvServer",
    "Show process tree",
    "Abort after frame",
    "Abort after Frame & Disable",
    "(re-)Install All (qvService, Plugins, Startmenu, ...)",
    "Speedtest",
    "Dev Debug",
    "Abort & Deassign All",
    "Abort - Reserved Client",
    "Abort - Working Hours",
    "Abort - High Priority Job",
    "Abort - qvControl",
    "Abort - Averaging",
    "Abort - Free License",
    "Abort - Local Artist",
    "Abort - System memory low",
    "Abort - renderer frozen",
    "Abort - high artist CPU usage",
    "Abort - max frame time exceeded",
    "Abort - Job Deleted",
    "Abort - Job Disabled",
    "Reset idle time",
    "Custom Commandline",
    "Abort - Error found in render log",
    "Force restart machine (6 hours)",
    "Un-Install All (qvService, Plugins, Startmenu, ...)",
    "Abort after Frame & Shutdown",
    "Restart machine after render segment finished",
    "Shutdown machine after render segment finished",
    "Custom Commandline for artist",
    // clang-format on
};
static_assert(std::size(names) == 61);

Text250 nameOf(unsigned code)
{
    auto const byte = static_cast<unsigned char>(code);
    return qvC::qvClientCommandName(byte);
}

std::string textOf(Text250 const& string)
{
    return std::string(&string.text[0], string.length);
}

TEST(QvClientCommandName, TakesTheCodeByReferenceAndGivesTheTextByValue)
{
    Text250 (*const function)(unsigned char const&) = &qvC::qvClientCommandName;
    EXPECT_EQ(textOf(function(1)), "Abort");
}

TEST(QvClientCommandName, EveryCodeOfTheVocabularyHasItsName)
{
    for (unsigned code = 0; code <= 60; ++code) {
        EXPECT_EQ(textOf(nameOf(code)), names[code]) << code;
    }
}

TEST(QvClientCommandName, EveryOtherCodeGetsItsNumber)
{
    for (unsigned code = 61; code <= 255; ++code) {
        EXPECT_EQ(textOf(nameOf(code)), "Unknown #" + std::to_string(code));
    }
    EXPECT_EQ(textOf(nameOf(61)), "Unknown #61");
    EXPECT_EQ(textOf(nameOf(99)), "Unknown #99");
    EXPECT_EQ(textOf(nameOf(100)), "Unknown #100");
    // The code counts as unsigned.
    EXPECT_EQ(textOf(nameOf(128)), "Unknown #128");
    EXPECT_EQ(textOf(nameOf(255)), "Unknown #255");
}

TEST(QvClientCommandName, TheRestOfTheTextIsClear)
{
    for (unsigned code = 0; code <= 255; ++code) {
        Text250 const name = nameOf(code);
        for (std::size_t i = name.length; i <= 250; ++i) {
            ASSERT_EQ(name.text[i], '\0') << "code " << code << ", byte " << i;
        }
    }
}

TEST(QvClientCommandName, NoNameIsLongerThanItsLongest)
{
    std::size_t longest = 0;
    for (unsigned code = 0; code <= 60; ++code) {
        longest = std::max<std::size_t>(longest, nameOf(code).length);
    }
    EXPECT_EQ(longest, 55U);
    EXPECT_EQ(nameOf(26).length, 55);
}

TEST(QvClientCommandName, KeepsNoState)
{
    unsigned char code = 8;
    Text250 const first = qvC::qvClientCommandName(code);
    code = 10;
    EXPECT_EQ(textOf(qvC::qvClientCommandName(code)), "Restart machine");
    EXPECT_EQ(textOf(first), "Restart client executable");
    EXPECT_EQ(code, 10);
}

} // namespace
