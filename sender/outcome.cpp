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

/// Worded as an inequality although the record's size is a minimum.
void printWrongSize(int size)
{
    printVersion();
    std::printf("++++ Shared memory has wrong data size! (%d!=%d)\n", size, clientRecordSize);
}

void printWrongFormat(qvClientFormat const& found)
{
    printVersion();
    std::printf("++++ Shared memory has wrong data format! (%d!=%d  %d!=%d  %d!=%d)\n",
                static_cast<int>(found.recordMarker), clientRecordMarker, found.stateMarker,
                clientStateMarker, found.stateFlag, clientStateFlag);
}

} // namespace

void print(Outcome const& outcome)
{
    switch (outcome.kind) {
    case Outcome::Kind::stored:
        std::puts("Command send.\n"); // with the line's own end a blank line follows, intended
        break;
    case Outcome::Kind::unknownCommand:
        std::printf("Unknown command %s\n", outcome.reason.asChar());
        break;
    case Outcome::Kind::attachFailed:
        printFailure("++++ Unable to attach shared memory! ", outcome.reason);
        break;
    case Outcome::Kind::wrongSize:
        printWrongSize(outcome.size);
        break;
    case Outcome::Kind::accessFailed:
        printFailure("++++ Unable to access shared memory data! ", outcome.reason);
        break;
    case Outcome::Kind::lockFailed:
        printFailure("++++ Unable to lock shared memory data! ", outcome.reason);
        break;
    case Outcome::Kind::wrongFormat:
        printWrongFormat(outcome.format);
        break;
    case Outcome::Kind::queueFull:
        printVersion();
        std::puts(" qvNodedispatch: Message buffer is full!");
        break;
    }
}
