#pragma once

#include "qv/client/qvClientMailbox.h"
#include "sender/outputText.h"
#include "sender/workingText.h"

/// How a run ends, as data: found here, worded by `add()`.
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
        queueFull,    ///< The queue holds all it can; the command is lost.
    };

    Kind kind;
    WorkingText reason;      ///< The segment's own text of a failure; of an unknown command what to
                             ///< show of it.
    int size = 0;            ///< Of a wrong size: that of the record.
    qvClientFormat format{}; ///< Of a wrong format: all three fields, also those that agree.
};

/// What a script is told of a kind: its name, the exit status, and the sentence that is the same on
/// equal nodes.
struct OutcomeRow
{
    char const* name;
    int status;
    char const* sentence;
};

/// Every kind has its row.
OutcomeRow const& rowOf(Outcome::Kind kind);

/// Appends an outcome's text: the one place that words it. Scripts compare these lines, so every
/// byte is fixed. Failures of the segment and the record come straight behind the version, on its
/// line.
void add(OutputText& text, Outcome const& outcome);
