#pragma once

#include "qv/client/qvClientMailbox.h"
#include "sender/outputText.h"
#include "sender/workingText.h"

/// How a run ends, as data; `add()` words it.
struct Outcome
{
    enum class Kind : unsigned char
    {
        stored,         ///< The entry is in the queue.
        usage,          ///< There was no word.
        unknownCommand, ///< The word is in no table, or the number of "EventFrameDone" is 0 in its
                        ///< low 16 bits.
        noSegment,      ///< The client's segment does not exist.
        noRight,        ///< The system refuses this user the segment.
        attachFailed,   ///< The client's segment cannot be attached for another reason.
        clientDead,   ///< The process that made the segment is dead, and the caller wants it alive.
        wrongSize,    ///< The segment is too small for the record.
        accessFailed, ///< The record has no address.
        lockFailed,   ///< The lock was not obtained.
        wrongFormat,  ///< A format field is wrong.
        queueFull,    ///< The queue has no free entry; the command is lost.
    };

    Kind kind;
    WorkingText reason;      ///< The segment's own text of a failure; for an unknown command the
                             ///< text to show.
    int size = 0;            ///< The size of the record, for `wrongSize`.
    qvClientFormat format{}; ///< All three fields, also those that agree, for `wrongFormat`.
};

/// A kind as scripts see it: its name, the exit status, and a sentence that is the same on equal
/// nodes.
struct OutcomeRow
{
    char const* name;
    int status;
    char const* sentence;
};

/// The row of a kind; every kind has one.
OutcomeRow const& rowOf(Outcome::Kind kind);

/// Appends an outcome's text; nothing else words it. Scripts compare these lines, so every byte is
/// fixed. Failures of the segment and the record follow the version on its line.
void add(OutputText& text, Outcome const& outcome);
