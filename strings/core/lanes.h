#pragma once

#include "strings/core/compare.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
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

    bool any() const { return words() != Words{}; }

    /// Calls `visit(i)` for each lane that is not zero, in rising order, until it returns true;
    /// then true. Lanes are all ones or all zeros.
    template <typename Visit>
    bool visitSet(Visit visit) const
    {
        constexpr unsigned laneBits = 8 * sizeof(Unit);
        Words const found = words();
        for (unsigned word = 0; word < found.size(); ++word) {
            for (std::uint64_t bits = found[word]; bits != 0;) {
                auto const lane = static_cast<unsigned>(std::countr_zero(bits)) / laneBits;
                bits &= ~(std::uint64_t{static_cast<Lane>(~0u)} << (lane * laneBits));
                if (visit(word * (64 / laneBits) + lane))
                    return true;
            }
        }
        return false;
    }

private:
    using Words = std::array<std::uint64_t, bytes / 8>;
    static constexpr Lane caseBit = 'a' ^ 'A';

    explicit Lanes(Vector lanes) : lanes_(lanes) {}

    /// All bits set in the lanes that hold one of the 26 letters from `first` on.
    Vector letters(char first) const
    {
        return std::bit_cast<Vector>((lanes_ - static_cast<Lane>(first)) < static_cast<Lane>(26));
    }

    Words words() const { return std::bit_cast<Words>(lanes_); }

    Vector lanes_;
};

} // namespace qvStrings
