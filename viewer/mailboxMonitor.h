#pragma once

#include "viewer/viewOptions.h"

/// Prints one line as the plugins of monitoring systems do: state, verdict, and the figures behind
/// a bar. Looks until it is known whether a taken lock is stale.
/// @return The state as exit status.
int checkMailbox(ViewOptions const& options);

/// The same for a check that could not be made.
int failCheck(char const* reason);

/// Prints a look as metrics, in the text format of Prometheus.
/// @return 0 whatever the look found.
int printMetrics();
