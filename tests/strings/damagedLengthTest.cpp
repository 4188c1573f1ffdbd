// A record may hold a length above the capacity: no search may write what it folds past its own
// copy. The reads stay in the block that stands for the record.
#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"

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

// The length counts as the capacity: a longer beginning is refused unread.
TYPED_TEST(DamagedLength, startsWithACountIsCutAtTheCapacity)
{
    std::string beginning(250, '?');
    for (std::size_t i = 0; i < beginning.size(); ++i)
        beginning[i] = static_cast<char>(this->string().text[i]);
    std::string const longer = beginning + std::string(50, '#');
    EXPECT_TRUE(this->string().startsWith(longer.data(), 250));
    EXPECT_FALSE(this->string().startsWith(longer.data(), 251));
    EXPECT_FALSE(this->string().startsWith(longer.data(), 60001));
    beginning.back() = '#';
    EXPECT_FALSE(this->string().startsWith(beginning.data(), 250));
}

TYPED_TEST(DamagedLength, hasNothingUnusedToClear)
{
    std::vector<unsigned char> const before = this->bytes();
    this->string().clearUnused();
    EXPECT_EQ(this->bytes(), before);
}

} // namespace
