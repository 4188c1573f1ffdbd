// What the debuggers are shown: each object of the library in the states that tell something, all
// standing when `everyStateStands` is called.

#include "qv/client/qvClientMailbox.h"
#include "qv/segment/qvSharedMemory.h"
#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"
#include "qv/support/qvStringList.h"

using JobName = _qvString8_allSize<250>;

struct Strings8
{
    JobName empty;
    JobName word{"abc"};
    JobName zeros{"a\0b", 3};
    JobName high{"\xE4z\xFF"};
    JobName control{"a\tb\n\"c\\\x7F"};
    JobName stale{"abcdef"};
    JobName cut{"abcdef"};
    _qvString8_allSize<6> full{"abcdef"};
    _qvString8_allSize<7> fullOdd{"abcdefg"};
    _qvString8_allSize<6> damaged{"abc"};
    _qvString8_allSize<5000> longest;
    _qvString8_evenSize_old<6> evenOld{"abc"};
    _qvString8_evenSize_old<6> evenOldDamaged{"abcdef"};
    _qvString8_evenSize_old<7> evenOldBare{{{'a', 'b'}, 0, 0, 2}};
    _qvString8_UnevenSize_old<7> unevenOld{"abc"};
    _qvString8_UnevenSize_old<7> unevenOldDamaged{"abcdefg"};
    _qvString8_UnevenSize_old<6> unevenOldBare{{{'a', 'b'}, 0, 2}};
};

struct Strings16
{
    _qvString<250> empty;
    _qvString<250> word{"abc"};
    _qvString<250> zeros{"a\0b", 3};
    _qvString<250> control{"a\n\"\\"};
    _qvString<250> signExtended{"\xE4"};
    _qvString<250> pair;
    _qvString<250> halves;
    _qvString<10> damaged{"abc"};
    _qvString<2500> longest;
    _qvString_old<10> old{"abc"};
    _qvString_old<10> oldDamaged{"abc"};
};

struct Forms
{
    explicit Forms(JobName& name) : pointer(&name), constVolatile(&name), reference(name) {}

    JobName* pointer;
    JobName const volatile* constVolatile;
    JobName& reference;
    JobName*& pointerReference = pointer;
    JobName const* null = nullptr;
    JobName const* wild = reinterpret_cast<JobName const*>(8);
    JobName const** pointerToPointer = &null;
    void* untyped = reinterpret_cast<void*>(8);
    _qvStringList* list = nullptr;
    qvSharedMemory* segment = nullptr;
    qvClientMailbox volatile* mailbox = nullptr;
    qvClientMailbox* wildMailbox = reinterpret_cast<qvClientMailbox*>(8);
    _qvString8_allSize<6> array[2] = {"one", "two"};
};

struct Lists
{
    _qvStringList empty;
    _qvStringList one;
    _qvStringList three;
    _qvStringList withoutBlock;
    _qvStringList negative;
};

struct Segments
{
    qvSharedMemory fresh{"fresh"};
    qvSharedMemory missing{"missing"};
    qvSharedMemory attached{"attached"};
    qvSharedMemory locked{"locked"};
};

struct Mailboxes
{
    qvClientMailbox empty{};
    qvClientMailbox entries{};
    qvClientMailbox wrong{};
    qvClientMailbox damaged{};
};

Strings8 strings8;
Strings16 strings16;
Forms forms(strings8.word);
Lists lists;
Segments segments;
Mailboxes mailboxes;

void everyStateStands() {}

namespace {

void putMarkers(qvClientMailbox& mailbox)
{
    mailbox.recordMarker = clientRecordMarker;
    mailbox.stateMarker = clientStateMarker;
    mailbox.stateFlag = clientStateFlag;
}

void putMessage(qvClientMailbox& mailbox, ClientMessageType type, std::uint16_t value)
{
    auto const place = mailbox.messageCount++;
    mailbox.messageKind[place] = 2;
    mailbox.messageType[place] = static_cast<unsigned char>(type);
    mailbox.messageValue[place] = value;
}

void standStrings()
{
    strings8.stale = "xy";
    strings8.cut.setLength(2);
    strings8.damaged.length = 60000;
    strings8.evenOldDamaged.length = 7;
    strings8.unevenOldDamaged.length = 0xFFFF;
    char x = 'x';
    strings8.longest = _qvString8_allSize<5000>::createCharString(x, 5000);

    unsigned short const pair[] = {'a', 0xD83D, 0xDE00, 'b', 0};
    unsigned short const halves[] = {0xDE00, 0xD83D, 0x00E4, 0x20AC, 0xD83D, 0};
    strings16.pair = pair;
    strings16.halves = halves;
    strings16.damaged.length = 11;
    strings16.oldDamaged.length = 300;
    unsigned short y = 'y';
    strings16.longest = _qvString<2500>::createCharString(y, 2500);
}

void standLists()
{
    lists.one.append("alone", false, false);
    for (char const* const text : {"render07", "", "\xE4"})
        lists.three.append(text, false, false);
    lists.withoutBlock.count = 3;
    lists.negative.count = -1;
    forms.list = &lists.three;
}

bool standSegments()
{
    if (segments.missing.attach())
        return false;
    if (!segments.attached.create(100, false, false))
        return false;
    forms.segment = &segments.attached;
    if (!segments.locked.create(clientRecordSize, false, false) || !segments.locked.lock())
        return false;
    forms.mailbox = static_cast<qvClientMailbox volatile*>(segments.locked.data());
    return true;
}

void standMailboxes()
{
    putMarkers(mailboxes.empty);

    putMarkers(mailboxes.entries);
    putMessage(mailboxes.entries, ClientMessageType::command, 1);
    putMessage(mailboxes.entries, ClientMessageType::checkJob, 9);
    putMessage(mailboxes.entries, ClientMessageType::frameDone, 58);
    putMessage(mailboxes.entries, ClientMessageType::command, 61);
    putMessage(mailboxes.entries, ClientMessageType::command, 256);

    mailboxes.wrong.recordMarker = 516;

    putMarkers(mailboxes.damaged);
    mailboxes.damaged.messageCount = 200;
}

} // namespace

int main()
{
    standStrings();
    standLists();
    standMailboxes();
    if (!standSegments())
        return 1;
    everyStateStands();
    return 0;
}
