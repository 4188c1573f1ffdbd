#include "qv/strings/core/move.h"

#include <cstdint>

namespace qvStrings {

void moveLong(unsigned char* target, unsigned char const* source, std::size_t count)
{
    auto const ahead =
        reinterpret_cast<std::uintptr_t>(target) - reinterpret_cast<std::uintptr_t>(source);
    while (count > stringInstructions && ahead >= count) {
        std::memmove(target, source, stringInstructions);
        target += stringInstructions;
        source += stringInstructions;
        count -= stringInstructions;
    }
    std::memmove(target, source, count);
}

void zeroLong(unsigned char* target, std::size_t count)
{
    constexpr std::size_t alignment = 32;
    std::size_t const head = alignment - reinterpret_cast<std::uintptr_t>(target) % alignment;
    std::memset(target, 0, alignment);
    std::memset(target + head, 0, count - head);
}

} // namespace qvStrings
