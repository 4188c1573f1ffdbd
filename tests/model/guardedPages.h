#pragma once

#include "tests/setUpFailure.h"

#include <cstddef>
#include <sys/mman.h>
#include <unistd.h>

namespace qvTest {

// Pages between two pages without access: who leaves them is stopped by the processor.
class GuardedPages
{
public:
    explicit GuardedPages(std::size_t size)
        : page(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))),
          inside((size + page - 1) / page * page)
    {
        void* const all =
            mmap(nullptr, inside + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (all == MAP_FAILED)
            failSetUp("no pages to be had");
        start = static_cast<unsigned char*>(all);
        if (mprotect(begin(), inside, PROT_READ | PROT_WRITE) != 0)
            failSetUp("no access to the pages");
    }

    GuardedPages(GuardedPages const&) = delete;
    GuardedPages& operator=(GuardedPages const&) = delete;

    ~GuardedPages() { munmap(start, inside + 2 * page); }

    // A place right behind the page in front, or right ahead of the page behind.
    unsigned char* place(std::size_t size, bool atEnd) const
    {
        return atEnd ? begin() + inside - size : begin();
    }

private:
    unsigned char* begin() const { return start + page; }

    std::size_t page;
    std::size_t inside;
    unsigned char* start = nullptr;
};

} // namespace qvTest
