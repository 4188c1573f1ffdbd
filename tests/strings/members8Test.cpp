/// Which members the 8-bit strings have, and which the two older ones must not have. Asked by the
/// address of the very overload: a call could be answered by another overload, by a conversion or
/// by a rewritten comparison. Taking the address also makes the linker look for every member.

#include "tests/strings/images8.h"
#include "tests/strings/takes.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

using namespace images8;

using Text = char const*;
using Flag = bool const&;
using Char = char const&;
using Int = int const&;
using Long = long long const&;

/// Constructors have no address; building an object calls for them all the same.
template <typename S>
bool builds()
{
    S const fromNothing;
    S const fromText("a");
    S const fromCount("ab", 1);
    return fromNothing.isEmpty() && fromText == fromCount && std::is_copy_constructible_v<S>;
}

template <typename S>
class SharedMembers8 : public testing::Test
{};
using CurrentAndOlder = testing::Types<
    _qvString8_allSize<6>, _qvString8_allSize<7>, _qvString8_allSize<8>, _qvString8_allSize<10>,
    _qvString8_allSize<12>, _qvString8_allSize<14>, _qvString8_allSize<15>, _qvString8_allSize<20>,
    _qvString8_allSize<25>, _qvString8_allSize<29>, _qvString8_allSize<30>, _qvString8_allSize<40>,
    _qvString8_allSize<50>, _qvString8_allSize<75>, _qvString8_allSize<100>,
    _qvString8_allSize<125>, _qvString8_allSize<150>, _qvString8_allSize<200>,
    _qvString8_allSize<250>, _qvString8_allSize<500>, _qvString8_allSize<1000>,
    _qvString8_allSize<2000>, _qvString8_allSize<3000>, _qvString8_allSize<5000>,
    _qvString8_evenSize_old<6>, _qvString8_evenSize_old<8>, _qvString8_evenSize_old<10>,
    _qvString8_evenSize_old<12>, _qvString8_evenSize_old<14>, _qvString8_evenSize_old<20>,
    _qvString8_evenSize_old<30>, _qvString8_evenSize_old<40>, _qvString8_evenSize_old<50>,
    _qvString8_evenSize_old<100>, _qvString8_evenSize_old<150>, _qvString8_evenSize_old<200>,
    _qvString8_evenSize_old<250>, _qvString8_evenSize_old<500>, _qvString8_evenSize_old<1000>,
    _qvString8_evenSize_old<3000>, _qvString8_evenSize_old<5000>, _qvString8_UnevenSize_old<7>,
    _qvString8_UnevenSize_old<15>, _qvString8_UnevenSize_old<25>, _qvString8_UnevenSize_old<75>,
    _qvString8_UnevenSize_old<125>>;
TYPED_TEST_SUITE(SharedMembers8, CurrentAndOlder, ImageName);

TYPED_TEST(SharedMembers8, constructionAndState)
{
    using S = TypeParam;
    EXPECT_TRUE(builds<S>());
    EXPECT_TRUE((Takes<S>::member(&S::clear)));
    EXPECT_TRUE((Takes<S>::member(&S::clearUnused)));
    EXPECT_TRUE((Takes<S>::member(&S::calcLength)));
    EXPECT_TRUE((Takes<S, short const&>::member(&S::setLength)));
    EXPECT_TRUE((Takes<S>::constMember(&S::isEmpty)));
    EXPECT_TRUE((Takes<S>::constMember(&S::hasData)));
    EXPECT_TRUE((Takes<S, char&, Int>::functionGives(&S::createCharString)));
}

TYPED_TEST(SharedMembers8, assignmentAndAppend)
{
    using S = TypeParam;
    EXPECT_TRUE((Takes<S, S const&>::member(&S::operator=)));
    EXPECT_TRUE((Takes<S, Text>::member(&S::operator=)));
    EXPECT_TRUE((Takes<S, Char>::member(&S::operator=)));
    EXPECT_TRUE((Takes<S, Text>::member(&S::add)));
    EXPECT_TRUE((Takes<S, Text, unsigned int>::member(&S::add)));
    EXPECT_TRUE((Takes<S, S const&>::member(&S::add)));
    EXPECT_TRUE((Takes<S, Text>::member(&S::operator+=)));
    EXPECT_TRUE((Takes<S, Char>::member(&S::operator+=)));
    EXPECT_TRUE((Takes<S, S const&>::member(&S::operator+=)));
    EXPECT_TRUE((Takes<S, Char>::member(&S::operator+)));
    EXPECT_TRUE((Takes<S, S const&>::member(&S::operator+)));
    EXPECT_TRUE((Takes<S, Text>::constMember(&S::combined)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::combined)));
}

TYPED_TEST(SharedMembers8, comparison)
{
    using S = TypeParam;
    EXPECT_TRUE((Takes<S, Text>::constMember(&S::operator==)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::operator==)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::operator!=)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::operator<)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::operator>)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::compare)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::compareSameCase)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::isEqual)));
    EXPECT_TRUE((Takes<S, Text, int>::constMember(&S::isEqual)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::isEqualSameCase)));
    EXPECT_TRUE((Takes<S, Text, int>::constMember(&S::isEqualSameCase)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::isEqualUpperCaseInput)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::isEqualLowerCaseInput)));
}

TYPED_TEST(SharedMembers8, search)
{
    using S = TypeParam;
    EXPECT_TRUE((Takes<S, Char, int>::constMember(&S::indexOf)));
    EXPECT_TRUE((Takes<S, S const&, int>::constMember(&S::indexOf)));
    EXPECT_TRUE((Takes<S, Char, int>::constMember(&S::indexOfCaseSen)));
    EXPECT_TRUE((Takes<S, S const&, int>::constMember(&S::indexOfCaseSen)));
    EXPECT_TRUE((Takes<S, Char, int>::constMember(&S::lastIndexOf)));
    EXPECT_TRUE((Takes<S, S const&, S const&, int*>::constMember(&S::indexOfFirstOcc)));
    EXPECT_TRUE(
        (Takes<S, S const&, S const&, S const&, S const&, S const&, S const&, int*>::constMember(
            &S::indexOfFirstOcc)));
    EXPECT_TRUE((Takes<S, char>::constMember(&S::count)));
    EXPECT_TRUE((Takes<S, Char>::constMember(&S::countCaseSen)));
    EXPECT_TRUE((Takes<S, Text>::constMember(&S::contains)));
    EXPECT_TRUE((Takes<S, Char>::constMember(&S::contains)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::contains)));
    EXPECT_TRUE((Takes<S, Text>::constMember(&S::containsCaseSen)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::containsCaseSen)));
    EXPECT_TRUE((Takes<S, Text, Int>::constMember(&S::containsCaseSen)));
    EXPECT_TRUE((Takes<S, Text>::constMember(&S::containsUpperCaseInput)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::containsUpperCaseInput)));
}

TYPED_TEST(SharedMembers8, affixes)
{
    using S = TypeParam;
    EXPECT_TRUE((Takes<S, Char>::constMember(&S::startsWith)));
    EXPECT_TRUE((Takes<S, Text>::constMember(&S::startsWith)));
    EXPECT_TRUE((Takes<S, Text, int>::constMember(&S::startsWith)));
    EXPECT_TRUE((Takes<S, S>::constMember(&S::startsWith)));
    EXPECT_TRUE((Takes<S, Text>::constMember(&S::startsWithCaseSen)));
    EXPECT_TRUE((Takes<S, S>::constMember(&S::startsWithCaseSen)));
    EXPECT_TRUE((Takes<S, Char>::constMember(&S::endsWith)));
    EXPECT_TRUE((Takes<S, Text>::constMember(&S::endsWith)));
    EXPECT_TRUE((Takes<S, Text, int>::constMember(&S::endsWith)));
    EXPECT_TRUE((Takes<S, S const&>::constMember(&S::endsWith)));
}

TYPED_TEST(SharedMembers8, editing)
{
    using S = TypeParam;
    EXPECT_TRUE((Takes<S>::member(&S::makeUpper)));
    EXPECT_TRUE((Takes<S>::member(&S::makeLower)));
    EXPECT_TRUE((Takes<S>::member(&S::trim)));
    EXPECT_TRUE((Takes<S, Char, Char>::member(&S::replace)));
    EXPECT_TRUE((Takes<S, S const&, S const&>::member(&S::replace)));
    EXPECT_TRUE((Takes<S, S const&, S const&>::member(&S::replaceCaseSen)));
    EXPECT_TRUE((Takes<S, Char>::member(&S::remove)));
    EXPECT_TRUE((Takes<S, Int, Int>::member(&S::remove)));
    EXPECT_TRUE((Takes<S, S const&>::member(&S::remove)));
    EXPECT_TRUE((Takes<S, S const&>::member(&S::removeCaseSens)));
    EXPECT_TRUE((Takes<S, Int, S const&>::member(&S::insert)));
    EXPECT_TRUE((Takes<S, Int, Int>::constMember(&S::mid)));
    EXPECT_TRUE((Takes<S, int>::constMember(&S::left)));
    EXPECT_TRUE((Takes<S, Char, Flag>::constMember(&S::left)));
    EXPECT_TRUE((Takes<S, Char, Flag>::member(&S::leftNCut)));
    EXPECT_TRUE((Takes<S, Text, Int>::member(&S::addSpacingC)));
    EXPECT_TRUE((Takes<S, Text, Int>::member(&S::addSpacing)));
    EXPECT_TRUE((Takes<S, Long, signed char const&>::member(&S::addNrSpacing)));
}

template <typename S>
class CurrentMembers8 : public testing::Test
{};
TYPED_TEST_SUITE(CurrentMembers8, guarded::AllStrings8, guarded::ImageName);

TYPED_TEST(CurrentMembers8, searchAndComparison)
{
    using S = TypeParam;
    EXPECT_TRUE((Takes<S, unsigned short const&, int>::constMember(&S::indexOf)));
    EXPECT_TRUE((Takes<S, unsigned short const&, int>::constMember(&S::lastIndexOf)));
    EXPECT_TRUE((Takes<S, Text>::constMember(&S::operator!=)));
}

TYPED_TEST(CurrentMembers8, numbersAndHexText)
{
    using S = TypeParam;
    EXPECT_TRUE((Takes<S, Int>::member(&S::addNr)));
    EXPECT_TRUE((Takes<S, Long>::member(&S::addNr)));
    EXPECT_TRUE((Takes<S, unsigned long long const&>::member(&S::addNr)));
    EXPECT_TRUE((Takes<S, Int, unsigned char const&>::member(&S::addNr)));
    EXPECT_TRUE((Takes<S, Long, unsigned char const&>::member(&S::addNr)));
    EXPECT_TRUE((Takes<S, Long>::functionGives(&S::fromNr)));
    EXPECT_TRUE((Takes<S, signed char const&>::member(&S::addHexCode)));
    EXPECT_TRUE((Takes<S, unsigned char const&>::member(&S::addHexCode)));
    EXPECT_TRUE((Takes<S, short const&>::member(&S::addHexCode)));
    EXPECT_TRUE((Takes<S, unsigned short const&>::member(&S::addHexCode)));
    EXPECT_TRUE((Takes<S, Int>::member(&S::addHexCode)));
    EXPECT_TRUE((Takes<S, unsigned int const&>::member(&S::addHexCode)));
    EXPECT_TRUE((Takes<S, bool*>::constMember(&S::toInt)));
    EXPECT_TRUE((Takes<S, bool*>::constMember(&S::toInt64)));
    EXPECT_TRUE((Takes<S, Int, Flag, Flag, bool*>::member(&S::toIntFromHex)));
}

template <int N>
constexpr int capacityOf(_qvString8_allSize<N> const*)
{
    return N;
}

TYPED_TEST(CurrentMembers8, conversionsFromBothOlderImages)
{
    using S = TypeParam;
    constexpr int n = capacityOf(static_cast<S const*>(nullptr));
    using Even = _qvString8_evenSize_old<n>;
    using Uneven = _qvString8_UnevenSize_old<n>;
    EXPECT_TRUE((std::is_constructible_v<S, Even const&>));
    EXPECT_TRUE((std::is_constructible_v<S, Uneven const&>));
    EXPECT_TRUE((Takes<S, Even const&>::member(&S::operator=)));
    EXPECT_TRUE((Takes<S, Uneven const&>::member(&S::operator=)));
    EXPECT_TRUE((Takes<S, Even const&>::constMember(&S::operator==)));
    EXPECT_TRUE((Takes<S, Uneven const&>::constMember(&S::operator==)));
}

/// A member of any signature makes the name ambiguous beside one that surely is there.
#define NAMES_NO(name)                                                                             \
    template <typename S>                                                                          \
    bool hasNo_##name()                                                                            \
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
class OlderMembers8 : public testing::Test
{};
using Older = testing::Types<
    _qvString8_evenSize_old<6>, _qvString8_evenSize_old<8>, _qvString8_evenSize_old<10>,
    _qvString8_evenSize_old<12>, _qvString8_evenSize_old<14>, _qvString8_evenSize_old<20>,
    _qvString8_evenSize_old<30>, _qvString8_evenSize_old<40>, _qvString8_evenSize_old<50>,
    _qvString8_evenSize_old<100>, _qvString8_evenSize_old<150>, _qvString8_evenSize_old<200>,
    _qvString8_evenSize_old<250>, _qvString8_evenSize_old<500>, _qvString8_evenSize_old<1000>,
    _qvString8_evenSize_old<3000>, _qvString8_evenSize_old<5000>, _qvString8_UnevenSize_old<7>,
    _qvString8_UnevenSize_old<15>, _qvString8_UnevenSize_old<25>, _qvString8_UnevenSize_old<75>,
    _qvString8_UnevenSize_old<125>>;
TYPED_TEST_SUITE(OlderMembers8, Older, ImageName);

TYPED_TEST(OlderMembers8, haveNoNumbersAndNoDirectAccess)
{
    using S = TypeParam;
    EXPECT_TRUE(hasNo_addNr<S>());
    EXPECT_TRUE(hasNo_addHexCode<S>());
    EXPECT_TRUE(hasNo_fromNr<S>());
    EXPECT_TRUE(hasNo_toInt<S>());
    EXPECT_TRUE(hasNo_toInt64<S>());
    EXPECT_TRUE(hasNo_toIntFromHex<S>());
    EXPECT_TRUE(hasNo_asChar<S>());
    EXPECT_TRUE(hasNo_toChar<S>());
    EXPECT_TRUE(hasNo_asUni<S>());
    EXPECT_TRUE(hasNo_fromChar<S>());
}

/// The question must be able to answer no.
TEST(MemberQuestion8, findsWhatIsThere)
{
    EXPECT_FALSE(hasNo_trim<_qvString8_evenSize_old<6>>());
    EXPECT_FALSE(hasNo_toInt<_qvString8_allSize<6>>());
    EXPECT_FALSE(hasNo_asChar<_qvString8_allSize<6>>());
    EXPECT_FALSE(hasNo_addNr<_qvString8_allSize<6>>());
}

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

TYPED_TEST(OlderMembers8, haveNoOtherSources)
{
    using S = TypeParam;
    EXPECT_FALSE((std::is_constructible_v<S, unsigned short const*>));
    EXPECT_FALSE((std::is_constructible_v<S, _qvString8_Uni_pointer const*>));
    EXPECT_FALSE((std::is_constructible_v<S, _qvString8_Uni_pointer*>));
    EXPECT_FALSE((std::is_constructible_v<S, std::string const&>));
    EXPECT_FALSE(assignsStdString<S>);
    EXPECT_FALSE(assignsView<S>);
    EXPECT_FALSE(appendsUnit<S>);
    EXPECT_FALSE(findsUnit<S>);
    EXPECT_FALSE(findsUnitFromTheEnd<S>);
    EXPECT_FALSE(differsFromText<S>);
}

TEST(MemberQuestion8, findsTheOverloadsOfTheCurrentString)
{
    using S = _qvString8_allSize<6>;
    EXPECT_TRUE(assignsStdString<S>);
    EXPECT_TRUE(assignsView<S>);
    EXPECT_TRUE(appendsUnit<S>);
    EXPECT_TRUE(findsUnit<S>);
    EXPECT_TRUE(findsUnitFromTheEnd<S>);
    EXPECT_TRUE(differsFromText<S>);
    EXPECT_TRUE((std::is_constructible_v<S, unsigned short const*>));
    EXPECT_TRUE((std::is_constructible_v<S, _qvString8_Uni_pointer const*>));
}

/// Text goes from an older image to the current one and no other way.
TYPED_TEST(OlderMembers8, takeNoTextFromOtherStrings)
{
    using S = TypeParam;
    constexpr int n = intCapacity<S>;
    using Current = _qvString8_allSize<n>;
    EXPECT_FALSE((std::is_constructible_v<S, Current const&>));
    EXPECT_FALSE((std::is_assignable_v<S&, Current const&>));
    using Even = _qvString8_evenSize_old<n>;
    using Uneven = _qvString8_UnevenSize_old<n>;
    EXPECT_FALSE((std::is_constructible_v<Even, Uneven const&>));
    EXPECT_FALSE((std::is_constructible_v<Uneven, Even const&>));
    EXPECT_FALSE((std::is_assignable_v<Even&, Uneven const&>));
    EXPECT_FALSE((std::is_assignable_v<Uneven&, Even const&>));
}

} // namespace
