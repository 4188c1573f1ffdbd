// The client's record in numbers, written apart from the product's: tests in C++ take them from
// here, and clientSegment.py reads this file, one constant a line. qvClientMailboxTest holds them
// against the product's record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <sys/types.h>

namespace endToEnd {

inline constexpr key_t clientKey = 0x4EFCFF;
inline constexpr std::size_t prefixSize = 8; // the lock byte and seven reserved ones
inline constexpr std::size_t clientRecordSize = 22988;

// Places in the record, counted from its first byte.
inline constexpr std::size_t recordMarkerPlace = 0;
inline constexpr std::size_t stateMarkerPlace = 928;
inline constexpr std::size_t stateFlagPlace = 930;
inline constexpr std::size_t messageCountPlace = 2001;
inline constexpr std::size_t messageKindPlace = 2002;
inline constexpr std::size_t messageTypePlace = 2032;
inline constexpr std::size_t messageValuePlace = 2062;

// The values that a client writes.
inline constexpr std::uint32_t rightRecordMarker = 517;
inline constexpr std::uint16_t rightStateMarker = 3077;
inline constexpr std::uint16_t rightStateFlag = 1;

} // namespace endToEnd
