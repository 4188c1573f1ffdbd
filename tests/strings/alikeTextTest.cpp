// Searches of texts whose spans are much alike, so that nearly every one has to be looked at: a
// text of two letters in random order. What is expected is the plain first match.

#include "strings/qvString.h"
#include "strings/qvString8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

std::string twoLetters(std::size_t size, unsigned seed)
{
    std::minstd_rand random(seed);
    std::string text;
    while (text.size() < size)
        text += random() / 7 % 2 == 0 ? 'a' : 'b';
    return text;
}

// Every second letter in upper case.
std::string mixedCase(std::string text)
{
    for (std::size_t i = 0; i < text.size(); i += 2)
        text[i] = static_cast<char>(text[i] - 'a' + 'A');
    return text;
}

std::string upperCase(std::string text)
{
    for (char& c : text)
        c = static_cast<char>(c - 'a' + 'A');
    return text;
}

template <typename S>
class AlikeText : public testing::Test
{};

using Images = testing::Types<_qvString8_allSize<5000>, _qvString8_allSize<250>, _qvString<2500>,
                              _qvString<250>>;
TYPED_TEST_SUITE(AlikeText, Images);

TYPED_TEST(AlikeText, IsSearchedToTheFirstMatch)
{
    constexpr std::size_t capacity = sizeof(TypeParam::text) / sizeof(TypeParam::text[0]) - 1;
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::string const text = twoLetters(capacity, seed);
        TypeParam const plain(text.c_str());
        TypeParam const mixed(mixedCase(text).c_str());
        for (std::size_t const length : {2u, 5u, 11u, 14u, 40u}) {
            for (bool const isEnd : {true, false}) {
                std::string const pattern =
                    isEnd ? text.substr(text.size() - length) : twoLetters(length, seed + 100);
                SCOPED_TRACE("seed " + std::to_string(seed) + ", " + pattern);
                for (int const start : {0, 1, static_cast<int>(capacity / 2)}) {
                    auto const found = text.find(pattern, static_cast<std::size_t>(start));
                    int const expected = found == std::string::npos ? -1 : static_cast<int>(found);
                    TypeParam const upper(upperCase(pattern).c_str());
                    EXPECT_EQ(plain.indexOfCaseSen(TypeParam(pattern.c_str()), start), expected);
                    EXPECT_EQ(plain.indexOf(upper, start), expected);
                    EXPECT_EQ(mixed.indexOf(TypeParam(pattern.c_str()), start), expected);
                }
                bool const isThere = text.find(pattern) != std::string::npos;
                TypeParam const upper(upperCase(pattern).c_str());
                EXPECT_EQ(mixed.containsUpperCaseInput(upper), isThere);
                EXPECT_EQ(plain.containsUpperCaseInput(TypeParam(pattern.c_str())), false);
            }
        }
    }
}

} // namespace
