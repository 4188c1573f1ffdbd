#pragma once

#include "viewer/mailboxReport.h"
#include "viewer/viewOptions.h"

/// Prints a look in the given form, all of it before it returns.
/// @return False if standard output did not take it.
bool printLook(ViewForm form, MailboxLook const& look, MailboxVerdict const& verdict);

/// Looks and prints until SIGINT or SIGTERM, or until standard output takes no more.
/// @return The exit status.
int watchMailbox(ViewOptions const& options);

/// Looks until the condition of the task holds or the time has run out, and prints the last look.
/// @return The exit status.
int waitForMailbox(ViewOptions const& options);

/// Exit status of a wrong command line, and of output that could not be written.
inline constexpr int viewFailed = 1;
