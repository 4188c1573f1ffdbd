/// Numbers to text and back, beside the C library and <charconv>. The numbers take turns, lest
/// one's digits be learned by heart.

#include "bench/measure.h"
#include "bench/widths.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr std::array<int, 8> numbers = {7, -42, 1204, 90125, -314159, 2147483647, 65536, -1};
constexpr std::array<char const*, numbers.size()> decimals = {
    "7", "-42", "1204", "90125", "-314159", "2147483647", "65536", "-1"};
constexpr std::array<long long, 8> wideNumbers = {
    7, -42, 12040005, 901259012590125, -314159265358979, 9223372036854775807, 4294967296, -1};
constexpr std::array<char const*, numbers.size()> wideDecimals = {
    "7",          "-42", "12040005", "901259012590125", "-314159265358979", "9223372036854775807",
    "4294967296", "-1"};
constexpr std::array<char const*, numbers.size()> hexDigits = {
    "00000007", "FFFFFFD6", "000004B4", "0001600D", "FFFB34D1", "7FFFFFFF", "00010000", "FFFFFFFF"};

/// The elements of `list` in turn, without end.
template <typename Element>
class Turns
{
public:
    explicit Turns(std::array<Element, numbers.size()> const& list) : list_(list) {}
    Element const& next() { return list_[++at_ % numbers.size()]; }

private:
    std::array<Element, numbers.size()> list_;
    unsigned at_ = 0;
};

/// The given texts as strings of one type.
template <typename String>
Turns<String> texts(std::array<char const*, numbers.size()> const& literals)
{
    std::array<String, numbers.size()> list;
    for (std::size_t i = 0; i < list.size(); ++i)
        list[i] = literals[i];
    return Turns(list);
}

template <int N>
void toText(std::string const& size)
{
    using String = _qvString8_allSize<N>;
    using Buffer = std::array<char, static_cast<std::size_t>(N) + 1>;
    measure("numberToText/decimal/" + size + "ours",
            [turns = Turns(numbers), s = String()]() mutable {
                s.setLength(0);
                s.addNr(turns.next());
                return &s;
            });
    measure("numberToText/decimal/" + size + "snprintf",
            [turns = Turns(numbers), buffer = Buffer()]() mutable {
                return std::snprintf(buffer.data(), buffer.size(), "%d", turns.next());
            });
    measure("numberToText/decimal/" + size + "to_chars",
            [turns = Turns(numbers), buffer = Buffer()]() mutable {
                char* const begin = buffer.data();
                return std::to_chars(begin, begin + buffer.size(), turns.next()).ptr;
            });
    measure("numberToText/hex/" + size + "ours", [turns = Turns(numbers), s = String()]() mutable {
        s.setLength(0);
        s.addHexCode(turns.next());
        return &s;
    });
    measure("numberToText/hex/" + size + "snprintf",
            [turns = Turns(numbers), buffer = Buffer()]() mutable {
                return std::snprintf(buffer.data(), buffer.size(), "%08X",
                                     static_cast<unsigned>(turns.next()));
            });
}

template <int N>
void toNumber(std::string const& size)
{
    using String = _qvString8_allSize<N>;
    measure("textToNumber/decimal/" + size + "ours", [turns = texts<String>(decimals)]() mutable {
        bool ok = false;
        int const value = turns.next().toInt(&ok);
        return ok ? value : 0;
    });
    measure("textToNumber/decimal/" + size + "atoi",
            [turns = texts<std::string>(decimals)]() mutable {
                return std::atoi(turns.next().c_str());
            });
    measure("textToNumber/decimal/" + size + "from_chars",
            [turns = texts<std::string>(decimals)]() mutable {
                std::string const& text = turns.next();
                int value = 0;
                std::from_chars(text.data(), text.data() + text.size(), value);
                return value;
            });
    measure("textToNumber/hex/" + size + "ours",
            [turns = texts<String>(hexDigits), s = String()]() mutable {
                bool ok = false;
                s = turns.next().asChar(); // not const, so the turn's text is copied
                return s.toIntFromHex(32, false, false, &ok);
            });
    measure("textToNumber/hex/" + size + "strtoll",
            [turns = texts<std::string>(hexDigits), s = std::string()]() mutable {
                s = turns.next().c_str();
                return std::strtoll(s.c_str(), nullptr, 16);
            });
}

/// What both widths have beside the plain decimal number of an int. The 16-bit strings' peers write
/// bytes, which is as much as the C library has.
template <typename Width, int N>
void inBothWidths()
{
    using String = typename Width::template String<N>;
    auto const print = [](std::string const& what, auto format) {
        measure(named<Width, N>("numberToText", what, "snprintf"),
                [format, turns = Turns(wideNumbers), buffer = std::array<char, 32>()]() mutable {
                    return format(buffer.data(), buffer.size(), turns.next());
                });
    };
    auto const add = [](std::string const& what, auto member) {
        measure(named<Width, N>("numberToText", what, "ours"),
                [member, turns = Turns(wideNumbers), s = String()]() mutable {
                    s.setLength(0);
                    member(s, turns.next());
                    return &s;
                });
    };
    add("wide", [](String& s, long long number) { s.addNr(number); });
    print("wide", [](char* to, std::size_t size, long long number) {
        return std::snprintf(to, size, "%lld", number);
    });
    add("padded",
        [](String& s, long long number) { s.addNr(number, static_cast<unsigned char>(20)); });
    print("padded", [](char* to, std::size_t size, long long number) {
        return std::snprintf(to, size, "%020lld", number);
    });
    add("field",
        [](String& s, long long number) { s.addNrSpacing(number, static_cast<signed char>(-20)); });
    print("field", [](char* to, std::size_t size, long long number) {
        return std::snprintf(to, size, "%20lld", number);
    });

    measure(named<Width, N>("numberToNewText", "wide", "ours"),
            [turns = Turns(wideNumbers)]() mutable { return String::fromNr(turns.next()); });
    measure(named<Width, N>("numberToNewText", "wide", "to_string"),
            [turns = Turns(wideNumbers)]() mutable { return std::to_string(turns.next()); });
}

template <int N>
void wideNumber8()
{
    using String = _qvString8_allSize<N>;
    measure(named<Width8, N>("textToNumber", "wide", "ours"),
            [turns = texts<String>(wideDecimals)]() mutable {
                bool ok = false;
                long long const value = turns.next().toInt64(&ok);
                return ok ? value : 0;
            });
    measure(named<Width8, N>("textToNumber", "wide", "atoll"),
            [turns = texts<std::string>(wideDecimals)]() mutable {
                return std::atoll(turns.next().c_str());
            });
}

template <int N>
void number16()
{
    measure(named<Width16, N>("textToNumber", "decimal", "ours"),
            [turns = texts<_qvString<N>>(decimals)]() mutable {
                bool ok = false;
                int const value = turns.next().toInt(&ok);
                return ok ? value : 0;
            });
    // Nothing reads a number from 16-bit units: they become bytes first.
    measure(named<Width16, N>("textToNumber", "decimal", "atoi"),
            [turns = texts<_qvString<N>>(decimals)]() mutable {
                _qvString<N> const& text = turns.next();
                return std::atoi(std::string(text.text, text.text + text.length).c_str());
            });
}

template <typename Width, int N>
void atCapacity()
{
    inBothWidths<Width, N>();
    if constexpr (std::is_same_v<Width, Width16>) {
        number16<N>();
    } else {
        std::string const size = std::to_string(N) + "/";
        toText<N>(size);
        toNumber<N>(size);
        wideNumber8<N>();
    }
}

[[maybe_unused]] bool const registered =
    forBothWidths([]<typename Width, int N> { atCapacity<Width, N>(); });

} // namespace
