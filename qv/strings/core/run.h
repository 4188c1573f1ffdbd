#pragma once

#include <cstring>

/// One form for all texts that members pass to the core.

namespace qvStrings {

/// Units and how many of them. `units` is null for a text that was null; `count` is then 0.
template <typename Unit>
struct Run
{
    Unit const* units;
    unsigned count;
};

/// The low 16 bits of a count that members take modulo 65536, so -1 counts as 65535.
constexpr unsigned lowCount(int count)
{
    return static_cast<unsigned>(count) & 0xFFFFu;
}

/// `count` units as the caller counts them, zero units included. None of a null text.
template <typename Unit>
Run<Unit> counted(Unit const* text, int count)
{
    return {text, text == nullptr ? 0 : lowCount(count)};
}

/// A zero-terminated byte text, measured by the low 16 bits of its strlen: one of 65,536 bytes
/// counts as empty and one of 65,541 as 5 long. Null is an empty run.
inline Run<char> measured(char const* text)
{
    return {text, text == nullptr ? 0 : static_cast<unsigned>(std::strlen(text) & 0xFFFFu)};
}

/// A text of units, which ends at its first zero unit or at 1024 units, whatever the capacity it is
/// meant for. Reads no unit behind that. Null is an empty run.
Run<unsigned short> measured(unsigned short const* text);

/// A zero-terminated byte text as a pattern of a string of this capacity: its first bytes count.
Run<char> patternOf(char const* text, unsigned capacity);

/// The first `limit` units of a run.
template <typename Unit>
Run<Unit> cut(Run<Unit> run, unsigned limit)
{
    return {run.units, run.count < limit ? run.count : limit};
}

} // namespace qvStrings
