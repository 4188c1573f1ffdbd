// Texts of a's with few b's, which are searched by the sums of their spans. The patterns are the
// text's end, so the one match is the last span, which may be the only one that is left by then.

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

std::string fewBs(std::size_t size, unsigned seed)
{
    std::minstd_rand random(seed);
    std::string text(size, 'a');
    for (char& unit : text)
        if (random() / 7 % 16 == 0)
            unit = 'b';
    return text;
}

template <typename S>
class SumFilter : public testing::Test
{};

using FilteredImages = testing::Types<_qvString8_allSize<250>, _qvString<250>>;
TYPED_TEST_SUITE(SumFilter, FilteredImages);

TYPED_TEST(SumFilter, FindsThePatternThatIsTheTextsEnd)
{
    for (unsigned seed = 1; seed <= 250; ++seed) {
        std::string const text = fewBs(250 - seed % 32, seed);
        TypeParam const string(text.c_str());
        for (std::size_t length = 20; length <= 200; length += 1 + length / 4) {
            std::string const pattern = text.substr(text.size() - length);
            TypeParam const wanted(pattern.c_str());
            auto const expected = static_cast<int>(text.find(pattern));
            ASSERT_EQ(string.indexOfCaseSen(wanted, 0), expected) << text << ' ' << length;
            ASSERT_EQ(string.indexOf(wanted, 0), expected) << text << ' ' << length;
        }
    }
}

} // namespace
