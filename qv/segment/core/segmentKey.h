#pragma once

#include "qv/strings/qvString8.h"

#include <cstddef>

namespace qvSegment {

/// For programs that find a segment and its record without the class.

/// Bytes ahead of the record: the lock byte and seven reserved ones.
constexpr int segmentPrefixSize = 8;

/// The rights that attaching asks for: reading and writing.
constexpr int segmentAttachRights = 0660;

/// `qvSharedMemory::errorString()` of an attach that found no segment. `error()` alone does not
/// tell: the class's own code for it, 5, is EIO as well. No failure in the system's words has this
/// text.
constexpr char segmentMissingText[] = "Shared Memory does not exist.";

/// Bytes of a whole segment as the class counts them: a signed 32-bit number, which wraps.
constexpr int segmentTotalSize(std::size_t bytes)
{
    return static_cast<int>(bytes);
}

/// Bytes of the record in a segment of `totalSize` bytes. Formed unsigned, because the smallest
/// sizes would overflow.
constexpr int segmentRecordSize(int totalSize)
{
    return static_cast<int>(static_cast<unsigned>(totalSize) - segmentPrefixSize);
}

/// The System V key of a segment, by its whole name ("QV_..._1234567"): the low 24 bits of the
/// name's CRC-32. Two names that agree in them share one segment, and a key of 0 is the system's
/// private key; nothing prevents either.
int segmentKey(_qvString8_allSize<250> const& name);

} // namespace qvSegment
