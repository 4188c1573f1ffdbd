/// Which members the 16-bit strings have, with which arguments and results, and which they must not
/// have. Asked by the address of the very overload: a call could be answered by another overload,
/// by a conversion or by a rewritten comparison. Taking the address also makes the linker look for
/// every member.

#include "tests/strings/guarded16.h"
#include "tests/strings/takes.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

using namespace images16;

using Bytes8 = char const*;
using UnitText = unsigned short const*;
using UnitRef = unsigned short const&;
using Char = char const&;
using Int = int const&;
using Flag = bool const&;
using Long = long long const&;

template <typename S>
class Members16 : public testing::Test
{};
using AllImages =
    testing::Types<_qvString<10>, _qvString<15>, _qvString<25>, _qvString<30>, _qvString<48>,
                   _qvString<50>, _qvString<75>, _qvString<100>, _qvString<125>, _qvString<150>,
                   _qvString<200>, _qvString<225>, _qvString<250>, _qvString<500>, _qvString<1000>,
                   _qvString<2500>, _qvString_old<10>, _qvString_old<15>, _qvString_old<25>,
                   _qvString_old<30>, _qvString_old<48>, _qvString_old<50>, _qvString_old<75>,
                   _qvString_old<100>, _qvString_old<125>, _qvString_old<150>, _qvString_old<200>,
                   _qvString_old<225>, _qvString_old<250>, _qvString_old<500>, _qvString_old<1000>,
                   _qvString_old<2500>>;
TYPED_TEST_SUITE(Members16, AllImages, ImageName);

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

template <typename S>
bool hasCore()
{
    return builds<S>() && Takes<S, S const&>::member(&S::operator=) &&
           Takes<S, Bytes8>::member(&S::operator=) && Takes<S, UnitText>::member(&S::operator=) &&
           Takes<S, UnitRef>::member(&S::operator=) && Takes<S>::member(&S::clear) &&
           Takes<S>::member(&S::clearUnused) && Takes<S>::member(&S::calcLength) &&
           Takes<S, short const&>::member(&S::setLength) &&
           Takes<S>::template constGives<bool>(&S::hasData) &&
           Takes<S>::template constGives<bool>(&S::isEmpty) &&
           Takes<S, unsigned short&, Int>::template functionGives<S>(&S::createCharString) &&
           Takes<S>::template constGives<_qvString8_allSize<250>>(
               &S::operator _qvString8_allSize<250>) &&
           Takes<S>::template constGives<_qvString8_allSize<500>>(
               &S::operator _qvString8_allSize<500>) &&
           Takes<S>::template constGives<_qvString8_allSize<250>>(&S::to_qvString8_250) &&
           Takes<S>::template constGives<_qvString8_allSize<500>>(&S::to_qvString8_500) &&
           Takes<S, char*, unsigned short>::constMember(&S::toChar);
}

template <typename S>
bool appends()
{
    return Takes<S, Bytes8>::member(&S::add) && Takes<S, UnitText, unsigned int>::member(&S::add) &&
           Takes<S, S const&>::member(&S::add) && Takes<S, Char>::member(&S::operator+=) &&
           Takes<S, UnitRef>::member(&S::operator+=) && Takes<S, Bytes8>::member(&S::operator+=) &&
           Takes<S, UnitText>::member(&S::operator+=) &&
           Takes<S, S const&>::member(&S::operator+=) &&
           Takes<S, Char>::template gives<S>(&S::operator+) &&
           Takes<S, S const&>::template gives<S>(&S::operator+) &&
           Takes<S, Bytes8>::template constGives<S>(&S::combined) &&
           Takes<S, S const&>::template constGives<S>(&S::combined);
}

template <typename S>
bool compares()
{
    return Takes<S, S const&>::template constGives<bool>(&S::operator==) &&
           Takes<S, Bytes8>::template constGives<bool>(&S::operator==) &&
           Takes<S, UnitText>::template constGives<bool>(&S::operator==) &&
           Takes<S, S const&>::template constGives<bool>(&S::operator!=) &&
           Takes<S, S const&>::template constGives<bool>(&S::operator<) &&
           Takes<S, S const&>::template constGives<bool>(&S::operator>) &&
           Takes<S, S const&>::template constGives<bool>(&S::isEqual) &&
           Takes<S, Bytes8, int>::template constGives<bool>(&S::isEqual) &&
           Takes<S, UnitText, int>::template constGives<bool>(&S::isEqual) &&
           Takes<S, S const&>::template constGives<bool>(&S::isEqualSameCase) &&
           Takes<S, UnitText, int>::template constGives<bool>(&S::isEqualSameCase) &&
           Takes<S, S const&>::template constGives<bool>(&S::isEqualUpperCaseInput) &&
           Takes<S, S const&>::template constGives<bool>(&S::isEqualLowerCaseInput) &&
           Takes<S, S const&>::template constGives<int>(&S::compare) &&
           Takes<S, S const&>::template constGives<int>(&S::compareSameCase);
}

template <typename S>
bool searches()
{
    using Ref = S const&;
    return Takes<S, Bytes8>::template gives<int>(&S::indexOf) &&
           Takes<S, Ref, int>::template constGives<int>(&S::indexOf) &&
           Takes<S, UnitRef, int>::template constGives<int>(&S::indexOf) &&
           Takes<S, Ref, int>::template constGives<int>(&S::indexOfCaseSen) &&
           Takes<S, UnitRef, int>::template constGives<int>(&S::indexOfCaseSen) &&
           Takes<S, UnitRef, int>::template constGives<int>(&S::lastIndexOf) &&
           Takes<S, Ref, Ref, int*>::template constGives<int>(&S::indexOfFirstOcc) &&
           Takes<S, Ref, Ref, Ref, Ref, Ref, Ref, int*>::template constGives<int>(
               &S::indexOfFirstOcc) &&
           Takes<S, char>::template constGives<int>(&S::count) &&
           Takes<S, Char>::template constGives<int>(&S::countCaseSen) &&
           Takes<S, Bytes8>::template constGives<bool>(&S::contains) &&
           Takes<S, Char>::template constGives<bool>(&S::contains) &&
           Takes<S, Ref>::template constGives<bool>(&S::contains) &&
           Takes<S, Bytes8>::template constGives<bool>(&S::containsCaseSen) &&
           Takes<S, Bytes8, Int>::template constGives<bool>(&S::containsCaseSen) &&
           Takes<S, Ref>::template constGives<bool>(&S::containsCaseSen) &&
           Takes<S, Bytes8>::template constGives<bool>(&S::containsUpperCaseInput) &&
           Takes<S, Ref>::template constGives<bool>(&S::containsUpperCaseInput);
}

template <typename S>
bool findsStartsAndEnds()
{
    return Takes<S, UnitRef>::template constGives<bool>(&S::startsWith) &&
           Takes<S, Bytes8>::template constGives<bool>(&S::startsWith) &&
           Takes<S, Bytes8, int>::template constGives<bool>(&S::startsWith) &&
           Takes<S, S>::template constGives<bool>(&S::startsWith) &&
           Takes<S, Bytes8>::template constGives<bool>(&S::startsWithCaseSen) &&
           Takes<S, S>::template constGives<bool>(&S::startsWithCaseSen) &&
           Takes<S, Char>::template constGives<bool>(&S::endsWith) &&
           Takes<S, UnitRef>::template constGives<bool>(&S::endsWith) &&
           Takes<S, Bytes8>::template constGives<bool>(&S::endsWith) &&
           Takes<S, Bytes8, int>::template constGives<bool>(&S::endsWith) &&
           Takes<S, S const&>::template constGives<bool>(&S::endsWith);
}

/// A reference to the receiver, as the class itself and not as one of its bases.
template <typename S>
bool edits()
{
    using Ref = S const&;
    return Takes<S>::member(&S::makeUpper) && Takes<S>::member(&S::makeLower) &&
           Takes<S>::member(&S::trim) &&
           Takes<S, UnitRef, UnitRef>::template gives<S&>(&S::replace) &&
           Takes<S, Ref, Ref>::template gives<S&>(&S::replace) &&
           Takes<S, Ref, Ref>::template gives<S&>(&S::replaceCaseSen) &&
           Takes<S, Ref>::template gives<S&>(&S::remove) &&
           Takes<S, Ref>::template gives<S&>(&S::removeCaseSens) &&
           Takes<S, UnitRef>::template gives<S>(&S::remove) &&
           Takes<S, Int, Int>::member(&S::remove) && Takes<S, Int, Ref>::member(&S::insert) &&
           Takes<S, Int, Int>::template constGives<S>(&S::mid) &&
           Takes<S, int>::template constGives<S>(&S::left) &&
           Takes<S, UnitRef, Flag>::template constGives<S>(&S::left) &&
           Takes<S, UnitRef, Flag>::template gives<S>(&S::leftNCut);
}

template <typename S>
bool writesNumbers()
{
    return Takes<S, Long>::member(&S::addNr) &&
           Takes<S, Long, unsigned char const&>::member(&S::addNr) &&
           Takes<S, Long, signed char const&>::member(&S::addNrSpacing) &&
           Takes<S, Long>::template functionGives<S>(&S::fromNr) &&
           Takes<S, bool*>::template constGives<int>(&S::toInt) &&
           Takes<S, UnitText, Int>::member(&S::addSpacing) &&
           Takes<S, Bytes8, Int>::member(&S::addSpacingC);
}

TYPED_TEST(Members16, inBothImages)
{
    using S = TypeParam;
    EXPECT_TRUE(hasCore<S>());
    EXPECT_TRUE(appends<S>());
    EXPECT_TRUE(compares<S>());
    EXPECT_TRUE(searches<S>());
    EXPECT_TRUE(findsStartsAndEnds<S>());
    EXPECT_TRUE(edits<S>());
    EXPECT_TRUE(writesNumbers<S>());
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
constexpr bool currentMembers()
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
constexpr bool olderMembers()
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
    return (currentMembers<N>() && ...) && (olderMembers<N>() && ...);
}
static_assert(atEach<10, 15, 25, 30, 48, 50, 75, 100, 125, 150, 200, 225, 250, 500, 1000, 2500>());

/// Makes the linker look for the members of the current string alone.
template <typename S>
bool hasWhatOnlyTheCurrentHas()
{
    return Takes<S>::template constGives<_qvString_Uni_pointer*>(&S::asUni) &&
           Takes<S, _qvString_Uni_pointer*>::member(&S::operator=) &&
           Takes<S, std::string const&>::member(&S::operator=) &&
           Takes<S, _qvString_old<intCapacity<S>> const&>::member(&S::operator=) &&
           Takes<S, Bytes8>::template constGives<bool>(&S::operator!=) &&
           Takes<S, int const&>::member(&S::addNr) &&
           Takes<S, unsigned int const&>::member(&S::addNr) &&
           Takes<S, unsigned char const&>::member(&S::addNr) &&
           Takes<S, unsigned long long const&>::member(&S::addNr);
}

template <typename S>
class CurrentMembers16 : public testing::Test
{};
TYPED_TEST_SUITE(CurrentMembers16, AllCapacities16<_qvString>, ImageName);

TYPED_TEST(CurrentMembers16, standAlone)
{
    EXPECT_TRUE(hasWhatOnlyTheCurrentHas<TypeParam>());
}

template <typename S>
class OlderMembers16 : public testing::Test
{};
TYPED_TEST_SUITE(OlderMembers16, AllCapacities16<_qvString_old>, ImageName);

TYPED_TEST(OlderMembers16, standAlone)
{
    EXPECT_TRUE((Takes<TypeParam, Char>::template constGives<bool>(&TypeParam::startsWith)));
}

} // namespace
