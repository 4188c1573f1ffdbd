// Bytes that a constructor or a clearing member leaves alone must survive the optimiser.
//
// A compiler may take the bytes of storage before a constructor for dead and drop whatever was
// written there, which happens only above -O0 and only where it can see both the store and the
// constructor. So the stores, the placement and the look at the bytes stand in one function here,
// over storage of every kind, and this file is compiled at -O2 and at -O3.

#include "tests/strings/guarded.h"

#include <cstdlib>
#include <memory>

namespace {

using namespace guarded;

/// Compares by hand: a plain loop that the optimiser may see through from store to look.
template <std::size_t Size>
bool allAre(unsigned char const* bytes, std::size_t from, unsigned char value)
{
    for (std::size_t i = from; i < Size; ++i) {
        if (bytes[i] != value) {
            return false;
        }
    }
    return true;
}

template <typename S, typename Place>
bool keepsOnTheStack(std::size_t from, Place const& place)
{
    alignas(S) unsigned char storage[sizeof(S)];
    std::memset(storage, staleByte, sizeof storage);
    place(storage);
    return allAre<sizeof(S)>(storage, from, staleByte);
}

template <typename S, typename Place>
bool keepsInStaticStorage(std::size_t from, Place const& place)
{
    alignas(S) static unsigned char storage[sizeof(S)];
    std::memset(storage, staleByte, sizeof storage);
    place(storage);
    return allAre<sizeof(S)>(storage, from, staleByte);
}

template <typename S, typename Place>
bool keepsOnTheHeap(std::size_t from, Place const& place)
{
    std::unique_ptr<unsigned char, decltype(&std::free)> const storage(
        static_cast<unsigned char*>(std::malloc(sizeof(S))), &std::free);
    std::memset(storage.get(), staleByte, sizeof(S));
    place(storage.get());
    return allAre<sizeof(S)>(storage.get(), from, staleByte);
}

/// Written once: the optimiser would take most of its time for what the macros expand to.
[[gnu::noinline]] void expectKept(bool onTheStack, bool inStaticStorage, bool onTheHeap)
{
    EXPECT_TRUE(onTheStack);
    EXPECT_TRUE(inStaticStorage);
    EXPECT_TRUE(onTheHeap);
}

/// Every byte of an S from `from` on is what it was before `place` constructed one there.
template <typename S, typename Place>
void expectKept(std::size_t from, Place const& place)
{
    expectKept(keepsOnTheStack<S>(from, place), keepsInStaticStorage<S>(from, place),
               keepsOnTheHeap<S>(from, place));
}

template <typename S>
class KeptBytes8 : public testing::Test
{
protected:
    static constexpr std::size_t padAt = ImageOf<S>::spareAt;
};
TYPED_TEST_SUITE(KeptBytes8, MainStrings8, ImageName);

TYPED_TEST(KeptBytes8, DefaultConstructionKeepsThePad)
{
    using S = TypeParam;
    expectKept<S>(this->padAt, [](void* storage) { ::new (storage) S; });
    expectKept<S>(this->padAt, [](void* storage) { ::new (storage) S(); });
    expectKept<S>(this->padAt, [](void* storage) { ::new (storage) S{}; });
}

TYPED_TEST(KeptBytes8, ConstructionFromTextKeepsThePad)
{
    using S = TypeParam;
    expectKept<S>(this->padAt, [](void* storage) { ::new (storage) S("abc"); });
    expectKept<S>(this->padAt, [](void* storage) { ::new (storage) S(""); });
    expectKept<S>(this->padAt,
                  [](void* storage) { ::new (storage) S(static_cast<char const*>(nullptr)); });
    expectKept<S>(this->padAt, [](void* storage) { ::new (storage) S("abcdef", 4); });
}

TYPED_TEST(KeptBytes8, ConstructionFromUnitsKeepsThePad)
{
    using S = TypeParam;
    expectKept<S>(this->padAt, [](void* storage) {
        unsigned short const units[] = {'a', 'b', 0};
        ::new (storage) S(static_cast<unsigned short const*>(units));
    });
    expectKept<S>(this->padAt, [](void* storage) {
        ::new (storage) S(static_cast<unsigned short const*>(nullptr));
    });
}

TYPED_TEST(KeptBytes8, ConstructionFromAnOverlayKeepsAllBehindTheTerminator)
{
    using S = TypeParam;
    S const source("abc");
    // Length, three characters and the terminator are six bytes.
    expectKept<S>(6, [&source](void* storage) { ::new (storage) S(source.asUni()); });
}

TYPED_TEST(KeptBytes8, ClearingAndAssigningKeepThePad)
{
    using S = TypeParam;
    S const source("abc");
    expectKept<S>(this->padAt, [](void* storage) { (::new (storage) S)->clear(); });
    expectKept<S>(this->padAt, [](void* storage) { (::new (storage) S)->clearUnused(); });
    expectKept<S>(this->padAt, [&source](void* storage) { *(::new (storage) S) = source; });
}

TYPED_TEST(KeptBytes8, AssignmentOfTextKeepsAllBehindTheTerminator)
{
    using S = TypeParam;
    S const source("ab");
    expectKept<S>(6, [&source](void* storage) { *(::new (storage) S(source.asUni())) = "abc"; });
    expectKept<S>(
        6, [&source](void* storage) { *(::new (storage) S(source.asUni())) = std::string("abc"); });
    expectKept<S>(6, [&source](void* storage) { (::new (storage) S(source.asUni()))->add("c"); });
    expectKept<S>(6, [&source](void* storage) { *(::new (storage) S(source.asUni())) += 'c'; });
}

TYPED_TEST(KeptBytes8, NullAssignmentKeepsTheTextOfTheStorage)
{
    using S = TypeParam;
    S const source("ab");
    expectKept<S>(5, [&source](void* storage) {
        *(::new (storage) S(source.asUni())) = static_cast<char const*>(nullptr);
    });
}

TYPED_TEST(KeptBytes8, CopyConstructionMovesThePadOfItsSource)
{
    using S = TypeParam;
    Guarded<S> source;
    source.lay("abc", staleByte);
    expectKept<S>(6, [&source](void* storage) {
        std::memset(storage, 0, sizeof(S));
        ::new (storage) S(static_cast<S const&>(*source));
    });
}

TYPED_TEST(KeptBytes8, ResultOfPlusMovesThePadOfItsReceiver)
{
    using S = TypeParam;
    Guarded<S> source;
    source.lay("ab", staleByte);
    expectKept<S>(6, [&source](void* storage) {
        std::memset(storage, 0, sizeof(S));
        ::new (storage) S(*source + 'c');
    });
}

} // namespace
