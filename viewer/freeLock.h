#pragma once

/// Frees a lock that a program died with, and says what it found and did. Refuses where anybody but
/// the client could hold it. The segment stays, whatever happens.
/// @return The exit status: 0 also for a lock that is free already.
int freeStaleLock();
