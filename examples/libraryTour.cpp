/// A short use of each folder of the library. The README shows these pieces; a test compares them.

#include "qv/client/qvClientCommandName.h"
#include "qv/segment/qvSharedMemory.h"
#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/support/qvCRC.h"
#include "qv/support/qvProcess.h"
#include "qv/support/qvStringList.h"
#include "qv/support/qvText.h"

#include <cstdio>

namespace {

void strings()
{
    _qvString8_allSize<50> path("scenes/shot_010.ma");
    path.replace("SHOT", "take"); // searches ignore case: scenes/take_010.ma
    _qvString8_allSize<50> folder = path.leftNCut('/', false);
    path.addSpacingC("left", -10); // right-aligned in ten columns, never past the capacity
    std::printf("%s | %s | %d\n", folder.asChar(), path.asChar(), path.indexOf("LEFT", 0));

    _qvString<250> wide;
    wide = "16-bit units";
    wide.addNr(42, 5); // 00042
    std::printf("%s\n", wide.to_qvString8_250().asChar());
}

struct Record
{
    int jobs;
};

void segment()
{
    qvSharedMemory shared("libraryTour");
    if (!shared.attach() && !shared.create(sizeof(Record), false, false)) {
        std::printf("%s\n", shared.errorString().asChar());
        return;
    }
    auto* record = static_cast<Record volatile*>(shared.data());
    if (shared.lock()) {
        int const jobs = record->jobs + 1;
        record->jobs = jobs;
        shared.unlock();
        std::printf("%d bytes, %d jobs\n", shared.size(), jobs);
    }
}

void support()
{
    _qvStringList nodes;
    nodes.append("render07", true, false);
    nodes.append("RENDER07", true, false); // there already, ignoring case
    nodes.append("render02", true, false);
    nodes.sort(false);
    std::printf("%s\n", nodes.asString8().asChar()); // 'render02' 'render07'
    unsigned char const bytes[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9'};
    std::printf("%08X\n", qvCRCCalc(bytes, sizeof bytes)); // CBF43926
    std::printf("%s\n", float2Str(3.14159F, 2, '.').to_qvString8_250().asChar());
    std::printf("%s\n", qvGetEnvironmentVariable8("HOME").asChar());
}

void sender()
{
    for (unsigned char code = 0; code < 3; ++code)
        std::printf("%d: %s\n", code, qvC::qvClientCommandName(code).asChar());
}

} // namespace

int main()
{
    strings();
    segment();
    support();
    sender();
    return 0;
}
