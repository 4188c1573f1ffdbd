#include "sender/usage.h"

#include "qv/client/qvClientCommandName.h"

#include <cstdio>

namespace {

struct UsageRow
{
    char const* label;
    unsigned char code;
};

/// The rows in their printed order. The blanks belong to the labels and are uneven as they stand.
constexpr UsageRow rows[] = {
    {"Abort       ", 1},
    {"Enable      ", 2},
    {"Disable     ", 3},
    {"Restart     ", 8},
    {"Abortdisable", 15},
    {"Shutdown    ", 28},
    {"UseWorking    ", 6},
    {"IgnoreWorking    ", 7},
    {"RestartClientExe    ", 8},
    {"RestartMachine    ", 10},
    {"RestartMachineAfterRender    ", 58},
    {"IgnoreCPU    ", 16},
    {"ReserveCPUInteractive    ", 17},
    {"UseCPUInteractive    ", 18},
    {"ReloadAllConfig    ", 23},
    {"ConfigSearchForApplications    ", 24},
    {"UpdateServiceCfg    ", 25},
    {"ShowProcessTree    ", 32},
    {"DevDebug    ", 37},
};

void printRow(char const* label, char const* name)
{
    std::printf("  %s:  %s\n", label, name);
}

} // namespace

void printUsage()
{
    std::puts("qvNodeDispatch send the local client a command.");
    std::puts("Usage: qvNodeDispatch -command");
    std::puts("Available commands are:");
    for (UsageRow const& row : rows)
        printRow(row.label, qvC::qvClientCommandName(row.code).asChar());
    // Not a command code, so its text stands here and not in the vocabulary.
    printRow("Checkjob", "Send 'Check Job' to qvServer for rendering job");
}
