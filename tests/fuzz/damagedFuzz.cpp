#include "tests/model/damage.h"
#include "tests/model/damagedHelpers.h"
#include "tests/model/string16Runs.h"
#include "tests/model/string8Runs.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <span>

namespace {

using namespace qvTest;

// Prints each call before it runs, where QV_ANNOUNCE is set.
void announce(char const* subject, char const* call, std::size_t capacity)
{
    static bool const isWanted = std::getenv("QV_ANNOUNCE") != nullptr;
    if (isWanted) {
        std::printf("%s on %s, capacity %zu\n", call, subject, capacity);
        std::fflush(stdout);
    }
}

void callString(StringRun const& run, Damage& damage)
{
    std::size_t const place = damage.below(StringRows::count);
    announce(run.name, StringRows::names[place], run.capacity);
    run.callDamaged(place, damage);
}

// One of the strings, the older images, the list or the helpers.
bool staysInside(Damage& damage)
{
    std::span<StringRun const> const runs8 = string8Runs();
    std::span<StringRun const> const runs16 = string16Runs();
    std::size_t const strings = runs8.size() + runs16.size();
    std::size_t const subject = damage.below(strings + std::size(olderCapacities) + 2);
    if (subject < runs8.size())
        callString(runs8[subject], damage);
    else if (subject < strings)
        callString(runs16[subject - runs8.size()], damage);
    else if (subject < strings + std::size(olderCapacities)) {
        std::size_t const capacity = olderCapacities[subject - strings];
        announce("current", "older image", capacity);
        meetOlderImages(capacity, damage);
    } else if (subject == strings + std::size(olderCapacities)) {
        announce("list", "elements", 500);
        return keepsListInside(damage);
    } else {
        announce("helper", "name", 250);
        return keepsHelpersInside(damage);
    }
    return true;
}

} // namespace

// The input is a series of calls, each on damaged objects of its own. A call that leaves its
// objects meets a page without access.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    Damage damage(data, size);
    while (!damage.atEnd())
        if (!staysInside(damage))
            std::abort();
    return 0;
}
