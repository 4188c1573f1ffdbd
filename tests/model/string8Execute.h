#pragma once

#include "strings/qvString8.h"
#include "tests/model/guardedObject.h"
#include "tests/model/memberProbe.h"
#include "tests/model/string8Call.h"

#include <optional>
#include <type_traits>
#include <vector>
#if __has_include("strings/qvString8_old.h")
#include "strings/qvString8_old.h"
#define QV_HAS_OLD_STRING8 1
#else
#define QV_HAS_OLD_STRING8 0
#endif

namespace qvTest {

// What a call on a real object gave back.
struct Outcome
{
    std::optional<long long> value;
    std::optional<long long> side;
    std::optional<std::vector<unsigned char>> text;
};

template <class C>
using GuardedStrings = std::vector<GuardedObject<C>>;

template <class T>
std::vector<unsigned char> bytesOf(T const& object)
{
    auto const* const first = reinterpret_cast<unsigned char const*>(&object);
    return std::vector<unsigned char>(first, first + sizeof(T));
}

// Runs one call on objects of class C. A member that C does not have is left out, so one driver
// serves the current string, the older ones that lack members, and a class under construction.
template <class C, std::size_t N>
class String8Execution
{
public:
    String8Execution(String8Call const& theCall, GuardedStrings<C>& theObjects)
        : call(theCall),
          objects(theObjects),
          s(objects[call.receiver].get()),
          o(objects[call.arguments[0]].get()),
          second(objects[call.arguments[1]].get()),
          t(terminatedText())
    {}

    // No outcome when the class lacks the member.
    std::optional<Outcome> run()
    {
        if (construct() || assign() || state() || append() || equality() || order() || affixes() ||
            positions() || containment() || edit() || slice() || numberText() || numberValue())
            return outcome;
        return std::nullopt;
    }

private:
    bool construct();
    bool assign();
    bool state();
    bool append();
    bool equality();
    bool order();
    bool affixes();
    bool positions();
    bool containment();
    bool edit();
    bool slice();
    bool numberText();
    bool numberValue();

    char const* terminatedText() const
    {
        if (call.isNull)
            return nullptr;
        if (call.ownTextOf == String8Call::noString)
            return call.buffer.get();
        return objects[static_cast<std::size_t>(call.ownTextOf)].get().text;
    }

    char const* countedText() const { return call.isNull ? nullptr : call.buffer.get(); }

    template <class... Arguments>
    bool constructed(Arguments&&... arguments)
    {
        objects[call.receiver].construct(std::forward<Arguments>(arguments)...);
        return true;
    }

    bool gives(long long value)
    {
        outcome.value = value;
        return true;
    }

    bool givesText(C const& text)
    {
        outcome.text = bytesOf(text);
        return true;
    }

    // For members that return their receiver, as the reference or as a copy of it.
    template <class Result>
    bool givesSelf(Result&& result)
    {
        outcome.value = !std::is_lvalue_reference_v<Result> || &result == &s;
        return givesText(result);
    }

    template <class Function>
    bool firstOf(Function const& search)
    {
        int which = 77;
        gives(search(call.withOut ? &which : nullptr));
        if (call.withOut)
            outcome.side = which;
        return true;
    }

    template <class Function>
    bool parsed(Function const& parse)
    {
        bool ok = false;
        gives(parse(call.withOut ? &ok : nullptr));
        if (call.withOut)
            outcome.side = ok;
        return true;
    }

    // An older image in storage of its own. Beyond the capacities of its own members only its
    // fields exist, so it is filled as bytes and never constructed.
    template <class Legacy, class Use>
    bool withLegacy(String8Image const& image, Use const& use)
    {
        std::vector<unsigned char> const bytes = legacySource(image, call).bytes();
        auto const storage = std::make_unique<unsigned char[]>(bytes.size());
        std::copy(bytes.begin(), bytes.end(), storage.get());
        if (sizeof(Legacy) != bytes.size())
            return gives(-1); // an image of another size: no model agrees with this
        keepBytes(storage.get());
        use(*reinterpret_cast<Legacy const*>(storage.get()));
        return true;
    }

    // A view of a text in a string of another capacity.
    template <class Use>
    bool withOtherView(Use const& use)
    {
        _qvString8_allSize<otherViewCapacity> other;
        other.length = static_cast<unsigned short>(call.characters.size());
        std::copy_n(call.characters.begin(), other.length, other.text);
        use(const_cast<_qvString8_Uni_pointer*>(other.asUni()));
        return true;
    }

    String8Call const& call;
    GuardedStrings<C>& objects;
    C& s;
    C& o;
    C& second;
    char const* const t;
    Outcome outcome;
};

} // namespace qvTest

#include "tests/model/string8ExecuteCore.h"
#include "tests/model/string8ExecuteEditing.h"
#include "tests/model/string8ExecuteSearch.h"
