// The platform's answer by CoreFoundation: both ways to the units, and who is released when.

#include "qv/support/core/executablePath.h"
#include "qv/support/qvProcess.h"
#include "tests/support/paths.h"
#include "tests/support/units.h"

#include <gtest/gtest.h>

#include <CoreFoundation/CoreFoundation.h>
#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct StandInBundle
{};

struct StandInUrl
{};

struct StandInString
{};

namespace {

StandInBundle bundle;
StandInUrl url;
StandInString path;

using Calls = std::vector<std::string>;

// What the platform says, and what it was asked.
struct Platform
{
    bool hasUrl = true;
    bool hasPath = true;
    bool direct = false;
    // Exactly the units of the path, so that a sanitizer sees each one read too many.
    std::unique_ptr<UniChar[]> units;
    std::size_t length = 0;

    bool urlAlive = false;
    bool pathAlive = false;
    Calls calls;
};

Platform* platform = nullptr;

class Script
{
public:
    Script(bool direct, std::u16string_view text)
    {
        what.direct = direct;
        what.length = text.size();
        what.units.reset(new UniChar[text.size()]);
        std::copy(text.begin(), text.end(), what.units.get());
        platform = &what;
    }
    ~Script()
    {
        EXPECT_FALSE(what.urlAlive) << "the URL is still owned";
        EXPECT_FALSE(what.pathAlive) << "the path is still owned";
        platform = nullptr;
    }
    Script(Script const&) = delete;
    Script& operator=(Script const&) = delete;

    Platform what;
};

void expectPathAlive(CFStringRef string)
{
    EXPECT_EQ(string, &path);
    EXPECT_TRUE(platform->pathAlive) << "read behind its release";
}

} // namespace

extern "C" {

CFBundleRef CFBundleGetMainBundle(void)
{
    return &bundle;
}

CFURLRef CFBundleCopyExecutableURL(CFBundleRef asked)
{
    EXPECT_EQ(asked, &bundle);
    platform->calls.emplace_back("copy URL");
    platform->urlAlive = platform->hasUrl;
    return platform->hasUrl ? &url : nullptr;
}

CFStringRef CFURLCopyFileSystemPath(CFURLRef asked, CFURLPathStyle style)
{
    EXPECT_EQ(asked, &url);
    EXPECT_TRUE(platform->urlAlive);
    EXPECT_EQ(static_cast<CFIndex>(style), 0);
    platform->calls.emplace_back("copy path");
    platform->pathAlive = platform->hasPath;
    return platform->hasPath ? &path : nullptr;
}

CFIndex CFStringGetLength(CFStringRef string)
{
    expectPathAlive(string);
    return static_cast<CFIndex>(platform->length);
}

UniChar const* CFStringGetCharactersPtr(CFStringRef string)
{
    expectPathAlive(string);
    return platform->direct ? platform->units.get() : nullptr;
}

void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* buffer)
{
    expectPathAlive(string);
    platform->calls.push_back("copy " + std::to_string(range.length) + " units from " +
                              std::to_string(range.location));
    std::copy_n(platform->units.get() + range.location, range.length, buffer);
}

void CFRelease(CFTypeRef object)
{
    if (object == &path) {
        platform->calls.emplace_back("release path");
        platform->pathAlive = false;
    } else if (object == &url) {
        platform->calls.emplace_back("release URL");
        platform->urlAlive = false;
    } else {
        // The bundle, for one, belongs to the platform.
        platform->calls.emplace_back("release of something else");
    }
}

} // extern "C"

namespace {

using qvTest::shown;
using qvTest::textOf;

// All units of the storage behind a text that must be zero from some place on.
std::string storage(_qvString<250> const& string, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += qvTest::shownUnit(string.text[i]);
    bool const zeros = std::all_of(string.text + count, string.text + 251,
                                   [](unsigned short unit) { return unit == 0; });
    return zeros ? text : text + "<more>";
}

TEST(CoreFoundationPath, CopiesTheUnitsWhereThereIsNoPointer)
{
    Script script(false, u"/usr/b\x00EFn/\x0161tool");
    _qvString<250> const answer = qvSupport::executablePath();
    EXPECT_EQ(shown(answer), "/usr/b<00EF>n/<0161>tool");
    EXPECT_TRUE(qvTest::zeroBehindText(answer));
    EXPECT_EQ(script.what.calls, (Calls{"copy URL", "copy path", "copy 14 units from 0",
                                        "release path", "release URL"}));
}

// As many bytes as the path has units, and the length of all of them.
TEST(CoreFoundationPath, TakesHalfOfTheUnitsByThePointer)
{
    {
        Script script(true, u"/usr/bin/t\x0161ol");
        _qvString<250> const answer = qvSupport::executablePath();
        EXPECT_EQ(answer.length, 13);
        // The odd byte is the low one of its unit.
        EXPECT_EQ(storage(answer, 7), "/usr/bi");
        EXPECT_EQ(script.what.calls,
                  (Calls{"copy URL", "copy path", "release path", "release URL"}));
    }
    {
        Script script(true, u"/\x0161\x0162\x0163"
                            u"e/");
        _qvString<250> const answer = qvSupport::executablePath();
        EXPECT_EQ(answer.length, 6);
        EXPECT_EQ(storage(answer, 3), "/<0161><0162>");
    }
    {
        Script script(true, u"/\x0161\x0162\x0163/");
        _qvString<250> const answer = qvSupport::executablePath();
        EXPECT_EQ(answer.length, 5);
        EXPECT_EQ(storage(answer, 3), "/<0161>b");
    }
}

TEST(CoreFoundationPath, HasNothingWithoutUrlOrPath)
{
    {
        Script script(false, u"/usr/bin/tool");
        script.what.hasUrl = false;
        EXPECT_EQ(shown(qvSupport::executablePath()), "");
        EXPECT_EQ(script.what.calls, (Calls{"copy URL"}));
    }
    Script script(false, u"/usr/bin/tool");
    script.what.hasPath = false;
    EXPECT_EQ(shown(qvSupport::executablePath()), "");
    EXPECT_EQ(script.what.calls, (Calls{"copy URL", "copy path", "release URL"}));
}

TEST(CoreFoundationPath, HasNothingInAnEmptyPath)
{
    for (bool const direct : {false, true}) {
        Script const script(direct, u"");
        EXPECT_EQ(shown(qvSupport::executablePath()), "");
    }
}

TEST(CoreFoundationPath, IsCutAtTheCapacity)
{
    std::u16string const x(251, u'x');
    {
        Script const script(false, x.substr(0, 250));
        EXPECT_EQ(shown(qvSupport::executablePath()), std::string(250, 'x'));
    }
    {
        Script const script(false, x);
        EXPECT_EQ(shown(qvSupport::executablePath()), std::string(250, 'x'));
    }
    Script const script(true, x + x.substr(0, 49));
    _qvString<250> const answer = qvSupport::executablePath();
    EXPECT_EQ(answer.length, 250);
    EXPECT_EQ(storage(answer, 150), std::string(150, 'x'));
}

TEST(CoreFoundationPath, LeadsToTheDirectoryOfTheProgram)
{
    char argument[] = "/opt/x/other";
    {
        Script const script(false, u"/usr/local/bin/tool");
        EXPECT_EQ(textOf(qvApplicationPath(argument)), "/usr/local/bin/");
    }
    {
        // "/usr/local", then zeros to the length of the whole.
        Script const script(true, u"/usr/local/bin/tool");
        EXPECT_EQ(textOf(qvApplicationPath(argument)), "/usr/");
    }
    Script script(false, u"");
    script.what.hasUrl = false;
    EXPECT_EQ(textOf(qvApplicationPath(argument)), "/opt/x/");
    EXPECT_EQ(textOf(qvApplicationPath(nullptr)), "");
}

} // namespace
