#pragma once

/// Units of a raw 16-bit text before its first zero unit, looked for among the first 1024 only:
/// a text without a zero there measures 1024, whatever the capacity it is meant for. Does not
/// accept null; reads no unit behind the first zero nor behind the 1024th.
unsigned short qvCharLen(unsigned short const* text);
