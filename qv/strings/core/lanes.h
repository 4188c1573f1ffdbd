#pragma once

#include "qv/strings/core/compare.h"

#include <bit>
#include <cstring>
#include <limits>
#include <type_traits>

#ifdef QV_PLAIN_LANES // tests the code of all other processors on this one
#elif defined(__SSE2__)
#include <emmintrin.h>
#define QV_LANES_SSE2
#elif defined(__aarch64__)
#include <arm_neon.h>
#define QV_LANES_NEON
#endif

/// Several neighbouring units at once, in a vector of the compiler: a step on all of them costs as
/// much as a step on one. Only `laneBits()` depends on the processor: it uses SSE2, which every
/// x86-64 machine has, NEON, which every aarch64 machine has, or plain integers.

namespace qvStrings {

static_assert(std::endian::native == std::endian::little,
              "qv needs a little-endian machine: its strings and records are shared in memory, and "
              "their numbers are laid down with the low byte first");

/// 16 bytes of lanes, each all ones or all zeros.
typedef unsigned char LaneMask __attribute__((vector_size(16)));
/// The same as two integers.
typedef unsigned long long LaneMaskHalves __attribute__((vector_size(16)));

/// A bit for every lane of the first mask, the first one's lowest. Lanes of two bytes leave room
/// for those of a second mask behind them; of single bytes the second mask is ignored.
template <unsigned laneSize>
unsigned laneBits(LaneMask first, LaneMask second)
{
#if defined(QV_LANES_SSE2)
    auto narrow = std::bit_cast<__m128i>(first);
    if constexpr (laneSize == 2)
        narrow = _mm_packs_epi16(narrow, std::bit_cast<__m128i>(second));
    return static_cast<unsigned>(_mm_movemask_epi8(narrow));
#elif defined(QV_LANES_NEON)
    auto narrow = std::bit_cast<uint8x16_t>(first);
    if constexpr (laneSize == 2)
        narrow = vuzp1q_u8(narrow, std::bit_cast<uint8x16_t>(second));
    // Each byte keeps one bit, that of its place in its half. In pairs of a byte of each half they
    // are sixteen bits, and the sum of the pairs has them all.
    auto const places =
        std::bit_cast<uint8x16_t>(LaneMaskHalves{0x8040201008040201, 0x8040201008040201});
    uint8x16_t const kept = vandq_u8(narrow, places);
    uint8x16_t const pairs = vzip1q_u8(kept, vextq_u8(kept, kept, 8));
    return vaddvq_u16(vreinterpretq_u16_u8(pairs));
#else
    // A product moves the lowest bits of all lanes of an integer next to each other into its
    // highest lane: the bit of lane i is multiplied by the factor's bit that is i lanes below the
    // highest one, and i bits above. No two bits of the product meet, so nothing is carried.
    constexpr bool isWide = laneSize == 2;
    constexpr unsigned count = 8 / laneSize;
    constexpr unsigned long long lowest = isWide ? 0x0001000100010001 : 0x0101010101010101;
    constexpr unsigned long long factor = isWide ? 0x0001000200040008 : 0x0102040810204080;
    auto const half = [](unsigned long long lanes) {
        return static_cast<unsigned>((lanes & lowest) * factor >> (64 - 8 * laneSize));
    };
    auto const bits = [half](LaneMask mask) {
        auto const halves = std::bit_cast<LaneMaskHalves>(mask);
        return half(halves[0]) | half(halves[1]) << count;
    };
    if constexpr (isWide)
        return bits(first) | bits(second) << 2 * count;
    else
        return bits(first);
#endif
}

/// The 16 bytes from byte `n` on end with `n` bytes of ones.
alignas(16) inline constexpr unsigned char onesBehindZeros[32] = {
    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,    0,
    0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

/// As many units as fit into `bytes`, each in a lane of its own.
template <typename Unit, unsigned bytes>
class Lanes
{
    using Lane = std::make_unsigned_t<Unit>;
    typedef Lane Vector __attribute__((vector_size(bytes)));

public:
    static constexpr unsigned size = bytes / sizeof(Unit);

    /// The units at `from`.
    explicit Lanes(Unit const* from) { std::memcpy(&lanes_, from, bytes); }

    /// One unit in every lane.
    static Lanes all(Unit unit) { return Lanes(Vector{} + static_cast<Lane>(unit)); }

    Lanes operator|(Lanes other) const { return Lanes(lanes_ | other.lanes_); }
    Lanes operator&(Lanes other) const { return Lanes(lanes_ & other.lanes_); }
    Lanes operator^(Lanes other) const { return Lanes(lanes_ ^ other.lanes_); }

    Lanes operator+(Lanes other) const { return Lanes(lanes_ + other.lanes_); }
    Lanes operator-(Lanes other) const { return Lanes(lanes_ - other.lanes_); }

    /// `yes` in the lanes where the mask has all bits, `no` where it has none.
    static Lanes chosen(Lanes mask, Lanes yes, Lanes no)
    {
        return Lanes((yes.lanes_ & mask.lanes_) | (no.lanes_ & ~mask.lanes_));
    }

    /// All bits in the last `count` lanes.
    static Lanes lastLanes(unsigned count)
    {
        return Lanes(reinterpret_cast<Unit const*>(onesBehindZeros + count * sizeof(Unit)));
    }

    /// Writes the units to `to`.
    void store(Unit* to) const { std::memcpy(to, &lanes_, bytes); }

    /// All bits set in the lanes that are zero: -1, so that subtracting them counts.
    Lanes zeroLanes() const { return Lanes(std::bit_cast<Vector>(lanes_ == Vector{})); }

    /// The sum of all lanes, modulo 65536.
    unsigned sum() const
    {
        static_assert(bytes == sizeof(LaneMask));
        auto const halves = std::bit_cast<LaneMaskHalves>(lanes_);
        // As four numbers of 16 bits in each half; a product then adds these up in its highest one.
        auto const wide = [](unsigned long long half) {
            constexpr unsigned long long low = 0x00FF00FF00FF00FF;
            return sizeof(Unit) == 2 ? half : (half & low) + (half >> 8 & low);
        };
        return static_cast<unsigned>((wide(halves[0]) + wide(halves[1])) * 0x0001000100010001 >>
                                     48);
    }

    /// The units of a first side as they are compared: folded, or unchanged.
    template <Case mode>
    Lanes foldedFirst() const
    {
        if constexpr (mode == Case::exact)
            return *this;
        else
            return Lanes(lanes_ ^ (letters(mode == Case::lowerInput ? 'A' : 'a') & caseBit));
    }

    /// Bits set in the lanes whose units differ in any case. Cheaper than folding both: only the
    /// bit between the cases of a letter may differ, and only where there is a letter.
    static Lanes foldedDifference(Lanes a, Lanes b)
    {
        Lanes const lower(a.lanes_ | caseBit);
        return Lanes((a.lanes_ ^ b.lanes_) & ~(lower.letters('a') & caseBit));
    }

    /// A bit for every lane, the first one's lowest: set where the lane is zero.
    unsigned zeros() const { return laneBits<sizeof(Unit)>(zeroMask(), LaneMask{}); }

    /// The same for two runs of lanes that follow each other.
    static unsigned zeros(Lanes first, Lanes second)
    {
        static_assert(sizeof(Unit) == 2 && bytes == sizeof(LaneMask));
        return laneBits<sizeof(Unit)>(first.zeroMask(), second.zeroMask());
    }

    /// Whether a lane has all bits, where each has all or none.
    bool any() const { return laneBits<1>(std::bit_cast<LaneMask>(lanes_), LaneMask{}) != 0; }

private:
    static constexpr Lane caseBit = 'a' ^ 'A';

    explicit Lanes(Vector lanes) : lanes_(lanes) {}

    /// All bits set in the lanes that hold one of the 26 letters from `first` on. The letters are
    /// moved to the lowest signed values, since only signed lanes compare in one instruction.
    Vector letters(char first) const
    {
        using Signed = std::make_signed_t<Lane>;
        typedef Signed SignedVector __attribute__((vector_size(bytes)));
        constexpr Signed lowest = std::numeric_limits<Signed>::min();
        auto const moved = std::bit_cast<SignedVector>(
            lanes_ + static_cast<Lane>(static_cast<Lane>(lowest) - static_cast<Lane>(first)));
        return std::bit_cast<Vector>(moved < static_cast<Signed>(lowest + 26));
    }

    /// The same as a mask, without bits behind the lanes.
    LaneMask zeroMask() const
    {
        auto const zero = zeroLanes().lanes_;
        if constexpr (bytes == sizeof(LaneMask))
            return std::bit_cast<LaneMask>(zero);
        else
            return std::bit_cast<LaneMask>(
                LaneMaskHalves{std::bit_cast<unsigned long long>(zero), 0});
    }

    Vector lanes_;
};

} // namespace qvStrings
