#pragma once

#include "qv/strings/qvString.h"

/// @file
/// The words of the farm's components.

/// The kinds of component that the farm's programs belong to. The numbers are fixed; 14 to 16 are
/// free.
enum qv_AppType : unsigned int
{
    qv_AppType_None = 0,
    qv_AppType_Server = 1,
    qv_AppType_Client = 2,
    qv_AppType_Submitter = 3,
    qv_AppType_Control = 4,
    qv_AppType_PostScript = 5,
    qv_AppType_Test = 6,
    qv_AppType_LogFile = 7,
    qv_AppType_ClientWatch = 8,
    qv_AppType_Config = 9,
    qv_AppType_Viewer = 10,
    qv_AppType_Installer = 11,
    qv_AppType_HistoryDB = 12,
    qv_AppType_PythonModule = 13,
    qv_AppType_NodeJS = 17,
};

/// The word of a component.
/// @param type The component.
/// @return For instance "Client"; "unknown" for every other value.
_qvString<25> qv_AppType_asString(qv_AppType const& type);
