// Bytes that a constructor or a member of the 16-bit strings leaves alone must survive the
// optimiser.
//
// A compiler may take the bytes of storage before a constructor for dead and drop whatever was
// written there, which happens only above -O0 and only where it can see both the store and the
// constructor. So the stores, the placement and the look at the bytes stand in one function here,
// over storage of every kind, and this file is compiled at -O2 and at -O3.

#include "tests/strings/guarded16.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace {

using namespace images16;

/// Bytes from `from` up to `to` of an image.
struct Range
{
    std::size_t from;
    std::size_t to;
};

/// Compares by hand: a plain loop that the optimiser may see through from store to look.
bool allAre(unsigned char const* bytes, Range range, unsigned char value)
{
    for (std::size_t i = range.from; i < range.to; ++i) {
        if (bytes[i] != value) {
            return false;
        }
    }
    return true;
}

template <typename S, typename Place>
bool keepsOnTheStack(Range range, Place const& place)
{
    alignas(S) unsigned char storage[sizeof(S)];
    std::memset(storage, staleByte, sizeof storage);
    place(storage);
    return allAre(storage, range, staleByte);
}

template <typename S, typename Place>
bool keepsInStaticStorage(Range range, Place const& place)
{
    alignas(S) static unsigned char storage[sizeof(S)];
    std::memset(storage, staleByte, sizeof storage);
    place(storage);
    return allAre(storage, range, staleByte);
}

template <typename S, typename Place>
bool keepsOnTheHeap(Range range, Place const& place)
{
    std::unique_ptr<unsigned char, decltype(&std::free)> const storage(
        static_cast<unsigned char*>(std::malloc(sizeof(S))), &std::free);
    std::memset(storage.get(), staleByte, sizeof(S));
    place(storage.get());
    return allAre(storage.get(), range, staleByte);
}

/// Written once: the optimiser would take most of its time for what the macros expand to.
[[gnu::noinline]] void expectKept(bool onTheStack, bool inStaticStorage, bool onTheHeap)
{
    EXPECT_TRUE(onTheStack);
    EXPECT_TRUE(inStaticStorage);
    EXPECT_TRUE(onTheHeap);
}

/// The range of an S is what it was before `place` constructed one there.
template <typename S, typename Place>
void expectKept(Range range, Place const& place)
{
    expectKept(keepsOnTheStack<S>(range, place), keepsInStaticStorage<S>(range, place),
               keepsOnTheHeap<S>(range, place));
}

/// The spare word, and the units of the text area from `unit` on.
template <typename S>
constexpr Range spareWord{guarded::ImageOf<S>::spareAt, guarded::ImageOf<S>::spareAt + 2};
template <typename S>
constexpr Range unitsFrom(std::size_t unit)
{
    auto const textAt = guarded::ImageOf<S>::textAt;
    return {textAt + 2 * unit, textAt + 2 * capacity<S> + 2};
}

constexpr Unit sourceUnits[] = {u'a', u'b', 0};

template <typename S>
void expectConstructionFromUnitsKeepsTheSpareWord()
{
    expectKept<S>(spareWord<S>,
                  [](void* storage) { ::new (storage) S(static_cast<Unit const*>(sourceUnits)); });
    expectKept<S>(spareWord<S>, [](void* storage) { ::new (storage) S(nullUnits); });
    expectKept<S>(spareWord<S>, [](void* storage) { ::new (storage) S(sourceUnits, 2); });
}

template <typename S>
void expectMembersKeepTheSpareWord()
{
    expectKept<S>(spareWord<S>,
                  [](void* storage) { (::new (storage) S(sourceUnits, 2))->clear(); });
    expectKept<S>(spareWord<S>,
                  [](void* storage) { (::new (storage) S(sourceUnits, 2))->clearUnused(); });
    expectKept<S>(spareWord<S>, [](void* storage) {
        S const source("abc");
        *(::new (storage) S(sourceUnits, 2)) = source;
    });
    expectKept<S>(spareWord<S>,
                  [](void* storage) { *(::new (storage) S(sourceUnits, 2)) = "abc"; });
    expectKept<S>(spareWord<S>, [](void* storage) { (::new (storage) S(sourceUnits, 2))->trim(); });
    expectKept<S>(spareWord<S>, [](void* storage) {
        S const pattern("b");
        (::new (storage) S(sourceUnits, 2))->remove(pattern);
    });
    expectKept<S>(spareWord<S>, [](void* storage) {
        (::new (storage) S(sourceUnits, 2))->leftNCut(Unit{u'x'}, true);
    });
}

/// A whole copy moves the spare word and all units behind the terminator, and so does what starts
/// from one.
template <typename S>
void expectCopiesMoveEveryByte()
{
    auto const copying = [](auto const& copy) {
        Laid<S> source(u"ab");
        auto const place = [&](void* storage) {
            std::memset(storage, 0, sizeof(S));
            copy(storage, *source);
        };
        expectKept<S>(spareWord<S>, place);
        expectKept<S>(unitsFrom<S>(4), place);
    };
    copying([](void* storage, S& source) { ::new (storage) S(static_cast<S const&>(source)); });
    copying([](void* storage, S& source) { ::new (storage) S(source + 'c'); });
    copying([](void* storage, S& source) { ::new (storage) S(source.combined("c")); });
    copying([](void* storage, S& source) { ::new (storage) S(source.left(Unit{u'x'}, true)); });
    copying([](void* storage, S& source) { ::new (storage) S(source.remove(Unit{u'x'})); });
}

/// What is kept depends on no capacity but by the size of the image, and each one is costly to
/// optimise: a small image that a compiler takes apart and a large one that it moves as a block.
using SmallAndLarge =
    testing::Types<_qvString<10>, _qvString<250>, _qvString_old<10>, _qvString_old<250>>;
using SmallAndLargeCurrent = testing::Types<_qvString<10>, _qvString<250>>;

template <typename S>
class KeptBytes16 : public testing::Test
{};
TYPED_TEST_SUITE(KeptBytes16, SmallAndLarge, ImageName);

TYPED_TEST(KeptBytes16, theSpareWord)
{
    expectConstructionFromUnitsKeepsTheSpareWord<TypeParam>();
    expectMembersKeepTheSpareWord<TypeParam>();
}

TYPED_TEST(KeptBytes16, copiesMoveEveryByte)
{
    expectCopiesMoveEveryByte<TypeParam>();
}

template <typename S>
class KeptBytesCurrent16 : public testing::Test
{};
TYPED_TEST_SUITE(KeptBytesCurrent16, SmallAndLargeCurrent, ImageName);

/// A view's text is written into storage that nothing clears; behind it old units stay.
TYPED_TEST(KeptBytesCurrent16, constructionFromAnOverlayKeepsAllBehindTheTerminator)
{
    using S = TypeParam;
    S const source("abc");
    auto const construct = [&source](void* storage) {
        ::new (storage) S(static_cast<_qvString_Uni_pointer const*>(source.asUni()));
    };
    expectKept<S>(spareWord<S>, construct);
    expectKept<S>(unitsFrom<S>(4), construct);
    auto const change = [&source](auto const& member) {
        expectKept<S>(unitsFrom<S>(5), [&](void* storage) {
            member(*::new (storage) S(static_cast<_qvString_Uni_pointer const*>(source.asUni())));
        });
    };
    change([](S& s) { s = "xy"; });
    change([](S& s) { s = std::string("xy"); });
    change([](S& s) { s = nullUnits; });
    change([](S& s) { s = Unit{u'x'}; });
    change([](S& s) { s.add("x"); });
    change([](S& s) { s += 'x'; });
    change([](S& s) { s.setLength(2); });
}

TYPED_TEST(KeptBytesCurrent16, constructionFromAnOverlayOfBytesKeepsTheSpareWord)
{
    using S = TypeParam;
    _qvString8_allSize<10> const source("abc");
    expectKept<S>(spareWord<S>, [&source](void* storage) {
        ::new (storage) S(static_cast<_qvString8_Uni_pointer const*>(source.asUni()));
    });
}

TYPED_TEST(KeptBytesCurrent16, conversionFromTheOlderImageKeepsTheSpareWordAndTheLastUnit)
{
    using S = TypeParam;
    _qvString_old<intCapacity<S>> const source("abc");
    auto const convert = [&source](void* storage) { ::new (storage) S(source); };
    expectKept<S>(spareWord<S>, convert);
    expectKept<S>(unitsFrom<S>(capacity<S>), convert);
    expectKept<S>(spareWord<S>,
                  [&source](void* storage) { *(::new (storage) S(sourceUnits, 2)) = source; });
}

} // namespace
