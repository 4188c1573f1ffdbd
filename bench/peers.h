#pragma once

#include <boost/static_string/static_string.hpp>

/// The peer that also holds its text in the object; and functions that the fixed strings have and
/// the standard strings lack, as one writes them by hand.

template <int N>
using StaticString = boost::static_string<static_cast<std::size_t>(N)>;

/// Replaces every `from` by `to`, from left to right.
template <typename String>
void replaceEvery(String& text, String const& from, String const& to)
{
    for (auto at = text.find(from); at != String::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

/// The same in one pass into another string, which is best when the text grows. `find(text, from,
/// start)` is the search.
template <typename String, typename Find>
void replaceOnePass(String& target, String const& text, String const& from, String const& to,
                    Find find)
{
    target.clear();
    std::size_t done = 0;
    for (auto at = find(text, from, done); at != String::npos; at = find(text, from, done)) {
        target.append(text, done, at - done);
        target += to;
        done = at + from.size();
    }
    target.append(text, done);
}

template <typename String>
void replaceOnePass(String& target, String const& text, String const& from, String const& to)
{
    replaceOnePass(target, text, from, to,
                   [](String const& in, String const& pattern, std::size_t start) {
                       return in.find(pattern, start);
                   });
}

/// Strips the characters of `blanks` from both ends.
template <typename String>
void trimEnds(String& text, typename String::value_type const* blanks)
{
    auto const last = text.find_last_not_of(blanks);
    text.erase(last == String::npos ? 0 : last + 1);
    text.erase(0, text.find_first_not_of(blanks));
}

/// ASCII upper case of a unit.
template <typename Unit>
Unit upperUnit(Unit unit)
{
    return unit >= 'a' && unit <= 'z' ? static_cast<Unit>(unit - ('a' - 'A')) : unit;
}

/// Equality of two units but for the case of ASCII letters.
template <typename Unit>
bool equalIgnoringCase(Unit a, Unit b)
{
    return upperUnit(a) == upperUnit(b);
}
