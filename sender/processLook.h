#pragma once

#include <ctime>
#include <sys/types.h>

enum class ProcessState
{
    unknown, ///< The system shows nothing of it: it is hidden, or in another namespace.
    alive,
    stopped,
    dead,
};

/// A word for a state, the same in text and JSON.
char const* processStateWord(ProcessState state);

/// What the system shows of a process that a segment names.
struct ProcessLook
{
    pid_t pid = 0;
    ProcessState state = ProcessState::unknown;
    char command[16] = ""; ///< Printable characters only; empty for none that is shown.
};

/// Looks at the process that had the id `pid` at the time `seenAt`. One that began later got the id
/// of a dead one.
/// @param pid 0 for a process that the system has no id for.
ProcessLook lookAtProcess(pid_t pid, std::time_t seenAt);
