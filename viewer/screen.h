#pragma once

#include <string_view>

/// Shows a text on standard output, a terminal, in place of its former contents. Rows that do not
/// fit are left out, and the last row says so. No mode of the terminal is changed, so none has to
/// be restored, however the watch ends.
void showOnScreen(std::string_view text);
