// A damaged record hurts nobody: strings whose bytes may be anything, the length too, never lead a
// member or a helper out of its own objects.
//
//     damagedRecords [CALLS [SEED]]
//
// CALLS is the number of calls of each row at each image and capacity. Each object has a page
// without access to one side; a call that touches it ends the program, with a line that says which.
#include "qv/segment/core/segmentKey.h"
#include "qv/segment/qvSharedMemory.h"
#include "qv/support/core/applicationPath.h"
#include "qv/support/qvProcess.h"
#include "qv/support/qvStringList.h"
#include "tests/model/damage.h"
#include "tests/model/string16Image.h"
#include "tests/model/string16Runs.h"
#include "tests/model/string8Image.h"
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
    std::array<char, 200> line;
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
            for (unsigned i = 0; isThere && i < calls(); ++i)
                EXPECT_TRUE(run.callDamaged(
                    place, begin(run.name, StringRows::names[place], run.capacity)));
        }
    }

    // A damaged string of its own, in pages of its own.
    template <class C>
    class Laid
    {
    public:
        C& lay(Damage& damage, StringImage const& image)
        {
            return *reinterpret_cast<C*>(damage.layString(pages, image, sizeof(C::text[0])));
        }

    private:
        GuardedPages pages{sizeof(C)};
    };
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

// Conversions trust the length of an older image, but comparisons and assignments do not.
template <int N>
void meetOlderImages(std::uint64_t seed)
{
    static GuardedPages const current(sizeof(_qvString8_allSize<N>));
    static GuardedPages const even(sizeof(_qvString8_evenSize_old<N>));
    static GuardedPages const uneven(sizeof(_qvString8_UnevenSize_old<N>));
    Damage damage(seed);
    auto& string =
        *reinterpret_cast<_qvString8_allSize<N>*>(damage.layString(current, currentImage(N), 1));
    auto& evenOld =
        *reinterpret_cast<_qvString8_evenSize_old<N>*>(damage.layString(even, evenOldImage(N), 1));
    auto& unevenOld = *reinterpret_cast<_qvString8_UnevenSize_old<N>*>(
        damage.layString(uneven, unevenOldImage(N), 1));
    static_cast<void>(string == evenOld);
    static_cast<void>(string == unevenOld);
    string = evenOld;
    string = unevenOld;
}

TEST_F(DamagedRecords, leadNothingOutOfAnOlderImage)
{
    for (unsigned i = 0; i < calls(); ++i) {
        meetOlderImages<6>(begin("current", "older image", 6));
        meetOlderImages<7>(begin("current", "older image", 7));
        meetOlderImages<250>(begin("current", "older image", 250));
        meetOlderImages<5000>(begin("current", "older image", 5000));
    }
}

using Element = _qvString<500>;
constexpr StringImage elementImage = current16Image(500);

// Elements in pages, for the members that leave the block where it is.
TEST_F(DamagedRecords, leadNoListOutOfItsElements)
{
    constexpr int count = 5;
    GuardedPages const pages(count * sizeof(Element));
    Laid<Element> laid;
    for (unsigned i = 0; i < calls(); ++i) {
        std::uint64_t const seed = begin("list", "elements", 500);
        Damage damage(seed);
        Element const& text = laid.lay(damage, elementImage);
        _qvStringList list;
        unsigned char* const block = pages.place(count * sizeof(Element), damage.below(2) == 0);
        for (std::size_t at = 0; at < count * sizeof(Element); at += sizeof(Element))
            damage.fillString(block + at, elementImage, 2);
        list.items = reinterpret_cast<Element*>(block);
        list.count = count;
        bool const flag = damage.below(2) == 0;
        int const index = static_cast<int>(damage.below(count + 4)) - 2;

        list.find(text, flag);
        list.findContains(text, flag);
        list.find(list.items[2], flag);
        list.findContains(list.items[2], flag);
        list.atAsChar(index);
        EXPECT_LE(list.asString8().length, 1000);
        list.sort(flag);
        list.asString8();
        _qvStringList copy;
        copy.copyFrom(list);
        copy.append(text, flag, flag);
        copy.append(copy.at(index), flag, !flag);
        copy.insert(index, text);
        copy.removeAt(index);
        copy.sort(flag);
        copy.asString8();

        list.items = nullptr;
        list.count = 0;
    }
}

TEST_F(DamagedRecords, leadNoHelperOutOfAName)
{
    Laid<_qvString8_allSize<250>> laid;
    Laid<_qvString<250>> wide;
    Laid<_qvString8_allSize<250>> result;
    char argument[] = "../bin/tool";
    for (unsigned i = 0; i < calls() * 10; ++i) {
        Damage damage(begin("helper", "name", 250));
        auto const& name = laid.lay(damage, currentImage(250));
        qvGetEnvironmentVariable8(name);
        qvGetEnvironmentVariable8_long(name);
        qvGetDirName_local(name);
        qvSupport::applicationPathFrom(wide.lay(damage, current16Image(250)), argument,
                                       result.lay(damage, currentImage(250)));
        qvSegment::segmentKey(name);
        qvSharedMemory const segment(name);
        EXPECT_LE(segment.name.length, 250);
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
