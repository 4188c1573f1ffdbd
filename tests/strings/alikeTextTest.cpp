// Texts that are much alike, or whose spans are, so that nearly every one has to be looked at: a
// text of two letters in random order. What is expected is the plain first match.

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "tests/strings/images8.h"

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

// Every byte beside itself and beside the byte that a case apart would be, inside a pattern that
// nearly stands in many places.
TEST(AlikeText8, everyByteOfThePatternIsTold)
{
    using S = _qvString8_allSize<5000>;
    constexpr int patternAt = 4980;
    constexpr std::size_t place = 10;
    std::string const text = twoLetters(5000, 3);
    S string(mixedCase(text).c_str());
    S plain(text.c_str());
    S pattern(text.substr(patternAt).c_str());
    S upper(upperCase(text.substr(patternAt)).c_str());
    for (int i = 0; i < 256; ++i)
        for (int const other : {i, i ^ 0x20}) {
            auto const a = static_cast<unsigned char>(i);
            auto const b = static_cast<unsigned char>(other);
            string.text[patternAt + place] = static_cast<char>(a);
            plain.text[patternAt + place] = static_cast<char>(a);
            pattern.text[place] = static_cast<char>(b);
            upper.text[place] = static_cast<char>(b);
            bool const same = images8::upperOf(a) == images8::upperOf(b);
            ASSERT_EQ(string.indexOf(pattern, 0), same ? patternAt : -1) << i << " and " << other;
            ASSERT_EQ(plain.indexOfCaseSen(pattern, 0), a == b ? patternAt : -1)
                << i << " and " << other;
            ASSERT_EQ(string.containsUpperCaseInput(upper), images8::upperOf(a) == b)
                << i << " and " << other;
        }
}

template <typename S>
class AlikeText : public testing::Test
{};

using Images = testing::Types<_qvString8_allSize<5000>, _qvString8_allSize<250>, _qvString<2500>,
                              _qvString<250>>;
TYPED_TEST_SUITE(AlikeText, Images);

TYPED_TEST(AlikeText, isSearchedToTheFirstMatch)
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

// Where a search changes its ways: in texts and with patterns of all short lengths, at the end of
// the text, across it, where the rest of what once was longer stands, and at chance.
TYPED_TEST(AlikeText, isSearchedToTheFirstMatchAtEveryLength)
{
    for (std::size_t size = 1; size <= 80; ++size) {
        std::string const whole = twoLetters(size + 24, static_cast<unsigned>(size));
        std::string const text = whole.substr(0, size);
        TypeParam plain(whole.c_str());
        TypeParam mixed(mixedCase(whole).c_str());
        plain.setLength(static_cast<short>(size));
        mixed.setLength(static_cast<short>(size));
        for (std::size_t length = 1; length <= std::min<std::size_t>(size, 24); ++length) {
            for (std::string const& pattern :
                 {text.substr(size - length), whole.substr(size - length + 1, length),
                  whole.substr(size - length / 2, length),
                  twoLetters(length, static_cast<unsigned>(length))}) {
                TypeParam const same(pattern.c_str());
                TypeParam const upper(upperCase(pattern).c_str());
                for (std::size_t const start : {0U, 1U, 9U}) {
                    auto const found = text.find(pattern, start);
                    int const expected = found == std::string::npos ? -1 : static_cast<int>(found);
                    int const from = static_cast<int>(start);
                    ASSERT_EQ(plain.indexOfCaseSen(same, from), expected) << text << ' ' << pattern;
                    ASSERT_EQ(mixed.indexOf(upper, from), expected) << text << ' ' << pattern;
                }
                ASSERT_EQ(mixed.containsUpperCaseInput(upper),
                          text.find(pattern) != std::string::npos)
                    << text << ' ' << pattern;
            }
        }
    }
}

// Of two texts that differ in one place alone, or from there on the other way, at every place of
// every length up to where blocks of all sizes have followed one another.
TYPED_TEST(AlikeText, theFirstDifferenceIsToldAtEveryPlace)
{
    for (std::size_t size = 1; size <= 140; ++size) {
        std::string const letters = twoLetters(size, 5);
        // With different texts behind their ends, which are none of anybody's business.
        TypeParam text((letters + std::string(40, 'q')).c_str());
        TypeParam upper((upperCase(letters) + std::string(40, 'R')).c_str());
        text.setLength(static_cast<short>(size));
        upper.setLength(static_cast<short>(size));
        // With so many places for a pattern that each way of a search is taken.
        TypeParam const longer[] = {(letters + std::string(1, '-')).c_str(),
                                    (letters + std::string(8, '-')).c_str(),
                                    (letters + std::string(20, '-')).c_str()};
        ASSERT_TRUE(text.isEqual(upper) && text.isEqualUpperCaseInput(upper) &&
                    upper.isEqualLowerCaseInput(text) && text.compare(upper) == 0)
            << size;
        for (TypeParam const& each : longer)
            ASSERT_TRUE(each.indexOf(upper, 0) == 0 && each.indexOfCaseSen(text, 0) == 0 &&
                        each.containsUpperCaseInput(upper))
                << size;
        for (std::size_t place = 0; place < size; ++place) {
            std::string const greater =
                letters.substr(0, place) + 'c' + std::string(size - place - 1, '-');
            ASSERT_LT(text.compare(TypeParam(greater.c_str())), 0) << size << " at " << place;

            std::string single = letters;
            single[place] = 'c';
            TypeParam const pattern(single.c_str());
            TypeParam const patternUpper(upperCase(single).c_str());
            ASSERT_TRUE(!text.isEqual(patternUpper) && !text.isEqualUpperCaseInput(patternUpper) &&
                        !upper.isEqualLowerCaseInput(pattern))
                << size << " at " << place;
            for (TypeParam const& each : longer)
                ASSERT_TRUE(each.indexOf(patternUpper, 0) == -1 &&
                            each.indexOfCaseSen(pattern, 0) == -1 &&
                            !each.containsUpperCaseInput(patternUpper))
                    << size << " at " << place;

            // Behind a place that was no match at all, one that differs elsewhere.
            std::string other = letters;
            other[size - 1 - place] = 'c';
            TypeParam const twice((single + other + std::string(20, '-')).c_str());
            ASSERT_TRUE(twice.indexOf(upper, 0) == -1 && twice.indexOfCaseSen(text, 0) == -1 &&
                        !twice.containsUpperCaseInput(upper))
                << size << " at " << place;
        }
    }
}

} // namespace
