/// Comparisons of the strings of either width, whole and at their ends: those that read everything,
/// with texts that differ nowhere or in case alone.

#include "bench/measure.h"
#include "bench/widths.h"

#include <cstring>
#include <string_view>

namespace {

template <typename Width, int N>
void compareExact()
{
    using String = typename Width::template String<N>;
    String const s(commonText(N).c_str());
    auto const peer = Width::peer(commonText(N));
    measure(named<Width, N>("equalCounted", "full", "ours"),
            [s, other = s] { return s.isEqualSameCase(other.text, N); });
    measure(named<Width, N>("equalCounted", "full", "memcmp"), [peer, other = peer] {
        return std::memcmp(peer.data(), other.data(), sizeof peer[0] * N) == 0;
    });
    measure(named<Width, N>("compareExact", "full", "ours"),
            [s, other = s] { return s.compareSameCase(other); });
    measure(named<Width, N>("compareExact", "full", Width::peerName),
            [peer, other = peer] { return peer.compare(other); });
}

template <typename Width, int N>
void compareFolded()
{
    using String = typename Width::template String<N>;
    std::string const text = commonText(N);
    std::string lower = text;
    for (char& c : lower)
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
    String const s(text.c_str());
    String const upper(upperCase(text).c_str());
    auto const peer = Width::peer(text);
    auto const theirs = Width::peer(upperCase(text));

    measure(named<Width, N>("equalFoldedCounted", "full", "ours"),
            [s, upper] { return s.isEqual(upper.text, N); });
    measure(named<Width, N>("equalUpperInput", "full", "ours"),
            [s, upper] { return s.isEqualUpperCaseInput(upper); });
    measure(named<Width, N>("equalLowerInput", "full", "ours"),
            [s, other = String(lower.c_str())] { return s.isEqualLowerCaseInput(other); });
    for (char const* operation : {"equalFoldedCounted", "equalUpperInput", "equalLowerInput"})
        measure(named<Width, N>(operation, "full", Width::foldedComparison),
                [peer, theirs] { return Width::equalFolded(peer, theirs); });
}

/// What the 16-bit strings alone compare with, and the order that they lack elsewhere.
template <int N>
void compareOf16()
{
    using String = _qvString<N>;
    std::string const text = commonText(N);
    std::string const upper = upperCase(text);
    String const s(text.c_str());
    std::u16string const peer = wide(text);
    measure(named<Width16, N>("compareFolded", "full", "ours"),
            [s, other = String(upper.c_str())] { return s.compare(other); });
    measure(named<Width16, N>("compareFolded", "full", "plainLoop"),
            [peer, other = wide(upper)] { return Width16::lessFolded(peer, other); });

    measure(named<Width16, N>("equalText", "bytes", "ours"),
            [s, text] { return s == text.c_str(); });
    measure(named<Width16, N>("equalText", "bytes", "plainLoop"), [peer, text] {
        return peer.size() == std::strlen(text.c_str()) &&
               std::equal(peer.begin(), peer.end(), text.begin(), [](char16_t unit, char byte) {
                   return unit == static_cast<unsigned char>(byte);
               });
    });
    measure(named<Width16, N>("equalText", "units", "ours"),
            [s, other = s] { return s == other.text; });
    measure(named<Width16, N>("equalText", "units", "std::u16string"),
            [peer, other = peer] { return peer == other.c_str(); });

    measure(named<Width16, N>("equalFoldedBytes", "full", "ours"),
            [s, upper] { return s.isEqual(upper.data(), N); });
    measure(named<Width16, N>("equalFoldedBytes", "full", "plainLoop"), [peer, upper] {
        return peer.size() == upper.size() &&
               std::equal(peer.begin(), peer.end(), upper.begin(), [](char16_t unit, char byte) {
                   return equalIgnoringCase(unit, static_cast<char16_t>(byte));
               });
    });
}

/// Both ends of a text. The patterns are as long as the half of it.
template <typename Width, int N>
void ends()
{
    using String = typename Width::template String<N>;
    constexpr std::size_t half = N / 2;
    std::string const text = commonText(N);
    std::string const first = text.substr(0, half);
    std::string const last = upperCase(text.substr(N - half));
    std::string const shouted = upperCase(first);
    String const s(text.c_str());
    auto const peer = Width::peer(text);

    measure(named<Width, N>("startsWith", "string", "ours"),
            [s, p = String(shouted.c_str())] { return s.startsWith(p); });
    measure(named<Width, N>("startsWith", "text", "ours"),
            [s, shouted] { return s.startsWith(shouted.c_str()); });
    measure(named<Width, N>("startsWith", "counted", "ours"),
            [s, shouted] { return s.startsWith(shouted.data(), static_cast<int>(half)); });
    for (char const* what : {"string", "text", "counted"})
        measure(named<Width, N>("startsWith", what, Width::foldedComparison),
                [peer, p = Width::peer(shouted)] { return Width::startsFolded(peer, 0, p); });

    measure(named<Width, N>("startsWithExact", "string", "ours"),
            [s, p = String(first.c_str())] { return s.startsWithCaseSen(p); });
    measure(named<Width, N>("startsWithExact", "text", "ours"),
            [s, first] { return s.startsWithCaseSen(first.c_str()); });
    for (char const* what : {"string", "text"})
        measure(named<Width, N>("startsWithExact", what, Width::peerName),
                [peer, p = Width::peer(first)] { return peer.starts_with(p); });

    measure(named<Width, N>("endsWith", "string", "ours"),
            [s, p = String(last.c_str())] { return s.endsWith(p); });
    measure(named<Width, N>("endsWith", "text", "ours"),
            [s, last] { return s.endsWith(last.c_str()); });
    measure(named<Width, N>("endsWith", "counted", "ours"),
            [s, last] { return s.endsWith(last.data(), static_cast<int>(half)); });
    for (char const* what : {"string", "text", "counted"})
        measure(named<Width, N>("endsWith", what, Width::foldedComparison),
                [peer, p = Width::peer(last)] {
                    return Width::startsFolded(peer, peer.size() - p.size(), p);
                });
}

[[maybe_unused]] bool const registered = forBothWidths([]<typename Width, int N> {
    compareExact<Width, N>();
    compareFolded<Width, N>();
    if constexpr (std::is_same_v<Width, Width16>)
        compareOf16<N>();
    ends<Width, N>();
});

} // namespace
