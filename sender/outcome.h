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
        unknownCommand, ///< The word is in no table, or the number of "EventFrameDone" is 0 in its
                        ///< low 16 bits.
        attachFailed,   ///< The client's segment cannot be attached.
        wrongSize,      ///< The segment is too small for the record.
        accessFailed,   ///< The record has no address.
        lockFailed,     ///< The lock was not obtained.
        wrongFormat,    ///< A format field is wrong.
        queueFull,      ///< The queue holds all it can; the command is lost.
    };

    Kind kind;
    WorkingText reason;      ///< The segment's own text of a failure; of an unknown command what to
                             ///< show of it.
    int size = 0;            ///< Of a wrong size: that of the record.
    qvClientFormat format{}; ///< Of a wrong format: all three fields, also those that agree.
};

/// Appends an outcome's text: the one place that words it. Scripts compare these lines, so every
/// byte is fixed. Failures of the segment and the record come straight behind the version, on its
/// line.
void add(OutputText& text, Outcome const& outcome);
