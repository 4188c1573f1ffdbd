// A record may hold a length above the capacity: no search may write what it folds past its own
// copy. The reads stay in the block that stands for the record.
#include "tests/strings/images.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr unsigned short damagedLength = 60000;

// A record of two letters in random order, whose string says that it is 60000 units long.
template <typename S>
class DamagedLength : public testing::Test
{
public:
    using Unit = typename S::Unit;

    DamagedLength() : bytes_(70000 * sizeof(Unit))
    {
        std::memcpy(bytes_.data(), &damagedLength, sizeof damagedLength);
        std::size_t const textAt = sizeof(S) > 500 ? 4 : 2;
        std::minstd_rand random(1);
        for (std::size_t i = 0; i < damagedLength; ++i) {
            Unit const unit = random() / 7 % 2 == 0 ? 'b' : 'a';
            std::memcpy(bytes_.data() + textAt + i * sizeof unit, &unit, sizeof unit);
        }
    }

    S& string() { return *reinterpret_cast<S*>(bytes_.data()); }
    std::vector<unsigned char> const& bytes() const { return bytes_; }

private:
    std::vector<unsigned char> bytes_;
};

using Images = testing::Types<_qvString8_allSize<250>, _qvString<250>>;
TYPED_TEST_SUITE(DamagedLength, Images);

TYPED_TEST(DamagedLength, searchOverAlikeTextStaysInItsOwnCopies)
{
    TypeParam pattern("babbabaabbabaabaabbaXabbabaabaababbaabba");
    ASSERT_EQ(this->string().length, damagedLength);
    EXPECT_EQ(this->string().indexOf(pattern, 0), -1);
    EXPECT_EQ(this->string().indexOfCaseSen(pattern, 0), -1);
    EXPECT_FALSE(this->string().containsUpperCaseInput(pattern));
}

TYPED_TEST(DamagedLength, hasNothingUnusedToClear)
{
    std::vector<unsigned char> const before = this->bytes();
    this->string().clearUnused();
    EXPECT_EQ(this->bytes(), before);
}

// The length counts as the capacity in every image: a longer beginning is refused.
template <typename S>
class DamagedBeginning : public testing::Test
{};

using EveryImage =
    testing::Types<_qvString8_allSize<8>, _qvString8_allSize<250>, _qvString8_evenSize_old<14>,
                   _qvString8_UnevenSize_old<15>, _qvString<10>, _qvString<250>, _qvString_old<10>>;
TYPED_TEST_SUITE(DamagedBeginning, EveryImage);

TYPED_TEST(DamagedBeginning, isRefusedAboveTheCapacity)
{
    int const capacity = guarded::ImageOf<TypeParam>::capacity;
    std::string beginning(static_cast<std::size_t>(capacity), 'a');
    TypeParam s(beginning.c_str());
    s.length = damagedLength;
    std::string const longer = beginning + std::string(50, '#');
    EXPECT_TRUE(s.startsWith(longer.data(), capacity));
    EXPECT_FALSE(s.startsWith(longer.data(), capacity + 1));
    EXPECT_FALSE(s.startsWith(longer.data(), capacity + 50));
    EXPECT_FALSE(s.startsWith(longer.data(), damagedLength + 1));
    beginning.back() = '#';
    EXPECT_FALSE(s.startsWith(beginning.data(), capacity));
}

} // namespace
