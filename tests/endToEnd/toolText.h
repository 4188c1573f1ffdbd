// The tool's printed text, letter by letter. Nothing is taken from the product's headers: these
// tests see the tool as a user's script does.
#pragma once

#include <string>

namespace endToEnd {

// The version keeps its leading blank, so two blanks separate the name and the number.
inline std::string const versionText = " 8.3.05";

inline std::string const banner =
    "----------------------------------------------------------------\n"
    "qvNodeDispatch  8.3.05      (c) qvNodeDispatch contributors\n";

inline std::string const usageOutput =
    banner + "qvNodeDispatch send the local client a command.\n"
             "Usage: qvNodeDispatch -command\n"
             "Available commands are:\n"
             "  Abort       :  Abort\n"
             "  Enable      :  Enable\n"
             "  Disable     :  Disable\n"
             "  Restart     :  Restart client executable\n"
             "  Abortdisable:  Abort & Disable\n"
             "  Shutdown    :  Shutdown qvClient\n"
             "  UseWorking    :  Respect working hours\n"
             "  IgnoreWorking    :  Ignore working hours\n"
             "  RestartClientExe    :  Restart client executable\n"
             "  RestartMachine    :  Restart machine\n"
             "  RestartMachineAfterRender    :  Restart machine after render segment finished\n"
             "  IgnoreCPU    :  Ignore current CPU usage\n"
             "  ReserveCPUInteractive    :  Reserve CPU for interactive user\n"
             "  UseCPUInteractive    :  No 'Reserve CPU for interactive user'\n"
             "  ReloadAllConfig    :  Reload all config\n"
             "  ConfigSearchForApplications    :  Search for render applications\n"
             "  UpdateServiceCfg    :  Update service config\n"
             "  ShowProcessTree    :  Show process tree\n"
             "  DevDebug    :  Dev Debug\n"
             "  Checkjob:  Send 'Check Job' to qvServer for rendering job\n";

// The blank line is part of the text: scripts of the farm count on it.
inline std::string const storedOutput = banner + "Command send.\n\n";

inline std::string const queueFullOutput =
    banner + versionText + " qvNodedispatch: Message buffer is full!\n";

inline std::string const noLockOutput =
    banner + versionText + "++++ Unable to lock shared memory data! lock: unable to get lock\n";

// The step that failed, and the system's words for it.
inline std::string attachFailedOutput(std::string const& reason)
{
    return banner + versionText + "++++ Unable to attach shared memory! " + reason + "\n";
}

inline std::string const noSegmentOutput = attachFailedOutput("Shared Memory does not exist.");

inline std::string const notPermittedOutput = attachFailedOutput("shmget: Permission denied");

// The numbers are given as text, since the tests check how the tool writes them.
inline std::string wrongSizeOutput(std::string const& size)
{
    return banner + versionText + "++++ Shared memory has wrong data size! (" + size + "!=22988)\n";
}

inline std::string wrongFormatOutput(std::string const& recordMarker,
                                     std::string const& stateMarker, std::string const& stateFlag)
{
    return banner + versionText + "++++ Shared memory has wrong data format! (" + recordMarker +
           "!=517  " + stateMarker + "!=3077  " + stateFlag + "!=1)\n";
}

inline std::string unknownOutput(std::string const& shown)
{
    return banner + "Unknown command " + shown + "\n";
}

} // namespace endToEnd
