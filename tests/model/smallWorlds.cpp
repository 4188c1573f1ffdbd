// Goes over all of a small world: at capacities 6 and 7 each member is called with every receiver
// and every argument of a few short texts, and object and model are compared byte by byte.
//
//     smallWorlds [LONGEST [JOBS]]
//
// LONGEST is the length of the longest texts, 2 unless it is given, or 1 under the address
// sanitizer; at 4 every 16-bit unit is tried as well. JOBS processes share the work.
#include "tests/model/smallWorld.h"
#include "tests/model/stringDifferential.h"
#include "tests/proof/figures.h"
#include "tests/setUpFailure.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace qvTest;
using proof::figure;

namespace {

// Shared by the processes.
struct Progress
{
    std::atomic<std::size_t> next = 0; // row to be walked
    std::atomic<long> calls = 0;
    std::atomic<bool> failed = false;
};

Progress& sharedProgress()
{
    void* const place =
        mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (place == MAP_FAILED)
        failSetUp("no memory to share");
    return *new (place) Progress;
}

std::vector<SmallWorldRun> allRuns()
{
    std::vector<SmallWorldRun> runs(smallWorlds8().begin(), smallWorlds8().end());
    runs.insert(runs.end(), smallWorlds16().begin(), smallWorlds16().end());
    return runs;
}

void fail(Progress& progress, SmallWorldRun const& run, std::size_t place, std::string const& why)
{
    std::printf("%s on %s, %s\n", StringRows::names[place], run.name, why.c_str());
    std::fflush(stdout);
    progress.failed = true;
}

// Walks rows until none is left.
void work(Progress& progress, SmallWorldSize const& size)
{
    std::vector<SmallWorldRun> const runs = allRuns();
    std::size_t const all = runs.size() * StringRows::count;
    for (std::size_t i = progress.next++; i < all; i = progress.next++) {
        SmallWorldRun const& run = runs[i / StringRows::count];
        std::size_t const place = i % StringRows::count;
        long calls = 0;
        std::string const difference = run.walk(place, size, calls);
        progress.calls += calls;
        if (!difference.empty())
            fail(progress, run, place, difference);
        if (calls == 0 && (StringRows::images[place] & run.image) != 0)
            fail(progress, run, place, "never called");
    }
}

TEST(SmallWorlds, leaveTheBytesOfTheModel)
{
    unsigned const longest = proof::argument(1, slowness == 1 ? 2 : 1);
    unsigned const jobs = proof::argument(2, 1);
    SmallWorldSize const size{longest, longest >= 4};
    Progress& progress = sharedProgress();
    auto const begun = std::chrono::steady_clock::now();
    for (unsigned job = 1; job < jobs; ++job)
        if (fork() == 0) {
            work(progress, size);
            std::_Exit(0);
        }
    work(progress, size);
    for (int status = 0; wait(&status) != -1;)
        EXPECT_EQ(status, 0);
    EXPECT_FALSE(progress.failed);

    figure("images") = static_cast<long>(allRuns().size());
    figure("texts") = static_cast<long>(smallTextsUpTo(longest));
    figure("calls") = progress.calls;
    figure("seconds") = static_cast<long>(
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - begun)
            .count());
}

} // namespace
