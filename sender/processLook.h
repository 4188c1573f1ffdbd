#pragma once

#include <ctime>
#include <sys/types.h>

enum class ProcessState
{
    unknown, ///< The system does not show the process: it is hidden, or in another namespace.
    alive,
    stopped,
    dead,
};

/// A word for a state, the same in text and JSON.
char const* processStateWord(ProcessState state);

/// A process that a segment names, as the system shows it.
struct ProcessLook
{
    pid_t pid = 0;
    ProcessState state = ProcessState::unknown;
    char command[16] = ""; ///< Printable characters only; empty when the system shows none.
};

/// Looks at the process that had the id `pid` at the time `seenAt`. If the process with this id
/// began later, the one that is meant is dead.
/// @param pid 0 for a process that the system has no id for.
ProcessLook lookAtProcess(pid_t pid, std::time_t seenAt);
