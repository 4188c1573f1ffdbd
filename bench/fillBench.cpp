/// What fills a string of either width from each kind of source, and what empties it. Where a turn
/// appends, it begins with an empty string.

#include "bench/measure.h"
#include "bench/widths.h"

#include <cstring>
#include <string_view>

namespace {

/// What both widths take from units of their own.
template <typename Width, int N>
void fromOwnUnits()
{
    using String = typename Width::template String<N>;
    using Peer = typename Width::Peer;
    using View = std::basic_string_view<typename Peer::value_type>;
    std::string const text = commonText(N);
    String const source(text.c_str());
    Peer const peer = Width::peer(text);

    measure(named<Width, N>("constructCounted", "full", "ours"),
            [source] { return String(source.text, N); });
    measure(named<Width, N>("constructCounted", "full", Width::peerName),
            [peer] { return Peer(peer.data(), N); });
    measure(named<Width, N>("constructFromView", "full", "ours"),
            [source] { return String(source.asUni()); });
    measure(named<Width, N>("constructFromView", "full", Width::peerName),
            [peer] { return Peer(View(peer)); });
    measure(named<Width, N>("assignView", "full", "ours"), [source, s = String()]() mutable {
        s = source.asUni();
        return &s;
    });
    measure(named<Width, N>("assignView", "full", Width::peerName), [peer, s = Peer()]() mutable {
        s = View(peer);
        return &s;
    });
    measure(named<Width, N>("assignCopy", "full", "ours"), [source, s = String()]() mutable {
        s = source;
        return &s;
    });
    measure(named<Width, N>("assignCopy", "full", Width::peerName), [peer, s = Peer()]() mutable {
        s = peer;
        return &s;
    });
}

/// A string as it comes from the standard library, in bytes.
template <typename Width, int N>
void fromStandardString()
{
    using String = typename Width::template String<N>;
    std::string const text = commonText(N);
    measure(named<Width, N>("assignString", "full", "ours"), [text, s = String()]() mutable {
        s = text;
        return &s;
    });
    measure(named<Width, N>("assignString", "full", Width::peerName),
            [text, s = typename Width::Peer()]() mutable {
                s.assign(text.begin(), text.end());
                return &s;
            });
}

template <typename Width, int N>
void append()
{
    using String = typename Width::template String<N>;
    using Peer = typename Width::Peer;
    std::string const text = commonText(N);
    String const source(text.c_str());
    Peer const peer = Width::peer(text);

    measure(named<Width, N>("appendString", "full", "ours"), [source, s = String()]() mutable {
        s.setLength(0);
        s.add(source);
        return &s;
    });
    measure(named<Width, N>("appendString", "rereading", "ours"), [source, s = String()]() mutable {
        s.setLength(0);
        s += source;
        return &s;
    });
    for (char const* what : {"full", "rereading"})
        measure(named<Width, N>("appendString", what, Width::peerName),
                [peer, s = Peer()]() mutable {
                    s.clear();
                    s += peer;
                    return &s;
                });
    measure(named<Width, N>("appendCounted", "full", "ours"), [source, s = String()]() mutable {
        s.setLength(0);
        s.add(source.text, N);
        return &s;
    });
    measure(named<Width, N>("appendCounted", "full", Width::peerName),
            [peer, s = Peer()]() mutable {
                s.clear();
                s.append(peer.data(), N);
                return &s;
            });
}

/// New strings of two.
template <typename Width, int N>
void concatenate()
{
    using String = typename Width::template String<N>;
    using Peer = typename Width::Peer;
    std::string const half = commonText(N / 2);
    String const s(half.c_str());
    Peer const peer = Width::peer(half);

    measure(named<Width, N>("concatenate", "strings", "ours"),
            [s, other = s] { return s.combined(other); });
    measure(named<Width, N>("concatenate", "strings", Width::peerName),
            [peer, other = peer] { return peer + other; });
    measure(named<Width, N>("concatenate", "bytes", "ours"),
            [s, half] { return s.combined(half.c_str()); });
    measure(named<Width, N>("concatenate", "bytes", Width::peerName), [peer, half] {
        Peer result = peer;
        result.append(half.c_str(), half.c_str() + std::strlen(half.c_str()));
        return result;
    });
    measure(named<Width, N>("concatenate", "unit", "ours"), [s = s]() mutable { return s + '/'; });
    measure(named<Width, N>("concatenate", "unit", Width::peerName),
            [peer] { return peer + static_cast<typename Peer::value_type>('/'); });
}

/// Repeated units and fields of columns.
template <typename Width, int N>
void pad()
{
    using String = typename Width::template String<N>;
    using Peer = typename Width::Peer;
    constexpr int columns = N * 4 / 5;
    measure(named<Width, N>("repeat", "unit", "ours"),
            [unit = String("-").text[0]]() mutable { return String::createCharString(unit, N); });
    measure(named<Width, N>("repeat", "unit", Width::peerName), [] { return Peer(N, '-'); });

    measure(named<Width, N>("field", "bounded", "ours"), [s = String()]() mutable {
        s.setLength(0);
        s.addSpacingC("waiting", -columns);
        return &s;
    });
    measure(named<Width, N>("field", "unbounded", "ours"),
            [word = String("waiting"), s = String()]() mutable {
                s.setLength(0);
                s.addSpacing(word.text, -columns);
                return &s;
            });
    for (char const* what : {"bounded", "unbounded"})
        measure(named<Width, N>("field", what, Width::peerName),
                [word = Width::peer("waiting"), s = Peer()]() mutable {
                    s.assign(columns - word.size(), ' ');
                    s += word;
                    return &s;
                });
}

template <typename Width, int N>
void empty()
{
    using String = typename Width::template String<N>;
    std::string const text = commonText(N / 2);
    measure(named<Width, N>("clear", "all", "ours"), [s = String()]() mutable {
        s.clear();
        return &s;
    });
    measure(named<Width, N>("clear", "all", "memset"),
            [s = String()]() mutable { return std::memset(s.text, 0, sizeof s.text); });
    measure(named<Width, N>("clearUnused", "half", "ours"), [s = String(text.c_str())]() mutable {
        s.clearUnused();
        return &s;
    });
    measure(named<Width, N>("clearUnused", "half", "memset"), [s = String(text.c_str())]() mutable {
        return std::memset(s.text + s.length, 0, sizeof s.text - s.length * sizeof *s.text);
    });
}

/// Bytes of 16-bit units, which the 8-bit strings take.
template <int N>
void narrowed()
{
    using String = _qvString8_allSize<N>;
    std::string const text = commonText(N);
    // The measured part of a raw text of units is shorter than the greatest capacity.
    std::string const raw = text.substr(0, 1000);
    measure(named<Width8, N>("constructFromUnits", "full", "ours"),
            [from = _qvString<1000>(raw.c_str())] { return String(from.text); });
    measure(named<Width8, N>("constructFromUnits", "full", "std::string"),
            [from = wide(raw)] { return std::string(from.begin(), from.end()); });
    measure(named<Width8, N>("assignCounted", "full", "ours"), [text, s = String()]() mutable {
        s.fromChar(text.data(), static_cast<int>(text.size()));
        return &s;
    });
    measure(named<Width8, N>("assignCounted", "full", "std::string"),
            [text, s = std::string()]() mutable {
                s.assign(text.data(), text.size());
                return &s;
            });
}

/// Bytes, which the 16-bit strings take, and what they give as bytes.
template <int N>
void widened()
{
    using String = _qvString<N>;
    std::string const text = commonText(N);
    measure(named<Width16, N>("constructFromBytes", "full", "ours"),
            [text] { return String(text.c_str()); });
    measure(named<Width16, N>("constructFromBytes", "counted", "ours"),
            [text] { return String(text.data(), N); });
    for (char const* what : {"full", "counted"})
        measure(named<Width16, N>("constructFromBytes", what, "std::u16string"),
                [text] { return std::u16string(text.begin(), text.end()); });

    measure(named<Width16, N>("appendBytes", "full", "ours"), [text, s = String()]() mutable {
        s.setLength(0);
        s.add(text.c_str());
        return &s;
    });
    measure(named<Width16, N>("appendBytes", "full", "std::u16string"),
            [text, s = std::u16string()]() mutable {
                s.clear();
                s.append(text.c_str(), text.c_str() + std::strlen(text.c_str()));
                return &s;
            });

    String const s(text.c_str());
    measure(named<Width16, N>("narrowToString", "250", "ours"),
            [s] { return s.to_qvString8_250(); });
    measure(named<Width16, N>("narrowToString", "500", "ours"),
            [s] { return s.to_qvString8_500(); });
    for (char const* what : {"250", "500"})
        measure(named<Width16, N>("narrowToString", what, "std::string"),
                [units = wide(text).substr(0, static_cast<std::size_t>(std::stoi(what) - 1))] {
                    return std::string(units.begin(), units.end());
                });
}

[[maybe_unused]] bool const registered = forBothWidths([]<typename Width, int N> {
    fromOwnUnits<Width, N>();
    fromStandardString<Width, N>();
    append<Width, N>();
    concatenate<Width, N>();
    pad<Width, N>();
    empty<Width, N>();
    if constexpr (std::is_same_v<Width, Width8>)
        narrowed<N>();
    else
        widened<N>();
});

} // namespace
