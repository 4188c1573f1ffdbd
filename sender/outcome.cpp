#include "sender/outcome.h"

#include "sender/qvVersion.h"
#include "sender/usage.h"

#include <cstddef>
#include <iterator>

namespace {

/// In the order of `Outcome::Kind`.
constexpr OutcomeRow rows[] = {
    {"stored", 0, "the command is in the queue"},
    {"usage", 1, "there is no command"},
    {"unknownCommand", 1, "the command is not known"},
    {"noSegment", 2, "no client runs here"},
    {"noRight", 2, "this user may not send to the client"},
    {"attachFailed", 6, "the client's segment cannot be attached"},
    {"clientDead", 2, "the client is dead"},
    {"wrongSize", 3, "the record has another size"},
    {"accessFailed", 6, "the record cannot be reached"},
    {"lockFailed", 4, "the lock stayed taken"},
    {"wrongFormat", 3, "the record has another format"},
    {"queueFull", 5, "the queue is full"},
};
static_assert(std::size(rows) == static_cast<std::size_t>(Outcome::Kind::queueFull) + 1);

/// A failure with the segment's own text. A message of 250 characters has no newline. The message
/// is the format itself and no argument of "%s" (intended): a "%" in a system's error text reads as
/// a conversion. Text that the user typed never comes here.
void addFailure(OutputText& text, char const* what, WorkingText const& reason)
{
    WorkingText message = what;
    message += reason;
    message += '\n';
    text.add(qvVersion);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    text.addFormatted(message.asChar());
#pragma GCC diagnostic pop
}

/// Worded as an inequality although the record's size is a minimum.
void addWrongSize(OutputText& text, int size)
{
    text.add(qvVersion);
    text.addFormatted("++++ Shared memory has wrong data size! (%d!=%d)\n", size, clientRecordSize);
}

void addWrongFormat(OutputText& text, qvClientFormat const& found)
{
    text.add(qvVersion);
    text.addFormatted("++++ Shared memory has wrong data format! (%d!=%d  %d!=%d  %d!=%d)\n",
                      static_cast<int>(found.recordMarker), clientRecordMarker, found.stateMarker,
                      clientStateMarker, found.stateFlag, clientStateFlag);
}

} // namespace

OutcomeRow const& rowOf(Outcome::Kind kind)
{
    return rows[static_cast<unsigned char>(kind)];
}

void add(OutputText& text, Outcome const& outcome)
{
    switch (outcome.kind) {
    case Outcome::Kind::usage:
        addUsage(text);
        break;
    case Outcome::Kind::clientDead: // the tool itself never finds it
        break;
    case Outcome::Kind::stored:
        text.add("Command send.\n\n"); // a blank line follows, intended
        break;
    case Outcome::Kind::unknownCommand:
        text.addFormatted("Unknown command %s\n", outcome.reason.asChar());
        break;
    case Outcome::Kind::noSegment:
    case Outcome::Kind::noRight:
    case Outcome::Kind::attachFailed:
        addFailure(text, "++++ Unable to attach shared memory! ", outcome.reason);
        break;
    case Outcome::Kind::wrongSize:
        addWrongSize(text, outcome.size);
        break;
    case Outcome::Kind::accessFailed:
        addFailure(text, "++++ Unable to access shared memory data! ", outcome.reason);
        break;
    case Outcome::Kind::lockFailed:
        addFailure(text, "++++ Unable to lock shared memory data! ", outcome.reason);
        break;
    case Outcome::Kind::wrongFormat:
        addWrongFormat(text, outcome.format);
        break;
    case Outcome::Kind::queueFull:
        text.add(qvVersion);
        text.add(" qvNodedispatch: Message buffer is full!\n");
        break;
    }
}
