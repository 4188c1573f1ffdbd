#include "tests/support/currentDirectory.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace {

struct Answer
{
    std::string path;
    bool failing = false;
    std::vector<std::size_t> askedSizes;
};

Answer* answer = nullptr;

} // namespace

extern "C" {

// The names are the linker's.
// NOLINTBEGIN(bugprone-reserved-identifier)
char* __real_getcwd(char* buffer, std::size_t size);
char* __wrap_getcwd(char* buffer, std::size_t size);

char* __wrap_getcwd(char* buffer, std::size_t size)
{
    if (answer == nullptr)
        return __real_getcwd(buffer, size);
    answer->askedSizes.push_back(size);
    // What lies behind the text, or in a failed answer, is nothing to read.
    std::fill_n(buffer, size, '?');
    if (answer->failing || answer->path.size() >= size) {
        errno = ERANGE;
        return nullptr;
    }
    std::memcpy(buffer, answer->path.c_str(), answer->path.size() + 1);
    return buffer;
}
// NOLINTEND(bugprone-reserved-identifier)

} // extern "C"

namespace qvTest {

CurrentDirectory::CurrentDirectory(std::string path)
{
    answer = new Answer;
    answer->path = std::move(path);
}

CurrentDirectory::~CurrentDirectory()
{
    delete std::exchange(answer, nullptr);
}

void CurrentDirectory::fails()
{
    answer->failing = true;
}

std::vector<std::size_t> const& CurrentDirectory::askedSizes() const
{
    return answer->askedSizes;
}

} // namespace qvTest
