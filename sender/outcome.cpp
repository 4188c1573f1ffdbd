#include "sender/outcome.h"

#include "sender/qvVersion.h"

#include <cstdio>

namespace {

void printVersion()
{
    std::fputs(qvVersion, stdout);
}

/// A failure with the segment's own text. A message of 250 characters has no newline. The message
/// is the format itself and no argument of "%s", by decision: a "%" in a system's error text reads
/// as a conversion. What the user typed never comes here.
void printFailure(char const* what, WorkingText const& reason)
{
    WorkingText message = what;
    message += reason;
    message += '\n';
    printVersion();
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    std::printf(message.asChar());
#pragma GCC diagnostic pop
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
    printVersion();
    std::printf("++++ Shared memory has wrong data size! (%d!=%d)\n", size, clientRecordSize);
}

void outcome::wrongFormat(qvClientFormat const& found)
{
    printVersion();
    std::printf("++++ Shared memory has wrong data format! (%d!=%d  %d!=%d  %d!=%d)\n",
                static_cast<int>(found.recordMarker), clientRecordMarker, found.stateMarker,
                clientStateMarker, found.stateFlag, clientStateFlag);
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
