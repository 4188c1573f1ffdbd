// The directory part of a path.

#include "qv/support/qvProcess.h"
#include "tests/model/directoryModel.h"
#include "tests/support/allocationCount.h"
#include "tests/support/paths.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

using qvTest::Path;
using qvTest::path8;
using qvTest::textOf;

// Both by value.
static_assert(std::is_same_v<decltype(&qvGetDirName_local), Path (*)(Path)>);

std::string dirName(std::string_view text)
{
    return textOf(qvGetDirName_local(path8(text)));
}

struct Row
{
    std::string path;
    std::string directory;
};

template <std::size_t Count>
void expectRows(Row const (&rows)[Count])
{
    for (Row const& row : rows) {
        EXPECT_EQ(dirName(row.path), row.directory) << row.path;
        EXPECT_EQ(qvTest::directoryOf(row.path), row.directory) << "by the model, " << row.path;
    }
}

TEST(QvGetDirName, CutsTheLastName)
{
    expectRows({
        {"/usr/local/bin/tool", "/usr/local/bin/"},
        {"/usr/local/bin/tool/", "/usr/local/bin/"},
        {"/usr/local/bin/", "/usr/local/"},
        {"/usr/local", "/usr/"},
        {"abc/def", "abc/"},
        {"abc/def/", "abc/"},
        {"ab/c", "ab/"},
        // Only one slash is dropped at the end.
        {"abc/def//", "abc/def/"},
        {"abc//def", "abc//"},
        // Names of dots are names.
        {"/a/b/./tool", "/a/b/./"},
        {"/a/b/../tool", "/a/b/../"},
    });
}

TEST(QvGetDirName, NeverMakesTheRootAParent)
{
    expectRows({
        {"/usr/", "/usr/"},
        {"/usr", "/usr/"},
        {"/tool", "/tool/"},
        {"x/tool", "x/tool/"},
        {"x/tool/", "x/tool/"},
        {"./tool", "./tool/"},
        {"tool", "tool/"},
        {"tool/", "tool/"},
        {"abc", "abc/"},
        {"/./", "/./"},
        {"/..", "/../"},
    });
}

TEST(QvGetDirName, LeavesOneAndTwoCharactersAlone)
{
    expectRows({
        {"", ""},
        {"a", "a"},
        {"/", "/"},
        {"ab", "ab"},
        {"a/", "a/"},
        {"/a", "/a"},
        {"//", "//"},
        {"D:", "D:"},
    });
}

TEST(QvGetDirName, KeepsServerAndShareTogether)
{
    expectRows({
        {"//host/share", "//host/share/"},
        {"//host/share/", "//host/share/"},
        {"//host/share/dir", "//host/share/"},
        {"//host/share/dir/", "//host/share/"},
        {"//host/share/dir/tool", "//host/share/dir/"},
        {"//host", "//host/"},
        {"///", "///"},
        {"////", "////"},
        {"//h/s/d", "//h/s/"},
    });
}

// The second character alone tells a network path.
TEST(QvGetDirName, TakesAnySecondSlashForANetworkPath)
{
    expectRows({
        {"a/b/c", "a/b/c/"},
        {"a/b/c/d", "a/b/c/"},
        {"a/bc/d/e/f", "a/bc/d/e/"},
        {"./b/c", "./b/c/"},
        {"./b/c/d", "./b/c/"},
        {"a//", "a//"},
        {"a//b", "a//b/"},
        {"a//b/c", "a//b/"},
    });
}

TEST(QvGetDirName, KnowsDrives)
{
    expectRows({
        {"D:/x", "D:/"},
        {"D:/x/", "D:/"},
        {"D:/x/y", "D:/x/"},
        {"D:/", "D:/"},
        {"D:x", "D:x/"},
    });
}

TEST(QvGetDirName, AddsASlashOnlyWhereOneFits)
{
    std::string const x248(248, 'x');
    expectRows({
        {x248, x248 + "/"},
        {x248 + "x", x248 + "x/"},
        {x248 + "xx", x248 + "xx"},
        {x248 + "x/", x248 + "x/"},
        {"/" + x248 + "x", "/" + x248 + "x"},
        {"abc/" + x248.substr(2), "abc/"},
        {"//" + x248, "//" + x248},
        {x248 + "/x", x248 + "/"},
    });
}

// A zero is a character like others.
TEST(QvGetDirName, GoesByTheLength)
{
    using namespace std::string_literals;
    expectRows({
        {"ab/c\0d"s, "ab/"},
        {"a\0/cd"s, "a\0/"s},
        {"abc\0"s, "abc\0/"s},
    });
}

// What a damaged length leads to has a length that its caller can go by.
TEST(QvGetDirName, TakesADamagedLengthForAFullPath)
{
    std::string const x247(247, 'x');
    Row const rows[] = {
        {x247 + "xxx", x247 + "xxx"},
        {"abc/" + x247.substr(1), "abc/"},
        {x247 + "xx/", x247 + "xx/"},
        {"//" + x247 + "/", "//" + x247 + "/"},
    };
    for (Row const& row : rows)
        for (int const length : {251, 252, 32768, 32769, 60000, 65535}) {
            SCOPED_TRACE(row.path + ", length " + std::to_string(length));
            Path path = path8(row.path);
            path.length = static_cast<unsigned short>(length);
            path.text[250] = '/'; // the terminator's place
            Path const directory = qvGetDirName_local(path);
            ASSERT_EQ(directory.length, row.directory.size());
            EXPECT_EQ(textOf(directory), row.directory);
            EXPECT_EQ(directory.text[directory.length], 0);
        }
}

TEST(QvGetDirName, LeavesTheArgumentOfTheCallerAlone)
{
    Path const path = path8("/usr/bin/tool");
    qvGetDirName_local(path);
    EXPECT_EQ(textOf(path), "/usr/bin/tool");
}

TEST(QvGetDirName, AgreesWithAPlainModelWithoutAllocating)
{
    constexpr std::string_view letters = "///ab.:";
    std::mt19937 random(10);
    for (int i = 0; i < 200'000; ++i) {
        std::size_t const length = i % 16 == 0 ? 240 + random() % 11 : random() % 24;
        std::string text(length, 'x');
        // Long texts of few slashes: otherwise their ends would all look alike.
        std::size_t const spread = i % 3 == 0 ? 40 : letters.size();
        for (char& character : text)
            if (std::size_t const letter = random() % spread; letter < letters.size())
                character = letters[letter];
        Path const path = path8(text);

        std::size_t const before = qvTest::allocationCount();
        Path const directory = qvGetDirName_local(path);
        ASSERT_EQ(qvTest::allocationCount(), before);
        ASSERT_EQ(textOf(directory), qvTest::directoryOf(text)) << text;
    }
}

} // namespace
