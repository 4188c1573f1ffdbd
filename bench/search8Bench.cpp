/// Searches in the 8-bit strings beside std::string, boost::static_string and the C library, in
/// texts that are hard in different ways; the pattern at the very end or nowhere.

#include "bench/measure.h"
#include "bench/peers.h"
#include "bench/texts.h"
#include "qv/strings/qvString8.h"

#include <cstring>

namespace {

template <int N>
void search(std::string const& at, std::string const& text, std::string const& pattern)
{
    using String = _qvString8_allSize<N>;
    String const s(text.c_str());
    measure("find/" + at + "ours",
            [s, p = String(pattern.c_str())] { return s.indexOfCaseSen(p, 0); });
    measure("find/" + at + "std::string", [text, pattern] { return text.find(pattern); });
    measure(
        "find/" + at + "static_string",
        [fixed = StaticString<N>(text), p = StaticString<N>(pattern)] { return fixed.find(p); });
    measure("find/" + at + "memmem", [text, pattern] {
        return memmem(text.data(), text.size(), pattern.data(), pattern.size());
    });

    std::string const upper = upperCase(pattern);
    measure("findFolded/" + at + "ours",
            [s, p = String(upper.c_str())] { return s.indexOf(p, 0); });
    measure("findFolded/" + at + "strcasestr",
            [text, upper] { return strcasestr(text.c_str(), upper.c_str()); });
}

template <int N>
void atCapacity()
{
    std::string const size = std::to_string(N) + "/";
    for (Sample const& sample : samples) {
        std::string const name = sample.name;
        search<N>(name + "/late/" + size, lateText(sample, N), sample.late);
        search<N>(name + "/absent/" + size, sample.text(N), sample.absent);
    }
}

[[maybe_unused]] bool const registered =
    (atCapacity<25>(), atCapacity<250>(), atCapacity<5000>(), true);

} // namespace
