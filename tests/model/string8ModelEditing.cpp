#include "tests/model/string8Model.h"

namespace qvTest {

String8Model::StringModel String8Model::mid(int start, int count) const
{
    if (count == 0)
        return zeroedResult();
    // Behind the slice nothing is laid down.
    String8Model made(image(), 0);
    made.undetermine(0, image().size);
    return slice(made, start, count);
}

void String8Model::addSpacing(Text s, int width)
{
    addPadded(s, width, false);
}

void String8Model::addSpacingC(Text s, int width)
{
    addPadded(s, width, true);
}

} // namespace qvTest
