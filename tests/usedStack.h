#pragma once

/// Leaves bytes on the stack that no object there may take for its own.
[[gnu::noinline]] inline void useStack(char left)
{
    char volatile bytes[32768];
    for (char volatile& byte : bytes)
        byte = left;
}
