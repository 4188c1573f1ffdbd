#pragma once

#include "strings/core/compare.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

/// Several neighbouring units at once, in what compilers call a vector: one step on all of them
/// costs what a step on one does, on every machine that the farm has. The images are
/// little-endian, and so is the order of lanes in a word here.

namespace qvStrings {

static_assert(std::endian::native == std::endian::little);

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

    /// The units of a first side as they are compared: folded, or as they stand.
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

    /// All bits set in the lanes that are zero.
    Lanes isZero() const { return Lanes(std::bit_cast<Vector>(lanes_ == Vector{})); }

    bool any() const { return (word(0) | word(wordCount - 1)) != 0; }

    /// Index of the first lane that is not zero; at least one is not.
    unsigned firstSet() const
    {
        constexpr unsigned wordBits = 64;
        constexpr unsigned laneBits = 8 * sizeof(Unit);
        unsigned const bit =
            word(0) != 0 ? firstBit(word(0)) : wordBits + firstBit(word(wordCount - 1));
        return bit / laneBits;
    }

private:
    using Word = std::uint64_t;
    typedef Word Words __attribute__((vector_size(bytes)));
    static constexpr unsigned wordCount = bytes / sizeof(Word);
    static_assert(wordCount == 1 || wordCount == 2);
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

    static unsigned firstBit(Word word) { return static_cast<unsigned>(std::countr_zero(word)); }

    Word word(unsigned i) const { return std::bit_cast<Words>(lanes_)[i]; }

    Vector lanes_;
};

} // namespace qvStrings
