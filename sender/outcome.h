#pragma once

#include "qv/client/qvClientMailbox.h"
#include "sender/workingText.h"

/// How a run ends, in words: the one place that maps an outcome to its text on standard output.
/// Scripts compare these lines, so every byte is fixed. Failures of the segment and the record
/// are printed straight behind the version, on its line.
namespace outcome {

/// The word is in no table, or the number of "EventFrameDone" is 0 in its low 16 bits.
void unknownCommand(WorkingText const& word);

/// The client's segment cannot be attached, its record not reached, its lock not taken.
void attachFailed(WorkingText const& reason);
void accessFailed(WorkingText const& reason);
void lockFailed(WorkingText const& reason);

/// The segment is too small for the record; worded as an inequality although it is a minimum.
void wrongSize(int size);

/// A format field is wrong; all three are shown, also those that agree.
void wrongFormat(qvClientFormat const& found);

/// The queue holds all it can; the command is lost.
void queueFull();

/// The entry stands in the queue.
void stored();

} // namespace outcome
