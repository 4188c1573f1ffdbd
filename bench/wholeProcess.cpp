/// Times whole runs of `qvNodeDispatch abort`, turn by turn in one run because these machines are
/// noisy, and counts its system calls. Beside it run the floor, which makes the same system calls
/// without any C library, a minimal C program that is linked as usual, and any further tools whose
/// paths are given: another build, say.

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/qvSharedMemory.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <numeric>
#include <random>
#include <sched.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int rounds = 2000;

/// Starts a program with its output thrown away; with `traced` it stops at its first instruction.
pid_t start(char const* program, bool traced)
{
    pid_t const child = vfork();
    if (child == 0) {
        int const nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        if (traced)
            ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        execl(program, program, "abort", nullptr);
        _exit(127);
    }
    return child;
}

double microsecondsOf(char const* program)
{
    auto const begin = std::chrono::steady_clock::now();
    int status = 0;
    waitpid(start(program, false), &status, 0);
    std::chrono::duration<double, std::micro> const taken =
        std::chrono::steady_clock::now() - begin;
    if (status != 0) {
        std::printf("wholeProcess: %s failed\n", program);
        std::exit(1);
    }
    return taken.count();
}

/// System calls of one run, `execve` included.
int systemCallsOf(char const* program)
{
    pid_t const child = start(program, true);
    int stops = 0;
    int status = 0;
    waitpid(child, &status, 0); // stopped behind its execve
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
    while (WIFSTOPPED(status)) {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        waitpid(child, &status, 0);
        if (WIFSTOPPED(status) && WSTOPSIG(status) == (SIGTRAP | 0x80))
            ++stops;
    }
    return 1 + (stops + 1) / 2; // an entry and a return each; exit never returns
}

struct Times
{
    char const* name;
    char const* program;
    std::vector<double> taken;

    double quantile(double part) const
    {
        auto sorted = taken;
        auto const at = sorted.begin() + static_cast<std::ptrdiff_t>(part * rounds);
        std::nth_element(sorted.begin(), at, sorted.end());
        return *at;
    }
};

} // namespace

int main(int, char** argv)
{
    // A System V namespace of our own where the system grants one. Elsewhere a client that runs
    // here makes the creation fail, so that none is disturbed.
    if (unshare(CLONE_NEWIPC) != 0)
        std::puts("wholeProcess: no namespace of its own; the client's segment is made for real");
    qvSharedMemory segment(clientSegmentName);
    if (!segment.create(clientRecordSize, false, false)) {
        std::printf("wholeProcess: %s\n", segment.errorString().asChar());
        return 1;
    }
    auto& record = *static_cast<qvClientMailbox volatile*>(segment.data());
    record.recordMarker = clientRecordMarker;
    record.stateMarker = clientStateMarker;
    record.stateFlag = clientStateFlag;

    std::vector<Times> programs = {{"floor", QV_FLOOR_PATH, {}},
                                   {"qvNodeDispatch", QV_TOOL_PATH, {}},
                                   {"minimal C", QV_PEER_PATH, {}}};
    for (char** path = argv + 1; *path != nullptr; ++path)
        programs.push_back({*path, *path, {}});
    // In another order each round: a program pays for the caches that the one before it has
    // emptied.
    std::vector<std::size_t> turns(programs.size());
    std::iota(turns.begin(), turns.end(), 0U);
    std::minstd_rand order;
    for (int i = 0; i < rounds; ++i) {
        std::shuffle(turns.begin(), turns.end(), order);
        for (std::size_t const turn : turns) {
            record.messageCount = 0;
            programs[turn].taken.push_back(microsecondsOf(programs[turn].program));
        }
    }
    Times const& floor = programs.front();
    std::puts(
        "whole process, microseconds   median     10 %   fastest   of the floor   system calls");
    for (Times const& each : programs)
        std::printf("  %-24s  %8.1f %8.1f  %8.1f   %12.2f   %12d\n", each.name, each.quantile(0.5),
                    each.quantile(0.1), each.quantile(0), each.quantile(0.5) / floor.quantile(0.5),
                    systemCallsOf(each.program));
    return 0;
}
