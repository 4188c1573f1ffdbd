#include "sender/processLook.h"

#include "sender/printable.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// The parts of /proc/PID/stat that are used here.
struct ProcessStat
{
    char command[16];
    char state;
    unsigned long long startTicks; ///< Since the machine's start.
};

/// The command is in brackets and may hold brackets itself: the last one ends it.
bool readFields(char const* text, ProcessStat& stat)
{
    char const* const opening = std::strchr(text, '(');
    char const* const closing = std::strrchr(text, ')');
    if (opening == nullptr || closing == nullptr)
        return false;
    copyPrintable(stat.command, {opening + 1, closing});
    char const* field = closing + 1;
    field += std::strspn(field, " ");
    stat.state = *field;
    // Between the state and the start there are 18 numbers that are not used here.
    for (int i = 0; i < 19; ++i) {
        field += std::strcspn(field, " ");
        field += std::strspn(field, " ");
    }
    char* end = nullptr;
    stat.startTicks = std::strtoull(field, &end, 10);
    return end != field;
}

/// By system calls: streams and their allocations would make the tool, which reads this file only,
/// half as large again.
bool readStat(pid_t pid, ProcessStat& stat)
{
    char path[32];
    std::snprintf(path, sizeof path, "/proc/%d/stat", pid);
    int const file = open(path, O_RDONLY | O_CLOEXEC);
    if (file == -1)
        return false;
    char text[1024];
    ssize_t const length =
        read(file, text, sizeof text - 1); // the system gives all of it in one read
    close(file);
    text[std::max<ssize_t>(length, 0)] = '\0';
    return readFields(text, stat);
}

/// When the process began, by the clocks of this moment, in whole seconds.
std::time_t startTime(ProcessStat const& stat)
{
    timespec now{};
    timespec sinceStart{};
    clock_gettime(CLOCK_REALTIME, &now);
    clock_gettime(CLOCK_BOOTTIME, &sinceStart);
    auto const ticksPerSecond = static_cast<unsigned long long>(sysconf(_SC_CLK_TCK));
    return now.tv_sec - sinceStart.tv_sec +
           static_cast<std::time_t>(stat.startTicks / ticksPerSecond);
}

/// Both times are whole seconds, and the two clocks are not read at once.
constexpr std::time_t startTolerance = 2;

ProcessState stateOf(ProcessStat const& stat, std::time_t seenAt)
{
    if (startTime(stat) > seenAt + startTolerance)
        return ProcessState::dead;
    switch (stat.state) {
    case 'Z':
    case 'X':
        return ProcessState::dead;
    case 'T': // by a signal
    case 't': // by a debugger
        return ProcessState::stopped;
    default:
        return ProcessState::alive;
    }
}

bool isGone(pid_t pid)
{
    return kill(pid, 0) == -1 && errno == ESRCH;
}

} // namespace

char const* processStateWord(ProcessState state)
{
    switch (state) {
    case ProcessState::alive:
        return "alive";
    case ProcessState::stopped:
        return "stopped";
    case ProcessState::dead:
        return "dead";
    default:
        return "unknown";
    }
}

ProcessLook lookAtProcess(pid_t pid, std::time_t seenAt)
{
    ProcessLook look;
    look.pid = pid;
    if (pid <= 0)
        return look;
    ProcessStat stat{};
    if (!readStat(pid, stat)) {
        if (isGone(pid)) // and not only hidden from this user
            look.state = ProcessState::dead;
        return look;
    }
    look.state = stateOf(stat, seenAt);
    if (look.state != ProcessState::dead)
        std::memcpy(look.command, stat.command, sizeof look.command);
    return look;
}
