#include "qv/support/qvStringList.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <numeric>
#include <utility>

namespace {

using Element = _qvString<500>;
static_assert(sizeof(Element) == 1006);

/// Whether an element comes ahead of another one.
struct Precedes
{
    Element const* items;
    bool descending;

    bool operator()(int a, int b) const
    {
        int const order = items[a].compare(items[b]);
        return descending ? order > 0 : order < 0;
    }
};

/// Sorts the numbers of elements, stable, by merging ever longer sorted stretches from one of two
/// arrays into the other.
/// @return The array that holds the result.
int* sorted(int* from, int* to, std::ptrdiff_t count, Precedes precedes)
{
    for (std::ptrdiff_t stretch = 1; stretch < count; stretch *= 2) {
        for (std::ptrdiff_t begin = 0; begin < count; begin += 2 * stretch) {
            auto const middle = std::min(begin + stretch, count);
            auto const end = std::min(middle + stretch, count);
            std::merge(from + begin, from + middle, from + middle, from + end, to + begin,
                       precedes);
        }
        std::swap(from, to);
    }
    return from;
}

/// Moves to each place the element whose number is there, one cycle of the permutation after the
/// other. Elements are assigned, so that each place keeps its reserved bytes.
/// @param numbers Each number once. Afterwards each place has its own number.
void arrange(Element* items, int* numbers, int count)
{
    for (int first = 0; first < count; ++first) {
        if (numbers[first] == first)
            continue;
        Element const held = items[first];
        int place = first;
        for (int next = numbers[place]; next != first; next = numbers[place]) {
            items[place] = items[next];
            numbers[place] = place;
            place = next;
        }
        items[place] = held;
        numbers[place] = place;
    }
}

/// Sorts by exchanging neighbours: slow, but allocates nothing.
void sortInPlace(Element* items, int count, Precedes precedes)
{
    for (int limit = count - 1; limit >= 1; --limit) {
        for (int i = 0; i < limit; ++i) {
            if (precedes(i + 1, i)) {
                Element const held = items[i];
                items[i] = items[i + 1];
                items[i + 1] = held;
            }
        }
    }
}

} // namespace

_qvStringList::_qvStringList() : items(nullptr), count(0), charBuffer{} {}

_qvStringList::~_qvStringList()
{
    if (items != nullptr)
        std::free(items);
    items = nullptr;
}

void _qvStringList::init()
{
    if (items != nullptr)
        std::free(items);
    items = nullptr;
    count = 0;
    std::memset(charBuffer, 0, sizeof charBuffer);
}

/// Makes room for one more element.
/// @return False when memory ran out: the list is lost.
bool _qvStringList::grow()
{
    ++count;
    auto const wanted = static_cast<std::size_t>(count);
    void* const block = items == nullptr
                            ? std::calloc(wanted, sizeof(Element))
                            : std::realloc(static_cast<void*>(items), wanted * sizeof(Element));
    if (block == nullptr) {
        if (items != nullptr)
            std::free(items);
        count = 0;
    }
    items = static_cast<Element*>(block);
    return block != nullptr;
}

void _qvStringList::append(_qvString<500> const& text, bool const& unique,
                           bool const& caseSensitive)
{
    if (unique && find(text, caseSensitive) >= 0)
        return;
    Element const taken = text; // before the block moves: it may be one of ours
    if (grow())
        items[count - 1] = taken;
}

void _qvStringList::insert(int const& index, _qvString<500> const& text)
{
    if (index < 0)
        return;
    int const place = index;
    Element const taken = text; // before the elements move: it may be one of them
    if (!grow())
        return;
    int last = count - 1;
    for (; last > place; --last)
        items[last] = items[last - 1];
    items[last] = taken; // behind the end for a place beyond it
}

void _qvStringList::removeAt(int const& index)
{
    if (!isInside(index))
        return;
    int const place = index;
    --count;
    for (int i = place; i < count; ++i)
        items[i] = items[i + 1];
}

int _qvStringList::find(_qvString<500> const& text, bool const& caseSensitive)
{
    for (int i = 0; i < count; ++i)
        if (caseSensitive ? items[i] == text : items[i].isEqual(text))
            return i;
    return -1;
}

int _qvStringList::findContains(_qvString<500> const& text, bool const& caseSensitive)
{
    for (int i = 0; i < count; ++i)
        if ((caseSensitive ? items[i].indexOfCaseSen(text, 0) : items[i].indexOf(text, 0)) >= 0)
            return i;
    return -1;
}

// A list that never held an element returns a reference to address null (intended); the sanitizer
// would stop a caller that does not even read it.
__attribute__((no_sanitize("undefined"))) _qvString<500> const&
_qvStringList::at(int const& index) const
{
    return items[isInside(index) ? index : 0];
}

char const* _qvStringList::atAsChar(int const& index) const
{
    at(index).toChar(charBuffer, sizeof charBuffer);
    return charBuffer;
}

void _qvStringList::sort(bool const& descending)
{
    if (count < 2)
        return;
    Precedes const precedes{items, descending};
    auto const size = static_cast<std::size_t>(count);
    auto* const numbers = static_cast<int*>(std::calloc(2 * size, sizeof(int)));
    if (numbers == nullptr) {
        sortInPlace(items, count, precedes);
        return;
    }
    std::iota(numbers, numbers + size, 0);
    arrange(items, sorted(numbers, numbers + size, count, precedes), count);
    std::free(numbers);
}

void _qvStringList::copyFrom(_qvStringList const& other)
{
    if (items != nullptr)
        std::free(items);
    count = other.count;
    auto const wanted = static_cast<std::size_t>(count);
    items = static_cast<Element*>(std::calloc(wanted, sizeof(Element)));
    if (count == 0)
        return;
    if (items == nullptr)
        std::abort(); // running out of memory ends the process (intended)
    // Whole blocks, `reserved` included.
    std::memcpy(static_cast<void*>(items), other.items, wanted * sizeof(Element));
}

_qvString8_allSize<1000> _qvStringList::asString8()
{
    _qvString8_allSize<1000> line;
    for (int i = 0; i < count; ++i) {
        // Up to a zero unit, whatever the length; a damaged element may have none.
        unsigned short text[sizeof(Element::text) / sizeof(Element::text[0]) + 1] = {};
        std::copy(std::begin(items[i].text), std::end(items[i].text), text);
        line += "'";
        line += _qvString8_allSize<1000>(text);
        line += "' ";
    }
    return line;
}
