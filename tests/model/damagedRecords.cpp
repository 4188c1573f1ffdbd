// A damaged record hurts nobody: strings whose bytes may be anything, the length too, never lead a
// member or a helper out of its own objects.
//
//     damagedRecords [CALLS [SEED]]
//
// CALLS is the number of calls of each row at each image and capacity. Each object has a page
// without access to one side; a call that touches it ends the program, with a line that says which.
#include "qv/segment/core/segmentKey.h"
#include "qv/support/qvProcess.h"
#include "tests/model/damage.h"
#include "tests/model/damagedHelpers.h"
#include "tests/model/string16Runs.h"
#include "tests/model/string8Runs.h"
#include "tests/proof/figures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

// Of the sanitizers, where they are there.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

using namespace qvTest;
using proof::figure;

namespace {

struct Now
{
    char const* image = "";
    char const* call = "";
    std::size_t capacity = 0;
    std::uint64_t seed = 0;
};
Now now;

void tellCall()
{
    std::array<char, 200> line{};
    int const size = std::snprintf(
        line.data(), line.size(), "damagedRecords: %s on %s, capacity %zu, seed %llu\n", now.call,
        now.image, now.capacity, static_cast<unsigned long long>(now.seed));
    static_cast<void>(!write(STDERR_FILENO, line.data(), static_cast<std::size_t>(size)));
}

// The call comes again, and ends the program.
void tellCallOfSignal(int number)
{
    tellCall();
    std::signal(number, SIG_DFL);
}

class DamagedRecords : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        for (int const number : {SIGSEGV, SIGBUS})
            std::signal(number, tellCallOfSignal);
        if (__sanitizer_set_death_callback != nullptr)
            __sanitizer_set_death_callback(tellCall);
    }

    static unsigned calls() { return proof::argument(1, 20); }

    // Each call has a seed of its own.
    static std::uint64_t begin(char const* image, char const* call, std::size_t capacity)
    {
        static std::uint64_t seed = std::uint64_t{proof::argument(2, 1)} << 32;
        now = {image, call, capacity, ++seed};
        ++figure("calls");
        return seed;
    }

    static void expectEveryMemberToStayInside(StringRun const& run)
    {
        for (std::size_t place = 0; place < StringRows::count; ++place) {
            bool const isThere = (StringRows::images[place] & run.image) != 0;
            for (unsigned i = 0; isThere && i < calls(); ++i) {
                Damage damage(begin(run.name, StringRows::names[place], run.capacity));
                EXPECT_TRUE(run.callDamaged(place, damage));
            }
        }
    }
};

TEST_F(DamagedRecords, leadNoMemberOf8BitStringsOutside)
{
    for (StringRun const& run : string8Runs())
        expectEveryMemberToStayInside(run);
}

TEST_F(DamagedRecords, leadNoMemberOf16BitStringsOutside)
{
    for (StringRun const& run : string16Runs())
        expectEveryMemberToStayInside(run);
}

TEST_F(DamagedRecords, leadNothingOutOfAnOlderImage)
{
    for (unsigned i = 0; i < calls(); ++i) {
        for (std::size_t const capacity : olderCapacities) {
            Damage damage(begin("current", "older image", capacity));
            meetOlderImages(capacity, damage);
        }
    }
}

TEST_F(DamagedRecords, leadNoListOutOfItsElements)
{
    for (unsigned i = 0; i < calls(); ++i) {
        Damage damage(begin("list", "elements", 500));
        EXPECT_TRUE(keepsListInside(damage));
    }
}

TEST_F(DamagedRecords, leadNoHelperOutOfAName)
{
    for (unsigned i = 0; i < calls() * 10; ++i) {
        Damage damage(begin("helper", "name", 250));
        EXPECT_TRUE(keepsHelpersInside(damage));
    }
}

// All bytes of the text count where none is zero.
TEST_F(DamagedRecords, nameOfAVariableEndsWithItsObject)
{
    begin("helper", "variable", 250);
    GuardedPages const pages(sizeof(_qvString8_allSize<250>));
    for (bool const atEnd : {false, true}) {
        auto& name = *reinterpret_cast<_qvString8_allSize<250>*>(
            pages.place(sizeof(_qvString8_allSize<250>), atEnd));
        std::fill_n(reinterpret_cast<unsigned char*>(&name), sizeof name, 'A');
        std::string const variable(sizeof name.text, 'A');
        ASSERT_EQ(setenv(variable.c_str(), "found", 1), 0);
        EXPECT_STREQ(qvGetEnvironmentVariable8(name).asChar(), "found");
        EXPECT_STREQ(qvGetEnvironmentVariable8_long(name).asChar(), "found");
        ASSERT_EQ(unsetenv(variable.c_str()), 0);
    }
}

// A length above the capacity counts as the capacity.
TEST_F(DamagedRecords, keyOfASegmentComesFromItsNameAlone)
{
    begin("helper", "segment", 250);
    GuardedPages const pages(sizeof(_qvString8_allSize<250>));
    auto& name = *reinterpret_cast<_qvString8_allSize<250>*>(
        pages.place(sizeof(_qvString8_allSize<250>), true));
    std::fill_n(name.text, sizeof name.text, 'A');
    name.length = 250;
    int const key = qvSegment::segmentKey(name);
    for (int const length : {251, 60000, 65535}) {
        name.length = static_cast<unsigned short>(length);
        EXPECT_EQ(qvSegment::segmentKey(name), key);
    }
}

} // namespace
