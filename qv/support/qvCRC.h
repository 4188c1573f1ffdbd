#pragma once

#include <array>
#include <cstdint>

/// @file
/// Four checksums over blocks of bytes. All take their input as bytes in memory order and give
/// plain integers, so a block has the same checksum on every machine. None can fail; none reads
/// `data` when the length is 0, so null is fine then.
///
/// Threads: everything here may run at once, also the first `qvCRCCalc` of several threads. Each of
/// them builds the CRC-32 table then, and all write the same values. A race detector may report
/// those writes; a program that wants none of it calls `qvCRCInitialize` before it starts threads.
/// `qvCRCPartial` reads the table without asking for it, so its thread calls `qvCRCInitialize` or
/// `qvCRCCalc` first, or is started after one of these calls.

/// Table of the CRC-32, in reflected form: zero at start, filled by `qvCRCInitialize`.
extern unsigned int qvCRCulTable[256];

/// True once `qvCRCulTable` is complete; never cleared again. `qvCRCCalc` reads it atomically.
extern bool qvCRCulTableInitialized;

/// Table of the CRC-64, in reflected form; a constant.
extern std::array<std::uint64_t, 256> const crctab64;

/// Table of the CRC-16, most significant bit first; a constant.
extern std::array<std::uint16_t, 256> const crc16tab;

/// Mirrors the low bits of a value; higher bits are dropped.
/// @param value The value.
/// @param bits How many, as a signed byte: at most 0 gives 0; above 32 places wrap (intended).
/// @return The mirrored bits.
unsigned int qvCRCReflect(unsigned int value, char bits);

/// Builds `qvCRCulTable`, then sets `qvCRCulTableInitialized`. May be called again, also while
/// other threads read the table: it writes the values that are there.
void qvCRCInitialize();

/// Advances a CRC-32 state over a block, storing it back after every byte. Sets no initial value
/// and inverts nothing: start with 0xFFFFFFFF, chain blocks, invert at the end. Does not build the
/// table: the caller sees to that by `qvCRCInitialize` or any `qvCRCCalc`.
/// @param[in,out] crc The state; not null.
/// @param data The block.
/// @param length Its bytes.
void qvCRCPartial(unsigned int* crc, unsigned char const* data, unsigned int length);

/// CRC-32/ISO-HDLC. Builds the table at its first call.
/// @param data The block.
/// @param length Its bytes.
/// @return The checksum; 0 for an empty block.
unsigned int qvCRCCalc(unsigned char const* data, unsigned int const& length);

/// CRC-64/REDIS.
/// @param data The block.
/// @param length Its bytes.
/// @return The checksum; 0 for an empty block.
std::uint64_t qvCRCCalc64(void const* data, unsigned long length);

/// CRC-16/XMODEM.
/// @param data The block.
/// @param length Its bytes, below 4 GiB.
/// @return The checksum; 0 for an empty block.
std::uint16_t qvCRCCalc16(unsigned char const* data, unsigned long length);

/// No CRC in spite of its name: the XOR of the bytes. With `everySecondByte` the length counts
/// little-endian 16-bit units and the XOR takes their low bytes only, so 2 * length - 1 bytes are
/// read.
/// @param data The block.
/// @param length Its bytes or units; the block stays below 4 GiB.
/// @param everySecondByte Whether the length counts units.
/// @return The XOR; 0 for an empty block.
unsigned char qvCRCCalc8(unsigned char const* data, unsigned long length, bool everySecondByte);
