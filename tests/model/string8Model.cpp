#include "tests/model/string8Model.h"

#include "tests/model/stringModelCore.h"
#include "tests/model/stringModelEditing.h"
#include "tests/model/stringModelSearch.h"

#include <algorithm>

namespace qvTest {

template class StringModel<char>;

String8Model String8Model::temporary(Text s) const
{
    String8Model made(image(), 0);
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
        putText(i, static_cast<char>((*units)[i] % 256));
    putLength(n);
    terminate();
}

void String8Model::constructView(std::string const& viewed)
{
    putLength(viewed.size());
    copyIn(0, viewed, viewed.size());
    terminate();
}

void String8Model::assign(Text s)
{
    putLength(0);
    if (s != nullptr)
        assignString(*s);
}

void String8Model::assignUnit(char c)
{
    putLength(1);
    putText(0, c);
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

// Unlike the constructor, the assignment writes no terminator.
void String8Model::assignLegacy(String8Model const& o)
{
    copyLegacy(o);
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

void String8Model::append(Text s)
{
    if (s == nullptr)
        return;
    blockAppend(*s, static_cast<unsigned int>(lowSixteenBits(s->size())));
}

void String8Model::appendWideUnit(unsigned short c)
{
    if (length() == capacity())
        return;
    putText(length(), static_cast<char>(c % 256));
    putLength(length() + 1);
    terminate();
}

String8Model String8Model::combined(Text s) const
{
    String8Model made = *this;
    made.add(s);
    return made;
}

} // namespace qvTest
