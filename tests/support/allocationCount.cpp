#include "tests/support/allocationCount.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;

} // namespace

extern "C" {

// The names are the linker's.
// NOLINTBEGIN(bugprone-reserved-identifier)
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t number, std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void* __real__Znwm(std::size_t size);
void* __real__Znam(std::size_t size);
void* __real__ZnwmRKSt9nothrow_t(std::size_t size, std::nothrow_t const& tag);
void* __real__ZnamRKSt9nothrow_t(std::size_t size, std::nothrow_t const& tag);
void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t number, std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);
void* __wrap__Znwm(std::size_t size);
void* __wrap__Znam(std::size_t size);
void* __wrap__ZnwmRKSt9nothrow_t(std::size_t size, std::nothrow_t const& tag);
void* __wrap__ZnamRKSt9nothrow_t(std::size_t size, std::nothrow_t const& tag);

void* __wrap_malloc(std::size_t size)
{
    ++allocations;
    return __real_malloc(size);
}

void* __wrap_calloc(std::size_t number, std::size_t size)
{
    ++allocations;
    return __real_calloc(number, size);
}

void* __wrap_realloc(void* block, std::size_t size)
{
    ++allocations;
    return __real_realloc(block, size);
}

void* __wrap__Znwm(std::size_t size)
{
    ++allocations;
    return __real__Znwm(size);
}

void* __wrap__Znam(std::size_t size)
{
    ++allocations;
    return __real__Znam(size);
}

void* __wrap__ZnwmRKSt9nothrow_t(std::size_t size, std::nothrow_t const& tag)
{
    ++allocations;
    return __real__ZnwmRKSt9nothrow_t(size, tag);
}

void* __wrap__ZnamRKSt9nothrow_t(std::size_t size, std::nothrow_t const& tag)
{
    ++allocations;
    return __real__ZnamRKSt9nothrow_t(size, tag);
}
// NOLINTEND(bugprone-reserved-identifier)

} // extern "C"

namespace qvTest {

std::size_t allocationCount()
{
    return allocations;
}

} // namespace qvTest
