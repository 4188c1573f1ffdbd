#include "qv/strings/core/contract.h"

#include <cstdio>
#include <cstdlib>

void qvStrings::contractBroken(char const* member, std::initializer_list<long long> arguments,
                               unsigned length, unsigned capacity)
{
    std::fprintf(stderr, "qv: outside the contract: %s(", member);
    char const* separator = "";
    for (long long const argument : arguments) {
        std::fprintf(stderr, "%s%lld", separator, argument);
        separator = ", ";
    }
    std::fprintf(stderr, ") at length %u, capacity %u\n", length, capacity);
    std::abort();
}
