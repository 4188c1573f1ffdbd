#include "tests/model/stringArguments.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace qvTest {

namespace {

template <class Unit>
std::basic_string<Unit> flipCase(std::basic_string<Unit> s)
{
    for (Unit& c : s)
        c = upper(c) == c ? lower(c) : upper(c);
    return s;
}

// A part of a text that is in use, in one case or another: searches find it.
template <class Unit>
std::basic_string<Unit> slice(ByteReader& input, std::basic_string<Unit> const& characters)
{
    if (characters.empty())
        return {};
    std::size_t const from = input.below(std::min<std::size_t>(characters.size(), 255));
    unsigned char const choice = input.byte();
    bool const toTheEnd = (choice & 15) == 15;
    auto const part = characters.substr(from, toTheEnd ? characters.size() : choice & 15);
    switch (choice >> 4 & 3) {
    case 1:
        return flipCase(part);
    case 2:
        return upper(part);
    case 3:
        return lower(part);
    default:
        return part;
    }
}

// A text that starts as a string does and goes on behind its end, at times so far that its length
// comes out the same again in 16 bits.
template <class Unit>
std::basic_string<Unit> extended(ByteReader& input, std::basic_string<Unit> const& characters)
{
    unsigned char const choice = input.byte();
    return characters + std::basic_string<Unit>(choice < 16 ? 65536u : choice % 8u, Unit{'y'});
}

// A text of the same length that differs in one place: a comparison has to look at all of it.
template <class Unit>
std::basic_string<Unit> changed(ByteReader& input, std::basic_string<Unit> characters)
{
    if (!characters.empty())
        characters[input.byte() % characters.size()] = Unit{'#'};
    return characters;
}

// A byte as a unit: widened in either way, moved into another page, or in the high byte, where a
// search by low bytes or by sums of units takes it for another.
char16_t widened(char c, unsigned style)
{
    unsigned const byte = static_cast<unsigned char>(c);
    switch (style) {
    case 3:
        return static_cast<char16_t>(byte >= 0x80 ? 0xFF00 | byte : byte);
    case 4:
        return static_cast<char16_t>(0x0100 | byte);
    case 5:
        return static_cast<char16_t>(byte << 8);
    case 6:
        return static_cast<char16_t>(0xFF00 | byte);
    case 7:
        return static_cast<char16_t>(byte << 8 | 'a');
    default:
        return static_cast<char16_t>(byte);
    }
}

std::u16string widened(ByteReader& input, std::string const& s)
{
    unsigned const style = input.byte() % 10u;
    bool const mixed = style >= 8;
    std::u16string made;
    made.reserve(s.size());
    for (char const c : s)
        made += widened(c, mixed ? static_cast<unsigned char>(c) % 3u + 2u : style);
    return made;
}

template <class Unit>
std::basic_string<Unit> newText(Reading& reading, bool withZeros)
{
    std::string const bytes = reading.input.text(reading.capacity(), withZeros);
    if constexpr (sizeof(Unit) == 1)
        return bytes;
    else
        return widened(reading.input, bytes);
}

// The text that is in use by one of the strings, as a text of bytes or of units can hold it.
template <class Unit>
std::basic_string<Unit> inUse(Reading const& reading, unsigned char choice)
{
    std::u16string const used = reading.used(choice % stringCount);
    std::basic_string<Unit> made;
    for (char16_t const unit : used)
        made += static_cast<Unit>(unit);
    return made;
}

// Exactly as many units as the count inside the capacity says, so that a sanitizer sees one read
// too many; for all other counts, as many as the capacity lets in.
template <class Unit>
void fillUpTo(std::size_t capacity, int count, std::basic_string<Unit>& counted)
{
    bool const inside = count >= 0 && static_cast<std::size_t>(count) <= capacity;
    std::size_t const size = inside ? static_cast<std::size_t>(count) : capacity;
    if (counted.empty())
        counted = Unit{'q'};
    for (std::size_t i = 0; counted.size() < size; ++i)
        counted += counted[i];
    counted.resize(size);
}

std::string hexCode(unsigned value)
{
    char shown[8];
    std::snprintf(shown, sizeof shown, "%02X", value & 0xFFFF);
    return shown;
}

template <class Unit>
std::string toldText(std::basic_string<Unit> const& characters)
{
    std::string told = "text of " + std::to_string(characters.size()) + ":";
    for (std::size_t i = 0; i < characters.size() && i < 80; ++i) {
        bool const printable = characters[i] > ' ' && characters[i] <= '~';
        told += printable ? std::string{' ', static_cast<char>(characters[i])}
                          : ' ' + hexCode(static_cast<std::make_unsigned_t<Unit>>(characters[i]));
    }
    return told;
}

} // namespace

int Reading::number()
{
    count = input.number(static_cast<int>(length(receiver)), static_cast<int>(capacity()));
    return count;
}

void Place::read(Reading& reading)
{
    value = std::clamp(reading.number(), 0, static_cast<int>(reading.capacity()));
}

void Single::read(Reading& reading)
{
    std::size_t const length = reading.length(reading.receiver);
    unsigned char const choice = reading.input.byte();
    if (choice < 128 || length == 0) {
        c = reading.input.character();
        unit = widened(c, choice & 7u);
        return;
    }
    unit = reading.used(reading.receiver)[choice % length];
    c = static_cast<char>(unit & 0xFF);
}

std::string Single::told() const
{
    return hexCode(static_cast<unsigned char>(c)) + " or " + hexCode(unit);
}

void WidenedUnit::read(Reading& reading)
{
    Single::read(reading);
    unsigned const high = reading.input.flag() ? 0x4100u : 0u;
    unit = static_cast<unsigned short>(static_cast<unsigned char>(c) | high);
}

template <class Unit>
void PointedText<Unit>::store(std::size_t size)
{
    storage = std::make_unique<Raw<Unit>[]>(size);
    std::copy_n(characters.begin(), std::min(characters.size(), size), storage.get());
}

template <class Unit>
std::string PointedText<Unit>::told() const
{
    return isNull ? "null text" : toldText(characters);
}

template <class Unit>
void PointedText<Unit>::readTerminated(Reading& reading, int* storedIn)
{
    // Of units no terminator is looked for from here on, so none is given.
    constexpr std::size_t readAtMost = sizeof(Unit) == 1 ? SIZE_MAX : 1024;
    ByteReader& input = reading.input;
    unsigned char const choice = input.byte();
    bool const mayBeStored = storedIn != nullptr && sizeof(Unit) == reading.unitSize();
    if (choice >= 250)
        isNull = true;
    else if (choice >= 235 && mayBeStored && reading.hasStoredZero(choice % stringCount))
        *storedIn = static_cast<int>(choice % stringCount);
    else if (choice >= 220)
        characters = extended(input, inUse<Unit>(reading, choice));
    else if (choice >= 160)
        characters = slice(input, inUse<Unit>(reading, choice));
    else if (choice >= 145 && sizeof(Unit) == 2)
        characters = changed(input, inUse<Unit>(reading, choice));
    else
        characters = newText<Unit>(reading, false);
    characters = characters.substr(0, characters.find(Unit{0}));
    store(std::min(characters.size() + 1, readAtMost));
}

template <class Unit>
void PointedText<Unit>::readCounted(Reading& reading, bool mayBeNull)
{
    unsigned char const choice = reading.input.byte();
    isNull = mayBeNull && choice >= 245;
    if (isNull)
        return;
    characters = choice >= 160 ? slice(reading.input, inUse<Unit>(reading, choice))
                               : newText<Unit>(reading, true);
    fillUpTo(reading.capacity(), reading.count, characters);
    store(characters.size());
}

template <class Unit>
std::basic_string<Unit> const& in(GivenText const& text)
{
    if constexpr (sizeof(Unit) == 1)
        return text.bytes;
    else
        return text.units;
}

// What is behind a zero is there to be read, and may not be.
template <class Unit>
void PointedText<Unit>::holdTerminated(GivenText const& text)
{
    characters = in<Unit>(text);
    store(characters.size() + 1);
    characters = characters.substr(0, characters.find(Unit{0}));
}

template <class Unit>
void PointedText<Unit>::holdCounted(GivenText const& text)
{
    characters = in<Unit>(text);
    fillUpTo(text.capacity, text.count, characters);
    store(characters.size());
}

template struct PointedText<char>;
template struct PointedText<char16_t>;

void PlainText::read(Reading& reading)
{
    characters = newText<char>(reading, true);
    if (reading.unitSize() == 2)
        units = widened(reading.input, characters);
}

void PlainText::hold(GivenText const& text)
{
    characters = text.bytes;
    units = text.unitSize == 2 ? text.units : std::u16string();
}

std::string PlainText::told() const
{
    return units.empty() ? toldText(characters) : toldText(units);
}

_qvString8_Uni_pointer* OtherViewToConst::view8() const
{
    std::size_t const size = std::min(characters.size(), otherViewCapacity<char>);
    other8.length = static_cast<unsigned short>(size);
    std::copy_n(characters.begin(), size, other8.text);
    return const_cast<_qvString8_Uni_pointer*>(other8.asUni());
}

_qvString_Uni_pointer* OtherViewToConst::view16() const
{
    std::size_t const size = std::min(units.size(), otherViewCapacity<char16_t>);
    other16.length = static_cast<unsigned short>(size);
    std::copy_n(units.begin(), size, other16.text);
    return other16.asUni();
}

void View8::read(Reading& reading)
{
    isNull = reading.input.flag();
    PlainText::read(reading);
}

void WidenedText::hold(GivenText const& text)
{
    PlainText::hold(text);
    widen(0x4100);
}

void WidenedText::read(Reading& reading)
{
    unsigned const high = static_cast<unsigned>(reading.number() & 0xFF) << 8;
    isNull = reading.input.flag();
    PlainText::read(reading);
    widen(high);
}

void WidenedText::widen(unsigned high)
{
    constexpr std::size_t readAtMost = 1024;
    made.clear();
    for (std::size_t i = 0; i < std::min(characters.size(), readAtMost); ++i)
        made.push_back(
            static_cast<unsigned short>(static_cast<unsigned char>(characters[i]) | high));
    // From 1024 units on no terminator follows, since nothing behind is read.
    if (made.size() < readAtMost)
        made.push_back(0);
    made.shrink_to_fit(); // a sanitizer shall see the first read behind it
}

void AnyOlder::read(Reading& reading)
{
    number = reading.number();
    PlainText::read(reading);
}

// All images of this kind begin with their text, and stale bytes follow.
void AnyOlder::hold(GivenText const& text)
{
    number = static_cast<int>(text.units.size());
    units = text.units;
    characters = text.bytes;
    if (text.unitSize == 2)
        characters.assign(reinterpret_cast<char const*>(units.data()), 2 * units.size());
    characters += std::string(text.unitSize, '\0');
    characters.resize(4 * text.capacity, 'c');
}

std::string AnyOlder::told() const
{
    return "older image, length from " + std::to_string(number) + ", " + PlainText::told();
}

void AnyOlder::store(std::vector<unsigned char> const& bytes) const
{
    storage = std::make_unique<unsigned char[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), storage.get());
    keepBytes(storage.get());
}

} // namespace qvTest
