#include "qv/client/qvClientCommandName.h"

#include <cstdio>
#include <iterator>

namespace {

/// The names by code. People read them and scripts compare them, so none changes, slips included.
constexpr char const* names[] = {
    "None", // 0
    "Abort",
    "Enable",
    "Disable",
    "Allow little jobs",
    "Forbit little jobs",
    "Respect working hours",
    "Ignore working hours",
    "Restart client executable",
    "Wake up On Lan",
    "Restart machine", // 10
    "Force restart machine",
    "Shutdown machine",
    "Force shutdown machine",
    "Wait",
    "Abort & Disable",
    "Ignore current CPU usage",
    "Reserve CPU for interactive user",
    "No 'Reserve CPU for interactive user'",
    "Shutdown client and Service",
    "Reload client config", // 20
    "Reload user config",
    "Reload global config",
    "Reload all config",
    "Search for render applications",
    "Update service config",
    "(re-)Install Artist Workstation (qvSubmit Plugins, ...)",
    "(re-)Install qvService",
    "Shutdown qvClient",
    "Abort on Reset",
    "Deprecated - Clear & renew render apps", // 30
    "Sync time with qvServer",
    "Show process tree",
    "Abort after frame",
    "Abort after Frame & Disable",
    "(re-)Install All (qvService, Plugins, Startmenu, ...)",
    "Speedtest",
    "Dev Debug",
    "Abort & Deassign All",
    "Abort - Reserved Client",
    "Abort - Working Hours", // 40
    "Abort - High Priority Job",
    "Abort - qvControl",
    "Abort - Averaging",
    "Abort - Free License",
    "Abort - Local Artist",
    "Abort - System memory low",
    "Abort - renderer frozen",
    "Abort - high artist CPU usage",
    "Abort - max frame time exceeded",
    "Abort - Job Deleted", // 50
    "Abort - Job Disabled",
    "Reset idle time",
    "Custom Commandline",
    "Abort - Error found in render log",
    "Force restart machine (6 hours)",
    "Un-Install All (qvService, Plugins, Startmenu, ...)",
    "Abort after Frame & Shutdown",
    "Restart machine after render segment finished",
    "Shutdown machine after render segment finished",
    "Custom Commandline for artist", // 60
};

} // namespace

_qvString8_allSize<250> qvC::qvClientCommandName(unsigned char const& code)
{
    if (code < std::size(names))
        return names[code];
    _qvString8_allSize<250> unknown;
    std::snprintf(unknown.asChar(), sizeof unknown.text, "Unknown #%d", code);
    unknown.calcLength();
    return unknown;
}
