#pragma once

#include "qv/strings/core/compare.h"

#include <bit>
#include <cstring>
#include <emmintrin.h>
#include <limits>
#include <type_traits>

/// Several neighbouring units at once, in what compilers call a vector: one step on all of them
/// costs what a step on one does. Only a bit for each lane takes an instruction by its own name:
/// SSE2, which every x86-64 machine has.

namespace qvStrings {

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
    unsigned zeros() const { return bits(zeroLanes(), _mm_setzero_si128()); }

    /// The same for two runs of lanes that follow each other.
    static unsigned zeros(Lanes first, Lanes second)
    {
        static_assert(2 * size <= 16);
        return bits(first.zeroLanes(), second.zeroLanes());
    }

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

    /// All bits set in the lanes that are zero, and none behind the lanes.
    __m128i zeroLanes() const
    {
        auto const zero = lanes_ == Vector{};
        if constexpr (bytes == sizeof(__m128i))
            return std::bit_cast<__m128i>(zero);
        else
            return _mm_cvtsi64_si128(std::bit_cast<long long>(zero));
    }

    /// A bit for every lane of the first register, and behind them of the second one if its lanes
    /// are wide.
    static unsigned bits(__m128i first, __m128i second)
    {
        if constexpr (sizeof(Unit) == 2)
            first = _mm_packs_epi16(first, second);
        return static_cast<unsigned>(_mm_movemask_epi8(first));
    }

    Vector lanes_;
};

} // namespace qvStrings
