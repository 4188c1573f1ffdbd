/// Where the older 8-bit strings differ from the current one, by task. The reference shows each
/// piece with the members of its task; a test compares the output with the words behind `show`.

#include "qv/strings/interop.h"

#include <iostream>

namespace {

template <typename Value>
void show(Value const& value)
{
    std::cout << std::boolalpha << value << '\n';
}

void construction()
{
    // [Construction]
    _qvString8_evenSize_old<10> const even("shot_010.ma"); // one more than fits
    _qvString8_UnevenSize_old<7> const uneven("render07", 6);
    show(even);   // shot_010.m
    show(uneven); // render

    // A record holds one; the current string takes it.
    unsigned char record[sizeof even];
    qvInterop::storeImage(even, record);
    auto const found = qvInterop::loadImage<_qvString8_evenSize_old<10>>(record);
    _qvString8_allSize<10> const current(found);
    show(current); // shot_010.m
    // [Construction]
}

void assignment()
{
    // [Assignment]
    _qvString8_evenSize_old<10> node;
    node = "render07.farm.lan";
    show(node); // render07.f
    _qvString8_evenSize_old<10> copy;
    copy = node;
    copy = 'x';
    show(copy); // x
    _qvString8_allSize<10> current;
    current = node;
    show(current); // render07.f
    // [Assignment]
}

void numbersToText()
{
    // [Numbers to text]
    _qvString8_UnevenSize_old<15> columns("|");
    columns.addNrSpacing(250, -6); // blanks in front
    columns.addNrSpacing(7, 3);
    columns += '|';
    show(columns); // |   2507  |
    // [Numbers to text]
}

} // namespace

int main()
{
    construction();
    assignment();
    numbersToText();
    return 0;
}
