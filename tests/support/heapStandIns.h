#pragma once

// Stand-ins for calloc, realloc and free, the only calls by which the list gets and gives memory.
//
// The test program is linked with --wrap for the three, so every such call of the product lands
// here. Without a HeapWatch alive they go straight through.

#include <cstddef>
#include <string>
#include <vector>

namespace qvTest {

// While it lives, calls are written down, and memory behaves at its worst: a resized block always
// moves, what it gains is junk, and what is freed is overwritten first.
class HeapWatch
{
public:
    HeapWatch();
    ~HeapWatch();
    HeapWatch(HeapWatch const&) = delete;
    HeapWatch& operator=(HeapWatch const&) = delete;

    // The next calloc or realloc gives null.
    void failNext();
    // Takes it back. True if nothing had been allocated since.
    bool cancelFailure();
    // The calls since the last takeCalls(), such as "calloc(1, 1006)", "realloc(2012)", "free".
    // A free of null is no call.
    std::vector<std::string> takeCalls();
    // Blocks that were handed out and not freed.
    std::size_t liveBlocks() const;
};

// What a resized block gains.
inline constexpr unsigned char junkByte = 0xCD;

} // namespace qvTest
