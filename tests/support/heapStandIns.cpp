#include "tests/support/heapStandIns.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <utility>

namespace {

struct State
{
    std::vector<std::string> calls;
    std::map<void*, std::size_t> live;
    bool failing = false;

    bool takeFailure() { return std::exchange(failing, false); }
};

// Set while a HeapWatch lives. The containers of the state allocate by operator new, which is not
// wrapped.
State* state = nullptr;

constexpr unsigned char freedByte = 0xDD;

} // namespace

extern "C" {

// The names are the linker's.
// NOLINTBEGIN(bugprone-reserved-identifier)
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
void* __wrap_calloc(std::size_t count, std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);
void __wrap_free(void* block);

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    if (state == nullptr)
        return __real_calloc(count, size);
    state->calls.push_back("calloc(" + std::to_string(count) + ", " + std::to_string(size) + ")");
    if (state->takeFailure())
        return nullptr;
    void* const block = __real_calloc(count, size);
    state->live[block] = count * size;
    return block;
}

void* __wrap_realloc(void* block, std::size_t size)
{
    if (state == nullptr || state->live.count(block) == 0)
        return __real_realloc(block, size);
    state->calls.push_back("realloc(" + std::to_string(size) + ")");
    if (state->takeFailure())
        return nullptr;
    std::size_t const oldSize = state->live[block];
    void* const moved = std::malloc(size);
    std::memset(moved, qvTest::junkByte, size);
    std::memcpy(moved, block, std::min(size, oldSize));
    std::memset(block, freedByte, oldSize);
    __real_free(block);
    state->live.erase(block);
    state->live[moved] = size;
    return moved;
}

void __wrap_free(void* block)
{
    if (state != nullptr && state->live.count(block) != 0) {
        state->calls.emplace_back("free");
        std::memset(block, freedByte, state->live[block]);
        state->live.erase(block);
    }
    __real_free(block);
}
// NOLINTEND(bugprone-reserved-identifier)

} // extern "C"

namespace qvTest {

HeapWatch::HeapWatch()
{
    state = new State;
}

HeapWatch::~HeapWatch()
{
    delete std::exchange(state, nullptr);
}

void HeapWatch::failNext()
{
    state->failing = true;
}

bool HeapWatch::cancelFailure()
{
    return state->takeFailure();
}

std::vector<std::string> HeapWatch::takeCalls()
{
    return std::exchange(state->calls, {});
}

std::size_t HeapWatch::liveBlocks() const
{
    return state->live.size();
}

} // namespace qvTest
