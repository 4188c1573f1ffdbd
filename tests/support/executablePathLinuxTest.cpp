// Where the program lies, by what the system answers, which fits into a path of 250 characters or
// does not.

#include "qv/support/core/executablePath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <unistd.h>

namespace {

std::string answer;
bool isRefused = false;

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names
extern "C" ssize_t __wrap_readlink(char const* path, char* buffer, size_t size)
{
    EXPECT_STREQ(path, "/proc/self/exe");
    if (isRefused)
        return -1;
    std::size_t const given = std::min(answer.size(), size);
    std::copy_n(answer.data(), given, buffer);
    return static_cast<ssize_t>(given);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

std::string pathFor(std::string const& systemAnswer, bool refused = false)
{
    answer = systemAnswer;
    isRefused = refused;
    return qvSupport::executablePath().to_qvString8_500().asChar();
}

TEST(ExecutablePathLinux, IsTheSystemsAnswer)
{
    EXPECT_EQ(pathFor("/opt/farm/bin/client"), "/opt/farm/bin/client");
    EXPECT_EQ(pathFor(std::string(250, 'p')), std::string(250, 'p'));
}

TEST(ExecutablePathLinux, IsEmptyWithoutAnAnswerThatFits)
{
    EXPECT_EQ(pathFor("", true), "");
    EXPECT_EQ(pathFor(""), "");
    EXPECT_EQ(pathFor(std::string(251, 'p')), "");
    EXPECT_EQ(pathFor(std::string(4000, 'p')), "");
}

} // namespace
