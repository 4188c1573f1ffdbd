#include "sender/sendMessage.h"

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/core/deferredSignals.h"
#include "qv/segment/qvSharedMemory.h"
#include "sender/outcome.h"

namespace {

/// `messageKind` of every entry of this tool.
constexpr unsigned char toolKind = 2;

/// Judges the record and appends the message. The lock is held: the record is reached by plain
/// volatile accesses, in this order.
Outcome enqueue(qvClientMailbox volatile& record, ClientMessage const& message)
{
    auto const format = qvClientFormat::of(record);
    if (!format.isRight())
        return {Outcome::Kind::wrongFormat, {}, 0, format};

    // Read once: a neighbour that breaks the lock cannot move the write out of the queue.
    unsigned char const count = record.messageCount;
    if (count >= maxClientMessages)
        return {Outcome::Kind::queueFull, {}};
    record.messageCount = static_cast<unsigned char>(count + 1); // ahead of its entry, intended
    record.messageKind[count] = toolKind;
    record.messageType[count] = static_cast<unsigned char>(message.type);
    record.messageValue[count] = message.value;
    return {Outcome::Kind::stored, {}};
}

Outcome printed(Outcome const& outcome)
{
    print(outcome);
    return outcome;
}

/// The steps between attaching and leaving; the first that fails ends them. What came of the record
/// is printed before the lock is given back.
Outcome deliver(qvSharedMemory& segment, ClientMessage const& message)
{
    int const size = segment.size();
    if (size < clientRecordSize)
        return printed({Outcome::Kind::wrongSize, {}, size});
    auto* const record = static_cast<qvClientMailbox volatile*>(segment.data());
    if (record == nullptr)
        return printed({Outcome::Kind::accessFailed, segment.errorString()});

    qvSegment::DeferredSignals const untilUnlocked;
    if (!segment.lock())
        return printed({Outcome::Kind::lockFailed, segment.errorString()});
    Outcome const outcome = printed(enqueue(*record, message));
    segment.unlock();
    return outcome;
}

} // namespace

Outcome sendMessage(ClientMessage const& message)
{
    qvSharedMemory segment(clientSegmentName);
    if (!segment.attach())
        return printed({Outcome::Kind::attachFailed, segment.errorString()});
    Outcome const outcome = deliver(segment, message);
    segment.detach();
    return outcome;
}
