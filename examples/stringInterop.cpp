/// Texts of the C++ library to the fixed strings and back, strings as keys, and a string in a
/// record.

#include "qv/strings/interop.h"

#include <iostream>
#include <unordered_map>

namespace {

void bytes()
{
    _qvString8_allSize<50> path("scenes/shot_010.ma");
    std::string_view const name = qvInterop::view(path).substr(7);
    std::cout << name << " ends in .ma: " << name.ends_with(".ma") << '\n';

    _qvString8_allSize<10> shortName;
    bool const whole = qvInterop::assign(shortName, name);
    std::cout << shortName << (whole ? "" : " was cut") << '\n';
}

void units()
{
    _qvString<50> wide;
    qvInterop::assign(wide, u"16-bit units");
    wide.replace("UNITS", "text");
    qvInterop::U16Text const copy(wide);
    std::u16string_view const text(copy);
    std::cout << wide << ": " << text.size() << " units, the last is t: " << text.ends_with(u't')
              << '\n';
}

void keys()
{
    std::unordered_map<_qvString8_allSize<20>, int> frames;
    frames["render07"] += 7;
    frames["render07"] += 240;
    for (auto const& [node, count] : frames)
        std::cout << node << ": " << count << " frames\n";
}

void record()
{
    _qvString8_allSize<20> const node("render07");
    unsigned char bytes[64] = {}; // a record with a name at offset 12
    qvInterop::storeImage(node, bytes + 12);
    std::cout << qvInterop::loadImage<_qvString8_allSize<20>>(bytes + 12) << " from a record\n";
}

} // namespace

int main()
{
    bytes();
    units();
    keys();
    record();
    return 0;
}
