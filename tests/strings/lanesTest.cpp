/// A bit for every lane, in each shape that the core uses and on whatever processor this is. The
/// drivers of tests/model try the rest of it, by all that is built on it.

#include "qv/strings/core/lanes.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>

namespace {

using namespace qvStrings;

/// Units that are not zero, with a single bit set, with a single byte, with all.
template <typename Unit>
constexpr std::array<Unit, 4> others{static_cast<Unit>(1), static_cast<Unit>(0x80),
                                     static_cast<Unit>(1 << (8 * sizeof(Unit) - 1)),
                                     static_cast<Unit>(~0)};

template <typename Unit, unsigned bytes>
Lanes<Unit, bytes> zeroWhere(unsigned bits)
{
    std::array<Unit, bytes / sizeof(Unit)> units{};
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i] = (bits >> i & 1) != 0 ? Unit{} : others<Unit>[(bits + i) % 4];
    return Lanes<Unit, bytes>(units.data());
}

template <typename Unit, unsigned bytes>
void expectEveryPattern()
{
    for (unsigned bits = 0; bits < 1u << bytes / sizeof(Unit); ++bits)
        ASSERT_EQ((zeroWhere<Unit, bytes>(bits).zeros()), bits);
}

} // namespace

TEST(Lanes, AreOneBitEach)
{
    expectEveryPattern<char, 8>();
    expectEveryPattern<char, 16>();
    expectEveryPattern<unsigned short, 8>();
    expectEveryPattern<unsigned short, 16>();
}

TEST(Lanes, AreSeenWhereverOneIsSet)
{
    EXPECT_FALSE((zeroWhere<char, 16>(0).zeroLanes().any()));
    EXPECT_FALSE((zeroWhere<unsigned short, 16>(0).zeroLanes().any()));
    for (unsigned place = 0; place < 16; ++place)
        EXPECT_TRUE((zeroWhere<char, 16>(1u << place).zeroLanes().any())) << place;
    for (unsigned place = 0; place < 8; ++place)
        EXPECT_TRUE((zeroWhere<unsigned short, 16>(1u << place).zeroLanes().any())) << place;
}

TEST(Lanes, OfASecondBlockFollow)
{
    using Block = Lanes<unsigned short, 16>;
    for (unsigned bits = 0; bits < 1u << 16; ++bits) {
        Block const first = zeroWhere<unsigned short, 16>(bits & 0xFF);
        Block const second = zeroWhere<unsigned short, 16>(bits >> 8);
        ASSERT_EQ(Block::zeros(first, second), bits);
    }
}
