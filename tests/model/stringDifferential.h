#pragma once

#include "tests/model/stringRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <span>
#include <string>
#include <vector>

// The differential tests of both widths: random calls on every image, and on two images side by
// side.
namespace qvTest {

inline std::string nameOf(StringRun const& run)
{
    return std::string(run.name) + std::to_string(run.capacity);
}

// Found by GoogleTest for its messages.
inline void PrintTo(StringRun const& run, std::ostream* out)
{
    *out << nameOf(run);
}

// The same inputs on every machine and in every run.
class Inputs
{
public:
    explicit Inputs(unsigned seed) : generator(seed) {}

    std::vector<unsigned char> next()
    {
        std::vector<unsigned char> input(80 + generator() % 240);
        std::generate(input.begin(), input.end(),
                      [this] { return static_cast<unsigned char>(generator()); });
        return input;
    }

private:
    std::mt19937 generator;
};

// Sanitizers run the same inputs, but fewer of them.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define QV_SLOW_BUILD 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define QV_SLOW_BUILD 1
#endif
#endif
#ifdef QV_SLOW_BUILD
inline constexpr int slowness = 4;
#else
inline constexpr int slowness = 1;
#endif

// A long string costs the model a thousand times as much as a short one.
inline int sequencesAt(std::size_t capacity)
{
    return (capacity <= 15 ? 4000 : capacity <= 250 ? 2000 : 400) / slowness;
}

// A row that no input comes to would go untested without a word, so the calls are counted as well.
inline void expectTheBytesOfTheModel(StringRun const& run)
{
    CallCounts counts{};
    DriverOptions options;
    options.counts = &counts;
    Inputs inputs(static_cast<unsigned>(run.capacity));
    for (int i = 0; i < sequencesAt(run.capacity); ++i) {
        std::vector<unsigned char> const input = inputs.next();
        ASSERT_EQ(run.run(options, input.data(), input.size()), "")
            << nameOf(run) << ", sequence " << i;
    }

    std::string missing;
    for (std::size_t i = 0; i < StringRows::count; ++i)
        if ((StringRows::images[i] & run.image) != 0 && counts[i] == 0)
            missing += std::string(" ") + StringRows::names[i];
    EXPECT_EQ(missing, "");
}

// Inside the contract a caller cannot tell by the texts which image is behind them.
inline void expectTheSameTexts(StringRun const& old, StringRun const& current)
{
    Inputs inputs(99);
    for (int i = 0; i < sequencesAt(old.capacity) / 5; ++i) {
        std::vector<unsigned char> const input = inputs.next();
        std::vector<std::string> oldTexts;
        std::vector<std::string> currentTexts;
        DriverOptions options;
        options.reach = Reach::contract;
        options.sharedBy = old.image | current.image;
        options.trace = &oldTexts;
        ASSERT_EQ(old.run(options, input.data(), input.size()), "")
            << nameOf(old) << ", sequence " << i;
        options.trace = &currentTexts;
        ASSERT_EQ(current.run(options, input.data(), input.size()), "")
            << nameOf(current) << ", sequence " << i;
        ASSERT_EQ(oldTexts, currentTexts) << nameOf(old) << ", sequence " << i;
    }
}

// Every older image beside the current one of the same capacity.
inline void expectTheSameTexts(std::span<StringRun const> runs)
{
    for (StringRun const& old : runs) {
        if ((old.image & Images::current) != 0)
            continue;
        auto const current = std::find_if(runs.begin(), runs.end(), [&](StringRun const& run) {
            return (run.image & Images::current) != 0 && run.capacity == old.capacity;
        });
        ASSERT_NE(current, runs.end());
        expectTheSameTexts(old, *current);
    }
}

} // namespace qvTest
