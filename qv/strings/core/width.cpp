#include "qv/strings/core/width.h"

#include "qv/strings/core/fold.h"

#include <algorithm>

namespace qvStrings {

void assignWidened(TextRef<unsigned short> self, char const* bytes, unsigned count,
                   Extension extension)
{
    self.storeLength(0);
    appendWidened(self, bytes, count, extension);
}

void appendWidened(TextRef<unsigned short> self, char const* bytes, unsigned count,
                   Extension extension)
{
    unsigned const kept = std::min(count, self.room());
    unsigned const length = self.length();
    unsigned short* const target = self.text() + length;
    if (extension == Extension::zero)
        widenZero(bytes, kept, target);
    else
        std::transform(bytes, bytes + kept, target,
                       [](char byte) { return widen(byte, Extension::sign); });
    self.endAt(length + kept);
}

void widenZero(char const* bytes, unsigned count, unsigned short* target)
{
    std::transform(bytes, bytes + count, target,
                   [](char byte) { return widen(byte, Extension::zero); });
}

void keepLowBytes(unsigned short const* units, unsigned count, unsigned short* target)
{
    std::transform(units, units + count, target,
                   [](unsigned short unit) { return static_cast<unsigned short>(unit & 0xFF); });
}

void narrow(unsigned short const* units, unsigned count, char* target)
{
    std::transform(units, units + count, target,
                   [](unsigned short unit) { return static_cast<char>(unit); });
}

void assignNarrowedCleared(TextRef<char> self, unsigned short const* units, unsigned count)
{
    unsigned const kept = std::min(count, self.capacity());
    narrow(units, kept, self.text());
    std::memset(self.text() + kept, 0, self.capacity() + 1 - kept);
    self.storeLength(kept);
}

bool equalWidenedZero(unsigned short const* units, char const* bytes, unsigned count)
{
    return std::equal(bytes, bytes + count, units, [](char byte, unsigned short unit) {
        return widen(byte, Extension::zero) == unit;
    });
}

bool equalFoldedSigned(unsigned short const* units, char const* bytes, unsigned count)
{
    return std::equal(bytes, bytes + count, units, [](char byte, unsigned short unit) {
        return static_cast<signed char>(foldUpper(byte)) == static_cast<int>(foldUpper(unit));
    });
}

} // namespace qvStrings
