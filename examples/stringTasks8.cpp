/// Uses of an 8-bit string, by task. The reference shows each piece with the members of its task; a
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
    _qvString8_allSize<10> const empty;
    _qvString8_allSize<10> const cut("shot_010.ma"); // one more than fits
    _qvString8_allSize<10> const part("render07", 6);
    char dash = '-';
    auto const line = _qvString8_allSize<10>::createCharString(dash, 4);
    show(empty.isEmpty());                            // true
    show(cut);                                        // shot_010.m
    show(part);                                       // render
    show(line);                                       // ----
    _qvString8_allSize<50> const wider(part.asUni()); // from another capacity, where it fits
    show(wider);                                      // render
    // [Construction]
}

void assignment()
{
    // [Assignment]
    _qvString8_allSize<10> node;
    node = "render07";
    node = std::string("render07.farm.lan");
    show(node); // render07.f
    _qvString8_allSize<50> const path("scenes/shot_010.ma");
    node = path.asUni(); // any capacity, cut like the others
    show(node);          // scenes/sho
    node = 'x';
    show(node); // x
    node.fromChar("render07", 6);
    show(node); // render
    node = _qvString8_evenSize_old<10>("render12");
    show(node); // render12
    // [Assignment]
}

void lengthAndState()
{
    // [Length and state]
    _qvString8_allSize<10> word("abc");
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
    _qvString8_allSize<20> name("shot");
    name += '_';
    name += "010";
    name.add(".mayafile", 3);
    show(name); // shot_010.ma
    _qvString8_allSize<20> const twice = name.combined(name);
    show(twice); // shot_010.mashot_010.
    _qvString8_allSize<20> table("frame");
    table.addSpacingC("7", -5); // right-aligned in five columns
    table.addSpacingC("ok", 4); // left-aligned in four
    table += '|';
    show(table); // frame    7ok  |
    // [Append]
}

void numbersToText()
{
    // [Numbers to text]
    _qvString8_allSize<20> frame("frame ");
    frame.addNr(7, 4); // zeros in front
    frame += ' ';
    frame.addNr(-12);
    show(frame); // frame 0007 -12
    _qvString8_allSize<20> columns;
    columns.addNrSpacing(250, -6); // blanks in front
    columns += ' ';
    columns.addHexCode(0x4EFCFF);
    show(columns);                            //    250 004EFCFF
    show(_qvString8_allSize<6>::fromNr(240)); // 240
    // [Numbers to text]
}

void textToNumbers()
{
    // [Text to numbers]
    bool ok = false;
    show(_qvString8_allSize<20>("-240").toInt(&ok));             // -240
    show(ok);                                                    // true
    show(_qvString8_allSize<20>("12a").toInt(&ok));              // 0
    show(ok);                                                    // false
    show(_qvString8_allSize<20>("12a").toInt(nullptr));          // 12
    show(_qvString8_allSize<20>("5000000000").toInt64(nullptr)); // 5000000000
    _qvString8_allSize<20> hex("FF0A");
    show(hex.toIntFromHex(8, false, true, &ok)); // 255
    show(hex);                                   // 0A
    // [Text to numbers]
}

void equality()
{
    // [Equality]
    _qvString8_allSize<20> const word("Abort");
    show(word == "Abort");                     // true
    show(word == "abort");                     // false
    show(word.isEqual("abort"));               // true
    show(word.isEqual("abortion", 5));         // true
    show(word.isEqualUpperCaseInput("ABORT")); // true
    // [Equality]
}

void order()
{
    // [Order]
    using Name = _qvString8_allSize<20>;
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
    _qvString8_allSize<50> const path("scenes/Shot_010/shot_010.ma");
    show(path.indexOf("SHOT", 0));        // 7
    show(path.indexOf("SHOT", 8));        // 16
    show(path.indexOfCaseSen("shot", 0)); // 16
    show(path.lastIndexOf('/', -1));      // 15
    show(path.indexOf("take", 0));        // -1
    int which = 0;
    show(path.indexOfFirstOcc(".mb", ".ma", &which)); // 24
    show(which);                                      // 1
    // [Position search]
}

void containment()
{
    // [Containment]
    _qvString8_allSize<50> const path("scenes/Shot_010.ma");
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
    _qvString8_allSize<50> const path("Scenes/shot_010.ma");
    show(path.startsWith("scenes/"));        // true
    show(path.startsWithCaseSen("scenes/")); // false
    show(path.startsWith('s'));              // false
    show(path.endsWith(".MA"));              // true
    // [Start and end of the text]
}

void editingInPlace()
{
    // [Editing in place]
    _qvString8_allSize<50> path("  scenes/SHOT_010.ma\n");
    path.trim();
    path.replace("shot", "take"); // searched in any case
    show(path);                   // scenes/take_010.ma
    path.insert(7, "old/");
    path.remove(".ma");
    show(path); // scenes/old/take_010
    path.remove(0, 7);
    path.replace('/', '_');
    path.makeUpper();
    show(path); // OLD_TAKE_010
    // [Editing in place]
}

void slices()
{
    // [Slices]
    _qvString8_allSize<50> path("scenes/shot_010.ma");
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
    _qvString8_allSize<10> const node("render07");
    show(node.asChar()); // render07
    std::string const copy(node.asChar(), node.length);
    show(copy.size()); // 8
    _qvString8_allSize<50> path("nodes/");
    path.add(node.asChar());
    show(path); // nodes/render07
    _qvString<50> const wide(node.asUni());
    show(wide); // render07
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
