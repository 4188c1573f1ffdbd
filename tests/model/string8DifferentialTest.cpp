#include "tests/model/string8Runs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace qvTest {

static std::string nameOf(String8Run const& run)
{
    return std::string(run.image) + std::to_string(run.capacity);
}

// Found by GoogleTest for its messages.
[[maybe_unused]] static void PrintTo(String8Run const& run, std::ostream* out)
{
    *out << nameOf(run);
}

} // namespace qvTest

namespace {

using qvTest::CallCounts;
using qvTest::DriverOptions;
using qvTest::nameOf;
using qvTest::String8Run;

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

// Sanitizers and builds without optimisation run the same inputs, but fewer of them.
#if defined(__SANITIZE_ADDRESS__) || !defined(__OPTIMIZE__)
#define QV_SLOW_BUILD 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define QV_SLOW_BUILD 1
#endif
#endif
#ifdef QV_SLOW_BUILD
constexpr int slowness = 4;
#else
constexpr int slowness = 1;
#endif

// A long string costs the model a thousand times as much as a short one.
int sequencesAt(std::size_t capacity)
{
    return (capacity <= 15 ? 4000 : capacity <= 250 ? 2000 : 400) / slowness;
}

class String8Differential : public testing::TestWithParam<String8Run>
{};

// A member that the driver does not find under its signature would go untested without a word, so
// the calls are counted as well.
TEST_P(String8Differential, everyMemberLeavesTheBytesOfTheModel)
{
    String8Run const& run = GetParam();
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
    std::string tooMany;
    for (std::size_t i = 0; i < qvTest::operationCount; ++i) {
        qvTest::OperationInfo const& info = qvTest::operationInfos[i];
        bool const expected = run.current || !info.currentOnly;
        if (expected && counts[i] == 0)
            missing += std::string(" ") + info.name;
        if (!expected && counts[i] != 0)
            tooMany += std::string(" ") + info.name;
    }
    EXPECT_EQ(missing, "");
    EXPECT_EQ(tooMany, "");
}

INSTANTIATE_TEST_SUITE_P(images, String8Differential, testing::ValuesIn(qvTest::string8Runs()),
                         [](auto const& shown) { return nameOf(shown.param); });

// Inside the contract a caller cannot tell by the texts which image is behind them.
TEST(String8Images, giveTheSameTextsAtTheSameCapacity)
{
    for (String8Run const& old : qvTest::string8Runs()) {
        if (old.current)
            continue;
        auto const runs = qvTest::string8Runs();
        auto const current = std::find_if(runs.begin(), runs.end(), [&](String8Run const& run) {
            return run.current && run.capacity == old.capacity;
        });
        ASSERT_NE(current, runs.end());
        Inputs inputs(99);
        for (int i = 0; i < sequencesAt(old.capacity) / 5; ++i) {
            std::vector<unsigned char> const input = inputs.next();
            std::vector<std::string> oldTexts;
            std::vector<std::string> currentTexts;
            DriverOptions options{qvTest::Reach::contract, true, false, &oldTexts, nullptr};
            ASSERT_EQ(old.run(options, input.data(), input.size()), "")
                << nameOf(old) << ", sequence " << i;
            options.trace = &currentTexts;
            ASSERT_EQ(current->run(options, input.data(), input.size()), "")
                << nameOf(old) << ", sequence " << i;
            ASSERT_EQ(oldTexts, currentTexts) << nameOf(old) << ", sequence " << i;
        }
    }
}

} // namespace
