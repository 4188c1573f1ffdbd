#include "sender/outcome.h"

#include "sender/qvClientMailbox.h"
#include "sender/qvVersion.h"

#include <cstdio>

namespace {

void printVersion()
{
    std::fputs(qvVersion, stdout);
}

/// Prints a finished message behind the version. The message is the format itself and no
/// argument of "%s", by decision: a "%" in a system's error text reads as a conversion. What the
/// user typed never comes here.
void printFailure(WorkingText const& message)
{
    printVersion();
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    std::printf(message.asChar());
#pragma GCC diagnostic pop
}

/// A failure with the segment's own text. A message of 250 characters has no newline.
void printFailure(char const* what, WorkingText const& reason)
{
    WorkingText message = what;
    message += reason;
    message += '\n';
    printFailure(message);
}

} // namespace

void outcome::unknownCommand(WorkingText const& word)
{
    std::printf("Unknown command %s\n", word.asChar());
}

void outcome::attachFailed(WorkingText const& reason)
{
    printFailure("++++ Unable to attach shared memory! ", reason);
}

void outcome::accessFailed(WorkingText const& reason)
{
    printFailure("++++ Unable to access shared memory data! ", reason);
}

void outcome::lockFailed(WorkingText const& reason)
{
    printFailure("++++ Unable to lock shared memory data! ", reason);
}

void outcome::wrongSize(int size)
{
    WorkingText message;
    std::snprintf(message.asChar(), sizeof message.text,
                  "++++ Shared memory has wrong data size! (%d!=%d)\n", size, clientRecordSize);
    message.calcLength();
    printFailure(message);
}

void outcome::wrongFormat(int recordMarker, int stateMarker, int stateFlag)
{
    WorkingText message;
    std::snprintf(message.asChar(), sizeof message.text,
                  "++++ Shared memory has wrong data format! (%d!=%d  %d!=%d  %d!=%d)\n",
                  recordMarker, clientRecordMarker, stateMarker, clientStateMarker, stateFlag,
                  clientStateFlag);
    message.calcLength();
    printFailure(message);
}

void outcome::queueFull()
{
    printVersion();
    std::puts(" qvNodedispatch: Message buffer is full!");
}

void outcome::stored()
{
    std::puts("Command send.\n"); // with the line's own end a blank line follows, intended
}
