#include "tests/model/string8Model.h"

#include <algorithm>
#include <cstdint>

namespace qvTest {

namespace {

using Byte = String8Model::Byte;

std::size_t lowSixteenBits(std::size_t n)
{
    return n % 65536;
}

std::size_t lowSixteenBits(int n)
{
    return static_cast<std::uint16_t>(n);
}

Byte byteOf(char c)
{
    return static_cast<Byte>(c);
}

} // namespace

String8Model::String8Model(String8Image const& image, Byte seed)
    : layout(image),
      object(image.size, seed),
      determined(image.size, true)
{}

String8Model String8Model::newResult(String8Image const& image)
{
    String8Model made(image, 0);
    made.determined.assign(image.size, false);
    return made;
}

bool String8Model::fullyDetermined() const
{
    return std::find(determined.begin(), determined.end(), false) == determined.end();
}

std::size_t String8Model::length() const
{
    return object[layout.lengthAt] + 256u * object[layout.lengthAt + 1];
}

void String8Model::putLength(std::size_t n)
{
    object[layout.lengthAt] = static_cast<Byte>(n % 256);
    object[layout.lengthAt + 1] = static_cast<Byte>(n / 256 % 256);
    determined[layout.lengthAt] = true;
    determined[layout.lengthAt + 1] = true;
}

void String8Model::putText(std::size_t i, Byte value)
{
    std::size_t const at = layout.textAt + i;
    if (at >= layout.size) {
        strayed = true;
        return;
    }
    object[at] = value;
    determined[at] = true;
}

void String8Model::putBytes(std::string const& content)
{
    for (std::size_t at = 0; at < object.size(); ++at)
        object[at] = content.empty() ? Byte{0} : byteOf(content[at % content.size()]);
}

std::string String8Model::used() const
{
    std::string characters;
    for (std::size_t i = 0; i < length(); ++i)
        characters += static_cast<char>(textAt(i));
    return characters;
}

bool String8Model::hasStoredZero() const
{
    for (std::size_t i = 0; i <= capacity(); ++i)
        if (textAt(i) == 0)
            return true;
    return false;
}

std::string String8Model::storedText() const
{
    std::string characters;
    for (std::size_t i = 0; i <= capacity() && textAt(i) != 0; ++i)
        characters += static_cast<char>(textAt(i));
    return characters;
}

String8Model::Byte String8Model::reachedByte(unsigned long long i) const
{
    return i < layout.size - layout.textAt ? object[layout.textAt + i] : Byte{0};
}

void String8Model::copyIn(std::size_t at, std::string const& s, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i)
        putText(at + i, byteOf(s[i]));
}

String8Model String8Model::temporary(Text s) const
{
    String8Model made(layout, 0);
    made.construct(s);
    return made;
}

void String8Model::construct(Text s)
{
    clear();
    if (s == nullptr)
        return;
    std::size_t const n = std::min(lowSixteenBits(s->size()), capacity());
    copyIn(0, *s, n);
    putLength(n);
}

void String8Model::constructCounted(std::string const& s, int count)
{
    clear();
    std::size_t const n = std::min(lowSixteenBits(count), capacity());
    copyIn(0, s, n);
    putLength(n);
    terminate();
}

void String8Model::constructUnits(std::vector<unsigned short> const* units)
{
    clear();
    if (units == nullptr)
        return;
    std::size_t counted = 0;
    while (counted < 1024 && (*units)[counted] != 0)
        ++counted;
    std::size_t const n = std::min(counted, capacity());
    for (std::size_t i = 0; i < n; ++i)
        putText(i, static_cast<Byte>((*units)[i] % 256));
    putLength(n);
    terminate();
}

void String8Model::constructView(std::string const& viewed)
{
    putLength(viewed.size());
    copyIn(0, viewed, viewed.size());
    terminate();
}

void String8Model::constructLegacy(String8Model const& o)
{
    assignLegacy(o);
    terminate();
}

String8Model String8Model::createCharString(char c, int n) const
{
    String8Model made = newResult(layout);
    made.clear();
    if (n < 1)
        return made;
    std::size_t const m = std::min(lowSixteenBits(n), capacity());
    for (std::size_t i = 0; i < m; ++i)
        made.putText(i, byteOf(c));
    made.putLength(m);
    made.terminate();
    return made;
}

void String8Model::assign(String8Model const& o)
{
    putLength(o.length());
    for (std::size_t i = 0; i <= capacity(); ++i)
        putText(i, o.textAt(i));
}

void String8Model::assign(Text s)
{
    putLength(0);
    if (s != nullptr)
        assignString(*s);
}

void String8Model::assignChar(char c)
{
    putLength(1);
    putText(0, byteOf(c));
    putText(1, 0);
}

void String8Model::assignString(std::string const& s)
{
    std::size_t const n = std::min(lowSixteenBits(s.size()), capacity());
    copyIn(0, s, n);
    putLength(n);
    terminate();
}

void String8Model::assignView(std::string const& viewed)
{
    std::size_t const n = std::min(viewed.size(), capacity());
    copyIn(0, viewed, n);
    putLength(n);
    terminate();
}

// Exactly N bytes move, the last text byte stays, and no terminator is written.
void String8Model::assignLegacy(String8Model const& o)
{
    putLength(o.length());
    for (std::size_t i = 0; i < capacity(); ++i)
        putText(i, o.textAt(i));
}

void String8Model::fromChar(Text s, int count)
{
    putLength(0);
    if (s == nullptr)
        return;
    std::size_t const n = std::min(lowSixteenBits(count), capacity());
    copyIn(0, *s, n);
    putLength(n);
    terminate();
}

void String8Model::clear()
{
    putLength(0);
    for (std::size_t i = 0; i <= capacity(); ++i)
        putText(i, 0);
}

void String8Model::clearUnused()
{
    for (std::size_t i = length(); i <= capacity(); ++i)
        putText(i, 0);
}

void String8Model::calcLength()
{
    std::size_t n = 0;
    while (n < capacity() && textAt(n) != 0)
        ++n;
    putLength(n);
    terminate();
}

void String8Model::setLength(short n)
{
    if (n <= 0)
        putLength(0);
    else
        putLength(std::min(static_cast<std::size_t>(n), capacity()));
    terminate();
}

void String8Model::blockAppend(std::string const& s, unsigned int n)
{
    std::size_t const current = length();
    std::size_t const k = current + n <= capacity() ? n : capacity() - current;
    copyIn(current, s, k);
    putLength(current + k);
    terminate();
}

// The length of the source is read afresh for each character, which is what makes a string appended
// to itself fill up.
void String8Model::characterAppend(String8Model const& o)
{
    std::size_t position = length();
    for (std::size_t i = 0; i < o.length() && position < capacity(); ++i) {
        putText(position, o.textAt(i));
        ++position;
        putLength(position);
    }
    terminate();
}

void String8Model::add(Text s)
{
    if (s == nullptr || lowSixteenBits(s->size()) == 0)
        return;
    blockAppend(*s, static_cast<unsigned int>(lowSixteenBits(s->size())));
}

void String8Model::add(Text s, unsigned int n)
{
    if (s == nullptr || n == 0)
        return;
    blockAppend(*s, n);
}

void String8Model::add(String8Model const& o)
{
    if (o.length() == 0)
        return;
    blockAppend(o.used(), static_cast<unsigned int>(o.length()));
}

void String8Model::append(Text s)
{
    if (s == nullptr)
        return;
    blockAppend(*s, static_cast<unsigned int>(lowSixteenBits(s->size())));
}

void String8Model::append(String8Model const& o)
{
    characterAppend(o);
}

void String8Model::appendChar(char c)
{
    if (length() > capacity() - 1)
        return;
    putText(length(), byteOf(c));
    putLength(length() + 1);
    terminate();
}

void String8Model::appendUnit(unsigned short c)
{
    if (length() == capacity())
        return;
    putText(length(), static_cast<Byte>(c % 256));
    putLength(length() + 1);
    terminate();
}

String8Model String8Model::plusChar(char c) const
{
    String8Model made = *this;
    made.appendChar(c);
    return made;
}

String8Model String8Model::plus(String8Model const& o) const
{
    String8Model made = *this;
    made.append(o);
    return made;
}

String8Model String8Model::combined(Text s) const
{
    String8Model made = *this;
    made.add(s);
    return made;
}

} // namespace qvTest
