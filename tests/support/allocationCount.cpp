#include "tests/support/allocationCount.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t count = 0;

} // namespace

extern "C" {

// The names are the linker's.
// NOLINTBEGIN(bugprone-reserved-identifier)
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t number, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t number, std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);

void* __wrap_malloc(std::size_t size)
{
    ++count;
    return __real_malloc(size);
}

void* __wrap_calloc(std::size_t number, std::size_t size)
{
    ++count;
    return __real_calloc(number, size);
}

void* __wrap_realloc(void* block, std::size_t size)
{
    ++count;
    return __real_realloc(block, size);
}
// NOLINTEND(bugprone-reserved-identifier)

} // extern "C"

// The array forms and those that do not throw come here as well.
void* operator new(std::size_t size)
{
    void* const block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace qvTest {

std::size_t allocationCount()
{
    return count;
}

} // namespace qvTest
