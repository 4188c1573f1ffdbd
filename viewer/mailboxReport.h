#pragma once

#include "viewer/mailboxVerdict.h"

/// Prints a look for people, over several lines.
void printMailboxText(MailboxLook const& look, MailboxVerdict const& verdict);

/// Prints a look for programs: one JSON object on one line.
void printMailboxJson(MailboxLook const& look, MailboxVerdict const& verdict);
