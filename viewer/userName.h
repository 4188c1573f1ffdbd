#pragma once

#include <sys/types.h>

/// A user's name, printable characters only.
struct UserName
{
    char text[33] = ""; ///< Empty for a user who is in no list of this machine.
};

/// The name of `uid` in /etc/passwd. Directories on the network are not asked: a viewer that is
/// linked statically cannot load what asks them.
UserName userName(uid_t uid);
