#pragma once

#include <cstddef>
#include <string_view>

/// What a run says. It is kept back until it is shown, whole: a reader that has stopped reading
/// would otherwise hold up the run at any line, also with the client's lock taken.
class OutputText
{
public:
    /// From here on standard output hands on at once what it is given. It needs no memory of its
    /// own then.
    OutputText();

    /// Appends a text.
    void add(std::string_view text);

    /// Appends what `std::printf` would print.
    [[gnu::format(printf, 2, 3)]] void addFormatted(char const* format, ...);

    /// Writes the text to standard output and forgets it. A text that cannot be written is lost.
    void show();

    /// What was appended since the last time that it was shown.
    std::string_view pending() const { return {text_, length_}; }

private:
    std::size_t room() const { return sizeof text_ - 1 - length_; } // 1 for a terminator

    std::size_t length_ = 0;
    char text_[4096]; // the usage text is the longest one, with less than half of it
};
