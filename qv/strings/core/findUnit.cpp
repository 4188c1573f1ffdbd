#include "qv/strings/core/findUnit.h"

#include <algorithm>

namespace qvStrings {

template <Case mode, typename Unit>
int findUnit(TextRef<Unit const> self, Unit unit, int start)
{
    Unit const* const text = self.text();
    auto const length = static_cast<int>(self.length());
    Unit const wanted = foldSecond<mode>(unit);
    for (int i = start > 0 && start < length ? start : 0; i < length; ++i)
        if (foldFirst<mode>(text[i]) == wanted)
            return i;
    return -1;
}

template <typename Unit>
int findLastUnit(TextRef<Unit const> self, Unit unit, int start)
{
    Unit const* const text = self.text();
    auto const length = static_cast<int>(self.length());
    for (int i = start >= 0 && start < length ? start : length - 1; i >= 0; --i)
        if (text[i] == unit)
            return i;
    return -1;
}

template <Case mode, typename Unit>
int countUnit(TextRef<Unit const> self, Unit unit)
{
    Unit const* const text = self.text();
    Unit const wanted = foldSecond<mode>(unit);
    return static_cast<int>(std::count_if(text, text + self.length(), [wanted](Unit each) {
        return foldFirst<mode>(each) == wanted;
    }));
}

#define QV_INSTANTIATE(Unit)                                                                       \
    template int findUnit<Case::exact>(TextRef<Unit const>, Unit, int);                            \
    template int findUnit<Case::folded>(TextRef<Unit const>, Unit, int);                           \
    template int findLastUnit(TextRef<Unit const>, Unit, int);                                     \
    template int countUnit<Case::exact>(TextRef<Unit const>, Unit);                                \
    template int countUnit<Case::folded>(TextRef<Unit const>, Unit);

QV_INSTANTIATE(char)
QV_INSTANTIATE(unsigned short)
#undef QV_INSTANTIATE

} // namespace qvStrings
