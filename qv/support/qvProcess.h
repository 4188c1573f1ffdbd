#pragma once

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"

/// @file
/// The directory and the environment of the running program. Paths have "/" as their separator on
/// every platform, and 250 characters at most. Nothing allocates or reports.

/// Finds the directory of the running program. Where the platform gives no path (on Linux also for
/// a path above 250 bytes), `argv0` is taken instead, cut at 250 characters: an absolute path as it
/// is; a bare name as it is; another against the current directory, where each "../" climbs and a
/// name ahead of the last one is dropped (intended). Fewer than 4 characters are no path. A "/./"
/// at the end is folded. Meant for start-up: each call asks the platform anew.
/// @param[out] out The directory with a trailing "/"; empty when none was found.
/// @param argv0 The program's first argument, or null.
/// @return False when no path was found.
bool qvApplicationPath(_qvString8_allSize<250>& out, char* argv0);

/// The same by value.
/// @param argv0 The program's first argument, or null.
/// @return The directory with a trailing "/"; empty when none was found.
_qvString8_allSize<250> qvApplicationPath(char* argv0);

/// The directory part of a path. Up to two characters come back unchanged. A "/" at position 0 or 1
/// never ends the directory (/tool gives /tool/), and a "/" in second place makes any path a
/// network path whose server and share stay whole (a/b/c gives a/b/c/): both intended.
/// @param path The path. A length above 250, which only a damaged record holds, counts as 250.
/// @return The directory, with a trailing "/" unless it has 250 characters already.
_qvString8_allSize<250> qvGetDirName_local(_qvString8_allSize<250> path);

/// The value of an environment variable, measured modulo 65536.
/// @param name The variable's name.
/// @return The value, cut at 250 characters; empty when it is unset or empty.
_qvString8_allSize<250> qvGetEnvironmentVariable8(_qvString8_allSize<250> const& name);
/// The same, cut at 5000 characters.
/// @param name The variable's name.
/// @return The value; empty when it is unset or empty.
_qvString8_allSize<5000> qvGetEnvironmentVariable8_long(_qvString8_allSize<250> const& name);

/// `qvLastOSError8` in 16-bit units.
/// @param code As there.
/// @return The text, each byte taken as unsigned.
_qvString<500> qvLastOSError(int code);
