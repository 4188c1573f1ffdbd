#pragma once

#include "viewer/viewOptions.h"

/// Prints one line as the plugins of monitoring systems do: state, verdict, and behind a bar the
/// figures. Looks for as long as it takes to tell a stale lock.
/// @return The state as exit status.
int checkMailbox(ViewOptions const& options);

/// The same for a check that did not come about.
int failCheck(char const* reason);

/// Prints what a look found as metrics, in the text format of Prometheus.
/// @return 0 whatever was found.
int printMetrics();
