#include "qv/support/qvCRC.h"

#include <bit>
#include <cstddef>

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

/// Eight bytes as a number, the first byte lowest. Compiles to one load on a little-endian machine.
std::uint64_t loadLittleEndian(unsigned char const* data)
{
    std::uint64_t value = 0;
    for (unsigned i = 0; i < 8; ++i)
        value |= std::uint64_t{data[i]} << (8 * i);
    return value;
}

/// A byte of an entry, 0 the lowest, by a load of its own. The empty instruction hides from the
/// compiler that it is a byte: else the compiler combines it with other bytes first and widens the
/// result afterwards, which costs a step in the chain of look-ups.
template <typename Entry>
std::uint64_t byteOf(Entry const& entry, std::size_t place)
{
    constexpr bool littleEndian = std::endian::native == std::endian::little;
    auto const* const bytes = reinterpret_cast<unsigned char const*>(&entry);
    std::uint64_t byte = bytes[littleEndian ? place : sizeof(Entry) - 1 - place];
    __asm__("" : "+r"(byte));
    return byte;
}

/// The table of a reflected CRC as `advance` reads it: an entry in two pieces.
template <typename State>
struct ReflectedTable
{
    State const* entries;

    std::uint64_t low(std::uint64_t index) const { return byteOf(entries[index], 0); }
    std::uint64_t high(std::uint64_t index) const { return entries[index] >> 8; }
};

/// The table of a 16-bit CRC that takes the most significant bit first, with the bytes of each
/// entry swapped: on a state with swapped bytes it takes the steps of a reflected one.
struct SwappedTable16
{
    std::uint16_t const* entries;

    std::uint64_t low(std::uint64_t index) const { return byteOf(entries[index], 1); }
    std::uint64_t high(std::uint64_t index) const { return byteOf(entries[index], 0); }
};

/// Advances a state over a block, one look-up per byte. The chain from one look-up to the next
/// takes the time, so two steps are kept out of it: eight data bytes at a time join the state ahead
/// of their look-ups, and the next index is formed from the low byte of the entry without waiting
/// for the rest.
template <typename Table>
std::uint64_t advance(std::uint64_t state, unsigned char const* data, unsigned long length,
                      Table table)
{
    std::uint64_t index = state & 0xFF;
    std::uint64_t window = state >> 8; // the state without the byte that is the index
    auto const lookUp = [&] {
        std::uint64_t const next = (window & 0xFF) ^ table.low(index);
        window = (window >> 8) ^ table.high(index);
        index = next;
    };
    for (; length >= 8; data += 8, length -= 8) {
        std::uint64_t const bytes = loadLittleEndian(data);
        index ^= bytes & 0xFF;
        window ^= bytes >> 8;
        for (int i = 0; i < 8; ++i)
            lookUp();
    }
    for (; length != 0; ++data, --length) {
        index ^= *data;
        lookUp();
    }
    return window << 8 | index;
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

namespace {

void storeEntry(unsigned index, unsigned int entry)
{
    __atomic_store_n(&qvCRCulTable[index], entry, __ATOMIC_RELAXED);
}

} // namespace

void qvCRCInitialize()
{
    // The table is linear: entry a ^ b is the XOR of entries a and b. So the entries of the
    // single bits, each one shift of the one before, give all others. An entry is written once,
    // with its final value, because other threads may be building or reading the same table.
    storeEntry(0, 0);
    unsigned int const reflectedPolynomial = qvCRCReflect(polynomial32, 32);
    unsigned int entry = 1;
    for (unsigned bit = 128; bit != 0; bit >>= 1) {
        entry = (entry >> 1) ^ ((entry & 1) != 0 ? reflectedPolynomial : 0);
        for (unsigned i = 0; i < 256; i += 2 * bit)
            storeEntry(bit + i, entry ^ __atomic_load_n(&qvCRCulTable[i], __ATOMIC_RELAXED));
    }
    __atomic_store_n(&qvCRCulTableInitialized, true, __ATOMIC_RELEASE);
}

void qvCRCPartial(unsigned int* crc, unsigned char const* data, unsigned int length)
{
    for (unsigned int i = 0; i < length; ++i)
        *crc = (*crc >> 8) ^ qvCRCulTable[(*crc ^ data[i]) & 0xFF];
}

unsigned int qvCRCCalc(unsigned char const* data, unsigned int const& length)
{
    if (!__atomic_load_n(&qvCRCulTableInitialized, __ATOMIC_ACQUIRE))
        qvCRCInitialize();
    if (length == 0)
        return 0;
    ReflectedTable<unsigned int> const table{qvCRCulTable};
    return ~static_cast<unsigned int>(advance(0xFFFFFFFF, data, length, table));
}

std::uint64_t qvCRCCalc64(void const* data, unsigned long length)
{
    ReflectedTable<std::uint64_t> const table{crctab64.data()};
    return advance(0, static_cast<unsigned char const*>(data), length, table);
}

std::uint16_t qvCRCCalc16(unsigned char const* data, unsigned long length)
{
    std::uint64_t const swapped = advance(0, data, length, SwappedTable16{crc16tab.data()});
    return static_cast<std::uint16_t>(swapped << 8 | swapped >> 8);
}

unsigned char qvCRCCalc8(unsigned char const* data, unsigned long length, bool everySecondByte)
{
    unsigned long const stride = everySecondByte ? 2 : 1;
    unsigned char sum = 0;
    for (unsigned long i = 0; i < length; ++i)
        sum ^= data[i * stride];
    return sum;
}
