#pragma once

// Definitions of stringModel.h, for the files that instantiate it: image, state, append, numbers.
#include "tests/model/stringModel.h"

#include <algorithm>
#include <cstdint>

namespace qvTest {

template <class Unit>
StringModel<Unit>::StringModel(StringImage const& image, Byte seed)
    : layout(image),
      object(image.size, seed),
      determined(image.size, true)
{}

template <class Unit>
StringModel<Unit> StringModel<Unit>::zeroedResult() const
{
    StringModel made(layout, 0);
    if (!layout.clearsSpare)
        made.undetermine(layout.spareAt, layout.spareCount);
    return made;
}

template <class Unit>
void StringModel<Unit>::undetermine(std::size_t from, std::size_t count)
{
    for (std::size_t at = from; at < from + count; ++at)
        determined[at] = false;
}

template <class Unit>
bool StringModel<Unit>::fullyDetermined() const
{
    return std::find(determined.begin(), determined.end(), false) == determined.end();
}

template <class Unit>
std::size_t StringModel<Unit>::length() const
{
    return object[layout.lengthAt] + 256u * object[layout.lengthAt + 1];
}

template <class Unit>
void StringModel<Unit>::putLength(std::size_t n)
{
    object[layout.lengthAt] = static_cast<Byte>(n % 256);
    object[layout.lengthAt + 1] = static_cast<Byte>(n / 256 % 256);
    determined[layout.lengthAt] = true;
    determined[layout.lengthAt + 1] = true;
}

// Units lie with their low byte first.
template <class Unit>
Unit StringModel<Unit>::textAt(std::size_t i) const
{
    unsigned value = 0;
    for (std::size_t byte = sizeof(Unit); byte > 0; --byte)
        value = value << 8 | object[layout.textAt + i * sizeof(Unit) + byte - 1];
    return static_cast<Unit>(value);
}

template <class Unit>
void StringModel<Unit>::putStored(std::size_t at, Unit value)
{
    unsigned rest = static_cast<UnsignedUnit>(value);
    for (std::size_t byte = 0; byte < sizeof(Unit); ++byte, rest >>= 8) {
        object[at + byte] = static_cast<Byte>(rest);
        determined[at + byte] = true;
    }
}

template <class Unit>
void StringModel<Unit>::putText(std::size_t i, Unit value)
{
    std::size_t const at = layout.textAt + i * sizeof(Unit);
    if (at < layout.size)
        putStored(at, value);
    else
        strayed = true;
}

template <class Unit>
void StringModel<Unit>::putBytes(std::string const& content)
{
    for (std::size_t at = 0; at < object.size(); ++at)
        object[at] = content.empty() ? Byte{0} : static_cast<Byte>(content[at % content.size()]);
}

template <class Unit>
typename StringModel<Unit>::String StringModel<Unit>::used() const
{
    String units;
    for (std::size_t i = 0; i < length(); ++i)
        units += textAt(i);
    return units;
}

template <class Unit>
bool StringModel<Unit>::hasStoredZero() const
{
    for (std::size_t i = 0; i <= capacity(); ++i)
        if (textAt(i) == Unit{0})
            return true;
    return false;
}

template <class Unit>
typename StringModel<Unit>::String StringModel<Unit>::storedText() const
{
    String units;
    for (std::size_t i = 0; i <= capacity() && textAt(i) != Unit{0}; ++i)
        units += textAt(i);
    return units;
}

template <class Unit>
Unit StringModel<Unit>::reachedUnit(unsigned long long i) const
{
    return i < (layout.size - layout.textAt) / sizeof(Unit) ? textAt(i) : Unit{0};
}

template <class Unit>
void StringModel<Unit>::copyIn(std::size_t at, String const& s, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        putText(at + i, s[i]);
}

template <class Unit>
void StringModel<Unit>::construct()
{
    clear();
    if (layout.clearsSpare)
        std::fill_n(object.begin() + static_cast<std::ptrdiff_t>(layout.spareAt), layout.spareCount,
                    Byte{0});
}

// All N units travel, stale ones included; the last unit of the text area stays as it was unless
// the terminator falls on it.
template <class Unit>
void StringModel<Unit>::copyLegacy(StringModel const& o)
{
    putLength(o.length());
    for (std::size_t i = 0; i < capacity(); ++i)
        putText(i, o.textAt(i));
}

template <class Unit>
void StringModel<Unit>::constructLegacy(StringModel const& o)
{
    copyLegacy(o);
    terminate();
}

template <class Unit>
StringModel<Unit> StringModel<Unit>::createCharString(Unit c, int n) const
{
    StringModel made = zeroedResult();
    if (n < 1)
        return made;
    std::size_t const m = std::min(lowSixteenBits(n), capacity());
    for (std::size_t i = 0; i < m; ++i)
        made.putText(i, c);
    made.putLength(m);
    return made;
}

template <class Unit>
void StringModel<Unit>::assign(StringModel const& o)
{
    putLength(o.length());
    for (std::size_t i = 0; i <= capacity(); ++i)
        putText(i, o.textAt(i));
}

template <class Unit>
void StringModel<Unit>::clear()
{
    putLength(0);
    for (std::size_t i = 0; i <= capacity(); ++i)
        putText(i, Unit{0});
}

template <class Unit>
void StringModel<Unit>::clearUnused()
{
    for (std::size_t i = length(); i <= capacity(); ++i)
        putText(i, Unit{0});
}

template <class Unit>
void StringModel<Unit>::calcLength()
{
    std::size_t n = 0;
    while (n < capacity() && textAt(n) != Unit{0})
        ++n;
    putLength(n);
    terminate();
}

template <class Unit>
void StringModel<Unit>::setLength(short n)
{
    if (n <= 0)
        putLength(0);
    else
        putLength(std::min(static_cast<std::size_t>(n), capacity()));
    terminate();
}

template <class Unit>
void StringModel<Unit>::blockAppend(String const& s, unsigned int n)
{
    std::size_t const current = length();
    std::size_t const k = current + n <= capacity() ? n : capacity() - current;
    copyIn(current, s, k);
    putLength(current + k);
    terminate();
}

// The length of the source is read afresh for each unit, which is what makes a string appended to
// itself fill up.
template <class Unit>
void StringModel<Unit>::unitwiseAppend(StringModel const& o)
{
    std::size_t position = length();
    for (std::size_t i = 0; i < o.length() && position < capacity(); ++i) {
        putText(position, o.textAt(i));
        ++position;
        putLength(position);
    }
    terminate();
}

template <class Unit>
void StringModel<Unit>::add(StringModel const& o)
{
    if (o.length() == 0)
        return;
    blockAppend(o.used(), static_cast<unsigned int>(o.length()));
}

template <class Unit>
void StringModel<Unit>::append(StringModel const& o)
{
    unitwiseAppend(o);
}

template <class Unit>
void StringModel<Unit>::appendUnit(Unit c)
{
    if (length() >= capacity())
        return;
    putText(length(), c);
    putLength(length() + 1);
    terminate();
}

template <class Unit>
StringModel<Unit> StringModel<Unit>::plus(StringModel const& o) const
{
    StringModel made = *this;
    made.append(o);
    return made;
}

template <class Unit>
StringModel<Unit> StringModel<Unit>::plusUnit(Unit c) const
{
    StringModel made = *this;
    made.appendUnit(c);
    return made;
}

template <class Unit>
void StringModel<Unit>::addNumber(std::string const& digits)
{
    blockAppend(String(digits.begin(), digits.end()), static_cast<unsigned int>(digits.size()));
}

template <class Unit>
StringModel<Unit> StringModel<Unit>::fromNr(long long v) const
{
    StringModel made = zeroedResult();
    made.addNumber(std::to_string(v));
    return made;
}

template <class Unit>
bool StringModel<Unit>::digitsOnly() const
{
    for (std::size_t i = 0; i < length(); ++i) {
        bool const isDigit = textAt(i) >= '0' && textAt(i) <= '9';
        bool const isSign = i == 0 && textAt(i) == '-';
        if (!isDigit && !isSign)
            return false;
    }
    return true;
}

} // namespace qvTest
