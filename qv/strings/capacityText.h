#pragma once

/// @file
/// A list of capacities as text.

/// One capacity of a list as text. It stays defined, since the messages are put together where a
/// string refuses a capacity.
/// @param N The capacity.
#define QV_CAPACITY_TEXT(N) " " #N
