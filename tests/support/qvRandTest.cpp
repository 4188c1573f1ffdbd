// The generator, the state drawn from a block, and the short texts: the same on every machine.

#include "qv/support/qvRand.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace {

static_assert(std::is_same_v<decltype(&qvRand), float (*)(unsigned int&)>);
static_assert(std::is_same_v<decltype(&qvRandCalc),
                             unsigned int (*)(unsigned char const*, unsigned int const&)>);
// The seed goes in by value: two calls with one seed give one text.
static_assert(
    std::is_same_v<decltype(&qvRandString), _qvString8_allSize<10> (*)(unsigned int, int)>);
static_assert(
    std::is_same_v<decltype(&qvRandString9), _qvString8_allSize<10> (*)(unsigned int, int)>);
static_assert(
    std::is_same_v<decltype(&qvRandString20), _qvString8_allSize<20> (*)(unsigned int, int)>);

constexpr unsigned int modulus = 2147483647;

// The state behind `seed`, through the one door that shows states.
unsigned int step(unsigned int seed)
{
    qvRand(seed);
    return seed;
}

// The same step by the generator of the standard library, which is defined on 1 to modulus - 1.
unsigned int stepOfStandard(unsigned int seed)
{
    if (seed % modulus == 0)
        return modulus;
    return static_cast<unsigned int>(std::minstd_rand0(seed % modulus)());
}

unsigned int stateOf(std::vector<unsigned char> const& block)
{
    return qvRandCalc(block.data(), static_cast<unsigned int>(block.size()));
}

unsigned int stateOf(std::string_view text)
{
    return stateOf(std::vector<unsigned char>(text.begin(), text.end()));
}

template <int N>
std::string textOf(_qvString8_allSize<N> const& string)
{
    if (string.length > N || string.text[string.length] != 0)
        return "<broken string>";
    return {string.text, string.length};
}

TEST(QvRand, StepsThroughTheMinimalStandard)
{
    unsigned int seed = 1;
    for (unsigned int const state : {16807U, 282475249U, 1622650073U, 984943658U}) {
        qvRand(seed);
        EXPECT_EQ(seed, state);
    }
    for (int steps = 4; steps < 10000; ++steps)
        qvRand(seed);
    EXPECT_EQ(seed, 1043618065U);
}

TEST(QvRand, StepsSeedsOutsideTheRangeAsLaidDown)
{
    struct Row
    {
        unsigned int seed;
        unsigned int next;
    };
    for (Row const row : {
             // Multiples of the modulus all lead to it, and it leads to itself.
             Row{0, 2147483647},
             Row{2147483647, 2147483647},
             Row{4294967294, 2147483647},
             // Above the modulus a seed works as its remainder.
             Row{2147483648, 16807},
             Row{4294967295, 16807},
             Row{2147483649, 33614},
             Row{4294967293, 2147466840},
             // The ends of the useful range.
             Row{2147483646, 2147466840},
             Row{1407677000, 1},
             Row{739806647, 2147483646},
             // Around the quotient at which the step splits a state.
             Row{127772, 2147464004},
             Row{127773, 2147480811},
             Row{127774, 13971},
         })
        EXPECT_EQ(step(row.seed), row.next) << row.seed;
}

TEST(QvRand, ScalesTheNewStateTo31Bits)
{
    struct Row
    {
        unsigned int seed;
        unsigned int state;
        float result;
    };
    for (Row const row : {
             Row{1, 16807, 0x1.069cp-17F},
             // The least result is above 0, and the highest one is 1 itself.
             Row{1407677000, 1, 0x1p-31F},
             Row{739806647, 2147483646, 1.0F},
             Row{0, 2147483647, 1.0F},
             // A state of more than 24 bits is rounded to the nearest float, halves to even.
             Row{479150381, 16777217, 0x1p-7F},
             Row{1147020734, 16777219, 0x1.000004p-7F},
             Row{102985174, 2147483583, 0x1.fffffep-1F},
             Row{1510662174, 2147483584, 1.0F},
         }) {
        unsigned int seed = row.seed;
        EXPECT_EQ(qvRand(seed), row.result) << row.seed;
        EXPECT_EQ(seed, row.state);
    }
}

TEST(QvRand, StaysOnOneValueFromSeedZero)
{
    unsigned int seed = 0;
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(qvRand(seed), 1.0F);
        EXPECT_EQ(seed, modulus);
    }
}

TEST(QvRand, AgreesWithTheStandardGeneratorForAnySeed)
{
    std::mt19937 random(6);
    for (int i = 0; i < 300'000; ++i) {
        auto const seed = static_cast<unsigned int>(random());
        unsigned int state = seed;
        float const result = qvRand(state);
        ASSERT_EQ(state, stepOfStandard(seed)) << seed;
        ASSERT_EQ(result, static_cast<float>(state) * 0x1p-31F) << seed;
        ASSERT_GT(result, 0.0F);
        ASSERT_LE(result, 1.0F);
    }
    std::minstd_rand0 standard(20250);
    unsigned int state = 20250;
    for (int i = 0; i < 100'000; ++i) {
        qvRand(state);
        ASSERT_EQ(state, standard()) << i;
    }
}

TEST(QvRandCalc, WeighsEachByteByItsPlace)
{
    EXPECT_EQ(qvRandCalc(nullptr, 0), 2147483647U);
    EXPECT_EQ(stateOf(""), 2147483647U);
    // The first byte weighs nothing.
    for (unsigned char const byte : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{255}})
        EXPECT_EQ(qvRandCalc(&byte, 1), 2147483647U);
    EXPECT_EQ(stateOf("123456789"), 1860509106U);
    EXPECT_EQ(stateOf("x23456789"), 1860509106U);
    // A sum of 1, and one of 255: bytes count as unsigned.
    EXPECT_EQ(stateOf(std::vector<unsigned char>{77, 1}), 282475249U);
    EXPECT_EQ(stateOf(std::vector<unsigned char>{77, 255}), 1164228144U);
    EXPECT_EQ(stateOf(std::vector<unsigned char>{0, 1, 127}), 1164228144U);
}

TEST(QvRandCalc, LetsTheSumWrap)
{
    std::mt19937 random(7);
    for (std::size_t const size : {2U, 100U, 5793U, 5804U, 70000U, 300001U}) {
        std::vector<unsigned char> block(size, 0xFF);
        for (int round = 0; round < 2; ++round) {
            std::uint64_t sum = 0;
            for (std::size_t i = 0; i < size; ++i)
                sum += std::uint64_t{block[i]} * i;
            auto const wrapped = static_cast<unsigned int>(sum);
            EXPECT_EQ(stateOf(block), stepOfStandard(stepOfStandard(wrapped))) << size;
            for (unsigned char& byte : block)
                byte = static_cast<unsigned char>(random());
        }
    }
}

TEST(QvAlphabets, StandInTheirOrder)
{
    EXPECT_EQ(std::string(qvLetters),
              "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890_!/()=abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(std::string(qvLetters).size(), 68U);
    EXPECT_EQ(std::string(qvNumbers), "1234567890");
    static_assert(std::is_const_v<std::remove_reference_t<decltype(qvLetters[0])>>);
    static_assert(std::is_const_v<std::remove_reference_t<decltype(qvNumbers[0])>>);
}

TEST(QvRandString, GivesOneTextPerSeedAndMode)
{
    using namespace std::string_literals;
    struct Row
    {
        unsigned int seed;
        int mode;
        std::string text;
    };
    std::vector<Row> const rows{
        {1, 0, "\xA7\xF1\xD9\x2A\x82\xC8\xD8\xFE\x43\x4D\x98\x55\x8C\xE2\xB3\x47\x17\x11\x98\x54"},
        {1, 1, "LlF/WcM90=k4A5jHXdYk"},
        {1, 2, "80491359401633848013"},
        {12345, 1, "zcME6fUao2q4egySEE88"},
        {12345, 2, "65772011103259331106"},
        // A state with a low byte of 0 counts as a character.
        {12345, 0,
         "\x2F\x00\xC0\x78\xA3\x17\x5C\x4A\xAC\x37\x56\xF9\x3E\xFC\x6E\x5A\x7C\x28\x55\xED"s},
        {2147483646, 1, "gGmV!PfZYSH5r4Ik_O0H"},
        {2147483646, 2, "19508640598366151986"},
        // Seeds above the range work as their remainder.
        {2147483648, 1, "LlF/WcM90=k4A5jHXdYk"},
        {4294967295, 2, "80491359401633848013"},
        // Seed 0 stays on one state, whatever the mode.
        {0, 0, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"},
        {0, 1, "rrrrrrrrrrrrrrrrrrrr"},
        {0, 2, "88888888888888888888"},
        // An unknown mode adds nothing.
        {1, 3, ""},
        {1, -1, ""},
        {1, std::numeric_limits<int>::max(), ""},
        {1, std::numeric_limits<int>::min(), ""},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(testing::Message() << "seed " << row.seed << ", mode " << row.mode);
        EXPECT_EQ(textOf(qvRandString(row.seed, row.mode)), row.text.substr(0, 10));
        EXPECT_EQ(textOf(qvRandString9(row.seed, row.mode)), row.text.substr(0, 9));
        EXPECT_EQ(textOf(qvRandString20(row.seed, row.mode)), row.text);
    }
}

TEST(QvRandString, TakesItsCharactersFromTheStatesBehindTheSeed)
{
    std::mt19937 random(8);
    for (int i = 0; i < 2000; ++i) {
        auto const seed = static_cast<unsigned int>(random());
        std::string bytes;
        std::string letters;
        std::string numbers;
        unsigned int state = seed;
        for (int place = 0; place < 20; ++place) {
            state = stepOfStandard(state);
            bytes += static_cast<char>(static_cast<unsigned char>(state & 0xFF));
            letters += qvLetters[state % 68];
            numbers += qvNumbers[state % 10];
        }
        ASSERT_EQ(textOf(qvRandString20(seed, 0)), bytes) << seed;
        ASSERT_EQ(textOf(qvRandString20(seed, 1)), letters) << seed;
        ASSERT_EQ(textOf(qvRandString(seed, 1)), letters.substr(0, 10)) << seed;
        ASSERT_EQ(textOf(qvRandString9(seed, 2)), numbers.substr(0, 9)) << seed;
    }
}

} // namespace
