#include "sender/processLook.h"

#include "sender/printable.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {

/// The parts of /proc/PID/stat that count here.
struct ProcessStat
{
    char command[16];
    char state;
    unsigned long long startTicks; ///< Since the machine's start.
};

/// The command is in brackets and may hold brackets itself: the last one ends it.
bool readFields(char const* text, ProcessStat& stat)
{
    char const* const open = std::strchr(text, '(');
    char const* const close = std::strrchr(text, ')');
    if (open == nullptr || close == nullptr)
        return false;
    copyPrintable(stat.command, {open + 1, close});
    // Between the state and the start there are 18 numbers that do not count here.
    return std::sscanf(close + 1,
                       " %c %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s "
                       "%*s %llu",
                       &stat.state, &stat.startTicks) == 2;
}

bool readStat(pid_t pid, ProcessStat& stat)
{
    char path[32];
    std::snprintf(path, sizeof path, "/proc/%d/stat", pid);
    std::FILE* const file = std::fopen(path, "re");
    if (file == nullptr)
        return false;
    char text[1024];
    text[std::fread(text, 1, sizeof text - 1, file)] = '\0';
    std::fclose(file);
    return readFields(text, stat);
}

/// By the clocks of this moment, in whole seconds.
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
