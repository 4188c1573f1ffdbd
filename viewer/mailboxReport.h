#pragma once

#include "viewer/mailboxVerdict.h"

#include <cstdio>

/// Prints a look for people, over several lines, with the verdict last.
void printMailboxText(std::FILE* to, MailboxLook const& look, MailboxVerdict const& verdict);

/// The same for a user who watches: verdict and clock first, and equal messages that follow each
/// other in one line.
void printMailboxFolded(std::FILE* to, MailboxLook const& look, MailboxVerdict const& verdict);

/// Prints a look for programs: one JSON object on one line.
void printMailboxJson(std::FILE* to, MailboxLook const& look, MailboxVerdict const& verdict);

/// Prints the verdict in one line, the same on all machines where it is the same.
void printMailboxBrief(std::FILE* to, MailboxLook const& look, MailboxVerdict const& verdict);

/// Prints a process as a line of the text.
void printProcessLine(std::FILE* to, char const* what, ProcessLook const& process);
