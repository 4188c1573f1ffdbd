// From the platform's answer, or the program's first argument, to the program's directory.

#include "qv/support/core/applicationPath.h"

#include "tests/model/directoryModel.h"
#include "tests/support/allocationCount.h"
#include "tests/support/currentDirectory.h"
#include "tests/support/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using qvTest::answer16;
using qvTest::CurrentDirectory;
using qvTest::Path;
using qvTest::path8;
using qvTest::textOf;

using Sizes = std::vector<std::size_t>;

// The text that came out, or "false".
std::string fromAnswer(std::u16string_view answer, char const* argv0 = nullptr)
{
    Path out = path8("old text");
    if (qvSupport::applicationPathFrom(answer16(answer), argv0, out))
        return textOf(out);
    EXPECT_EQ(textOf(out), "");
    return "false";
}

std::string fromArgument(std::string const& argument)
{
    return fromAnswer({}, argument.c_str());
}

TEST(ApplicationPathFromAnswer, GivesItsDirectory)
{
    CurrentDirectory directory("/a/b");
    struct Row
    {
        std::u16string_view answer;
        std::string path;
    };
    for (Row const& row : {
             Row{u"/usr/bin/tool", "/usr/bin/"},
             Row{u"/tool", "/tool/"},
             Row{u"D:/x/tool", "D:/x/"},
             Row{u"//host/share/tool", "//host/share/"},
             // However short: only an argument has a least length.
             Row{u"x", "x"},
             Row{u"ab", "ab"},
             Row{u"./", "./"},
             Row{u"abc", "abc/"},
             // A start through the current directory leaves its dot behind, which goes.
             Row{u"/opt/./tool", "/opt/"},
             Row{u"/./", "/"},
             Row{u"/./x", "/"},
             Row{u"x/./y", "x/./y/"},
             Row{u"/opt/../tool", "/opt/../"},
             Row{u"/opt/x./tool", "/opt/x./"},
             Row{u"/opt/././tool", "/opt/./"},
             // Low bytes make the text: 0x012F is a slash here, 0x0161 an a.
             Row{u"/\x0161/\xFFE4/\x0174", "/a/\xE4/"},
             Row{u"ab\x012Fxy", "ab/"},
         })
        EXPECT_EQ(fromAnswer(row.answer), row.path);
    EXPECT_EQ(directory.askedSizes(), Sizes{});
}

TEST(ApplicationPathFromAnswer, PrefersItToTheArgument)
{
    CurrentDirectory directory("/a/b");
    EXPECT_EQ(fromAnswer(u"/usr/bin/tool", "/opt/x/other"), "/usr/bin/");
    EXPECT_EQ(fromAnswer(u"/usr/bin/tool", "./other"), "/usr/bin/");
    EXPECT_EQ(fromAnswer(u"x", "/opt/x/other"), "x");
    EXPECT_EQ(directory.askedSizes(), Sizes{});
}

// The way from 16 to 8 bits has room for 249 units, but keeps the length: a 250th is a zero.
TEST(ApplicationPathFromAnswer, LosesTheUnitAtTheCapacity)
{
    using namespace std::string_literals;
    std::u16string const x(249, u'x');
    std::string const x8(249, 'x');
    EXPECT_EQ(fromAnswer(x), x8 + "/");
    EXPECT_EQ(fromAnswer(x + u"x"), x8 + "\0"s);
    EXPECT_EQ(fromAnswer(x + u"/"), x8 + "\0"s);
    EXPECT_EQ(fromAnswer(u"/opt" + x.substr(4) + u"/"), "/opt" + x8.substr(4) + "\0"s);
    EXPECT_EQ(fromAnswer(u"/opt/" + x.substr(4)), "/opt/");
    EXPECT_EQ(fromAnswer(u"/opt/bin/" + x.substr(9) + u"/"), "/opt/bin/");
    EXPECT_EQ(fromAnswer(u"/opt/bin/" + x.substr(10) + u"/"), "/opt/bin/");
}

TEST(ApplicationPathFromArgument, TakesAbsolutePathsAndBareNamesAsTheyAre)
{
    CurrentDirectory directory("/a/b");
    struct Row
    {
        char const* argument;
        char const* path;
    };
    for (Row const row : {
             Row{"/opt/x/tool", "/opt/x/"},
             Row{"/tool", "/tool/"},
             Row{"/opt/../tool", "/opt/../"},
             Row{"/./x", "/"},
             Row{"D:/x/tool", "D:/x/"},
             // The second character alone makes it absolute.
             Row{"D:tool", "D:tool/"},
             Row{"D:../tool", "D:../"},
             Row{"::::", "::::/"},
             Row{"//host/share/tool", "//host/share/"},
             Row{"tool", "tool/"},
             Row{"...x", "...x/"},
         })
        EXPECT_EQ(fromArgument(row.argument), row.path) << row.argument;
    EXPECT_EQ(directory.askedSizes(), Sizes{});
}

TEST(ApplicationPathFromArgument, NeedsFourCharacters)
{
    CurrentDirectory directory("/a/b");
    EXPECT_EQ(fromAnswer({}, nullptr), "false");
    for (char const* const argument : {"", "a", "ab", "abc", "./x", "/xy", "../", "D:/"})
        EXPECT_EQ(fromArgument(argument), "false") << argument;
    EXPECT_EQ(fromArgument("/xyz"), "/xyz/");
    EXPECT_EQ(directory.askedSizes(), Sizes{});
}

// Lengths of texts count modulo 65536, and the capacity cuts what is left.
TEST(ApplicationPathFromArgument, MeasuresTheArgumentModulo65536)
{
    CurrentDirectory directory("/a/b");
    std::string const longName = "/opt/" + std::string(65531, 'x');
    EXPECT_EQ(fromArgument(longName), "false");
    EXPECT_EQ(fromArgument(longName + "xxx"), "false");
    EXPECT_EQ(fromArgument(longName + "xxxx"), "/opt/");
    EXPECT_EQ(fromArgument(longName + "xxxxx"), "/opt/");
    EXPECT_EQ(fromArgument(longName + "xxxxxxxx"), "/opt/");
    EXPECT_EQ(fromArgument("/opt/" + std::string(1000, 'x') + "/tool"), "/opt/");
    EXPECT_EQ(fromArgument(std::string(300, 'x')), std::string(250, 'x'));
    EXPECT_EQ(directory.askedSizes(), Sizes{});
}

TEST(ApplicationPathFromArgument, StartsFromTheCurrentDirectory)
{
    struct Row
    {
        char const* directory;
        char const* argument;
        char const* path;
    };
    for (Row const row : {
             Row{"/a/b", "./tool", "/a/b/"},
             Row{"/a/b/", "./tool", "/a/b/"},
             Row{"/a/b", "bin/tool", "/a/b/bin/"},
             Row{"/a/b", "tool/", "/a/b/"},
             Row{"/a/b", "././tool", "/a/b/./"},
             Row{"/a/b", "../tool", "/a/"},
             // The name ahead goes with the climb, though it would take it back.
             Row{"/a/b", "a/../tool", "/a/"},
             Row{"/a/b/c/d", "../../tool", "/a/b/"},
             Row{"/a/b/c/d", "x/../y/../tool", "/a/b/"},
             Row{"/a/b/c/d", "../bin/tool", "/a/b/c/bin/"},
             Row{"/a/b/c/d", "../x/y", "/a/b/c/x/"},
             Row{"/a/b/c/d", ".././tool", "/a/b/c/"},
             // The name of the directory is what is left when nothing follows.
             Row{"/a/b/c/d", "x/../", "/a/b/"},
             Row{"/a/b/c/d", "../..", "/a/b/c/"},
             // A climb ends below the root.
             Row{"/a/b", "../../../tool", "/a/"},
             Row{"/abc", "../tool", "/abc/"},
             // Any dots that end like a climb are one.
             Row{"/a/b/c/d", "x../tool", "/a/b/c/"},
             Row{"/a/b/c/d", ".../tool", "/a/b/c/"},
             Row{"/a/b/c/d", "..//tool", "/a/b/c//"},
             Row{"//host/share", "../tool", "//host/share/"},
             Row{"//host/share/dir", "../tool", "//host/share/"},
         }) {
        CurrentDirectory directory(row.directory);
        EXPECT_EQ(fromArgument(row.argument), row.path) << row.argument << " in " << row.directory;
        EXPECT_EQ(directory.askedSizes(), Sizes{250});
    }
}

TEST(ApplicationPathFromArgument, DoesWithoutADirectoryThatIsMissingOrShort)
{
    for (char const* const path : {"/", "/a", "/ab"}) {
        CurrentDirectory directory(path);
        EXPECT_EQ(fromArgument("./tool"), "./tool/") << path;
        EXPECT_EQ(fromArgument("../bin/tool"), "../bin/") << path;
        EXPECT_EQ(directory.askedSizes(), (Sizes{250, 250}));
    }
    CurrentDirectory directory("/a/b");
    directory.fails();
    EXPECT_EQ(fromArgument("./tool"), "./tool/");
    EXPECT_EQ(fromArgument("a/../tool"), "a/../tool/");
    EXPECT_EQ(fromArgument("ab/../tool"), "ab/../");
    EXPECT_EQ(fromArgument("xy/./tool"), "xy/");
}

TEST(ApplicationPathFromArgument, DropsWhatFindsTheDirectoryFull)
{
    std::string const x(238, 'x');
    {
        // With its slash the directory has 250 characters, and no room for the name.
        CurrentDirectory directory("/opt/bin/a/" + x);
        EXPECT_EQ(fromArgument("./tool"), "/opt/bin/a/");
        EXPECT_EQ(fromArgument("bin/tool"), "/opt/bin/a/");
        EXPECT_EQ(fromArgument("../tool"), "/opt/bin/a/");
    }
    {
        // Room for three characters: "bin", whose own end is gone.
        CurrentDirectory directory("/opt/bi/" + x);
        EXPECT_EQ(fromArgument("bin/tool"), "/opt/bi/" + x + "/");
        EXPECT_EQ(fromArgument("./tool"), "/opt/bi/" + x + "/");
    }
    // One character more, and the system has no answer that fits.
    CurrentDirectory directory("/opt/bin/ab/" + x);
    EXPECT_EQ(fromArgument("./tool"), "./tool/");
}

// At the capacity nothing is added, so the folded dot may stand before a name of one character.
TEST(ApplicationPathFromArgument, FoldsTheDotByItsPlaceAlone)
{
    std::string const host(245, 'h');
    EXPECT_EQ(fromArgument("//" + host + "/.x"), "//" + host + "/");
}

TEST(ApplicationPathFrom, AgreesWithAPlainModelWithoutAllocating)
{
    constexpr std::string_view letters = "/./..ab:";
    std::mt19937 random(11);
    auto const text = [&](std::size_t length) {
        std::string made(length, 'x');
        for (char& character : made)
            if (std::size_t const letter = random() % 12; letter < letters.size())
                character = letters[letter];
        return made;
    };
    auto const length = [&random]() -> std::size_t {
        return random() % 8 == 0 ? 200 + random() % 51 : random() % 20;
    };
    for (int i = 0; i < 60'000; ++i) {
        std::u16string const answer =
            i % 4 == 0 ? qvTest::widened(text(length())) : std::u16string();
        std::optional<std::string> const argument =
            i % 32 == 1 ? std::nullopt : std::optional(text(length() + random() % 40));
        std::string const current = "/" + text(std::min<std::size_t>(length(), 248));

        CurrentDirectory directory(current);
        _qvString<250> const answered = answer16(answer);
        Path out = path8("old text");
        std::size_t const before = qvTest::allocationCount();
        bool const found =
            qvSupport::applicationPathFrom(answered, argument ? argument->c_str() : nullptr, out);
        // Writing down the question that getcwd got takes an allocation of the test's own.
        ASSERT_EQ(qvTest::allocationCount() - before, directory.askedSizes().size());

        std::string const expected = qvTest::programDirectory(answer, argument, current);
        ASSERT_EQ(textOf(out), expected) << argument.value_or("") << " in " << current;
        ASSERT_EQ(found, !expected.empty());
    }
}

} // namespace
