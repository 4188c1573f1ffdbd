#include "tests/strings/laidOf.h"

namespace strings {

void addImages16(Images& images)
{
    addImages<_qvString, 10, 15, 48, 250, 500, 2500>(images);
    addImages<_qvString_old, 10, 15, 48, 250, 500, 2500>(images);
}

} // namespace strings
