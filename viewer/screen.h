#pragma once

#include <string_view>

/// Shows a text on standard output, a terminal, in place of what stood there. What does not fit is
/// left out, and the last row says so. No mode of the terminal is changed, so that none has to be
/// set back, however the watching ends.
void showOnScreen(std::string_view text);
