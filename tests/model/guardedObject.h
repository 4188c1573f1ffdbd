#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

namespace qvTest {

// Compilers take the bytes before a construction for lost, since an object starts with no value.
// The classes under test leave some of them alone on purpose, so their fate has to stay visible.
inline void keepBytes(void const* storage)
{
    asm volatile("" : : "r"(storage) : "memory");
}

// An object between guard bytes, in storage of its own, with all its bytes open to comparison. Or
// one in storage of the caller's, whose bytes are taken as they are.
template <class C>
class GuardedObject
{
public:
    static constexpr std::size_t guardSize = 64;
    static constexpr unsigned char guardByte = 0xAA;

    explicit GuardedObject(unsigned char seed)
        : storage(new unsigned char[sizeof(C) + 2 * guardSize]),
          place(storage.get() + guardSize)
    {
        std::fill_n(storage.get(), sizeof(C) + 2 * guardSize, guardByte);
        std::fill_n(place, sizeof(C), seed);
        construct();
    }

    explicit GuardedObject(unsigned char* thePlace)
        : place(thePlace),
          object(reinterpret_cast<C*>(thePlace))
    {}

    // Constructs anew over the bytes as they stand.
    template <class... Arguments>
    void construct(Arguments&&... arguments)
    {
        keepBytes(place);
        object = new (place) C(std::forward<Arguments>(arguments)...);
        keepBytes(place);
    }

    // Lays bytes into the object as it stands.
    void lay(unsigned char const* bytes)
    {
        std::memcpy(place, bytes, sizeof(C));
        keepBytes(place);
    }

    C& get() { return *object; }
    unsigned char const* bytes() const { return place; }

    bool guardsIntact() const
    {
        auto const isGuard = [](unsigned char const* at) {
            return *at == guardByte && std::memcmp(at, at + 1, guardSize - 1) == 0;
        };
        return isGuard(storage.get()) && isGuard(storage.get() + guardSize + sizeof(C));
    }

private:
    std::unique_ptr<unsigned char[]> storage;
    unsigned char* place;
    C* object = nullptr;
};

} // namespace qvTest
