/// Parts of a text of either width, cut out, put in and copied, and what changes or removes texts
/// in any case. Each edit begins with a fresh copy of the text, ours and the peers alike.

#include "bench/measure.h"
#include "bench/widths.h"

namespace {

/// Registers both ways of one edit: `ours` of a string, `theirs` of its peer.
template <typename Width, int N, typename Ours, typename Theirs>
void edit(std::string const& operation, std::string const& what, std::string const& who,
          std::string const& text, Ours ours, Theirs theirs)
{
    using String = typename Width::template String<N>;
    using Peer = typename Width::Peer;
    measure(named<Width, N>(operation, what, "ours"),
            [source = String(text.c_str()), s = String(), ours]() mutable {
                s = source;
                ours(s);
                return &s;
            });
    measure(named<Width, N>(operation, what, who),
            [source = Width::peer(text), s = Peer(), theirs]() mutable {
                s = source;
                theirs(s);
                return &s;
            });
}

/// The same for edits that need another string beside the text.
template <typename Width, typename Find>
auto onePass(char const* from, char const* to, Find find)
{
    return [f = Width::peer(from), t = Width::peer(to), target = typename Width::Peer(),
            find](auto& s) mutable {
        replaceOnePass(target, s, f, t, find);
        s.swap(target);
    };
}

template <typename Width, int N>
void editRanges()
{
    using String = typename Width::template String<N>;
    using Peer = typename Width::Peer;
    static constexpr int at = N / 4;
    static constexpr int count = N / 5;
    std::string const inserted = commonText(static_cast<std::size_t>(count));
    edit<Width, N>(
        "removeRange", "middle", Width::peerName, commonText(N),
        [](String& s) { s.remove(at, count); }, [](Peer& s) { s.erase(at, count); });
    edit<Width, N>(
        "insert", "middle", Width::peerName, commonText(N - count),
        [other = String(inserted.c_str())](String& s) { s.insert(at, other); },
        [other = Width::peer(inserted)](Peer& s) { s.insert(at, other); });
}

template <typename Width, int N>
void editTexts()
{
    using String = typename Width::template String<N>;
    using Peer = typename Width::Peer;
    auto const exact = [](Peer const& in, Peer const& pattern, std::size_t from) {
        return in.find(pattern, from);
    };
    std::string const text = commonText(N);
    edit<Width, N>(
        "replaceTextFolded", "shorter", "onePass", text,
        [from = String("THE"), to = String("a")](String& s) { s.replace(from, to); },
        onePass<Width>("THE", "a", Width::findFolded));
    edit<Width, N>(
        "removeText", "folded", "onePass", text,
        [from = String("THE")](String& s) { s.remove(from); },
        onePass<Width>("THE", "", Width::findFolded));
    edit<Width, N>(
        "removeText", "exact", "onePass", text,
        [from = String("the")](String& s) { s.removeCaseSens(from); },
        onePass<Width>("the", "", exact));
}

/// Both cases, begun anew from a mixed text.
template <typename Width, int N>
void changeCase()
{
    using String = typename Width::template String<N>;
    using Peer = typename Width::Peer;
    edit<Width, N>(
        "lower", "common", "plainLoop", commonText(N), [](String& s) { s.makeLower(); },
        [](Peer& s) {
            for (auto& unit : s)
                if (unit >= 'A' && unit <= 'Z')
                    unit = static_cast<typename Peer::value_type>(unit + ('a' - 'A'));
        });
    if constexpr (std::is_same_v<Width, Width16>)
        edit<Width, N>(
            "upper", "common", "plainLoop", commonText(N), [](String& s) { s.makeUpper(); },
            [](Peer& s) {
                for (auto& unit : s)
                    unit = upperUnit(unit);
            });
}

template <typename Width, int N>
void slice()
{
    static constexpr int half = N / 2;
    typename Width::template String<N> const s(commonText(N).c_str());
    auto const peer = Width::peer(commonText(N));
    measure(named<Width, N>("leftCount", "half", "ours"), [s] { return s.left(half); });
    measure(named<Width, N>("leftCount", "half", Width::peerName),
            [peer] { return peer.substr(0, half); });
    measure(named<Width, N>("mid", "half", "ours"), [s] { return s.mid(N / 4, half); });
    measure(named<Width, N>("mid", "half", Width::peerName),
            [peer] { return peer.substr(N / 4, half); });
}

[[maybe_unused]] bool const registered = forBothWidths([]<typename Width, int N> {
    editRanges<Width, N>();
    editTexts<Width, N>();
    changeCase<Width, N>();
    slice<Width, N>();
});

} // namespace
