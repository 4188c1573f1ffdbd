#include "qv/segment/core/segmentKey.h"

#include "qv/support/qvCRC.h"

#include <algorithm>

int qvSegment::segmentKey(_qvString8_allSize<250> const& name)
{
    auto const* const bytes = reinterpret_cast<unsigned char const*>(name.text);
    // A damaged name may hold any length.
    auto const size = std::min<unsigned>(name.length, sizeof name.text - 1);
    return static_cast<int>(qvCRCCalc(bytes, size) & 0xFFFFFFu);
}
