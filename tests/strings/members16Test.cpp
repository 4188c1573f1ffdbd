/// Which members the 16-bit strings have, with which arguments and results, and which they must not
/// have. Asked by the address of the very overload, with its exact type: a call could be answered
/// by another overload, by a conversion or by a rewritten comparison. A table of addresses also
/// makes the linker look for every member.

#include "tests/strings/guarded16.h"
#include "tests/strings/takes.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace images16 {
namespace {

using Bytes8 = char const*;
using UnitText = unsigned short const*;
using UnitRef = unsigned short const&;
using Char = char const&;
using Int = int const&;
using Flag = bool const&;
using Long = long long const&;

template <typename S>
struct SharedMembers16
{
    using Ref = S const&;
    template <int N>
    using String8 = _qvString8_allSize<N>;

    void (S::*change[6])() = {&S::clear,     &S::clearUnused, &S::calcLength,
                              &S::makeUpper, &S::makeLower,   &S::trim};
    bool (S::*isSo[2])() const = {&S::isEmpty, &S::hasData};
    void (S::*setLength)(short const&) = &S::setLength;
    S (*createCharString)(unsigned short&, Int) = &S::createCharString;
    String8<250> (S::*to250[2])() const = {&S::operator _qvString8_allSize<250>,
                                           &S::to_qvString8_250};
    String8<500> (S::*to500[2])() const = {&S::operator _qvString8_allSize<500>,
                                           &S::to_qvString8_500};
    void (S::*toChar)(char*, unsigned short) const = &S::toChar;

    S& (S::*takeString[4])(Ref) = {&S::operator=, &S::operator+=, &S::remove, &S::removeCaseSens};
    S& (S::*takeBytes[2])(Bytes8) = {&S::operator=, &S::operator+= };
    S& (S::*takeUnits[2])(UnitText) = {&S::operator=, &S::operator+= };
    S& (S::*takeUnit[2])(UnitRef) = {&S::operator=, &S::operator+= };
    S& (S::*takeCharacter)(Char) = &S::operator+=;
    void (S::*addString)(Ref) = &S::add;
    void (S::*addBytes)(Bytes8) = &S::add;
    void (S::*addCounted)(UnitText, unsigned int) = &S::add;
    S (S::*plusString)(Ref) = &S::operator+;
    S (S::*plusCharacter)(Char) = &S::operator+;
    S (S::*combinedString)(Ref) const = &S::combined;
    S (S::*combinedBytes)(Bytes8) const = &S::combined;

    bool (S::*askString[12])(Ref) const = {&S::operator==,
                                           &S::operator!=,
                                           &S::operator<,
                                           &S::operator>,
                                           &S::isEqual,
                                           &S::isEqualSameCase,
                                           &S::isEqualUpperCaseInput,
                                           &S::isEqualLowerCaseInput,
                                           &S::contains,
                                           &S::containsCaseSen,
                                           &S::containsUpperCaseInput,
                                           &S::endsWith};
    bool (S::*askCopy[2])(S) const = {&S::startsWith, &S::startsWithCaseSen};
    bool (S::*askBytes[7])(Bytes8) const = {
        &S::operator==, &S::contains,          &S::containsCaseSen, &S::containsUpperCaseInput,
        &S::startsWith, &S::startsWithCaseSen, &S::endsWith};
    bool (S::*equalsUnits)(UnitText) const = &S::operator==;
    bool (S::*askCountedBytes[3])(Bytes8, int) const = {&S::isEqual, &S::startsWith, &S::endsWith};
    bool (S::*askCountedUnits[2])(UnitText, int) const = {&S::isEqual, &S::isEqualSameCase};
    bool (S::*containsCounted)(Bytes8, Int) const = &S::containsCaseSen;
    bool (S::*askUnit[2])(UnitRef) const = {&S::startsWith, &S::endsWith};
    bool (S::*askCharacter[2])(Char) const = {&S::contains, &S::endsWith};
    int (S::*order[2])(Ref) const = {&S::compare, &S::compareSameCase};

    int (S::*findBytes)(Bytes8) = &S::indexOf;
    int (S::*findString[2])(Ref, int) const = {&S::indexOf, &S::indexOfCaseSen};
    int (S::*findUnit[3])(UnitRef, int) const = {&S::indexOf, &S::indexOfCaseSen, &S::lastIndexOf};
    int (S::*firstOfTwo)(Ref, Ref, int*) const = &S::indexOfFirstOcc;
    int (S::*firstOfSix)(Ref, Ref, Ref, Ref, Ref, Ref, int*) const = &S::indexOfFirstOcc;
    int (S::*count)(char) const = &S::count;
    int (S::*countCaseSen)(Char) const = &S::countCaseSen;

    /// A reference to the receiver, as the class itself and not as one of its bases.
    S& (S::*replaceUnit)(UnitRef, UnitRef) = &S::replace;
    S& (S::*replaceString[2])(Ref, Ref) = {&S::replace, &S::replaceCaseSen};
    S (S::*removeUnit)(UnitRef) = &S::remove;
    void (S::*removeRange)(Int, Int) = &S::remove;
    void (S::*insert)(Int, Ref) = &S::insert;
    S (S::*mid)(Int, Int) const = &S::mid;
    S (S::*left)(int) const = &S::left;
    S (S::*leftOf)(UnitRef, Flag) const = &S::left;
    S (S::*leftNCut)(UnitRef, Flag) = &S::leftNCut;

    void (S::*addNr)(Long) = &S::addNr;
    void (S::*addNrField)(Long, unsigned char const&) = &S::addNr;
    void (S::*addNrSpacing)(Long, signed char const&) = &S::addNrSpacing;
    S (*fromNr)(Long) = &S::fromNr;
    int (S::*toInt)(bool*) const = &S::toInt;
    void (S::*addSpacing)(UnitText, Int) = &S::addSpacing;
    void (S::*addSpacingC)(Bytes8, Int) = &S::addSpacingC;
};

template <typename S>
struct CurrentMembers16
{
    _qvString_Uni_pointer* (S::*asUni)() const = &S::asUni;
    S& (S::*takeView)(_qvString_Uni_pointer*) = &S::operator=;
    S& (S::*takeStandardString)(std::string const&) = &S::operator=;
    S& (S::*takeOlder)(_qvString_old<intCapacity<S>> const&) = &S::operator=;
    bool (S::*differsFromBytes)(Bytes8) const = &S::operator!=;
    void (S::*addInt)(int const&) = &S::addNr;
    void (S::*addUnsigned)(unsigned int const&) = &S::addNr;
    void (S::*addUnsignedChar)(unsigned char const&) = &S::addNr;
    void (S::*addUnsignedLong)(unsigned long long const&) = &S::addNr;
};

template <typename S>
struct OlderMembers16
{
    bool (S::*startsWithCharacter)(Char) const = &S::startsWith;
};

template <typename S>
SharedMembers16<S> const sharedMembers = {};
template <typename S>
CurrentMembers16<S> const currentMembers = {};
template <typename S>
OlderMembers16<S> const olderMembers = {};

/// Constructors have no address; building an object calls for them all the same.
template <typename S>
bool builds()
{
    Unit const units[] = {u'a', 0};
    S const strings[] = {S(),        S('a'), S("a"), S("ab", 1), S(static_cast<UnitText>(units)),
                         S(units, 1)};
    return strings[0].isEmpty() && strings[1].isEqual(strings[4]) &&
           std::is_copy_constructible_v<S>;
}

void const* volatile kept = nullptr;

/// The table is needed, so it stays, and the linker looks for what it names.
void keep(void const* table)
{
    kept = table;
}

template <typename... S>
bool haveSharedMembers(testing::Types<S...>)
{
    return ((keep(&sharedMembers<S>), builds<S>()) && ...);
}

template <typename... S>
void keepCurrentMembers(testing::Types<S...>)
{
    (keep(&currentMembers<S>), ...);
}

template <typename... S>
void keepOlderMembers(testing::Types<S...>)
{
    (keep(&olderMembers<S>), ...);
}

TEST(Members16, bothStringsHaveThemAtEachCapacity)
{
    using Current = AllCapacities16<_qvString>;
    using Older = AllCapacities16<_qvString_old>;
    EXPECT_TRUE(haveSharedMembers(Current()));
    EXPECT_TRUE(haveSharedMembers(Older()));
    keepCurrentMembers(Current());
    keepOlderMembers(Older());
    EXPECT_NE(kept, nullptr);
}

// What the 8-bit string has and no 16-bit one.

// clang-format off
template <typename S>
concept HasByteOverloads =
    requires { Takes<S, Bytes8, int>::constMember(&S::isEqualSameCase); } ||
    requires { Takes<S, Char, int>::constMember(&S::indexOf); } ||
    requires { Takes<S, Char, int>::constMember(&S::indexOfCaseSen); } ||
    requires { Takes<S, Char, int>::constMember(&S::lastIndexOf); } ||
    requires { Takes<S, Char, Flag>::constMember(&S::left); } ||
    requires { Takes<S, Char, Flag>::member(&S::leftNCut); } ||
    requires { Takes<S, Char>::member(&S::remove); } ||
    requires { Takes<S, Char, Char>::member(&S::replace); } ||
    requires { Takes<S, Char>::member(&S::operator=); } ||
    requires { Takes<S, Bytes8, unsigned int>::member(&S::add); };

template <typename S>
concept HasHexNumbers =
    requires { &S::addHexCode; } || requires(S s) { s.addHexCode(1); } ||
    requires { &S::toIntFromHex; } || requires { &S::toInt64; } ||
    requires { Takes<S, Int, unsigned char const&>::member(&S::addNr); };

template <typename S>
concept HasCharAccess =
    requires { &S::asChar; } || requires(S s) { s.asChar(); } || requires(S s) { s.toChar(); } ||
    requires { &S::fromChar; } || requires { &S::endsWithCaseSen; };

// What tells the two images apart.

template <typename S>
concept StartsWithACharacter =
    requires { Takes<S, Char>::template constGives<bool>(&S::startsWith); };
template <typename S>
concept IsAnOverlay =
    requires { Takes<S>::template constGives<_qvString_Uni_pointer*>(&S::asUni); };
template <typename S>
concept TakesAnOverlay = requires { Takes<S, _qvString_Uni_pointer*>::member(&S::operator=); };
template <typename S>
concept HasAsUni = requires { &S::asUni; };
template <typename S>
concept TakesAStandardString = requires { Takes<S, std::string const&>::member(&S::operator=); };
template <typename S>
concept DiffersFromBytes =
    requires { Takes<S, Bytes8>::template constGives<bool>(&S::operator!=); };
template <typename S, typename Number>
concept AddsNumber = requires { Takes<S, Number const&>::member(&S::addNr); };
template <typename S, typename Old>
concept TakesTheOlder = requires { Takes<S, Old const&>::member(&S::operator=); };
// clang-format on

template <int N>
constexpr bool hasCurrentMembers()
{
    using S = _qvString<N>;
    static_assert(!HasByteOverloads<S> && !HasHexNumbers<S> && !HasCharAccess<S>);
    static_assert(!StartsWithACharacter<S>);
    static_assert(IsAnOverlay<S> && TakesAnOverlay<S> && TakesAStandardString<S>);
    static_assert(DiffersFromBytes<S> && TakesTheOlder<S, _qvString_old<N>>);
    static_assert(AddsNumber<S, int> && AddsNumber<S, unsigned int>);
    static_assert(AddsNumber<S, unsigned char> && AddsNumber<S, unsigned long long>);
    static_assert(std::is_constructible_v<S, _qvString_Uni_pointer const*>);
    static_assert(std::is_constructible_v<S, _qvString8_Uni_pointer const*>);
    static_assert(std::is_constructible_v<S, _qvString_old<N> const&>);
    return true;
}

template <int N>
constexpr bool hasOlderMembers()
{
    using S = _qvString_old<N>;
    static_assert(!HasByteOverloads<S> && !HasHexNumbers<S> && !HasCharAccess<S>);
    static_assert(StartsWithACharacter<S>);
    static_assert(!HasAsUni<S> && !TakesAnOverlay<S> && !TakesAStandardString<S>);
    static_assert(!DiffersFromBytes<S> && !TakesTheOlder<S, _qvString<N>>);
    static_assert(!AddsNumber<S, int> && !AddsNumber<S, unsigned int>);
    static_assert(!AddsNumber<S, unsigned char> && !AddsNumber<S, unsigned long long>);
    static_assert(!std::is_constructible_v<S, _qvString_Uni_pointer const*>);
    static_assert(!std::is_constructible_v<S, _qvString8_Uni_pointer const*>);
    static_assert(!std::is_constructible_v<S, _qvString<N> const&>);
    return true;
}

template <int... N>
constexpr bool atEach()
{
    return (hasCurrentMembers<N>() && ...) && (hasOlderMembers<N>() && ...);
}
static_assert(atEach<10, 15, 25, 30, 48, 50, 75, 100, 125, 150, 200, 225, 250, 500, 1000, 2500>());

} // namespace
} // namespace images16
