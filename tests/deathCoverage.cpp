// A test that a program aborts ends it before its counts of lines and branches are written. Under
// coverage they are written first.

#include <csignal>

extern "C" void __gcov_dump(); // NOLINT(bugprone-reserved-identifier): the compiler's own name

namespace {

void writeCounts(int signal)
{
    __gcov_dump();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

[[maybe_unused]] auto const previous = std::signal(SIGABRT, writeCounts);

} // namespace
