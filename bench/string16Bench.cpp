/// The 16-bit strings beside std::u16string, std::u16string_view and plain loops. Operations carry
/// a 16 in their names; texts are those of the 8-bit benchmarks.

#include "bench/measure.h"
#include "bench/peers.h"
#include "bench/texts.h"
#include "qv/strings/qvString.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <type_traits>
#include <vector>

namespace {

/// The units of a text as our strings take them, zero-terminated.
std::vector<unsigned short> units(std::string const& text)
{
    std::vector<unsigned short> result(text.begin(), text.end());
    result.push_back(0);
    return result;
}

template <int N>
_qvString<N> fixedOf(std::string const& text)
{
    return _qvString<N>(text.c_str());
}

template <int N>
void makeAndFill(std::string const& at, std::string const& text)
{
    using String = _qvString<N>;
    // A raw text is measured at most 1024 units long, whatever the capacity.
    std::string const raw = text.substr(0, 1024);
    measure("construct16/" + at + "ours", [from = units(raw)] { return String(from.data()); });
    measure("construct16/" + at + "std::u16string",
            [from = wide(raw)] { return std::u16string(from.c_str()); });
    measure("assign16/" + at + "ours", [from = units(raw), s = String()]() mutable {
        s = from.data();
        return &s;
    });
    measure("assign16/" + at + "std::u16string",
            [from = wide(raw), s = std::u16string()]() mutable {
                s = from.c_str();
                return &s;
            });

    std::string const shorter = raw.substr(0, raw.size() - 2);
    measure("append16/" + at + "ours", [from = units(shorter), s = String()]() mutable {
        s.setLength(0);
        s += from.data();
        s += static_cast<unsigned short>('/');
        s += static_cast<unsigned short>('1');
        return &s;
    });
    measure("append16/" + at + "std::u16string",
            [from = wide(shorter), s = std::u16string()]() mutable {
                s.clear();
                s += from.c_str();
                s += u'/';
                s += u'1';
                return &s;
            });
    measure("copy16/" + at + "ours", [s = fixedOf<N>(text)] { return String(s); });
    measure("copy16/" + at + "std::u16string", [s = wide(text)] { return std::u16string(s); });
}

/// The least that the largest strings have to do: the C library's own pass over as many bytes.
template <int N>
void passesOverWholeObject(std::string const& at)
{
    std::string const image(sizeof(_qvString<N>), '\0');
    measure("construct16/" + at + "memset", [image = image]() mutable {
        std::memset(image.data(), 0, image.size());
        return image.data();
    });
    measure("copy16/" + at + "memcpy", [image, other = image]() mutable {
        std::memcpy(other.data(), image.data(), image.size());
        return other.data();
    });
}

template <int N>
void compare(std::string const& at, std::string const& text)
{
    _qvString<N> const s = fixedOf<N>(text);
    std::u16string const peer = wide(text);
    measure("equal16/" + at + "ours", [s, other = s] { return s == other; });
    measure("equal16/" + at + "u16string_view", [peer, other = peer] {
        return std::u16string_view(peer) == std::u16string_view(other);
    });
    measure("less16/" + at + "ours", [s, other = s] { return s < other; });
    measure("less16/" + at + "u16string_view", [peer, other = peer] {
        return std::u16string_view(peer) < std::u16string_view(other);
    });

    std::string const upper = upperCase(text);
    measure("equalFolded16/" + at + "ours",
            [s, other = fixedOf<N>(upper)] { return s.isEqual(other); });
    measure("equalFolded16/" + at + "plainLoop", [peer, other = wide(upper)] {
        return peer.size() == other.size() &&
               std::equal(peer.begin(), peer.end(), other.begin(), equalIgnoringCase<char16_t>);
    });
}

template <int N>
void search(std::string const& at, std::string const& text, std::string const& pattern)
{
    _qvString<N> const s = fixedOf<N>(text);
    std::u16string const peer = wide(text);
    measure("find16/" + at + "ours",
            [s, p = fixedOf<N>(pattern)] { return s.indexOfCaseSen(p, 0); });
    measure("find16/" + at + "u16string_view", [peer, p = wide(pattern)] {
        return std::u16string_view(peer).find(std::u16string_view(p));
    });

    std::string const upper = upperCase(pattern);
    measure("findFolded16/" + at + "ours", [s, p = fixedOf<N>(upper)] { return s.indexOf(p, 0); });
    measure("findFolded16/" + at + "plainLoop", [peer, p = wide(upper)] {
        return std::search(peer.begin(), peer.end(), p.begin(), p.end(),
                           equalIgnoringCase<char16_t>) -
               peer.begin();
    });
}

template <int N>
void edit(std::string const& size)
{
    using String = _qvString<N>;
    std::string const text = commonText(N);
    measure("replace16/shorter/" + size + "ours",
            [source = fixedOf<N>(text), s = String(), from = String("the"),
             to = String("a")]() mutable {
                s = source;
                return &s.replaceCaseSen(from, to);
            });
    measure(
        "replace16/shorter/" + size + "std::u16string",
        [source = wide(text), s = std::u16string(), from = wide("the"), to = wide("a")]() mutable {
            s = source;
            replaceEvery(s, from, to);
            return &s;
        });

    std::string const blanks = " \t" + commonText(N - 4) + "\r\n";
    measure("trim16/blanks/" + size + "ours",
            [source = fixedOf<N>(blanks), s = String()]() mutable {
                s = source;
                s.trim();
                return &s;
            });
    measure("trim16/blanks/" + size + "std::u16string",
            [source = wide(blanks), s = std::u16string()]() mutable {
                s = source;
                trimEnds(s, u"\t\n\r ");
                return &s;
            });
}

/// A plain loop, with its bounds known before it starts.
template <typename From, typename To>
void convertEach(From const* from, std::size_t count, To* to)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = static_cast<To>(static_cast<std::make_unsigned_t<From>>(from[i]));
}

/// Bytes to units and back.
template <int N>
void convert(std::string const& size)
{
    using String = _qvString<N>;
    std::string const text = commonText(N);
    measure("widen16/common/" + size + "ours", [text, s = String()]() mutable {
        s = text.c_str();
        return &s;
    });
    measure("widen16/common/" + size + "plainLoop", [text, to = units(text)]() mutable {
        convertEach(text.c_str(), std::strlen(text.c_str()), to.data());
        return to.data();
    });
    measure("narrow16/common/" + size + "ours", [s = String(text.c_str()), to = text]() mutable {
        s.toChar(to.data(), static_cast<unsigned short>(to.size() + 1));
        return to.data();
    });
    measure("narrow16/common/" + size + "plainLoop", [from = units(text), to = text]() mutable {
        convertEach(from.data(), to.size(), to.data());
        return to.data();
    });
}

template <int N>
void numbers(std::string const& size)
{
    measure("numberToText16/decimal/" + size + "ours",
            [value = -314159, s = _qvString<N>()]() mutable {
                s.setLength(0);
                s.addNr(value);
                return &s;
            });
    measure("numberToText16/decimal/" + size + "snprintf",
            [value = -314159, s = units(std::string(N, '\0'))]() mutable {
                char buffer[24];
                int const length = std::snprintf(buffer, sizeof buffer, "%d", value);
                std::copy_n(buffer, length, s.begin());
                return s.data();
            });
}

template <int N>
void atCapacity()
{
    std::string const size = std::to_string(N) + "/";
    std::string const full = commonText(N);
    makeAndFill<N>("word/" + size, "abort");
    makeAndFill<N>("line/" + size, "ReserveCPUInteractive");
    makeAndFill<N>("full/" + size, full);
    if (N == 2500)
        for (char const* text : {"word/", "line/", "full/"})
            passesOverWholeObject<N>(text + size);
    compare<N>("full/" + size, full);
    for (Sample const& sample : samples) {
        std::string const name = sample.name;
        search<N>(name + "/late/" + size, lateText(sample, N), sample.late);
        search<N>(name + "/absent/" + size, sample.text(N), sample.absent);
    }
    edit<N>(size);
    convert<N>(size);
    numbers<N>(size);
}

[[maybe_unused]] bool const registered =
    (atCapacity<25>(), atCapacity<250>(), atCapacity<2500>(), true);

} // namespace
