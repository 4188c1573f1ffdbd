// Linked into every program that is mutated. Marks which mutants a run comes by: the marks go into
// the file that QV_REACHED_MAP names, if it is there, and so outlast forks, programs that are
// started, and crashes.
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

extern "C" {
alignas(4096) unsigned char qvReached[(QV_MUTANTS / 4096 + 1) * 4096];
}

namespace {

[[gnu::constructor]] void shareMap()
{
    char const* const path = getenv("QV_REACHED_MAP");
    int const file = path == nullptr ? -1 : open(path, O_RDWR | O_CLOEXEC);
    if (file == -1)
        return;
    mmap(qvReached, sizeof qvReached, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0);
    close(file);
}

} // namespace
