#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qvTest {

struct Command
{
    std::string word;
    unsigned char type;
    std::uint16_t value;
};

// The words with a fixed message. EventFrameDone, the 21st, has its value from the command line.
inline std::vector<Command> const commands = {
    {"abort", 2, 1},
    {"enable", 2, 2},
    {"disable", 2, 3},
    {"restart", 2, 8},
    {"abortdisable", 2, 15},
    {"shutdown", 2, 28},
    {"UseWorking", 2, 6},
    {"IgnoreWorking", 2, 7},
    {"RestartClientExe", 2, 8},
    {"RestartMachine", 2, 10},
    {"RestartMachineAfterRender", 2, 58},
    {"IgnoreCPU", 2, 16},
    {"ReserveCPUInteractive", 2, 17},
    {"UseCPUInteractive", 2, 18},
    {"ReloadAllConfig", 2, 23},
    {"ConfigSearchForApplications", 2, 24},
    {"UpdateServiceCfg", 2, 25},
    {"ShowProcessTree", 2, 32},
    {"DevDebug", 2, 37},
    {"checkjob", 3, 9},
};

} // namespace qvTest
