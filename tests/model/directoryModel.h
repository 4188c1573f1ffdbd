#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

// The directory of a path and the directory of the program once more, in terms of std::string.
namespace qvTest {

inline constexpr std::size_t pathCapacity = 250;

inline std::string directoryOf(std::string path)
{
    if (path.size() <= 2)
        return path;
    if (path.back() == '/')
        path.pop_back();

    // A slash in the first two places is part of what the path begins with.
    auto const isCut = [](std::size_t slash) { return slash != std::string::npos && slash > 1; };
    std::size_t const last = path.rfind('/');
    if (isCut(last) && (path[1] != '/' || isCut(path.rfind('/', last - 1))))
        path.resize(last);

    if (path.size() < pathCapacity)
        path += '/';
    return path;
}

// A text as it arrives by a char const*: its length counts modulo 65536.
inline std::string assigned(std::string const& text)
{
    return text.substr(0, std::min(text.size() % 65536, pathCapacity));
}

inline std::string startedFrom(std::string const& argument, std::string const& currentDirectory)
{
    std::string const path = assigned(argument);
    if (path.size() < 4)
        return {};
    bool const absolute = path[0] == '/' || path[1] == ':';
    bool const bareName = path.find('/') == std::string::npos;
    if (absolute || bareName || currentDirectory.size() < 4)
        return path;

    std::string directory = currentDirectory;
    if (directory.size() < pathCapacity && directory.back() != '/')
        directory += '/';
    std::size_t rest = 0;
    for (std::size_t up = path.find("../"); up != std::string::npos;
         up = path.find("../", up + 1)) {
        directory = directoryOf(directory);
        rest = up + 3;
    }
    directory += path.substr(rest);
    return directory.substr(0, pathCapacity);
}

// `answer` is the platform's path as units, at most 250, empty for none; a null argument is
// nothing, and an empty current directory is one that cannot be had.
inline std::string programDirectory(std::u16string const& answer,
                                    std::optional<std::string> const& argument,
                                    std::string const& currentDirectory)
{
    std::string path;
    for (char16_t const unit : answer)
        path += static_cast<char>(static_cast<unsigned char>(unit & 0xFF));
    // The way from 16 to 8 bits has room for one unit less than the string, but keeps its length.
    if (path.size() == pathCapacity)
        path.back() = '\0';
    if (path.empty() && argument)
        path = startedFrom(*argument, currentDirectory);
    if (path.empty())
        return {};

    path = directoryOf(path);
    std::size_t const size = path.size();
    if (size >= 3 && path[size - 3] == '/' && path[size - 2] == '.')
        path.resize(size - 2);
    return path;
}

} // namespace qvTest
