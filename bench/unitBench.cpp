/// Operations of both widths on one unit, and on many places at once, beside the C library,
/// std::string and plain loops. The units of a search are nowhere in the text, so that all of it is
/// read.

#include "bench/measure.h"
#include "bench/peers.h"
#include "bench/texts.h"
#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace {

constexpr char absent = '#';
constexpr char absentLetter = 'x';
constexpr char frequent = 'e';

template <int N>
void find8(std::string const& size)
{
    std::string const text = commonText(N);
    _qvString8_allSize<N> const s(text.c_str());
    measure("indexOfUnit/exact/" + size + "ours", [s] { return s.indexOfCaseSen(absent, 0); });
    measure("indexOfUnit/exact/" + size + "memchr",
            [text] { return std::memchr(text.data(), absent, text.size()); });
    measure("indexOfUnit/folded/" + size + "ours", [s] { return s.indexOf(absentLetter, 0); });
    measure("indexOfUnit/folded/" + size + "memchr",
            [text] { return std::memchr(text.data(), absentLetter, text.size()); });
    measure("lastIndexOf/exact/" + size + "ours", [s] { return s.lastIndexOf(absent, N); });
    measure("lastIndexOf/exact/" + size + "memrchr",
            [text] { return memrchr(text.data(), absent, text.size()); });
    measure("count/folded/" + size + "ours", [s] { return s.count(frequent); });
    measure("count/folded/" + size + "std::count",
            [text] { return std::count(text.begin(), text.end(), frequent); });
    measure("count/exact/" + size + "ours", [s] { return s.countCaseSen(frequent); });
    measure("count/exact/" + size + "std::count",
            [text] { return std::count(text.begin(), text.end(), frequent); });
    measure("calcLength/full/" + size + "ours", [s = s]() mutable {
        s.calcLength();
        return &s;
    });
    measure("calcLength/full/" + size + "strnlen",
            [text] { return strnlen(text.c_str(), text.size()); });
    measure("equalText/full/" + size + "ours", [s, text] { return s == text.c_str(); });
    measure("equalText/full/" + size + "strcmp",
            [text, other = text] { return std::strcmp(text.c_str(), other.c_str()) == 0; });
}

template <int N>
void find16(std::string const& size)
{
    std::u16string const text = wide(commonText(N));
    _qvString<N> const s(commonText(N).c_str());
    measure("indexOfUnit16/exact/" + size + "ours", [s] { return s.indexOfCaseSen(absent, 0); });
    measure("indexOfUnit16/exact/" + size + "u16string",
            [text] { return text.find(static_cast<char16_t>(absent)); });
    measure("indexOfUnit16/folded/" + size + "ours", [s] { return s.indexOf(absentLetter, 0); });
    measure("indexOfUnit16/folded/" + size + "u16string",
            [text] { return text.find(static_cast<char16_t>(absentLetter)); });
    measure("lastIndexOf16/exact/" + size + "ours", [s] { return s.lastIndexOf(absent, N); });
    measure("lastIndexOf16/exact/" + size + "u16string",
            [text] { return text.rfind(static_cast<char16_t>(absent)); });
    measure("calcLength16/full/" + size + "ours", [s = s]() mutable {
        s.calcLength();
        return &s;
    });
    measure("calcLength16/full/" + size + "plainLoop", [text] {
        std::size_t length = 0;
        while (length < text.size() && text[length] != 0)
            ++length;
        return length;
    });
    measure("equalFolded16/same/" + size + "ours", [s, other = s] { return s.isEqual(other); });
    measure("equalFolded16/same/" + size + "memcmp", [text, other = text] {
        return std::memcmp(text.data(), other.data(), 2 * text.size()) == 0;
    });
}

/// Every unit equal to `from` in any case becomes `to`, which equals it too: each turn finds all.
template <typename String>
void changeUnits(std::string const& at, String const& s)
{
    measure(at + "ours", [s = s]() mutable {
        s.replace(frequent, 'E');
        return &s;
    });
}

template <typename String>
void changeUnitsOfPeer(std::string const& at, String const& s)
{
    measure(at + "plainLoop", [s = s]() mutable {
        for (auto& unit : s)
            if (equalIgnoringCase<typename String::value_type>(unit, frequent))
                unit = 'E';
        return &s;
    });
}

template <typename String, typename Peer>
void removeUnits(std::string const& at, String const& source, Peer const& peer)
{
    measure(at + "ours", [source, s = String()]() mutable {
        s = source;
        return s.remove(frequent);
    });
    measure(at + "std::erase", [peer, s = Peer()]() mutable {
        s = peer;
        std::erase(s, frequent);
        return Peer(s);
    });
}

template <typename String>
void replaceTexts(std::string const& name, std::string const& size, std::string const& text,
                  char const* from, char const* to)
{
    measure("replaceText" + name + size + "ours", [source = String(text.c_str()), s = String(),
                                                   f = String(from), t = String(to)]() mutable {
        s = source;
        return &s.replaceCaseSen(f, t);
    });
}

template <typename Peer>
void replaceTextsOfPeer(std::string const& name, std::string const& size, Peer const& text,
                        Peer const& from, Peer const& to)
{
    measure("replaceText" + name + size + "onePass", [text, from, to, s = Peer()]() mutable {
        replaceOnePass(s, text, from, to);
        return &s;
    });
}

template <typename String>
void slice(std::string const& name, std::string const& size, String const& s)
{
    measure("left" + name + size + "ours", [s] { return s.left(absent, false); });
    measure("leftNCut" + name + size + "ours", [s, t = s]() mutable {
        t = s;
        return t.leftNCut(absent, false);
    });
}

template <typename Peer>
void sliceOfPeer(std::string const& name, std::string const& size, Peer const& s)
{
    measure("left" + name + size + "substr", [s] { return s.substr(0, s.find(absent)); });
    measure("leftNCut" + name + size + "substr", [s, t = s]() mutable {
        t = s;
        auto const at = t.find(absent);
        Peer result = t.substr(0, at);
        t.erase(0, at + 1);
        return result;
    });
}

struct Replacement
{
    char const* name;
    char const* from;
    char const* to;
};

constexpr Replacement replacements[] = {{"/shorter/", "the", "a"},
                                        {"/equal/", "the", "one"},
                                        {"/longer/", "the", "this"},
                                        {"/removed/", "the", ""}};

/// The longer replacement has to fit.
std::string editedText(int capacity)
{
    return commonText(static_cast<std::size_t>(capacity) * 4 / 5);
}

std::string separatedText(int capacity)
{
    std::string text = commonText(static_cast<std::size_t>(capacity));
    text[text.size() / 2] = absent;
    return text;
}

template <int N>
void edit8(std::string const& size)
{
    std::string const text = commonText(N);
    _qvString8_allSize<N> const s(text.c_str());
    changeUnits("replaceUnit/folded/" + size, s);
    changeUnitsOfPeer("replaceUnit/folded/" + size, text);
    removeUnits("removeUnit/folded/" + size, s, text);
    for (auto const& [name, from, to] : replacements) {
        replaceTexts<_qvString8_allSize<N>>(name, size, editedText(N), from, to);
        replaceTextsOfPeer<std::string>(name, size, editedText(N), from, to);
    }
    slice("/middle/", size, _qvString8_allSize<N>(separatedText(N).c_str()));
    sliceOfPeer("/middle/", size, separatedText(N));
}

template <int N>
void edit16(std::string const& size)
{
    std::string const text = commonText(N);
    _qvString<N> const s(text.c_str());
    changeUnits("replaceUnit16/folded/" + size, s);
    changeUnitsOfPeer("replaceUnit16/folded/" + size, wide(text));
    removeUnits("removeUnit16/folded/" + size, s, wide(text));
    for (auto const& [name, from, to] : replacements) {
        replaceTexts<_qvString<N>>(std::string("16") + name, size, editedText(N), from, to);
        replaceTextsOfPeer<std::u16string>(std::string("16") + name, size, wide(editedText(N)),
                                           wide(from), wide(to));
    }
    slice("16/middle/", size, _qvString<N>(separatedText(N).c_str()));
    sliceOfPeer("16/middle/", size, wide(separatedText(N)));
}

template <int N>
void atCapacity8()
{
    std::string const size = std::to_string(N) + "/";
    find8<N>(size);
    edit8<N>(size);
}

template <int N>
void atCapacity16()
{
    std::string const size = std::to_string(N) + "/";
    find16<N>(size);
    edit16<N>(size);
}

[[maybe_unused]] bool const registered =
    (atCapacity8<25>(), atCapacity8<250>(), atCapacity8<5000>(), atCapacity16<25>(),
     atCapacity16<250>(), atCapacity16<2500>(), true);

} // namespace
