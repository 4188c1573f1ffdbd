/// Whether and how often something is in a text of either width, and which of several comes first.
/// A pattern is at the very end, so all of the text is read; for the search itself see the rows
/// `find` and `findFolded`.

#include "bench/measure.h"
#include "bench/widths.h"

#include <array>

namespace {

constexpr Sample const& sample = samples[0];

template <typename Width, int N>
void contain()
{
    using String = typename Width::template String<N>;
    std::string const text = lateText(sample, N);
    std::string const pattern = sample.late;
    std::string const upper = upperCase(pattern);
    String const s(text.c_str());
    String const p(pattern.c_str());
    auto const peer = Width::peer(text);

    measure(named<Width, N>("contains", "string", "ours"),
            [s, q = String(upper.c_str())] { return s.contains(q); });
    measure(named<Width, N>("contains", "text", "ours"),
            [s, upper] { return s.contains(upper.c_str()); });
    measure(named<Width, N>("containsUpperInput", "string", "ours"),
            [s, q = String(upper.c_str())] { return s.containsUpperCaseInput(q); });
    measure(named<Width, N>("containsUpperInput", "text", "ours"),
            [s, upper] { return s.containsUpperCaseInput(upper.c_str()); });
    for (char const* operation : {"contains", "containsUpperInput"})
        for (char const* what : {"string", "text"})
            measure(named<Width, N>(operation, what, Width::foldedSearch),
                    [peer, q = Width::peer(upper)] {
                        return Width::findFolded(peer, q, 0) != peer.npos;
                    });

    measure(named<Width, N>("containsExact", "string", "ours"),
            [s, p] { return s.containsCaseSen(p); });
    measure(named<Width, N>("containsExact", "text", "ours"),
            [s, pattern] { return s.containsCaseSen(pattern.c_str()); });
    measure(named<Width, N>("containsExact", "counted", "ours"), [s, pattern] {
        return s.containsCaseSen(pattern.data(), static_cast<int>(pattern.size()));
    });
    for (char const* what : {"string", "text", "counted"})
        measure(named<Width, N>("containsExact", what, Width::peerName),
                [peer, q = Width::peer(pattern)] { return peer.find(q) != peer.npos; });
}

/// The first of several patterns that is found. Only the last one is.
template <typename Width, int N>
void firstOf()
{
    using String = typename Width::template String<N>;
    std::string const text = lateText(sample, N);
    std::array<char const*, 6> const patterns = {"zoom",   "pixel",  "vertex",
                                                 "jitter", "kernel", sample.late};
    std::array<String, 6> strings;
    std::array<typename Width::Peer, 6> peers;
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        strings[i] = patterns[i];
        peers[i] = Width::peer(patterns[i]);
    }
    String const s(text.c_str());
    measure(named<Width, N>("findFirst", "two", "ours"), [s, strings] {
        int which = 0;
        return s.indexOfFirstOcc(strings[0], strings[5], &which) + which;
    });
    measure(named<Width, N>("findFirst", "six", "ours"), [s, strings] {
        int which = 0;
        return s.indexOfFirstOcc(strings[0], strings[1], strings[2], strings[3], strings[4],
                                 strings[5], &which) +
               which;
    });
    for (unsigned const step : {5u, 1u})
        measure(named<Width, N>("findFirst", step == 5 ? "two" : "six", Width::foldedSearch),
                [peer = Width::peer(text), peers, step] {
                    std::size_t found = peer.npos;
                    for (std::size_t i = 0; i < peers.size() && found == peer.npos; i += step)
                        found = Width::findFolded(peer, peers[i], 0);
                    return found;
                });
}

/// The 8-bit rows are among those of single units.
template <int N>
void count16()
{
    std::string const text = commonText(N);
    _qvString<N> const s(text.c_str());
    measure(named<Width16, N>("count", "folded", "ours"), [s] { return s.count('e'); });
    measure(named<Width16, N>("count", "exact", "ours"), [s] { return s.countCaseSen('e'); });
    for (char const* what : {"folded", "exact"})
        measure(named<Width16, N>("count", what, "std::count"),
                [peer = wide(text)] { return std::count(peer.begin(), peer.end(), u'e'); });
}

[[maybe_unused]] bool const registered = forBothWidths([]<typename Width, int N> {
    contain<Width, N>();
    firstOf<Width, N>();
    if constexpr (std::is_same_v<Width, Width16>)
        count16<N>();
});

} // namespace
