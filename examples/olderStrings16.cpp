/// Where the older 16-bit string differs from the current one, by task. The reference shows each
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
    unsigned short const units[] = {'n', 0xF6, 't', 'i', 'g', 0};
    _qvString_old<10> const copied(units);
    show(copied);                           // nötig
    show(_qvString_old<10>("shot_010.ma")); // shot_010.m

    // A record holds one; the current string takes it.
    unsigned char record[sizeof copied];
    qvInterop::storeImage(copied, record);
    auto const found = qvInterop::loadImage<_qvString_old<10>>(record);
    _qvString<10> const current(found);
    show(current); // nötig
    // [Construction]
}

void assignment()
{
    // [Assignment]
    _qvString_old<10> node;
    node = "n\xF6tig"; // a byte from 0x80 up becomes the unit of its value
    show(node);        // nötig
    unsigned short const units[] = {'r', '7', 0};
    node = units;
    show(node); // r7
    _qvString<10> current;
    current = node;
    show(current); // r7
    // [Assignment]
}

void startAndEnd()
{
    // [Start and end of the text]
    _qvString_old<50> const path("Scenes/shot_010.ma");
    show(path.startsWith('S')); // true
    show(path.endsWith(".MA")); // true
    // [Start and end of the text]
}

void textOut()
{
    // [Text out]
    _qvString_old<10> node;
    node = "n\xF6tig";
    _qvString8_allSize<250> const bytes = node.to_qvString8_250(); // the low byte of each unit
    show(bytes == "n\xF6tig");                                     // true
    char buffer[4];
    node.toChar(buffer, sizeof buffer);
    show(buffer[3] == 0); // true
    // [Text out]
}

} // namespace

int main()
{
    construction();
    assignment();
    startAndEnd();
    textOut();
    return 0;
}
