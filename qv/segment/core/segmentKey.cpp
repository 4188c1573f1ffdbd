#include "qv/segment/core/segmentKey.h"

#include "qv/support/qvCRC.h"

int qvSegment::segmentKey(_qvString8_allSize<250> const& name)
{
    auto const* const bytes = reinterpret_cast<unsigned char const*>(name.asChar());
    return static_cast<int>(qvCRCCalc(bytes, name.length) & 0xFFFFFFu);
}
