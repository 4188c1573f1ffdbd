#pragma once

#include <cstddef>
#include <cstdint>

// The checksums once more, bit by bit: no table, no shortcut.
namespace qvTest {

inline std::uint64_t mirrored(std::uint64_t value, int width)
{
    std::uint64_t result = 0;
    for (int i = 0; i < width; ++i)
        result = (result << 1) | ((value >> i) & 1U);
    return result;
}

// A CRC the way the catalogue defines it: polynomial division, most significant bit first, with
// the input bytes and the remainder mirrored where the parameters say so.
struct CatalogueCrc
{
    int width;
    std::uint64_t polynomial;
    bool reflected;
    std::uint64_t initial;
    std::uint64_t finalXor;

    std::uint64_t operator()(unsigned char const* data, std::size_t length) const
    {
        std::uint64_t const top = std::uint64_t{1} << (width - 1);
        std::uint64_t const all = top | (top - 1);
        std::uint64_t state = initial;
        for (std::size_t i = 0; i < length; ++i) {
            std::uint64_t const input = reflected ? mirrored(data[i], 8) : data[i];
            state ^= input << (width - 8);
            for (int bit = 0; bit < 8; ++bit) {
                bool const out = (state & top) != 0;
                state = (state << 1) & all;
                state ^= out ? polynomial : 0;
            }
        }
        return (reflected ? mirrored(state, width) : state) ^ finalXor;
    }
};

inline constexpr CatalogueCrc crc32IsoHdlc{32, 0x04C11DB7, true, 0xFFFFFFFF, 0xFFFFFFFF};
inline constexpr CatalogueCrc crc64Redis{64, 0xAD93D23594C935A9, true, 0, 0};
inline constexpr CatalogueCrc crc16Xmodem{16, 0x1021, false, 0, 0};

// The state of the CRC-32 after a block, from any state before it: callers keep it mirrored.
inline std::uint32_t crc32State(std::uint32_t before, unsigned char const* data, std::size_t length)
{
    CatalogueCrc continued = crc32IsoHdlc;
    continued.initial = mirrored(before, 32);
    continued.finalXor = 0;
    return static_cast<std::uint32_t>(continued(data, length));
}

// `count` bytes, each `stride` behind the one before.
inline unsigned char exclusiveOr(unsigned char const* data, std::size_t count, std::size_t stride)
{
    unsigned char sum = 0;
    for (std::size_t i = 0; i < count; ++i)
        sum = static_cast<unsigned char>(sum ^ data[i * stride]);
    return sum;
}

// The mirror of the low bits. Target places wrap beyond 32 bits, where `value` has none left.
inline std::uint32_t reflection(std::uint32_t value, signed char bits)
{
    std::uint32_t result = 0;
    for (int i = 0; i < bits; ++i)
        if (i < 32 && (value >> i & 1U) != 0)
            result |= std::uint32_t{1} << (bits - 1 - i) % 32;
    return result;
}

} // namespace qvTest
