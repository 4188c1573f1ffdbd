/// Edits of the 8-bit strings beside std::string and boost::static_string. Each turn begins with
/// a fresh copy of the text, ours and the peers alike.

#include "bench/measure.h"
#include "bench/peers.h"
#include "bench/texts.h"
#include "qv/strings/qvString8.h"

#include <cctype>

namespace {

template <int N>
void replaceOurs(std::string const& at, std::string const& text, char const* from, char const* to)
{
    using String = _qvString8_allSize<N>;
    String const source(text.c_str());
    measure("replace/" + at + "ours",
            [source, s = String(), f = String(from), t = String(to)]() mutable {
                s = source;
                return &s.replaceCaseSen(f, t);
            });
    measure("replaceFolded/" + at + "ours",
            [source, s = String(), f = String(from), t = String(to)]() mutable {
                s = source;
                return &s.replace(f, t);
            });
}

template <typename String>
void replacePeer(std::string const& at, std::string const& who, std::string const& text,
                 char const* from, char const* to)
{
    measure("replace/" + at + who, [source = String(text.c_str()), s = String(), f = String(from),
                                    t = String(to)]() mutable {
        s = source;
        replaceEvery(s, f, t);
        return &s;
    });
}

template <int N>
void replace(std::string const& at, std::string const& text, char const* from, char const* to)
{
    replaceOurs<N>(at, text, from, to);
    replacePeer<std::string>(at, "std::string", text, from, to);
    replacePeer<StaticString<N>>(at, "static_string", text, from, to);
}

template <typename String>
void trimPeer(std::string const& at, std::string const& who, std::string const& text)
{
    measure("trim/" + at + who, [source = String(text.c_str()), s = String()]() mutable {
        s = source;
        trimEnds(s, "\t\n\r ");
        return &s;
    });
}

template <int N>
void trim(std::string const& at, std::string const& text)
{
    using String = _qvString8_allSize<N>;
    measure("trim/" + at + "ours", [source = String(text.c_str()), s = String()]() mutable {
        s = source;
        s.trim();
        return &s;
    });
    trimPeer<std::string>(at, "std::string", text);
    trimPeer<StaticString<N>>(at, "static_string", text);
}

template <int N>
void upper(std::string const& at, std::string const& text)
{
    measure("upper/" + at + "ours", [s = _qvString8_allSize<N>(text.c_str())]() mutable {
        s.makeUpper();
        return &s;
    });
    measure("upper/" + at + "toupper", [text = text]() mutable {
        for (char& c : text)
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        return text.data();
    });
}

template <int N>
void atCapacity()
{
    std::string const size = "/" + std::to_string(N) + "/";
    // One less than the capacity: a replacement that fills it is refused by the peer.
    replace<N>("shorter" + size, commonText(N - 1), "the", "a");
    replace<N>("equal" + size, commonText(N - 1), "the", "one");
    replace<N>("longer" + size, commonText(N * 4 / 5), "the", "this");
    trim<N>("blanks" + size, " \t" + commonText(N - 4) + "\r\n");
    upper<N>("common" + size, commonText(N));
}

[[maybe_unused]] bool const registered =
    (atCapacity<25>(), atCapacity<250>(), atCapacity<5000>(), true);

} // namespace
