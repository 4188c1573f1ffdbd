/// The cost of QV_CHECKED's checks in a build without them: members with a check beside the core's
/// functions that they call, which have none.

#include "bench/measure.h"
#include "bench/texts.h"
#include "qv/strings/core/append.h"
#include "qv/strings/core/edit.h"
#include "qv/strings/core/findText.h"
#include "qv/strings/core/layoutOf.h"
#include "qv/strings/core/splice.h"
#include "qv/strings/qvString8.h"

namespace {

constexpr int capacity = 250;
using String = _qvString8_allSize<capacity>;

qvStrings::TextRef<char> ref(String& s)
{
    return {reinterpret_cast<unsigned char*>(&s),
            qvStrings::layoutOf<qvStrings::Image8<capacity>>()};
}

/// Registers both ways of one operation on the same text.
template <typename Member, typename Core>
void pair(std::string const& name, Member member, Core core)
{
    String const text(commonText(capacity / 2).c_str());
    measure("contract/" + name + "/250/ours", [text, s = text, member]() mutable {
        s = text;
        member(s);
        return &s;
    });
    measure("contract/" + name + "/250/core", [text, s = text, core]() mutable {
        s = text;
        core(s);
        return &s;
    });
}

void pairs()
{
    pair(
        "remove", [](String& s) { s.remove(5, 10); },
        [](String& s) { qvStrings::removeRange(ref(s), 5, 10); });
    pair(
        "insert", [](String& s) { s.insert(5, s); },
        [](String& s) { qvStrings::insert<char>(ref(s), 5, ref(s)); });
    pair(
        "append", [](String& s) { s.add("0123456789", 10); },
        [](String& s) {
            qvStrings::append(ref(s), qvStrings::Run<char>{"0123456789", 10});
        });
    pair(
        "upper", [](String& s) { s.makeUpper(); }, [](String& s) { qvStrings::makeUpper(ref(s)); });
    pair(
        "find", [](String& s) { benchmark::DoNotOptimize(s.indexOf("frame", 0)); },
        [](String& s) {
            String const pattern("frame");
            benchmark::DoNotOptimize(qvStrings::find<qvStrings::Case::folded, char>(
                ref(s), {pattern.text, pattern.length}, 0));
        });
}

[[maybe_unused]] bool const registered = (pairs(), true);

} // namespace
