#include "support/qvCRC.h"

#include <cstring>

namespace {

constexpr unsigned int polynomial32 = 0x04C11DB7;
constexpr std::uint64_t reflectedPolynomial64 = 0x95AC9329AC4BC9B5; // of 0xAD93D23594C935A9
constexpr std::uint16_t polynomial16 = 0x1021;

constexpr std::array<std::uint64_t, 256> makeTable64()
{
    std::array<std::uint64_t, 256> table{};
    for (std::uint64_t i = 0; i < table.size(); ++i) {
        std::uint64_t entry = i;
        for (int bit = 0; bit < 8; ++bit)
            entry = (entry >> 1) ^ ((entry & 1) != 0 ? reflectedPolynomial64 : 0);
        table[i] = entry;
    }
    return table;
}

constexpr std::array<std::uint16_t, 256> makeTable16()
{
    std::array<std::uint16_t, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        unsigned entry = i << 8;
        for (int bit = 0; bit < 8; ++bit)
            entry = (entry << 1) ^ ((entry & 0x8000) != 0 ? polynomial16 : 0u);
        table[i] = static_cast<std::uint16_t>(entry);
    }
    return table;
}

/// Eight bytes as a number, the first byte lowest. Compiles to one load where bytes lie so.
std::uint64_t loadLittleEndian(unsigned char const* data)
{
    std::uint64_t value = 0;
    for (unsigned i = 0; i < 8; ++i)
        value |= std::uint64_t{data[i]} << (8 * i);
    return value;
}

/// Eight bytes as a number, the first byte highest.
std::uint64_t loadBigEndian(unsigned char const* data)
{
    std::uint64_t value = 0;
    for (unsigned i = 0; i < 8; ++i)
        value = (value << 8) | data[i];
    return value;
}

/// One byte of a reflected CRC.
template <typename State>
State stepReflected(State state, unsigned char byte, State const* table)
{
    return (state >> 8) ^ table[(state ^ byte) & 0xFF];
}

/// A block of a reflected CRC, one look-up per byte. Eight data bytes at a time join a 64-bit
/// state ahead of their look-ups, which takes the XOR with the data out of the chain of steps.
template <typename State>
State advanceReflected(State state, unsigned char const* data, unsigned long length,
                       State const* table)
{
    for (; length >= 8; data += 8, length -= 8) {
        std::uint64_t window = state ^ loadLittleEndian(data);
        for (int i = 0; i < 8; ++i)
            window = (window >> 8) ^ table[window & 0xFF];
        state = static_cast<State>(window);
    }
    for (; length != 0; ++data, --length)
        state = stepReflected(state, *data, table);
    return state;
}

} // namespace

unsigned int qvCRCulTable[256];
bool qvCRCulTableInitialized = false;
constexpr std::array<std::uint64_t, 256> crctab64 = makeTable64();
constexpr std::array<std::uint16_t, 256> crc16tab = makeTable16();

unsigned int qvCRCReflect(unsigned int value, char bits)
{
    int const count = static_cast<signed char>(bits);
    unsigned int mirrored = 0;
    for (int i = 0; i < count && i < 32; ++i)
        if ((value >> i & 1u) != 0)
            mirrored |= 1u << ((count - 1 - i) % 32);
    return mirrored;
}

void qvCRCInitialize()
{
    // The table is linear: entry a ^ b is the XOR of entries a and b. So the entries of the
    // single bits, each one shift of the one before, give all others.
    std::memset(qvCRCulTable, 0, sizeof qvCRCulTable);
    unsigned int const reflectedPolynomial = qvCRCReflect(polynomial32, 32);
    unsigned int entry = 1;
    for (unsigned bit = 128; bit != 0; bit >>= 1) {
        entry = (entry >> 1) ^ ((entry & 1) != 0 ? reflectedPolynomial : 0);
        for (unsigned i = 0; i < 256; i += 2 * bit)
            qvCRCulTable[bit + i] = entry ^ qvCRCulTable[i];
    }
    qvCRCulTableInitialized = true;
}

void qvCRCPartial(unsigned int* crc, unsigned char const* data, unsigned int length)
{
    for (unsigned int i = 0; i < length; ++i)
        *crc = stepReflected<unsigned int>(*crc, data[i], qvCRCulTable);
}

unsigned int qvCRCCalc(unsigned char const* data, unsigned int const& length)
{
    if (!qvCRCulTableInitialized)
        qvCRCInitialize();
    if (length == 0)
        return 0;
    return ~advanceReflected(0xFFFFFFFFu, data, length, qvCRCulTable);
}

std::uint64_t qvCRCCalc64(void const* data, unsigned long length)
{
    return advanceReflected(std::uint64_t{0}, static_cast<unsigned char const*>(data), length,
                            crctab64.data());
}

std::uint16_t qvCRCCalc16(unsigned char const* data, unsigned long length)
{
    // As advanceReflected, mirrored: the state stands at the top of the window.
    std::uint64_t state = 0;
    for (; length >= 8; data += 8, length -= 8) {
        std::uint64_t window = (state << 48) ^ loadBigEndian(data);
        for (int i = 0; i < 8; ++i)
            window = (window << 8) ^ (std::uint64_t{crc16tab[window >> 56]} << 48);
        state = window >> 48;
    }
    for (; length != 0; ++data, --length)
        state = (state << 8 & 0xFFFF) ^ crc16tab[state >> 8 ^ *data];
    return static_cast<std::uint16_t>(state);
}

unsigned char qvCRCCalc8(unsigned char const* data, unsigned long length, bool everySecondByte)
{
    unsigned long const stride = everySecondByte ? 2 : 1;
    unsigned char sum = 0;
    for (unsigned long i = 0; i < length; ++i)
        sum ^= data[i * stride];
    return sum;
}
