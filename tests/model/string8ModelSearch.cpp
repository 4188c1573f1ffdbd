#include "tests/model/string8Model.h"

#include <algorithm>
#include <cstdint>

namespace qvTest {

bool String8Model::equals(Text s) const
{
    if (s == nullptr)
        return false;
    char const first = s->empty() ? '\0' : (*s)[0];
    if (first != textAt(0))
        return false;
    if (s->size() % 65536 != length())
        return false;
    return sameFirst(used(), *s, length());
}

bool String8Model::equalsLegacy(String8Model const& o) const
{
    String8Model made(image(), 0);
    made.constructLegacy(o);
    return equals(made);
}

int String8Model::indexOfWideUnit(unsigned short c, int start) const
{
    std::size_t const from = static_cast<unsigned int>(start);
    for (std::size_t i = from < length() ? from : 0; i < length(); ++i)
        if (textAt(i) == static_cast<char>(c % 256))
            return static_cast<int>(i);
    return -1;
}

int String8Model::lastIndexOfWideUnit(unsigned short c, int start) const
{
    return lastIndexOfUnit(static_cast<char>(c % 256), start);
}

bool String8Model::contains(Text s) const
{
    return indexOf(temporary(s), 0) != -1;
}

bool String8Model::containsCaseSen(Text s) const
{
    return indexOfCaseSen(temporary(s), 0) != -1;
}

bool String8Model::containsCaseSen(std::string const& s, int n) const
{
    String8Model pattern(image(), 0);
    pattern.constructCounted(s, n);
    return indexOfCaseSen(pattern, 0) != -1;
}

bool String8Model::containsUpperCaseInput(Text s) const
{
    return containsUpperCaseInput(temporary(s));
}

bool String8Model::startsWith(Text s) const
{
    return s != nullptr && startsWith(temporary(s));
}

bool String8Model::startsWith(Text s, int n) const
{
    if (s == nullptr || n == 0 || !lengthFits(static_cast<unsigned int>(n)))
        return false;
    std::size_t const m = std::min<std::size_t>(static_cast<std::uint16_t>(n), capacity());
    return sameFirst(upper(used()), upper(*s), m);
}

bool String8Model::startsWithCaseSen(Text s) const
{
    if (s == nullptr)
        return false;
    std::size_t const n = s->size() % 65536;
    return lengthFits(static_cast<unsigned int>(n)) && sameFirst(used(), *s, n);
}

bool String8Model::endsWith(Text s) const
{
    return s != nullptr && endsWith(temporary(s));
}

// The count is a gate only; what is compared is the zero-terminated text. An empty one ends
// nothing.
bool String8Model::endsWith(Text s, int n) const
{
    if (n == 0 || !lengthFits(static_cast<unsigned int>(n)))
        return false;
    std::string const pattern = s->substr(0, s->size() % 65536);
    return !pattern.empty() && sameEnd(upper(used()), upper(pattern));
}

} // namespace qvTest
