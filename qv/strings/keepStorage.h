#pragma once

/// @file
/// For constructors that keep bytes of their storage.

/// Marks a constructor that leaves some bytes of its storage as they were (spare bytes, text
/// behind the terminator). g++ otherwise takes all storage for dead when a constructor begins
/// and drops the stores that came before it, so the kept bytes would come out undetermined.
/// An attribute and not a compiler flag, because it has to hold in the user's build too.
#if defined(__GNUC__) && !defined(__clang__)
#define QV_KEEPS_STORAGE __attribute__((optimize("no-lifetime-dse")))
#else
#define QV_KEEPS_STORAGE
#endif
