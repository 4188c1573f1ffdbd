/// Which members the 8-bit strings have, and which the two older ones must not have. Asked by the
/// address of the very overload, with its exact type: a call could be answered by another overload,
/// by a conversion or by a rewritten comparison. A table of addresses also makes the linker look
/// for every member.

#include "tests/strings/images8.h"
#include "tests/strings/takes.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace images8 {
namespace {

using Text = char const*;
using Flag = bool const&;
using Char = char const&;
using Int = int const&;
using Long = long long const&;
using Unit = unsigned short const&;

template <typename S>
struct SharedMembers8
{
    using Ref = S const&;

    void (S::*change[6])() = {&S::clear,     &S::clearUnused, &S::calcLength,
                              &S::makeUpper, &S::makeLower,   &S::trim};
    bool (S::*isSo[2])() const = {&S::isEmpty, &S::hasData};
    void (S::*setLength)(short const&) = &S::setLength;
    S (*createCharString)(char&, Int) = &S::createCharString;

    S& (S::*takeString[4])(Ref) = {&S::operator=, &S::operator+=, &S::remove, &S::removeCaseSens};
    S& (S::*takeText[2])(Text) = {&S::operator=, &S::operator+= };
    S& (S::*takeCharacter[2])(Char) = {&S::operator=, &S::operator+= };
    void (S::*addString)(Ref) = &S::add;
    void (S::*addText)(Text) = &S::add;
    void (S::*addCounted)(Text, unsigned int) = &S::add;
    S (S::*plusString)(Ref) = &S::operator+;
    S (S::*copyWithCharacter[2])(Char) = {&S::operator+, &S::remove};
    S (S::*combinedString)(Ref) const = &S::combined;
    S (S::*combinedText)(Text) const = &S::combined;

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
    bool (S::*askText[7])(Text) const = {
        &S::operator==, &S::contains,          &S::containsCaseSen, &S::containsUpperCaseInput,
        &S::startsWith, &S::startsWithCaseSen, &S::endsWith};
    bool (S::*askCounted[4])(Text, int) const = {&S::isEqual, &S::isEqualSameCase, &S::startsWith,
                                                 &S::endsWith};
    bool (S::*containsCounted)(Text, Int) const = &S::containsCaseSen;
    bool (S::*askCharacter[3])(Char) const = {&S::contains, &S::startsWith, &S::endsWith};
    int (S::*order[2])(Ref) const = {&S::compare, &S::compareSameCase};

    int (S::*findString[2])(Ref, int) const = {&S::indexOf, &S::indexOfCaseSen};
    int (S::*findCharacter[3])(Char, int) const = {&S::indexOf, &S::indexOfCaseSen,
                                                   &S::lastIndexOf};
    int (S::*firstOfTwo)(Ref, Ref, int*) const = &S::indexOfFirstOcc;
    int (S::*firstOfSix)(Ref, Ref, Ref, Ref, Ref, Ref, int*) const = &S::indexOfFirstOcc;
    int (S::*count)(char) const = &S::count;
    int (S::*countCaseSen)(Char) const = &S::countCaseSen;

    S& (S::*replaceCharacter)(Char, Char) = &S::replace;
    S& (S::*replaceString[2])(Ref, Ref) = {&S::replace, &S::replaceCaseSen};
    void (S::*removeRange)(Int, Int) = &S::remove;
    void (S::*insert)(Int, Ref) = &S::insert;
    S (S::*mid)(Int, Int) const = &S::mid;
    S (S::*left)(int) const = &S::left;
    S (S::*leftOf)(Char, Flag) const = &S::left;
    S (S::*leftNCut)(Char, Flag) = &S::leftNCut;
    void (S::*addSpacing[2])(Text, Int) = {&S::addSpacingC, &S::addSpacing};
    void (S::*addNrSpacing)(Long, signed char const&) = &S::addNrSpacing;
};

template <int N>
struct CurrentMembers8
{
    using S = _qvString8_allSize<N>;
    using Even = _qvString8_evenSize_old<N>;
    using Uneven = _qvString8_UnevenSize_old<N>;

    int (S::*findUnit[2])(Unit, int) const = {&S::indexOf, &S::lastIndexOf};
    bool (S::*differsFromText)(Text) const = &S::operator!=;

    void (S::*addInt)(Int) = &S::addNr;
    void (S::*addLong)(Long) = &S::addNr;
    void (S::*addUnsigned)(unsigned long long const&) = &S::addNr;
    void (S::*addIntField)(Int, unsigned char const&) = &S::addNr;
    void (S::*addLongField)(Long, unsigned char const&) = &S::addNr;
    S (*fromNr)(Long) = &S::fromNr;
    void (S::*addHexSignedChar)(signed char const&) = &S::addHexCode;
    void (S::*addHexUnsignedChar)(unsigned char const&) = &S::addHexCode;
    void (S::*addHexShort)(short const&) = &S::addHexCode;
    void (S::*addHexUnsignedShort)(Unit) = &S::addHexCode;
    void (S::*addHexInt)(Int) = &S::addHexCode;
    void (S::*addHexUnsigned)(unsigned int const&) = &S::addHexCode;
    int (S::*toInt)(bool*) const = &S::toInt;
    long long (S::*toInt64)(bool*) const = &S::toInt64;
    long long (S::*toIntFromHex)(Int, Flag, Flag, bool*) = &S::toIntFromHex;

    void (S::*fromChar)(Text, Int) = &S::fromChar;
    S& (S::*takeEven)(Even const&) = &S::operator=;
    S& (S::*takeUneven)(Uneven const&) = &S::operator=;
    bool (S::*equalsEven)(Even const&) const = &S::operator==;
    bool (S::*equalsUneven)(Uneven const&) const = &S::operator==;
    static_assert(std::is_constructible_v<S, Even const&>);
    static_assert(std::is_constructible_v<S, Uneven const&>);
};

template <typename S>
SharedMembers8<S> const sharedMembers = {};
template <int N>
CurrentMembers8<N> const currentMembers = {};

/// Constructors have no address; building an object calls for them all the same.
template <typename S>
bool builds()
{
    S const fromNothing;
    S const fromText("a");
    S const fromCount("ab", 1);
    return fromNothing.isEmpty() && fromText == fromCount && std::is_copy_constructible_v<S>;
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

template <int... N>
void keepCurrentMembers()
{
    (keep(&currentMembers<N>), ...);
}

using Older = testing::Types<
    _qvString8_evenSize_old<6>, _qvString8_evenSize_old<8>, _qvString8_evenSize_old<10>,
    _qvString8_evenSize_old<12>, _qvString8_evenSize_old<14>, _qvString8_evenSize_old<20>,
    _qvString8_evenSize_old<30>, _qvString8_evenSize_old<40>, _qvString8_evenSize_old<50>,
    _qvString8_evenSize_old<100>, _qvString8_evenSize_old<150>, _qvString8_evenSize_old<200>,
    _qvString8_evenSize_old<250>, _qvString8_evenSize_old<500>, _qvString8_evenSize_old<1000>,
    _qvString8_evenSize_old<3000>, _qvString8_evenSize_old<5000>, _qvString8_UnevenSize_old<7>,
    _qvString8_UnevenSize_old<15>, _qvString8_UnevenSize_old<25>, _qvString8_UnevenSize_old<75>,
    _qvString8_UnevenSize_old<125>>;

TEST(Members8, theCurrentStringHasThemAtEachCapacity)
{
    EXPECT_TRUE(haveSharedMembers(guarded::AllStrings8()));
    keepCurrentMembers<6, 7, 8, 10, 12, 14, 15, 20, 25, 29, 30, 40, 50, 75, 100, 125, 150, 200, 250,
                       500, 1000, 2000, 3000, 5000>();
    EXPECT_NE(kept, nullptr);
}

TEST(Members8, theOlderStringsHaveTheSharedOnes)
{
    EXPECT_TRUE(haveSharedMembers(Older()));
}

/// A member of any signature makes the name ambiguous beside one that surely is there.
#define NAMES_NO(name)                                                                             \
    template <typename S>                                                                          \
    constexpr bool hasNo_##name()                                                                  \
    {                                                                                              \
        struct Sure                                                                                \
        {                                                                                          \
            int name;                                                                              \
        };                                                                                         \
        struct Both : S, Sure                                                                      \
        {};                                                                                        \
        return []<typename B>(std::type_identity<B>) {                                             \
            return requires                                                                        \
            {                                                                                      \
                &B::name;                                                                          \
            };                                                                                     \
        }(std::type_identity<Both>());                                                             \
    }
NAMES_NO(addNr)
NAMES_NO(addHexCode)
NAMES_NO(fromNr)
NAMES_NO(toInt)
NAMES_NO(toInt64)
NAMES_NO(toIntFromHex)
NAMES_NO(asChar)
NAMES_NO(toChar)
NAMES_NO(asUni)
NAMES_NO(fromChar)
NAMES_NO(trim)
#undef NAMES_NO

template <typename S>
constexpr bool hasNoNumbersAndNoDirectAccess()
{
    return hasNo_addNr<S>() && hasNo_addHexCode<S>() && hasNo_fromNr<S>() && hasNo_toInt<S>() &&
           hasNo_toInt64<S>() && hasNo_toIntFromHex<S>() && hasNo_asChar<S>() &&
           hasNo_toChar<S>() && hasNo_asUni<S>() && hasNo_fromChar<S>();
}

/// The question must be able to answer no.
static_assert(!hasNo_trim<_qvString8_evenSize_old<6>>());
static_assert(!hasNo_toInt<_qvString8_allSize<6>>());
static_assert(!hasNo_asChar<_qvString8_allSize<6>>());
static_assert(!hasNo_addNr<_qvString8_allSize<6>>());

/// The overloads below bear names that the older strings have for other arguments.
template <typename S>
constexpr bool assignsStdString = requires
{
    Takes<S, std::string const&>::member(&S::operator=);
};
template <typename S>
constexpr bool assignsView = requires
{
    Takes<S, _qvString8_Uni_pointer*>::member(&S::operator=);
}
|| requires
{
    Takes<S, _qvString8_Uni_pointer const*>::member(&S::operator=);
};
template <typename S>
constexpr bool appendsUnit = requires
{
    Takes<S, unsigned short const&>::member(&S::operator+=);
};
template <typename S>
constexpr bool findsUnit = requires
{
    Takes<S, unsigned short const&, int>::constMember(&S::indexOf);
};
template <typename S>
constexpr bool findsUnitFromTheEnd = requires
{
    Takes<S, unsigned short const&, int>::constMember(&S::lastIndexOf);
};
template <typename S>
constexpr bool differsFromText = requires
{
    Takes<S, Text>::constMember(&S::operator!=);
};

template <typename S>
constexpr bool hasNoOtherSources()
{
    return !std::is_constructible_v<S, unsigned short const*> &&
           !std::is_constructible_v<S, _qvString8_Uni_pointer const*> &&
           !std::is_constructible_v<S, _qvString8_Uni_pointer*> &&
           !std::is_constructible_v<S, std::string const&> && !assignsStdString<S> &&
           !assignsView<S> && !appendsUnit<S> && !findsUnit<S> && !findsUnitFromTheEnd<S> &&
           !differsFromText<S>;
}

template <typename S>
constexpr bool hasAllOtherSources()
{
    return std::is_constructible_v<S, unsigned short const*> &&
           std::is_constructible_v<S, _qvString8_Uni_pointer const*> && assignsStdString<S> &&
           assignsView<S> && appendsUnit<S> && findsUnit<S> && findsUnitFromTheEnd<S> &&
           differsFromText<S>;
}
static_assert(hasAllOtherSources<_qvString8_allSize<6>>());

/// Text goes from an older image to the current one and no other way.
template <typename S>
constexpr bool takesNoTextFromOtherStrings()
{
    constexpr int n = intCapacity<S>;
    using Current = _qvString8_allSize<n>;
    using Even = _qvString8_evenSize_old<n>;
    using Uneven = _qvString8_UnevenSize_old<n>;
    return !std::is_constructible_v<S, Current const&> &&
           !std::is_assignable_v<S&, Current const&> &&
           !std::is_constructible_v<Even, Uneven const&> &&
           !std::is_constructible_v<Uneven, Even const&> &&
           !std::is_assignable_v<Even&, Uneven const&> &&
           !std::is_assignable_v<Uneven&, Even const&>;
}

template <typename... S>
constexpr bool haveOnlyTheSharedMembers(testing::Types<S...>)
{
    return ((hasNoNumbersAndNoDirectAccess<S>() && hasNoOtherSources<S>() &&
             takesNoTextFromOtherStrings<S>()) &&
            ...);
}
static_assert(haveOnlyTheSharedMembers(Older()));

} // namespace
} // namespace images8
