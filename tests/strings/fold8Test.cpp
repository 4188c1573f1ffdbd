/// Every byte through both folds and through every member that folds, at each place of texts whose
/// lengths meet every step of a comparison that takes several bytes at once. The two folds are
/// written down a second time in images8.h.

#include "tests/strings/images8.h"

#include <gtest/gtest.h>

#include <string>

namespace images8 {
namespace {

using String = _qvString8_allSize<250>;

/// Calls `check(a, b)` with every byte beside itself and beside the byte that a case apart would
/// be.
template <typename Check>
void forBytesOfEitherCase(Check const& check)
{
    for (int i = 0; i < 256; ++i) {
        auto const byte = static_cast<unsigned char>(i);
        check(byte, byte);
        check(byte, static_cast<unsigned char>(byte ^ 0x20U));
    }
}

TEST(FoldTable8, onlyAsciiLettersChange)
{
    int changedUp = 0;
    int changedDown = 0;
    for (int i = 0; i < 256; ++i) {
        auto const byte = static_cast<unsigned char>(i);
        changedUp += upperOf(byte) != byte;
        changedDown += lowerOf(byte) != byte;
    }
    EXPECT_EQ(changedUp, 26);
    EXPECT_EQ(changedDown, 26);
    EXPECT_EQ(upperOf('a'), 'A');
    EXPECT_EQ(upperOf('z'), 'Z');
    EXPECT_EQ(lowerOf('A'), 'a');
    EXPECT_EQ(lowerOf('Z'), 'z');
}

template <typename S>
class FoldInPlace8 : public testing::Test
{};
TYPED_TEST_SUITE(FoldInPlace8, AllImages, ImageName);

/// In full strings, so that a fold over blocks meets every byte at every place of a block.
TYPED_TEST(FoldInPlace8, everyByte)
{
    for (std::size_t first = 0; first < 256; ++first) {
        std::string text(capacity<TypeParam>, '?');
        std::string lower = text;
        for (std::size_t i = 0; i < text.size(); ++i) {
            auto const byte = static_cast<unsigned char>(first + i);
            text[i] = static_cast<char>(byte);
            lower[i] = static_cast<char>(lowerOf(byte));
        }
        Laid<TypeParam> receiver(text);
        receiver->makeUpper();
        ASSERT_TRUE(became(receiver, capacity<TypeParam>, upperOf(text) + '\0')) << first;
        receiver.lay(text);
        receiver->makeLower();
        ASSERT_TRUE(became(receiver, capacity<TypeParam>, lower + '\0')) << first;
    }
}

TEST(Fold8, throughTheComparisons)
{
    for (std::size_t const size : {1U, 7U, 8U, 15U, 16U, 17U, 63U, 64U, 67U}) {
        auto const letters = guarded::letters(size);
        int const count = static_cast<int>(size);
        for (std::size_t place = 0; place < size; ++place) {
            auto left = stringOf<String>(letters);
            auto right = stringOf<String>(upperOf(letters));
            auto longer = stringOf<String>("-" + letters);
            forBytesOfEitherCase([&](unsigned char a, unsigned char b) {
                left.text[place] = static_cast<char>(a);
                longer.text[place + 1] = static_cast<char>(a);
                right.text[place] = static_cast<char>(b);
                int const order = upperOf(a) - upperOf(b);
                bool const same = order == 0;
                bool const fine =
                    left.isEqual(right) == same && left.isEqual(right.text, count) == same &&
                    signOf(left.compare(right)) == signOf(order) &&
                    left.startsWith(right) == same && left.startsWith(right.text, count) == same &&
                    longer.endsWith(right) == same &&
                    left.isEqualUpperCaseInput(right) == (upperOf(a) == b) &&
                    right.isEqualLowerCaseInput(left) == (lowerOf(b) == a);
                ASSERT_TRUE(fine) << +a << " and " << +b << " at " << place << " of " << size;
            });
        }
    }
}

TEST(Fold8, throughTheSearches)
{
    for (std::size_t const size : {7U, 8U, 15U, 16U, 17U, 33U, 67U}) {
        for (std::size_t place = 0; place < size; ++place) {
            auto text = stringOf<String>(std::string(size, '.'));
            auto pattern = stringOf<String>("?");
            int const at = static_cast<int>(place);
            forBytesOfEitherCase([&](unsigned char a, unsigned char b) {
                // A full stop stands everywhere else.
                if (b == '.') {
                    return;
                }
                char const c = static_cast<char>(b);
                text.text[place] = static_cast<char>(a);
                pattern.text[0] = c;
                bool const same = upperOf(a) == upperOf(b);
                int const folded = same ? at : -1;
                int const exact = a == b ? at : -1;
                bool const fine =
                    text.indexOf(pattern, 0) == folded && text.indexOf(c, 0) == folded &&
                    text.indexOfCaseSen(pattern, 0) == exact &&
                    text.indexOfCaseSen(c, 0) == exact && text.lastIndexOf(c, -1) == exact &&
                    text.containsUpperCaseInput(pattern) == (upperOf(a) == b) &&
                    text.count(c) == (same ? 1 : 0) && text.countCaseSen(c) == (a == b ? 1 : 0);
                ASSERT_TRUE(fine) << +a << " and " << +b << " at " << place << " of " << size;
            });
        }
    }
}

} // namespace
} // namespace images8
