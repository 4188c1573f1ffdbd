#pragma once

/// Frees a lock whose holder has died, and prints what it found and did. Refuses when any program
/// but the client could hold it. Never removes the segment.
/// @return The exit status: 0 also for a lock that is free already.
int freeStaleLock();
