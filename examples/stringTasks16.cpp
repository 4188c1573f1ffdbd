/// Uses of a 16-bit string, by task. The reference shows each piece with the members of its task; a
/// test compares the output with the words behind `show`.

#include "qv/strings/interop.h"

#include <iostream>
#include <string>

namespace {

template <typename Value>
void show(Value const& value)
{
    std::cout << std::boolalpha << value << '\n';
}

void construction()
{
    // [Construction]
    _qvString<10> const empty;
    _qvString<10> const cut("shot_010.ma"); // one more than fits
    unsigned short const units[] = {'n', 0xF6, 't', 'i', 'g', 0};
    _qvString<10> const copied(units);
    _qvString<10> const part(units, 2);
    show(empty.isEmpty()); // true
    show(cut);             // shot_010.m
    show(copied);          // nötig
    show(part);            // nö
    unsigned short dash = '-';
    show(_qvString<10>::createCharString(dash, 4)); // ----

    _qvString8_allSize<50> const bytes("scenes/shot_010.ma");
    _qvString<10> const wide(bytes.asUni()); // an 8-bit string of any capacity, cut
    show(wide);                              // scenes/sho
    // [Construction]
}

void assignment()
{
    // [Assignment]
    _qvString<10> node;
    node = "n\xF6tig"; // a byte from 0x80 up becomes the unit of its value
    show(node);        // nötig
    unsigned short const units[] = {'r', '7', 0};
    node = units;
    show(node); // r7
    node = std::string("render07.farm.lan");
    show(node); // render07.f
    _qvString_old<10> const older("render12");
    node = older;
    show(node); // render12
    // [Assignment]
}

void lengthAndState()
{
    // [Length and state]
    _qvString<10> word("abc");
    word.setLength(2);
    show(word);           // ab
    show(word.hasData()); // true
    word.text[0] = 'z';
    word.text[1] = 0;
    word.calcLength(); // the text was filled in place
    show(word.length); // 1
    word.clear();
    show(word.isEmpty()); // true
    // [Length and state]
}

void append()
{
    // [Append]
    _qvString<25> name("shot");
    unsigned short const units[] = {'_', '0', '1', '0', 0};
    name += units;
    name += '.';
    name += "ma";
    show(name); // shot_010.ma
    _qvString<25> const twice = name.combined(name);
    show(twice); // shot_010.mashot_010.ma
    _qvString<25> table("frame");
    table.addSpacingC("7", -5); // right-aligned in five columns
    table.addSpacingC("ok", 4); // left-aligned in four
    table += '|';
    show(table); // frame    7ok  |
    // [Append]
}

void numbersToText()
{
    // [Numbers to text]
    _qvString<25> frame("frame ");
    frame.addNr(7, 4); // zeros in front
    frame += ' ';
    frame.addNr(-12);
    show(frame); // frame 0007 -12
    _qvString<25> columns("|");
    columns.addNrSpacing(250, -6);    // blanks in front
    show(columns);                    // |   250
    show(_qvString<10>::fromNr(240)); // 240
    // [Numbers to text]
}

void textToNumbers()
{
    // [Text to numbers]
    bool ok = false;
    show(_qvString<25>("-240").toInt(&ok));    // -240
    show(ok);                                  // true
    show(_qvString<25>("12a").toInt(&ok));     // 0
    show(ok);                                  // false
    show(_qvString<25>("12a").toInt(nullptr)); // 12
    // [Text to numbers]
}

void equality()
{
    // [Equality]
    _qvString<25> const word("Abort");
    show(word == "Abort");                     // true
    show(word == "abort");                     // false
    show(word.isEqual("abort"));               // true
    show(word.isEqual("abortion", 5));         // true
    show(word.isEqualUpperCaseInput("ABORT")); // true
    unsigned short const units[] = {'A', 'b', 'o', 'x', 'x', 0};
    // Raw units compare as many bytes as there are units, the first half of the text.
    show(word == units);                  // true
    show(word.isEqualSameCase(units, 5)); // false
    // [Equality]
}

void order()
{
    // [Order]
    using Name = _qvString<25>;
    Name const name("render07");
    show(name < Name("render12"));             // true
    show(name.compare("RENDER07") == 0);       // true
    show(name.compare("render") > 0);          // true
    show(name.compareSameCase("render") == 0); // true
    // [Order]
}

void positionSearch()
{
    // [Position search]
    _qvString<50> path("scenes/Shot_010/shot_010.ma");
    show(path.indexOf("SHOT"));           // 7
    show(path.indexOf("SHOT", 8));        // 16
    show(path.indexOfCaseSen("shot", 0)); // 16
    show(path.lastIndexOf('/', -1));      // 15
    show(path.indexOf("take"));           // -1
    int which = 0;
    show(path.indexOfFirstOcc(".mb", ".ma", &which)); // 24
    show(which);                                      // 1
    // [Position search]
}

void containment()
{
    // [Containment]
    _qvString<50> const path("scenes/Shot_010.ma");
    show(path.contains("shot"));                 // true
    show(path.containsCaseSen("shot"));          // false
    show(path.containsUpperCaseInput("SCENES")); // true
    show(path.contains(""));                     // false
    show(path.count('s'));                       // 3
    show(path.countCaseSen('s'));                // 2
    // [Containment]
}

void startAndEnd()
{
    // [Start and end of the text]
    _qvString<50> const path("Scenes/shot_010.ma");
    show(path.startsWith("scenes/"));        // true
    show(path.startsWithCaseSen("scenes/")); // false
    show(path.endsWith('a'));                // true
    show(path.endsWith(".MA"));              // true
    // [Start and end of the text]
}

void editingInPlace()
{
    // [Editing in place]
    _qvString<50> path("  scenes/SHOT_010.ma\n");
    path.trim();
    path.replace("shot", "take"); // searched in any case
    show(path);                   // scenes/take_010.ma
    path.insert(7, "old/");
    path.remove(".ma");
    show(path); // scenes/old/take_010
    path.remove(0, 7);
    path.replace(u'/', u'_');
    path.makeUpper();
    show(path); // OLD_TAKE_010
    // [Editing in place]
}

void slices()
{
    // [Slices]
    _qvString<50> path("scenes/shot_010.ma");
    show(path.left(6));              // scenes
    show(path.mid(7, 4));            // shot
    show(path.left('/', true));      // scenes/
    show(path.leftNCut('/', false)); // scenes
    show(path);                      // shot_010.ma
    // [Slices]
}

void textOut()
{
    // [Text out]
    _qvString<10> node;
    node = "n\xF6tig";
    _qvString8_allSize<250> const bytes = node.to_qvString8_250(); // the low byte of each unit
    show(bytes == "n\xF6tig");                                     // true
    char buffer[4];
    node.toChar(buffer, sizeof buffer);
    show(buffer[3] == 0); // true
    qvInterop::U16Text const copy(node);
    show(std::u16string_view(copy) == u"n\u00F6tig"); // true
    _qvString<50> const wider(node.asUni());          // another capacity
    show(wider);                                      // nötig
    // [Text out]
}

} // namespace

int main()
{
    construction();
    assignment();
    lengthAndState();
    append();
    numbersToText();
    textToNumbers();
    equality();
    order();
    positionSearch();
    containment();
    startAndEnd();
    editingInPlace();
    slices();
    textOut();
    return 0;
}
