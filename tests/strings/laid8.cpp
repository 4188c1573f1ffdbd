#include "tests/strings/laidOf.h"

namespace strings {

void addImages8(Images& images)
{
    addImages<_qvString8_allSize, 6, 7, 8, 14, 15, 250, 5000>(images);
    addImages<_qvString8_evenSize_old, 6, 8, 14, 250, 5000>(images);
    addImages<_qvString8_UnevenSize_old, 7, 15, 25, 125>(images);
}

} // namespace strings
