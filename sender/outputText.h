#pragma once

#include <cstddef>
#include <string_view>

/// The text of a run, kept back until all of it is shown: else a reader that has stopped reading
/// could hold up the run at any line, also while it holds the client's lock.
class OutputText
{
public:
    /// From here on standard output is unbuffered, so it needs no memory of its own.
    OutputText();

    /// Appends a text.
    void add(std::string_view text);

    /// Appends what `std::printf` would print.
    [[gnu::format(printf, 2, 3)]] void addFormatted(char const* format, ...);

    /// Writes the text to standard output and forgets it. A text that cannot be written is lost.
    void show();

    /// The text that was appended since the last `show()`.
    std::string_view pending() const { return {text_, length_}; }

private:
    std::size_t room() const { return sizeof text_ - 1 - length_; } // 1 for a terminator

    std::size_t length_ = 0;
    char text_[4096]; // the longest one, the usage text, takes less than half
};
