#pragma once

#include "tests/model/guardedPages.h"
#include "tests/model/stringImage.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace qvTest {

// The bytes of a damaged record: from a seed, or from an input, and behind its end from a seed that
// comes from all of it.
class Damage
{
public:
    explicit Damage(std::uint64_t seed) : state(seed * step) {}
    Damage(unsigned char const* data, std::size_t size) : next(data), end(data + size) {}

    bool atEnd() const { return next == end; }

    std::uint64_t number()
    {
        if (!atEnd())
            return taken(sizeof(std::uint64_t));
        std::uint64_t mixed = state += step;
        mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9u;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EBu;
        return mixed ^ mixed >> 31;
    }

    std::size_t below(std::size_t bound)
    {
        bool const isByte = !atEnd() && bound <= 256;
        return static_cast<std::size_t>((isByte ? taken(1) : number()) % bound);
    }

    // An input shapes the first bytes, and the others grow from it: it has to last for a few calls.
    void fill(unsigned char* bytes, std::size_t size)
    {
        Damage grown(number());
        std::uint64_t some = 0;
        for (std::size_t i = 0; i < size; ++i) {
            if (i % sizeof some == 0)
                some = i < shaped ? number() : grown.number();
            bytes[i] = static_cast<unsigned char>(some);
            some >>= 8;
        }
    }

    // A string of random bytes, or of few letters, so that searches find something; its length is
    // anything, unless it has to be sound.
    void fillString(unsigned char* object, StringImage const& image, std::size_t unitSize,
                    bool isSound = false)
    {
        fill(object, image.size);
        if (below(2) == 0)
            for (std::size_t i = 0; i < (image.capacity + 1) * unitSize; ++i) {
                bool const isHigh = unitSize == 2 && i % 2 == 1;
                unsigned char& byte = object[image.textAt + i];
                byte = isHigh ? '\0' : static_cast<unsigned char>("aAbB"[byte % 4]);
            }
        auto const length = static_cast<std::uint16_t>(isSound ? below(image.capacity + 1)
                                                               : anyLength(image.capacity));
        std::memcpy(object + image.lengthAt, &length, sizeof length);
    }

    // The same, in pages of which it leaves none to either side.
    unsigned char* layString(GuardedPages const& pages, StringImage const& image,
                             std::size_t unitSize, bool isSound = false)
    {
        unsigned char* const object = pages.place(image.size, below(2) == 0);
        fillString(object, image, unitSize, isSound);
        return object;
    }

private:
    std::size_t anyLength(std::size_t capacity)
    {
        switch (below(8)) {
        case 0:
            return 0;
        case 1:
            return capacity;
        case 2:
            return capacity + 1;
        case 3:
            return 60000;
        case 4:
            return 65535;
        case 5:
            return below(capacity);
        case 6:
            return capacity + below(300);
        default:
            return number() & 0xFFFF;
        }
    }

    std::uint64_t taken(std::size_t count)
    {
        std::uint64_t made = 0;
        for (std::size_t i = 0; i < count && !atEnd(); ++i)
            made |= std::uint64_t{*next++} << 8 * i;
        state = (state ^ made) * step;
        return made;
    }

    static constexpr std::uint64_t step = 0x9E3779B97F4A7C15u;
    static constexpr std::size_t shaped = 48;

    std::uint64_t state = 0;
    unsigned char const* next = nullptr;
    unsigned char const* end = nullptr;
};

} // namespace qvTest
