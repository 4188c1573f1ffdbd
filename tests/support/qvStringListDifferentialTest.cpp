// Random series of calls to lists, each call held against a plain model, on a heap that moves every
// block, hands out junk, and fails now and then.

#include "tests/model/listDriver.h"
#include "tests/support/heapStandIns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

class WatchedHeap : public qvTest::ListHeap
{
public:
    void failNext() override { watch.failNext(); }
    void cancelFailure() override { watch.cancelFailure(); }
    std::vector<std::string> takeCalls() override { return watch.takeCalls(); }
    std::size_t liveBlocks() const { return watch.liveBlocks(); }

private:
    qvTest::HeapWatch watch;
};

TEST(QvStringListDifferential, AgreesWithAPlainModel)
{
    std::mt19937 random(9);
    for (int i = 0; i < 1500; ++i) {
        // The same inputs on every machine and in every run.
        std::vector<unsigned char> input(100 + random() % 700);
        std::generate(input.begin(), input.end(),
                      [&random] { return static_cast<unsigned char>(random()); });
        WatchedHeap heap;
        qvTest::ListDriver driver(&heap);
        ASSERT_EQ(driver.run(input.data(), input.size()), "") << "sequence " << i;
        ASSERT_EQ(heap.liveBlocks(), 0U) << "sequence " << i;
    }
}

} // namespace
