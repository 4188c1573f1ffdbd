/// How edits grow with the text when every third character begins a place to change: in proportion
/// to it. plotGrowth.py draws them, and the list's operations.

#include "bench/measure.h"
#include "bench/widths.h"

namespace {

struct Edit
{
    char const* name;
    char const* from;
    char const* to;
    int part; ///< The text is this part of the capacity, so that its result fits.
};

constexpr Edit edits[] = {{"growReplaceShorter", "abc", "x", 1},
                          {"growReplaceEqual", "abc", "xyz", 1},
                          {"growReplaceLonger", "abc", "uvwxyz", 2},
                          {"growRemove", "ab", "", 1}};

template <typename Width, int N>
void grow()
{
    using String = typename Width::template String<N>;
    using Peer = typename Width::Peer;
    for (Edit const& edit : edits) {
        std::string const text = periodicText(static_cast<std::size_t>(N / edit.part));
        measure(named<Width, N>(edit.name, "many", "ours"),
                [source = String(text.c_str()), s = String(), from = String(edit.from),
                 to = String(edit.to)]() mutable {
                    s = source;
                    if (to.isEmpty())
                        s.removeCaseSens(from);
                    else
                        s.replaceCaseSen(from, to);
                    return &s;
                });
        measure(named<Width, N>(edit.name, "many", "onePass"),
                [text = Width::peer(text), from = Width::peer(edit.from), to = Width::peer(edit.to),
                 s = Peer()]() mutable {
                    replaceOnePass(s, text, from, to);
                    return &s;
                });
    }
}

[[maybe_unused]] bool const registered = [] {
    grow<Width8, 25>();
    grow<Width8, 100>();
    grow<Width8, 250>();
    grow<Width8, 500>();
    grow<Width8, 1000>();
    grow<Width8, 2000>();
    grow<Width8, 3000>();
    grow<Width8, 5000>();
    grow<Width16, 25>();
    grow<Width16, 100>();
    grow<Width16, 250>();
    grow<Width16, 500>();
    grow<Width16, 1000>();
    grow<Width16, 2500>();
    return true;
}();

} // namespace
