#pragma once

#include <climits>
#include <cstddef>
#include <cstdint>
#include <string>

namespace qvTest {

// Reads a block of bytes, as a fuzzer or a seeded generator makes them, as a series of choices. The
// choices lean towards the values at which fixed-capacity strings break: the length, the capacity,
// the 16-bit limit, the ends of int. Knows nothing of any string class, so every driver shares it.
class ByteReader
{
public:
    ByteReader(unsigned char const* data, std::size_t size) : next(data), end(data + size) {}

    bool atEnd() const { return next == end; }

    // Behind the end all bytes are zero, so a cut input still reads as complete calls.
    unsigned char byte() { return atEnd() ? static_cast<unsigned char>(0) : *next++; }

    bool flag() { return (byte() & 1) != 0; }

    std::size_t below(std::size_t bound) { return byte() % bound; }

    std::uint32_t word()
    {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i)
            value = value << 8 | byte();
        return value;
    }

    // An int for a position, a count or a width, close to one of the limits that matter.
    int number(int length, int capacity)
    {
        unsigned char const choice = byte();
        int const low = choice & 15;
        int const around = low - 8;
        switch (choice >> 4) {
        case 2:
            return length + around;
        case 3:
            return capacity + around;
        case 4:
            return -low;
        case 5:
            return length * low / 16;
        case 6:
            return capacity * low / 16;
        case 7:
            return 65536 + around;
        case 8:
            return INT_MAX - low;
        case 9:
            return INT_MIN + low;
        case 10:
            return -length + around;
        case 11:
            return -65536 + around;
        case 12:
            return static_cast<int>(word());
        case 13:
            return low * 16;
        case 14:
            return length / 2 + around;
        default:
            return low;
        }
    }

    long long wideNumber()
    {
        unsigned char const choice = byte();
        int const low = choice & 15;
        switch (choice >> 4) {
        case 0:
            return low;
        case 1:
            return -low;
        case 2:
            return LLONG_MAX - low;
        case 3:
            return LLONG_MIN + low;
        case 4:
            return INT_MAX + static_cast<long long>(low) - 8;
        case 5:
            return INT_MIN + static_cast<long long>(low) - 8;
        case 6:
            return 128 + low - 8;
        case 7:
            return 32768 + low - 8;
        case 8:
            return -static_cast<long long>(word());
        case 9:
            return static_cast<long long>(static_cast<std::uint64_t>(word()) << 32 | word());
        default:
            return word() >> (2 * low);
        }
    }

    // A character, mostly from the few that the texts below are made of.
    char character()
    {
        static constexpr char common[] = "aAbBxX /0-9fF\t\xE4\xC4";
        unsigned char const choice = byte();
        return choice < 200 ? common[choice % (sizeof common - 1)] : static_cast<char>(byte());
    }

    // A text for a string of the given capacity. Short texts are taken byte by byte from the input,
    // so a fuzzer can shape them; long ones grow from a few bytes.
    std::string text(std::size_t capacity, bool withZeros)
    {
        unsigned char const choice = byte();
        std::size_t const length = textLength(choice >> 3, capacity);
        char const* const alphabet = alphabetOf(choice & 7);
        std::string made;
        made.reserve(length);
        while (made.size() < length && made.size() < shapedCharacters)
            made += letter(alphabet, byte(), withZeros);
        std::uint32_t state = length > shapedCharacters ? 2u * byte() + 1u : 0u;
        while (made.size() < length && made.size() < grownCharacters) {
            state = state * 1664525u + 1013904223u;
            made += letter(alphabet, static_cast<unsigned char>(state >> 24), withZeros);
        }
        for (std::size_t i = 0; made.size() < length; ++i)
            made += made[i];
        return made;
    }

private:
    static constexpr std::size_t shapedCharacters = 16;
    static constexpr std::size_t grownCharacters = 6000;

    std::size_t textLength(int choice, std::size_t capacity)
    {
        switch (choice) {
        case 16:
            return capacity - 1;
        case 17:
            return capacity;
        case 18:
            return capacity + 1;
        case 19:
            return capacity * 2;
        case 20:
            return capacity / 2;
        case 21:
            return capacity / 4;
        case 22:
            return capacity - 2;
        case 23:
            return 16u + byte();
        case 24: {
            // Lengths count modulo 65536; such texts are long to make, so they are rare.
            unsigned char const rare = byte();
            return rare < 16 ? 65531u + rare : 2u;
        }
        case 25:
            return 1;
        case 26:
            return 2;
        case 27:
            return 3;
        default:
            return static_cast<std::size_t>(choice & 15);
        }
    }

    static char const* alphabetOf(int choice)
    {
        static constexpr char const* alphabets[] = {"ab",
                                                    "aAbB",
                                                    "abcxyz/.-_ABCXYZ",
                                                    "0123456789-",
                                                    "0123456789abcdefABCDEF",
                                                    " \t\r\n\v\fab",
                                                    "\xE4\xC4za",
                                                    nullptr};
        return alphabets[choice];
    }

    static char letter(char const* alphabet, unsigned char choice, bool withZeros)
    {
        if (withZeros && choice >= 250)
            return '\0';
        if (alphabet == nullptr)
            return choice == 0 ? 'n' : static_cast<char>(choice);
        return alphabet[choice % std::char_traits<char>::length(alphabet)];
    }

    unsigned char const* next;
    unsigned char const* end;
};

} // namespace qvTest
