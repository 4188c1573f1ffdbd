#pragma once

// Stand-in for getcwd: the test program is linked with --wrap=getcwd, and while a CurrentDirectory
// lives, it answers.

#include <cstddef>
#include <string>
#include <vector>

namespace qvTest {

class CurrentDirectory
{
public:
    explicit CurrentDirectory(std::string path);
    ~CurrentDirectory();
    CurrentDirectory(CurrentDirectory const&) = delete;
    CurrentDirectory& operator=(CurrentDirectory const&) = delete;

    // From here on getcwd fails; it has spoilt the buffer by then.
    void fails();
    // The buffer sizes that were asked with.
    std::vector<std::size_t> const& askedSizes() const;
};

} // namespace qvTest
