#include "sender/advice.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <string_view>

namespace {

constexpr std::size_t longestWord = 32; // of the table, and of a near miss

char lower(char letter)
{
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

/// Letters to insert, leave out, exchange, or swap with their neighbour to turn one word into the
/// other. Both have at most `longestWord` letters.
std::size_t distance(std::string_view one, std::string_view other)
{
    std::size_t rows[3][longestWord + 1]{};
    auto *before = rows[0], *last = rows[1], *present = rows[2];
    for (std::size_t j = 0; j <= other.size(); ++j)
        last[j] = j;
    for (std::size_t i = 1; i <= one.size(); ++i) {
        present[0] = i;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            char const a = lower(one[i - 1]), b = lower(other[j - 1]);
            present[j] = std::min({last[j] + 1, present[j - 1] + 1, last[j - 1] + (a != b)});
            if (i > 1 && j > 1 && a == lower(other[j - 2]) && b == lower(one[i - 2]))
                present[j] = std::min(present[j], before[j - 2] + 1);
        }
        std::swap(before, last);
        std::swap(last, present);
    }
    return last[other.size()];
}

/// The word that is meant: at most a third of its letters differ, and at most two.
std::string_view nearestTo(std::string_view word)
{
    std::string_view nearest;
    std::size_t least = 3;
    if (word.size() > longestWord)
        return nearest;
    for (Command const& command : allCommands()) {
        std::size_t const found = distance(word, command.word);
        if (found < least && found * 3 <= command.word.size()) {
            least = found;
            nearest = command.word;
        }
    }
    return nearest;
}

/// A number that is sent as it is typed.
bool isPlainNumber(std::string_view text)
{
    bool const hasDigits =
        !text.empty() && text.size() <= 5 &&
        std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!hasDigits)
        return false;
    int value = 0;
    for (char const digit : text)
        value = value * 10 + (digit - '0');
    return value >= 1 && value <= 65535;
}

void adviseOnNumber(char const* number, Request const& request)
{
    if (isPlainNumber(number))
        return;
    if (request.message)
        std::fprintf(stderr,
                     "qvNodeDispatchStatus: '%s' is no number from 1 to 65535; sent as %d\n",
                     number, request.message->value);
    else
        std::fprintf(stderr, "qvNodeDispatchStatus: '%s' is no number from 1 to 65535\n", number);
}

} // namespace

void advise(int argc, char const* const* argv, Request const& request)
{
    std::string_view word = argv[1];
    if (word.starts_with('-'))
        word.remove_prefix(1);
    bool const takesNumber = distance(word.substr(0, longestWord), "EventFrameDone") == 0;
    if (takesNumber && argc < 3)
        std::fputs("qvNodeDispatchStatus: EventFrameDone needs a number\n", stderr);
    else if (takesNumber)
        adviseOnNumber(argv[2], request);
    else if (!request.message) {
        std::string_view const nearest = nearestTo(word);
        if (!nearest.empty())
            std::fprintf(stderr, "qvNodeDispatchStatus: did you mean %s?\n", nearest.data());
    }
    int const read = takesNumber ? 3 : 2;
    if (argc > read)
        std::fprintf(stderr, "qvNodeDispatchStatus: '%s' is ignored\n", argv[read]);
}
