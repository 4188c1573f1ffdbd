#pragma once

#include "qv/strings/qvString8.h"

namespace qvSegment {

/// What a program has to know to find a segment and its record without the class.

/// Bytes ahead of the record: the lock byte and seven reserved ones.
constexpr int segmentPrefixSize = 8;

/// The System V key of a segment, by its whole name ("QV_..._1234567"): the low 24 bits of the
/// name's CRC-32. Two names that agree in them meet in one segment, and a key that comes out as 0
/// is the system's private key; nothing guards either.
int segmentKey(_qvString8_allSize<250> const& name);

} // namespace qvSegment
