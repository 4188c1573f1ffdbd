#include "sender/outputText.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

OutputText::OutputText()
{
    std::setvbuf(stdout, nullptr, _IONBF, 0);
}

void OutputText::add(std::string_view text)
{
    std::size_t const added = std::min(text.size(), room());
    std::memcpy(text_ + length_, text.data(), added);
    length_ += added;
}

void OutputText::addFormatted(char const* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start is lost on clang 14
    int const wanted = std::vsnprintf(text_ + length_, room() + 1, format, arguments);
    va_end(arguments);
    if (wanted > 0)
        length_ += std::min(static_cast<std::size_t>(wanted), room());
}

void OutputText::show()
{
    std::fwrite(text_, 1, length_, stdout);
    length_ = 0;
}
