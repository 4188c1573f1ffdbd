#pragma once

#include "qv/strings/core/extension.h"
#include "qv/strings/core/run.h"

#include <algorithm>
#include <array>
#include <cstddef>

/// Moves runs of units, also between the widths: each unit is cut or extended, nothing is encoded.
/// Nothing here knows strings. Inline even where the compiler would call, because most texts are so
/// short that a call would cost more than the move.

namespace qvStrings {

/// Runs of at most this many bytes are moved inline. Most texts are that short.
inline constexpr std::size_t longestInline = 32;

/// The C library uses string instructions for longer runs only, on any machine.
inline constexpr std::size_t stringInstructions = 2048;

/// Moves a run of `size` to 2 * `size` bytes by its first and its last `size`: both are loaded
/// before one of them is stored, so the ranges may overlap.
template <std::size_t size>
void moveEnds(unsigned char* target, unsigned char const* source, std::size_t count)
{
    std::array<unsigned char, size> head;
    std::array<unsigned char, size> tail;
    std::memcpy(&head, source, size);
    std::memcpy(&tail, source + count - size, size);
    std::memcpy(target, &head, size);
    std::memcpy(target + count - size, &tail, size);
}

/// Moves a run in pieces too short for string instructions, which are 20 times slower where the
/// target is a few bytes above the source in its page. In one piece where the target begins inside
/// the source: a later piece would read units that an earlier one has written.
void moveLong(unsigned char* target, unsigned char const* source, std::size_t count);

/// Moves units; source and target may overlap, and an empty source may be null.
template <typename Unit>
[[gnu::always_inline]] inline void moveUnits(Unit* target, Run<Unit> source)
{
    auto const* const from = reinterpret_cast<unsigned char const*>(source.units);
    auto* const to = reinterpret_cast<unsigned char*>(target);
    std::size_t const bytes = source.count * sizeof(Unit);
    if (bytes > longestInline) [[unlikely]] {
        if (bytes > stringInstructions)
            moveLong(to, from, bytes);
        else
            std::memmove(to, from, bytes);
    } else if (bytes >= 16)
        moveEnds<16>(to, from, bytes);
    else if (bytes >= 8)
        moveEnds<8>(to, from, bytes);
    else if (bytes >= 4)
        moveEnds<4>(to, from, bytes);
    else if (bytes >= 2)
        moveEnds<2>(to, from, bytes);
    else if (bytes == 1)
        *to = *from;
}

/// Zeroes a run of `size` to 2 * `size` bytes by its first and its last `size`.
template <std::size_t size>
void zeroEnds(unsigned char* target, std::size_t count)
{
    std::memset(target, 0, size);
    std::memset(target + count - size, 0, size);
}

/// Zeroes a run long enough for string instructions, which are a quarter slower from an unaligned
/// byte on.
void zeroLong(unsigned char* target, std::size_t count);

/// Zeroes `count` units.
template <typename Unit>
void zeroUnits(Unit* target, unsigned count)
{
    auto* const to = reinterpret_cast<unsigned char*>(target);
    std::size_t const bytes = count * sizeof(Unit);
    if (bytes > stringInstructions)
        zeroLong(to, bytes);
    else if (bytes > 64 || bytes < 16)
        std::memset(to, 0, bytes);
    else if (bytes >= 32)
        zeroEnds<32>(to, bytes);
    else
        zeroEnds<16>(to, bytes);
}

/// Writes bytes as units.
template <Extension extension>
void widenBy(unsigned short* target, Run<char> source)
{
    std::transform(source.units, source.units + source.count, target,
                   [](char byte) { return unitOf<unsigned short>(byte, extension); });
}

/// The same by an extension, looked at once and not for each unit.
inline void widen(unsigned short* target, Run<char> source, Extension extension)
{
    if (extension == Extension::zero)
        widenBy<Extension::zero>(target, source);
    else
        widenBy<Extension::sign>(target, source);
}

/// Writes the low bytes of units.
inline void narrow(char* target, Run<unsigned short> source)
{
    std::transform(source.units, source.units + source.count, target,
                   [](unsigned short unit) { return static_cast<char>(unit); });
}

/// Writes units without their high bytes.
inline void keepLowBytes(unsigned short* target, Run<unsigned short> source)
{
    std::transform(source.units, source.units + source.count, target,
                   [](unsigned short unit) { return static_cast<unsigned short>(unit & 0xFF); });
}

/// Writes a source of either width into a string of either width.
template <typename Unit>
[[gnu::always_inline]] inline void write(Unit* target, Run<Unit> source, Extension)
{
    moveUnits(target, source);
}
inline void write(unsigned short* target, Run<char> source, Extension extension)
{
    widen(target, source, extension);
}
inline void write(char* target, Run<unsigned short> source, Extension)
{
    narrow(target, source);
}

} // namespace qvStrings
