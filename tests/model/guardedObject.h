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

// An object between guard bytes, in storage of its own, with all its bytes open to comparison.
template <class C>
class GuardedObject
{
public:
    static constexpr std::size_t guardSize = 64;
    static constexpr unsigned char guardByte = 0xAA;

    explicit GuardedObject(unsigned char seed)
        : storage(new unsigned char[sizeof(C) + 2 * guardSize])
    {
        std::fill_n(storage.get(), sizeof(C) + 2 * guardSize, guardByte);
        std::fill_n(storage.get() + guardSize, sizeof(C), seed);
        construct();
    }

    // Constructs anew over the bytes as they stand.
    template <class... Arguments>
    void construct(Arguments&&... arguments)
    {
        keepBytes(storage.get());
        object = new (storage.get() + guardSize) C(std::forward<Arguments>(arguments)...);
        keepBytes(storage.get());
    }

    C& get() { return *object; }
    unsigned char const* bytes() const { return storage.get() + guardSize; }

    bool guardsIntact() const
    {
        auto const isGuard = [](unsigned char byte) { return byte == guardByte; };
        unsigned char const* const front = storage.get();
        unsigned char const* const back = front + guardSize + sizeof(C);
        return std::all_of(front, front + guardSize, isGuard) &&
               std::all_of(back, back + guardSize, isGuard);
    }

private:
    std::unique_ptr<unsigned char[]> storage;
    C* object = nullptr;
};

} // namespace qvTest
