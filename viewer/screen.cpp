#include "viewer/screen.h"

#include <algorithm>
#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

/// Home, and clear the lines below.
constexpr char clearScreen[] = "\033[H\033[J";

struct ScreenSize
{
    std::size_t rows = 24;
    std::size_t columns = 80;
};

ScreenSize screenSize()
{
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == -1 || size.ws_row == 0 || size.ws_col == 0)
        return {};
    return {size.ws_row, size.ws_col};
}

/// Rows that the first line of `text` takes, which the terminal wraps.
std::size_t rowsOfLine(std::string_view text, std::size_t columns)
{
    std::size_t const length = std::min(text.find('\n'), text.size());
    return std::max<std::size_t>(1, (length + columns - 1) / columns);
}

std::string_view withoutLine(std::string_view text)
{
    return text.substr(std::min(text.find('\n'), text.size() - 1) + 1);
}

std::size_t rowsOf(std::string_view text, std::size_t columns)
{
    std::size_t rows = 0;
    for (; !text.empty(); text = withoutLine(text))
        rows += rowsOfLine(text, columns);
    return rows;
}

} // namespace

void showOnScreen(std::string_view text)
{
    std::fputs(clearScreen, stdout);
    ScreenSize const screen = screenSize();
    std::size_t room = screen.rows - 1; // the cursor is on a row of its own
    bool const fits = rowsOf(text, screen.columns) <= room;
    if (!fits && room != 0)
        --room;
    while (!text.empty() && rowsOfLine(text, screen.columns) <= room) {
        room -= rowsOfLine(text, screen.columns);
        std::string_view const rest = withoutLine(text);
        std::fwrite(text.data(), 1, text.size() - rest.size(), stdout);
        text = rest;
    }
    if (!fits)
        std::fprintf(stdout, "... %ld more\n", std::count(text.begin(), text.end(), '\n'));
}
