#pragma once

#include "qv/segment/core/segmentKey.h"
#include "qv/segment/qvSharedMemory.h"
#include "qv/strings/qvString8_old.h"
#include "qv/support/core/applicationPath.h"
#include "qv/support/qvProcess.h"
#include "qv/support/qvStringList.h"
#include "tests/model/damage.h"
#include "tests/model/string16Image.h"
#include "tests/model/string8Image.h"

#include <cstddef>

// The other code that meets damaged strings, beside their own members: the images that convert
// them, the list, the helpers. Each object has a page without access to one side.
namespace qvTest {

// A damaged string of its own, in pages of its own.
template <class C>
class LaidString
{
public:
    C& lay(Damage& damage, StringImage const& image)
    {
        return *reinterpret_cast<C*>(damage.layString(pages, image, sizeof(C::text[0])));
    }

private:
    GuardedPages pages{sizeof(C)};
};

// Conversions trust the length of an older image, but comparisons and assignments do not.
template <int N>
void meetOlderImagesOf(Damage& damage)
{
    static LaidString<_qvString8_allSize<N>> current;
    static LaidString<_qvString8_evenSize_old<N>> even;
    static LaidString<_qvString8_UnevenSize_old<N>> uneven;
    auto& string = current.lay(damage, currentImage(N));
    auto const& evenOld = even.lay(damage, evenOldImage(N));
    auto const& unevenOld = uneven.lay(damage, unevenOldImage(N));
    static_cast<void>(string == evenOld);
    static_cast<void>(string == unevenOld);
    string = evenOld;
    string = unevenOld;
}

inline constexpr std::size_t olderCapacities[] = {6, 7, 250, 5000};

inline void meetOlderImages(std::size_t capacity, Damage& damage)
{
    switch (capacity) {
    case 6:
        return meetOlderImagesOf<6>(damage);
    case 7:
        return meetOlderImagesOf<7>(damage);
    case 250:
        return meetOlderImagesOf<250>(damage);
    default:
        return meetOlderImagesOf<5000>(damage);
    }
}

// A list over elements in pages, for the members that leave the block where it is, and a copy of it
// for the others. False when a text is longer than its string.
inline bool keepsListInside(Damage& damage)
{
    using Element = _qvString<500>;
    constexpr StringImage elementImage = current16Image(500);
    constexpr int count = 5;
    static GuardedPages const pages(count * sizeof(Element));
    static LaidString<Element> laid;
    Element const& text = laid.lay(damage, elementImage);
    _qvStringList list;
    unsigned char* const block = pages.place(count * sizeof(Element), damage.below(2) == 0);
    for (std::size_t at = 0; at < count * sizeof(Element); at += sizeof(Element))
        damage.fillString(block + at, elementImage, 2);
    list.items = reinterpret_cast<Element*>(block);
    list.count = count;
    bool const flag = damage.below(2) == 0;
    int const index = static_cast<int>(damage.below(count + 4)) - 2;

    list.find(text, flag);
    list.findContains(text, flag);
    list.find(list.items[2], flag);
    list.findContains(list.items[2], flag);
    list.atAsChar(index);
    bool const isInside = list.asString8().length <= 1000;
    list.sort(flag);
    list.asString8();
    _qvStringList copy;
    copy.copyFrom(list);
    copy.append(text, flag, flag);
    copy.append(copy.at(index), flag, !flag);
    copy.insert(index, text);
    copy.removeAt(index);
    copy.sort(flag);
    copy.asString8();

    list.items = nullptr;
    list.count = 0;
    return isInside;
}

// The helpers that take a name. False when a text is longer than its string.
inline bool keepsHelpersInside(Damage& damage)
{
    static LaidString<_qvString8_allSize<250>> laid;
    static LaidString<_qvString<250>> wide;
    static LaidString<_qvString8_allSize<250>> result;
    char argument[] = "../bin/tool";
    auto const& name = laid.lay(damage, currentImage(250));
    qvGetEnvironmentVariable8(name);
    qvGetEnvironmentVariable8_long(name);
    qvGetDirName_local(name);
    qvSupport::applicationPathFrom(wide.lay(damage, current16Image(250)), argument,
                                   result.lay(damage, currentImage(250)));
    qvSegment::segmentKey(name);
    qvSharedMemory const segment(name);
    return segment.name.length <= 250;
}

} // namespace qvTest
