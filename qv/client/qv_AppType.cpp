#include "qv/client/qv_AppType.h"

#include <iterator>

namespace {

/// The words by number; null for the numbers that are free.
constexpr char const* words[] = {
    "None",      "Server",       "Client",      "Submitter", "Control", "PostScript",
    "Test",      "LogFile",      "ClientWatch", "Config",    "Viewer",  "Installer",
    "HistoryDB", "PythonModule", nullptr,       nullptr,     nullptr,   "NodeJS",
};

} // namespace

_qvString<25> qv_AppType_asString(qv_AppType const& type)
{
    if (type < std::size(words) && words[type] != nullptr)
        return words[type];
    return "unknown";
}
