/// The 8-bit strings beside std::string, boost::static_string and the C library: to make, fill,
/// copy and compare. "word" fits into a std::string without an allocation, "line" is an everyday
/// text that does not, "full" fills the capacity.

#include "bench/measure.h"
#include "bench/peers.h"
#include "bench/texts.h"
#include "qv/strings/qvString8.h"

#include <cstring>
#include <strings.h>

namespace {

template <typename String>
void makeAndFill(std::string const& at, std::string const& who, std::string const& text)
{
    measure("construct/" + at + who, [text] { return String(text.c_str()); });
    measure("assign/" + at + who, [text, s = String()]() mutable {
        s = text.c_str();
        return &s;
    });
    std::string const shorter = text.substr(0, text.size() - 2);
    measure("append/" + at + who, [shorter, s = String()]() mutable {
        s = "";
        s += shorter.c_str();
        s += '/';
        s += '1';
        return &s;
    });
    measure("copy/" + at + who, [s = String(text.c_str())] { return String(s); });
}

template <typename String>
void compareExact(std::string const& at, std::string const& who, std::string const& text)
{
    String const s(text.c_str());
    measure("equal/" + at + who, [s, other = s] { return s == other; });
    measure("less/" + at + who, [s, other = s] { return s < other; });
}

template <int N>
void compareFolded(std::string const& at, std::string const& text)
{
    std::string const upper = upperCase(text);
    _qvString8_allSize<N> const s(text.c_str());
    _qvString8_allSize<N> const other(upper.c_str());
    measure("equalFolded/" + at + "ours", [s, other] { return s.isEqual(other); });
    measure("equalFolded/" + at + "strncasecmp",
            [text, upper] { return strncasecmp(text.c_str(), upper.c_str(), text.size()) == 0; });
    measure("compareFolded/" + at + "ours", [s, other] { return s.compare(other); });
    measure("compareFolded/" + at + "strcasecmp",
            [text, upper] { return strcasecmp(text.c_str(), upper.c_str()); });
}

/// The least that the largest strings have to do: the C library's own pass over as many bytes.
void passesOverWholeObject(std::string const& at, std::size_t size, std::string const& text)
{
    std::string const image(size, '\0');
    measure("construct/" + at + "memset", [image = image]() mutable {
        std::memset(image.data(), 0, image.size());
        return image.data();
    });
    measure("construct/" + at + "strlen+memcpy", [image = image, text]() mutable {
        std::memcpy(image.data(), text.c_str(), std::strlen(text.c_str()));
        return image.data();
    });
    measure("copy/" + at + "memcpy", [image, other = image]() mutable {
        std::memcpy(other.data(), image.data(), image.size());
        return other.data();
    });
}

template <int N>
void atCapacity()
{
    std::string const size = "/" + std::to_string(N) + "/";
    std::string const full = commonText(N);
    std::pair<std::string, std::string> const texts[] = {
        {"word", "abort"}, {"line", "ReserveCPUInteractive"}, {"full", full}};
    for (auto const& [name, text] : texts) {
        makeAndFill<_qvString8_allSize<N>>(name + size, "ours", text);
        makeAndFill<std::string>(name + size, "std::string", text);
        makeAndFill<StaticString<N>>(name + size, "static_string", text);
        if (N == 5000)
            passesOverWholeObject(name + size, sizeof(_qvString8_allSize<N>), text);
    }
    compareExact<_qvString8_allSize<N>>("full" + size, "ours", full);
    compareExact<std::string>("full" + size, "std::string", full);
    compareExact<StaticString<N>>("full" + size, "static_string", full);
    compareFolded<N>("full" + size, full);
}

/// The cost of a copy when the compiler knows that the capacity bounds its length: g++ expands it
/// in place to string instructions. The strings copy where the compiler does not know it.
void boundedCopy()
{
    measure("boundedCopy/line/250/memcpy",
            [text = std::string("ReserveCPUInteractive"), target = std::string(251, 0)]() mutable {
                std::size_t const length = std::strlen(text.c_str());
                std::memcpy(target.data(), text.c_str(), length < 250 ? length : 250);
                return target.data();
            });
}

[[maybe_unused]] bool const registered =
    (atCapacity<25>(), atCapacity<250>(), atCapacity<5000>(), boundedCopy(), true);

} // namespace
