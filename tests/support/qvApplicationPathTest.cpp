// The directory of the running program, asked by a program that is copied to where the path is
// special and started there.

#include "qv/support/core/executablePath.h"
#include "qv/support/qvProcess.h"
#include "tests/support/allocationCount.h"
#include "tests/support/paths.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace {

using qvTest::Path;
using qvTest::textOf;

// Both forms, by the types that callers know them by.
[[maybe_unused]] constexpr bool (*filling)(Path&, char*) = &qvApplicationPath;
[[maybe_unused]] constexpr Path (*byValue)(char*) = &qvApplicationPath;

constexpr char reportRequest[] = "--report-application-path";

std::string ownPath()
{
    return std::filesystem::read_symlink("/proc/self/exe").string();
}

// Starts the program under `file` with `argv0` as its name, and gives what it reports.
std::string reportOf(std::string const& file, std::string argv0)
{
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    pid_t const child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        std::string request(reportRequest);
        char* arguments[] = {argv0.data(), request.data(), nullptr};
        execv(file.c_str(), arguments);
        _exit(127);
    }
    close(ends[1]);
    std::string report;
    std::array<char, 512> buffer{};
    for (ssize_t got = 0; (got = read(ends[0], buffer.data(), buffer.size())) > 0;)
        report.append(buffer.data(), static_cast<std::size_t>(got));
    close(ends[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? report : "child failed";
}

// A copy of this program, in a directory of its own.
class Elsewhere
{
public:
    Elsewhere()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "qvPathXXXXXX").string();
        root = std::filesystem::canonical(mkdtemp(pattern.data())).string();
    }
    ~Elsewhere()
    {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
    }
    Elsewhere(Elsewhere const&) = delete;
    Elsewhere& operator=(Elsewhere const&) = delete;

    std::string copyTo(std::string const& directory) const
    {
        std::filesystem::create_directories(directory);
        std::string file = directory + "/tool";
        std::filesystem::copy_file("/proc/self/exe", file);
        return file;
    }

    // A directory that makes the path of the program in it `length` characters long.
    std::string directoryFor(std::size_t length) const
    {
        std::string directory = root + "/";
        std::size_t const end = length - std::strlen("/tool");
        // A slash now and then, since names have a limit of their own.
        while (directory.size() < end)
            directory += directory.size() % 50 == 0 && directory.size() + 1 < end ? "/d" : "d";
        directory.resize(end);
        return directory;
    }

    std::string root;
};

TEST(ExecutablePath, GivesTheWholePathOfTheRunningProgram)
{
    std::string const path = ownPath();
    ASSERT_LE(path.size(), 250u) << "build in a folder that is less deep";
    std::size_t const before = qvTest::allocationCount();
    _qvString<250> const answer = qvSupport::executablePath();
    EXPECT_EQ(qvTest::allocationCount(), before);
    ASSERT_EQ(answer.length, path.size());
    EXPECT_EQ(std::u16string(answer.text, answer.text + answer.length), qvTest::widened(path));
    EXPECT_EQ(answer.text[answer.length], 0);
}

TEST(QvApplicationPath, GivesTheDirectoryOfTheRunningProgram)
{
    std::string const path = ownPath();
    ASSERT_LE(path.size(), 249u) << "build in a folder that is less deep";
    std::string const directory = path.substr(0, path.rfind('/') + 1);
    char argument[] = "/opt/x/tool";
    for (char* const argv0 : {static_cast<char*>(nullptr), argument}) {
        Path out = qvTest::path8("old text");
        std::size_t const before = qvTest::allocationCount();
        bool const found = qvApplicationPath(out, argv0);
        Path const result = qvApplicationPath(argv0);
        EXPECT_EQ(qvTest::allocationCount(), before);
        EXPECT_TRUE(found);
        EXPECT_EQ(textOf(out), directory);
        EXPECT_EQ(textOf(result), directory);
    }
}

TEST(QvApplicationPath, GoesByThePathThatTheSystemKnows)
{
    Elsewhere const elsewhere;
    std::string const file = elsewhere.copyTo(elsewhere.root + "/f\xE4rg");
    EXPECT_EQ(reportOf(file, "/opt/x/tool"), "true " + elsewhere.root + "/f\xE4rg/");
    EXPECT_EQ(reportOf(file, ""), "true " + elsewhere.root + "/f\xE4rg/");
}

// A path of 250 characters is the longest that is an answer; behind it the argument decides.
TEST(QvApplicationPath, TakesALongPathWholeOrNotAtAll)
{
    for (std::size_t const length : {249U, 250U}) {
        Elsewhere const elsewhere;
        std::string const directory = elsewhere.directoryFor(length);
        std::string const file = elsewhere.copyTo(directory);
        ASSERT_EQ(file.size(), length);
        EXPECT_EQ(reportOf(file, "/opt/x/tool"), "true " + directory + "/");
    }
    for (std::size_t const length : {251U, 252U, 300U, 600U}) {
        Elsewhere const elsewhere;
        std::string const file = elsewhere.copyTo(elsewhere.directoryFor(length));
        ASSERT_EQ(file.size(), length);
        EXPECT_EQ(reportOf(file, "/opt/x/tool"), "true /opt/x/");
        EXPECT_EQ(reportOf(file, "abc"), "false ");
    }
}

// The report of a started copy: the result and the path, or what is wrong with them.
int report(char* argv0)
{
    Path out = qvTest::path8("old text");
    bool const found = qvApplicationPath(out, argv0);
    bool const same = textOf(out) == textOf(qvApplicationPath(argv0));
    std::printf("%s %s%s", found ? "true" : "false", textOf(out).c_str(),
                same ? "" : ", and both forms differ");
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], reportRequest) == 0)
        return report(argv[0]);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
