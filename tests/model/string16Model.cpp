#include "tests/model/string16Model.h"

#include "tests/model/stringModelCore.h"
#include "tests/model/stringModelEditing.h"
#include "tests/model/stringModelSearch.h"

#include <algorithm>
#include <cstdlib>

namespace qvTest {

template class StringModel<char16_t>;

namespace {

// A byte text counts modulo 65536.
std::size_t shortLength(std::string const& s)
{
    return lowSixteenBits(s.size());
}

} // namespace

std::u16string measured(std::u16string const& units)
{
    std::size_t n = 0;
    while (n < 1024 && n < units.size() && units[n] != 0)
        ++n;
    return units.substr(0, n);
}

char16_t signExtended(char c)
{
    int const value = static_cast<signed char>(c);
    return static_cast<char16_t>(value < 0 ? value + 65536 : value);
}

std::u16string signExtended(std::string const& s)
{
    std::u16string units;
    for (char const c : s)
        units += signExtended(c);
    return units;
}

std::u16string zeroExtended(std::string const& s)
{
    std::u16string units;
    for (char const c : s)
        units += static_cast<char16_t>(static_cast<unsigned char>(c));
    return units;
}

std::string lowBytes(std::u16string const& units)
{
    std::string bytes;
    for (char16_t const unit : units)
        bytes += static_cast<char>(unit % 256);
    return bytes;
}

void String16Model::hold(std::u16string const& units, std::size_t n)
{
    copyIn(0, units, n);
    putLength(n);
    terminate();
}

String16Model String16Model::temporary(Text s) const
{
    String16Model made(image(), 0);
    made.construct(s);
    return made;
}

String16Model String16Model::temporary(Text s, int n) const
{
    String16Model made(image(), 0);
    if (s != nullptr)
        made.constructCounted(*s, n);
    return made;
}

void String16Model::construct(Text s)
{
    construct();
    if (s != nullptr)
        hold(signExtended(*s), std::min(shortLength(*s), capacity()));
}

void String16Model::constructChar(char c)
{
    construct();
    hold(std::u16string(1, signExtended(c)), 1);
}

void String16Model::constructCounted(std::string const& s, int count)
{
    construct();
    hold(signExtended(s), std::min(lowSixteenBits(count), capacity()));
}

// From here on a constructor zeroes only the text, and the spare word keeps what it finds.
void String16Model::constructUnitText(Units s)
{
    clear();
    if (s != nullptr)
        hold(measured(*s), std::min(measured(*s).size(), capacity()));
}

void String16Model::constructUnitsCounted(std::u16string const& s, int count)
{
    clear();
    hold(s, std::min(lowSixteenBits(count), capacity()));
}

void String16Model::constructView8(Text viewed)
{
    clear();
    if (viewed != nullptr)
        hold(signExtended(*viewed), std::min(viewed->size(), capacity()));
}

void String16Model::assign(Text s)
{
    if (s != nullptr)
        hold(zeroExtended(*s), std::min(shortLength(*s), capacity()));
}

// Unlike a null byte text, null units empty the string, and leave its first unit as it was.
void String16Model::assignUnitText(Units s)
{
    putLength(0);
    if (s != nullptr)
        hold(measured(*s), std::min(measured(*s).size(), capacity()));
}

void String16Model::assignUnit(char16_t c)
{
    hold(std::u16string(1, static_cast<char16_t>(c % 256)), 1);
}

void String16Model::assignString(std::string const& s)
{
    hold(signExtended(s), std::min(lowSixteenBits(s.size()), capacity()));
}

void String16Model::assignView(std::u16string const& viewed)
{
    hold(viewed, viewed.size());
}

void String16Model::add(Text s)
{
    if (s == nullptr || shortLength(*s) == 0)
        return;
    blockAppend(zeroExtended(*s), static_cast<unsigned int>(shortLength(*s)));
}

void String16Model::addUnits(Units s, unsigned int n)
{
    if (s == nullptr || n == 0)
        return;
    blockAppend(*s, n);
}

void String16Model::append(Text s)
{
    if (s != nullptr)
        blockAppend(signExtended(*s), static_cast<unsigned int>(shortLength(*s)));
}

void String16Model::appendUnitText(Units s)
{
    if (s != nullptr)
        blockAppend(measured(*s), static_cast<unsigned int>(measured(*s).size()));
}

String16Model String16Model::combined(Text s) const
{
    String16Model made = *this;
    made.add(s);
    return made;
}

std::string String16Model::narrowed(std::size_t limit) const
{
    return lowBytes(used().substr(0, limit));
}

// One byte fewer than the target could hold, and a length that is not cut with the text.
std::vector<String16Model::Byte> String16Model::toString8(std::size_t targetCapacity) const
{
    std::vector<Byte> made(2 + targetCapacity + 1, 0);
    made[0] = bytes()[image().lengthAt];
    made[1] = bytes()[image().lengthAt + 1];
    std::string const text = narrowed(targetCapacity - 1);
    std::transform(text.begin(), text.end(), made.begin() + 2,
                   [](char c) { return static_cast<Byte>(c); });
    return made;
}

// The room for the text wraps at size 0.
void String16Model::toChar(std::vector<Byte>& buffer, unsigned short size) const
{
    std::string const text = narrowed((size + 65535u) % 65536u);
    std::transform(text.begin(), text.end(), buffer.begin(),
                   [](char c) { return static_cast<Byte>(c); });
    buffer[text.size()] = 0;
}

StringModel<char16_t> String16Model::mid(int start, int count) const
{
    return count == 0 ? zeroedResult() : slice(zeroedResult(), start, count);
}

// Takes units, and keeps only their low bytes.
void String16Model::addSpacingUnits(Units s, int width)
{
    if (s == nullptr)
        return addPadded(nullptr, width, false);
    std::u16string const units = zeroExtended(lowBytes(measured(*s)));
    addPadded(&units, width, false);
}

void String16Model::addSpacingC(Text s, int width)
{
    if (s == nullptr)
        return addPadded(nullptr, width, true);
    std::u16string const units = zeroExtended(*s);
    addPadded(&units, width, true);
}

// The field is formed in 20 columns whatever the capacity: from there on the number gives way. The
// zeros come in front of the sign.
void String16Model::addNumber(std::string const& digits, unsigned char minWidth)
{
    std::string field;
    while (field.size() < 20 && field.size() + digits.size() < minWidth)
        field += '0';
    addNumber((field + digits).substr(0, 20));
}

void String16Model::addNrSpacing(long long v, signed char width)
{
    std::string const digits = std::to_string(v);
    addSpacingC(&digits, width);
}

// The check looks at all units, the conversion at the low bytes of the first 249.
int String16Model::toInt(bool* ok) const
{
    if (ok != nullptr) {
        *ok = digitsOnly();
        if (!*ok)
            return 0;
    }
    return std::atoi(narrowed(249).c_str());
}

} // namespace qvTest
