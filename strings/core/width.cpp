#include "strings/core/width.h"

#include <algorithm>

namespace qvStrings {

void assignNarrowedCleared(TextRef<char> self, unsigned short const* units, unsigned count)
{
    unsigned const kept = std::min(count, self.capacity());
    char* const text = self.text();
    std::transform(units, units + kept, text,
                   [](unsigned short unit) { return static_cast<char>(unit); });
    std::fill(text + kept, text + self.capacity() + 1, '\0');
    self.storeLength(kept);
}

} // namespace qvStrings
