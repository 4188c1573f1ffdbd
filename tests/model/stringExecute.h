#pragma once

#include "qv/strings/qvString.h"
#include "qv/strings/qvString8.h"
#include "qv/strings/qvString8_old.h"
#include "qv/strings/qvString_old.h"
#include "tests/model/guardedObject.h"
#include "tests/model/memberProbe.h"
#include "tests/model/string16Call.h"
#include "tests/model/string8Call.h"

#include <optional>
#include <type_traits>
#include <vector>

namespace qvTest {

// What a call on a real object gave back.
struct Outcome
{
    std::optional<long long> value;
    std::optional<long long> side;
    std::optional<std::vector<unsigned char>> text;
    std::optional<std::vector<unsigned char>> narrow; // what a conversion to 8 bits wrote
};

template <class C>
using GuardedStrings = std::vector<GuardedObject<C>>;

template <class T>
std::vector<unsigned char> bytesOf(T const& object)
{
    auto const* const first = reinterpret_cast<unsigned char const*>(&object);
    return std::vector<unsigned char>(first, first + sizeof(T));
}

// A caller's buffer: of just the size that is told, or, as size 0 sets no bound, of just the size
// that the text needs.
inline std::vector<unsigned char> bufferOf(unsigned short size, std::size_t length)
{
    return std::vector<unsigned char>(size == 0 ? length + 1 : size, 0xAA);
}

// What a string of class C is made of, and how its text is viewed across capacities.
template <class C>
using UnitOf = std::remove_cvref_t<decltype(C::text[0])>;

template <class C>
constexpr bool isWide = sizeof(UnitOf<C>) == 2;

template <class C>
using ViewOf = std::conditional_t<isWide<C>, _qvString_Uni_pointer, _qvString8_Uni_pointer>;

// Only the current string takes the older ones; at most capacities of the other width there are
// none to ask for.
template <class C, class Current, class Old>
constexpr bool convertsFrom =
    std::conjunction_v<std::is_same<C, Current>, std::is_constructible<C, Old const&>>;

// Runs one call on objects of class C. A member that C does not have is left out, so one driver
// serves the current string, the older ones that lack members, and a class under construction.
template <class C, std::size_t N>
class StringExecution
{
    using Unit = UnitOf<C>;
    using View = ViewOf<C>;
    using Model = std::conditional_t<isWide<C>, String16Model, String8Model>;

public:
    StringExecution(StringCall const& theCall, GuardedStrings<C>& theObjects)
        : call(theCall),
          objects(theObjects),
          s(objects[call.receiver].get()),
          o(objects[call.arguments[0]].get()),
          second(objects[call.arguments[1]].get()),
          t(terminatedText()),
          u(terminatedUnits())
    {}

    // No outcome when the class lacks the member.
    std::optional<Outcome> run()
    {
        if (construct() || assign() || state() || append() || equality() || order() || affixes() ||
            positions() || containment() || edit() || slice() || numberText() || numberValue() ||
            narrowing())
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
    bool narrowing();

    char const* terminatedText() const
    {
        if (call.isNull)
            return nullptr;
        if constexpr (!isWide<C>)
            if (call.ownTextOf != StringCall::noString)
                return objects[static_cast<std::size_t>(call.ownTextOf)].get().text;
        return call.buffer.get();
    }

    unsigned short const* terminatedUnits() const
    {
        if (call.isNull)
            return nullptr;
        if constexpr (isWide<C>)
            if (call.ownTextOf != StringCall::noString)
                return objects[static_cast<std::size_t>(call.ownTextOf)].get().text;
        return call.unitBuffer.get();
    }

    char const* countedText() const { return call.isNull ? nullptr : call.buffer.get(); }
    unsigned short const* countedUnits() const
    {
        return call.isNull ? nullptr : call.unitBuffer.get();
    }

    Unit single() const { return call.single<Unit>(); }
    Unit secondSingle() const { return call.secondSingle<Unit>(); }

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

    template <std::size_t capacity>
    bool givesNarrow(_qvString8_allSize<capacity> const& text)
    {
        std::vector<unsigned char> bytes = bytesOf(text);
        bytes.resize(2 + capacity + 1);
        outcome.narrow = std::move(bytes);
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
    bool withLegacy(StringImage const& image, Use const& use)
    {
        std::vector<unsigned char> const bytes = legacySource<Model>(image, call).bytes();
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
        using Other = std::conditional_t<isWide<C>, _qvString<2500>, _qvString8_allSize<5000>>;
        static_assert(sizeof(Other::text) / sizeof(Unit) == otherViewCapacity<Unit> + 1);
        auto const& viewed = call.plain<Unit>();
        Other other;
        other.length = static_cast<unsigned short>(viewed.size());
        std::copy_n(viewed.begin(), other.length, other.text);
        use(const_cast<View*>(other.asUni()));
        return true;
    }

    // A view of a byte text, for a string of units.
    template <class Use>
    bool withView8(Use const& use)
    {
        _qvString8_allSize<5000> other;
        other.length =
            static_cast<unsigned short>(std::min<std::size_t>(call.characters.size(), 5000));
        std::copy_n(call.characters.begin(), other.length, other.text);
        use(call.flag ? nullptr : other.asUni());
        return true;
    }

    StringCall const& call;
    GuardedStrings<C>& objects;
    C& s;
    C& o;
    C& second;
    char const* const t;
    unsigned short const* const u;
    Outcome outcome;
};

} // namespace qvTest

#include "tests/model/stringExecuteCore.h"
#include "tests/model/stringExecuteEditing.h"
#include "tests/model/stringExecuteSearch.h"
