#pragma once

// Definitions of stringModel.h, for the files that instantiate it: editing and slicing.
#include "tests/model/stringModel.h"

#include <algorithm>
#include <cstdint>

namespace qvTest {

// Each step reads what it reads at that moment, which decides what happens when the receiver is its
// own argument.
template <class Unit>
void StringModel<Unit>::splice(std::size_t p, std::size_t cut, StringModel const* insertion)
{
    StringModel const u = *this;
    putLength(0);
    if (p != 0) {
        std::size_t const m = std::min(p, capacity());
        for (std::size_t i = 0; i < m; ++i)
            putText(i, u.textAt(i));
        putLength(m);
        terminate();
    }
    if (insertion != nullptr && insertion->length() != 0)
        blockAppend(insertion->used(), static_cast<unsigned int>(insertion->length()));
    std::size_t const rest = u.length() - p;
    if (rest != cut)
        blockAppend(u.used().substr(p + cut), static_cast<unsigned int>(rest - cut));
}

template <class Unit>
void StringModel<Unit>::replaceAll(StringModel const& from, StringModel const& to, bool folded)
{
    auto const find = [&](int start) {
        return folded ? indexOf(from, start) : indexOfCaseSen(from, start);
    };
    std::size_t const cut = from.length();
    int r = find(0);
    while (r != -1) {
        splice(static_cast<std::size_t>(r), cut, &to);
        r = find(r + static_cast<int>(to.length()));
    }
}

template <class Unit>
void StringModel<Unit>::replace(StringModel const& from, StringModel const& to)
{
    replaceAll(from, to, true);
}

template <class Unit>
void StringModel<Unit>::replaceCaseSen(StringModel const& from, StringModel const& to)
{
    replaceAll(from, to, false);
}

template <class Unit>
void StringModel<Unit>::replaceUnit(Unit a, Unit b)
{
    for (std::size_t i = 0; i < length(); ++i)
        if (upper(textAt(i)) == upper(a))
            putText(i, b);
}

template <class Unit>
void StringModel<Unit>::removeAll(StringModel const& p, bool folded)
{
    auto const find = [&](int start) {
        return folded ? indexOf(p, start) : indexOfCaseSen(p, start);
    };
    std::size_t const cut = p.length();
    int r = find(0);
    while (r != -1) {
        splice(static_cast<std::size_t>(r), cut, nullptr);
        r = find(r);
    }
}

template <class Unit>
void StringModel<Unit>::remove(StringModel const& p)
{
    removeAll(p, true);
}

template <class Unit>
void StringModel<Unit>::removeCaseSens(StringModel const& p)
{
    removeAll(p, false);
}

template <class Unit>
StringModel<Unit> StringModel<Unit>::removeUnit(Unit c)
{
    String const folded = upper(used());
    for (std::size_t i = folded.size(); i > 0; --i)
        if (folded[i - 1] == upper(c))
            splice(i - 1, 1, nullptr);
    return *this;
}

template <class Unit>
void StringModel<Unit>::removeRange(int start, int count)
{
    std::uint32_t const from = static_cast<std::uint32_t>(start);
    std::uint32_t const cut = static_cast<std::uint32_t>(count);
    std::uint32_t const n = static_cast<std::uint32_t>(capacity());
    StringModel const u = *this;
    putLength(0);
    if (from != 0) {
        putLength(std::min(from, n));
        terminate();
    }
    std::uint32_t const rest = static_cast<std::uint32_t>(u.length()) - from;
    if (rest == cut)
        return;
    std::uint32_t const current = static_cast<std::uint32_t>(length());
    std::uint32_t k = rest - cut;
    if (k + current > n)
        k = n - current;
    if (k > n - current) {
        // The sum has wrapped: the copy of this huge count would run off the object.
        strayed = true;
        return;
    }
    for (std::uint32_t i = 0; i < k; ++i)
        putText(current + i, u.reachedUnit(std::uint64_t{from + cut} + i));
    putLength(current + k);
    terminate();
}

template <class Unit>
void StringModel<Unit>::insert(int pos, StringModel const& s)
{
    int const p = std::min(pos, static_cast<int>(length()));
    StringModel const u = *this;
    putLength(0);
    if (p != 0) {
        bool const takesAll = p < 0 || static_cast<std::size_t>(p) > capacity() - 1;
        putLength(takesAll ? capacity() : static_cast<std::size_t>(p));
        terminate();
    }
    if (s.length() != 0)
        blockAppend(s.used(), static_cast<unsigned int>(s.length()));
    if (p < 0)
        return; // full already: nothing of what is behind can be appended
    std::size_t const behind = u.length() - static_cast<std::size_t>(p);
    if (behind > 0)
        blockAppend(u.used().substr(static_cast<std::size_t>(p)),
                    static_cast<unsigned int>(behind));
}

template <class Unit>
void StringModel<Unit>::trim()
{
    auto const isBlank = [](Unit c) { return c == 0 || c == 9 || c == 10 || c == 13 || c == 32; };
    while (length() != 0 && isBlank(textAt(length() - 1)))
        putLength(length() - 1);
    std::size_t leading = 0;
    while (leading < length() && isBlank(textAt(leading)))
        ++leading;
    if (leading != 0) {
        std::size_t const kept = length() - leading;
        for (std::size_t i = 0; i < kept; ++i)
            putText(i, textAt(leading + i));
        putLength(kept);
    }
    terminate();
}

template <class Unit>
void StringModel<Unit>::makeUpper()
{
    for (std::size_t i = 0; i < length(); ++i)
        putText(i, upper(textAt(i)));
}

template <class Unit>
void StringModel<Unit>::makeLower()
{
    for (std::size_t i = 0; i < length(); ++i)
        putText(i, lower(textAt(i)));
}

template <class Unit>
void StringModel<Unit>::addPadded(String const* s, int width, bool insideCapacity)
{
    long long const n = s == nullptr ? 0 : static_cast<long long>(s->size() % 65536);
    long long const current = static_cast<long long>(length());
    long long const limit = static_cast<long long>(capacity());
    if (width == 0 && n == 0)
        return;
    long long const m = current + n <= limit ? n : limit - current;
    long long field = width < 0 ? -static_cast<long long>(width) : width;
    if (insideCapacity && field + current > limit)
        field = limit - current;
    long long const pad = field - m;

    // The length is read afresh for each blank: in an older image the blanks can land on it.
    auto const putBlanks = [&] {
        for (long long i = 0; i < pad && !strayed; ++i)
            putText(length() + static_cast<std::size_t>(i), Unit{' '});
        putLength(length() + static_cast<std::size_t>(pad));
    };
    if (pad >= 1 && width < 0)
        putBlanks();
    if (s != nullptr) {
        copyIn(length(), *s, static_cast<std::size_t>(m));
        putLength(length() + static_cast<std::size_t>(m));
    }
    if (pad >= 1 && width > 0)
        putBlanks();
    terminate();
}

template <class Unit>
StringModel<Unit> StringModel<Unit>::left(int n) const
{
    StringModel made = zeroedResult();
    int const k = std::min(static_cast<int>(length()), n);
    std::size_t const m = std::min<std::size_t>(static_cast<unsigned int>(k), capacity());
    for (std::size_t i = 0; i < m; ++i)
        made.putText(i, textAt(i));
    made.putLength(m);
    return made;
}

template <class Unit>
StringModel<Unit> StringModel<Unit>::slice(StringModel made, int start, int count) const
{
    std::size_t const m = std::min<std::size_t>(static_cast<unsigned int>(count), capacity());
    for (std::size_t i = 0; i < m; ++i)
        made.putText(i, reachedUnit(static_cast<unsigned long long>(start) + i));
    made.putLength(m);
    made.terminate();
    return made;
}

template <class Unit>
StringModel<Unit> StringModel<Unit>::leftUnit(Unit c, bool withSeparator) const
{
    int const i = indexOfUnit(c, 0);
    if (i == -1)
        return *this;
    if (i == 0 && !withSeparator) {
        StringModel made = zeroedResult();
        made.putText(0, c);
        made.putLength(1);
        return made;
    }
    if (i == 0)
        return left(0);
    return left(withSeparator ? i + 1 : i);
}

template <class Unit>
StringModel<Unit> StringModel<Unit>::leftNCut(Unit c, bool withSeparator)
{
    StringModel const result = leftUnit(c, withSeparator);
    int const i = indexOfUnit(c, 0);
    if (i == -1) {
        clear();
        return result;
    }
    std::size_t const behind = static_cast<std::size_t>(i) + 1;
    std::size_t const rest = length() - behind;
    putLength(rest);
    if (rest == 0)
        return result; // the first unit keeps what it was
    for (std::size_t k = 0; k < rest; ++k)
        putText(k, textAt(behind + k));
    terminate();
    return result;
}

} // namespace qvTest
