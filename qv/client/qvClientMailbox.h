#pragma once

#include <cstddef>
#include <cstdint>

/// @file
/// The client's record, as a sender sees it.

/// Name of the client's segment, as `qvSharedMemory` takes it.
inline constexpr char clientSegmentName[] = "qvClientSharedMemory";

/// How the client reads the value of a message.
enum class ClientMessageType : unsigned char
{
    command = 2,   ///< A command code; `qvC::qvClientCommandName` has its display name.
    checkJob = 3,  ///< Send 'Check Job' to the server; the value is 9 and no command code.
    frameDone = 5, ///< A number whose meaning belongs to the client.
};

/// Most messages that the queue holds.
inline constexpr int maxClientMessages = 30;

/// The client's record in its shared segment, as far as a sender touches it: three format fields
/// and the queue. A format shared between processes, in the machine's own byte order;
/// docs/mailbox.md draws it. The rest belongs to the client.
///
/// The queue is three parallel arrays and one count. It is read and changed under the segment's
/// lock only.
struct qvClientMailbox
{
    std::uint32_t recordMarker;                    ///< Format marker: 517.
    unsigned char clientOwned1[924];               ///< The client's.
    std::uint16_t stateMarker;                     ///< Format marker: 3077.
    std::uint16_t stateFlag;                       ///< Must not be 0; a client writes 1.
    unsigned char clientOwned2[1069];              ///< The client's.
    unsigned char messageCount;                    ///< Messages in the queue, 0 to 30.
    unsigned char messageKind[maxClientMessages];  ///< 2 in every entry of this tool.
    unsigned char messageType[maxClientMessages];  ///< Says how to read the value.
    std::uint16_t messageValue[maxClientMessages]; ///< Command code or number.
    unsigned char clientOwned3[20866];             ///< The client's.
};

/// Bytes of the record: the least that a segment must offer behind its prefix.
inline constexpr int clientRecordSize = 22988;

/// `recordMarker` must hold this.
inline constexpr int clientRecordMarker = 517;
/// `stateMarker` must hold this.
inline constexpr int clientStateMarker = 3077;
/// A client writes this to `stateFlag`; a report of another value names it as the right one.
inline constexpr int clientStateFlag = 1;

/// The three fields by which a record is recognised as a client's, as they were read.
struct qvClientFormat
{
    std::uint32_t recordMarker; ///< As found; right is `clientRecordMarker`.
    std::uint16_t stateMarker;  ///< As found; right is `clientStateMarker`.
    std::uint16_t stateFlag;    ///< As found; right is anything but 0.

    /// Reads each field once, in the order of the record.
    /// @param record In shared memory: another process may change it meanwhile.
    /// @return The fields, unjudged.
    static qvClientFormat of(qvClientMailbox const volatile& record)
    {
        std::uint32_t const recordMarker = record.recordMarker;
        std::uint16_t const stateMarker = record.stateMarker;
        std::uint16_t const stateFlag = record.stateFlag;
        return {recordMarker, stateMarker, stateFlag};
    }

    /// @return True for a client's record: both markers fit, and the flag is anything but 0.
    bool isRight() const
    {
        return recordMarker == clientRecordMarker && stateMarker == clientStateMarker &&
               stateFlag != 0;
    }
};

static_assert(sizeof(qvClientMailbox) == clientRecordSize);
static_assert(offsetof(qvClientMailbox, recordMarker) == 0);
static_assert(offsetof(qvClientMailbox, stateMarker) == 928);
static_assert(offsetof(qvClientMailbox, stateFlag) == 930);
static_assert(offsetof(qvClientMailbox, messageCount) == 2001);
static_assert(offsetof(qvClientMailbox, messageKind) == 2002);
static_assert(offsetof(qvClientMailbox, messageType) == 2032);
static_assert(offsetof(qvClientMailbox, messageValue) == 2062);
