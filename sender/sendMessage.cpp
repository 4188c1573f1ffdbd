#include "sender/sendMessage.h"

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/core/segmentKey.h"
#include "qv/segment/qvSharedMemory.h"
#include "sender/outcome.h"

#include <cerrno>

namespace {

/// `messageKind` of every entry of this tool.
constexpr unsigned char toolKind = 2;

/// Checks the record and appends the message. The caller holds the lock. All accesses are volatile,
/// in this order.
Outcome enqueue(qvClientMailbox volatile& record, ClientMessage const& message)
{
    auto const format = qvClientFormat::of(record);
    if (!format.isRight())
        return {Outcome::Kind::wrongFormat, {}, 0, format};

    // Read once: a program that ignores the lock cannot move the write out of the queue.
    unsigned char const count = record.messageCount;
    if (count >= maxClientMessages)
        return {Outcome::Kind::queueFull, {}};
    record.messageCount = static_cast<unsigned char>(count + 1); // ahead of its entry, intended
    record.messageKind[count] = toolKind;
    record.messageType[count] = static_cast<unsigned char>(message.type);
    record.messageValue[count] = message.value;
    return {Outcome::Kind::stored, {}};
}

Outcome told(Outcome const& outcome, OutputText& text)
{
    add(text, outcome);
    return outcome;
}

Outcome::Kind kindOfFailedAttach(qvSharedMemory const& segment)
{
    if (segment.errorText == qvSegment::segmentMissingText)
        return Outcome::Kind::noSegment;
    return segment.error() == EACCES ? Outcome::Kind::noRight : Outcome::Kind::attachFailed;
}

/// The steps between attaching and leaving; the first that fails ends them. The outcome is worded
/// before the lock is given back.
std::optional<Outcome> deliver(qvSharedMemory& segment, ClientMessage const& message,
                               qvSegment::DeferredSignals const& untilTold, OutputText& text)
{
    int const size = segment.size();
    if (size < clientRecordSize)
        return told({Outcome::Kind::wrongSize, {}, size}, text);
    auto* const record = static_cast<qvClientMailbox volatile*>(segment.data());
    if (record == nullptr)
        return told({Outcome::Kind::accessFailed, segment.errorString()}, text);

    if (!segment.lock())
        return told({Outcome::Kind::lockFailed, segment.errorString()}, text);
    std::optional<Outcome> outcome;
    if (!untilTold.endsPending())
        outcome = told(enqueue(*record, message), text);
    segment.unlock();
    return outcome;
}

} // namespace

std::optional<Outcome> sendMessage(ClientMessage const& message,
                                   qvSegment::DeferredSignals const& untilTold, OutputText& text)
{
    qvSharedMemory segment(clientSegmentName);
    if (!segment.attach())
        return told({kindOfFailedAttach(segment), segment.errorString()}, text);
    auto const outcome = deliver(segment, message, untilTold, text);
    segment.detach();
    return outcome;
}
