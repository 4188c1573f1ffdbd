/// Texts of the C++ library to the fixed strings and back.

#include "examples/stringInterop.h"

#include <iostream>

namespace {

void bytes()
{
    _qvString8_allSize<50> path("scenes/shot_010.ma");
    std::string_view const name = interop::view(path).substr(7);
    std::cout << name << " ends in .ma: " << name.ends_with(".ma") << '\n';

    _qvString8_allSize<10> shortName;
    bool const whole = interop::assign(shortName, name);
    std::cout << interop::view(shortName) << (whole ? "" : " was cut") << '\n';
}

void units()
{
    _qvString<50> wide;
    interop::assign(wide, std::u16string_view(u"16-bit units"));
    wide.replace("UNITS", "text");
    std::u16string const text = interop::toU16(wide);
    std::cout << text.size() << " units, the last is t: " << text.ends_with(u't') << '\n';
}

void format()
{
    _qvString8_allSize<20> const node("render07");
    auto const line = interop::formatted<50>("{}: frame {} of {}, {} s", node, 7, 240, 1.5);
    std::cout << interop::view(line) << '\n';
}

} // namespace

int main()
{
    bytes();
    units();
    format();
    return 0;
}
