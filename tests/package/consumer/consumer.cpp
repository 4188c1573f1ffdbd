#include <cstdio>
#include <qv/client/qvClientCommandName.h>
#include <qv/segment/qvSharedMemory.h>
#include <qv/support/qvStringList.h>
#include <qv/version.h>

// Something of each room. Naming a segment calls nothing in the system.
int main()
{
    qvSharedMemory const shared("consumer");
    _qvStringList nodes;
    nodes.append("render07", true, false);
    static_assert(QV_VERSION >= 80305);
    std::printf("%s %s%s %s\n", shared.name.asChar(), nodes.asString8().asChar(),
                qvC::qvClientCommandName(1).asChar(), QV_VERSION_STRING);
}
