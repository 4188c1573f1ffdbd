#pragma once

/// The version as the tool prints it, with its leading blank. The build takes its own version
/// number from this line.
inline constexpr char qvVersion[] = " 8.3.05";
