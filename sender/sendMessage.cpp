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
void enqueue(qvClientMailbox volatile& record, ClientMessage const& message)
{
    auto const format = qvClientFormat::of(record);
    if (!format.isRight()) {
        outcome::wrongFormat(format);
        return;
    }

    // Read once: a neighbour that breaks the lock cannot move the write out of the queue.
    unsigned char const count = record.messageCount;
    if (count >= maxClientMessages) {
        outcome::queueFull();
        return;
    }
    record.messageCount = static_cast<unsigned char>(count + 1); // ahead of its entry, intended
    record.messageKind[count] = toolKind;
    record.messageType[count] = static_cast<unsigned char>(message.type);
    record.messageValue[count] = message.value;
    outcome::stored();
}

/// The steps between attaching and leaving; the first that fails is reported and ends them.
void deliver(qvSharedMemory& segment, ClientMessage const& message)
{
    int const size = segment.size();
    if (size < clientRecordSize) {
        outcome::wrongSize(size);
        return;
    }
    auto* const record = static_cast<qvClientMailbox volatile*>(segment.data());
    if (record == nullptr) {
        outcome::accessFailed(segment.errorString());
        return;
    }

    qvSegment::DeferredSignals const untilUnlocked;
    if (!segment.lock()) {
        outcome::lockFailed(segment.errorString());
        return;
    }
    enqueue(*record, message);
    segment.unlock();
}

} // namespace

void sendMessage(ClientMessage const& message)
{
    qvSharedMemory segment(clientSegmentName);
    if (!segment.attach()) {
        outcome::attachFailed(segment.errorString());
        return; // the destructor leaves what there is to leave
    }
    deliver(segment, message);
    segment.detach();
}
