#pragma once

#include "tests/model/stringArguments.h"
#include "tests/model/stringCall.h"

#include <array>
#include <utility>

namespace qvTest {

// The images: current and older ones of each width.
enum Images : unsigned
{
    c8 = 1,
    o8 = 2,
    c16 = 4,
    o16 = 8,
    both8 = c8 | o8,
    both16 = c16 | o16,
    current = c8 | c16,
    all = both8 | both16,
};

// Picks a member by its exact parameter types. A plain call would also accept a neighbour through a
// conversion (a unit for a char, a rewritten `!=`), and so drive the wrong rule.
template <class... Parameters>
struct Exact
{
    template <class Result, class Owner>
    static constexpr auto member(Result (Owner::*address)(Parameters...))
    {
        return address;
    }
    template <class Result>
    static constexpr auto member(Result (*address)(Parameters...))
    {
        return address;
    }
    template <class Result, class Owner>
    static constexpr auto question(Result (Owner::*address)(Parameters...) const)
    {
        return address;
    }
};

// What all rows have: the images with the member and the parameters.
template <class... Parameters, std::size_t... I>
CallWith<Slot<I, Parameters>...> callWith(std::index_sequence<I...>);

template <unsigned theImages, class Signature>
struct Row;

template <unsigned theImages, class... Parameters>
struct Row<theImages, void(Parameters...)>
{
    static constexpr unsigned images = theImages;
    using Call = decltype(callWith<Parameters...>(std::index_sequence_for<Parameters...>()));
    template <class C>
    using ExactFor = Exact<typename Parameters::template As<C>...>;
};

// Marks the rows that have no member to call.
struct Constructor
{};
struct OwnCall
{};

// By hand: the ways in past the members, and the member that writes into a caller's buffer.
struct TextPointers : OwnCall
{
    template <class C>
    static bool onObject(C& s)
    {
        bool const viewed = s.asUni() == reinterpret_cast<ViewOf<C> const*>(&s);
        if constexpr (isWide<C>)
            return viewed;
        else
            return viewed && s.asChar() == s.text && s.toChar() == s.text;
    }
    static bool onModel(auto&) { return true; }
};

struct WriteText : OwnCall
{
    static void onObject(auto& s, int at, auto unit) { s.text[at] = unit; }
    static void onModel(auto& s, int at, auto unit)
    {
        s.putText(static_cast<std::size_t>(at), unit);
    }
};

struct WriteSpare : OwnCall
{
    static void onObject(auto& s, unsigned short unit)
    {
        if constexpr (requires { s.reserved; })
            s.reserved = unit;
        else
            s.trailer = unit;
    }
    static void onModel(auto& s, char16_t unit) { s.putSpare(unit); }
};

// The buffer has just the size that is told, or, as size 0 sets no bound, the size of the text.
struct ToChar : OwnCall
{
    static std::vector<unsigned char> onObject(auto& s, unsigned short size)
    {
        std::vector<unsigned char> buffer(size == 0 ? s.length + 1u : size, 0xAA);
        s.toChar(reinterpret_cast<char*>(buffer.data()), size);
        return buffer;
    }
    static std::vector<unsigned char> onModel(auto& s, unsigned short size)
    {
        std::vector<unsigned char> buffer(size == 0 ? s.length() + 1 : size, 0xAA);
        s.toChar(buffer, size);
        return buffer;
    }
};

// The calls of the driver, one row each; object and model are both driven by it:
//
//     CALL(name, images, member, rule, (parameters))   a member
//     ASK(name, images, member, rule, (parameters))    a const member
//     MAKE(name, images, rule, (parameters))           a constructor
//     OWN(name, images, struct, (parameters))          one of the structs above
//
// The rule is the model's function. A name ending on Unit means a char for the 8-bit strings, a
// unit for the 16-bit ones; one ending on Char means a char for both. The corpora name calls by
// their place, so new ones go to the end.
// clang-format off
#define QV_STRING_CALLS(CALL, ASK, MAKE, OWN) \
    MAKE(constructEmpty, all, construct, ()) \
    MAKE(constructText, all, construct, (Text)) \
    MAKE(constructCounted, all, constructCounted, (CountedText, Number<int>)) \
    MAKE(constructUnits, c8, constructUnits, (WidenedText)) \
    MAKE(constructView, current, constructView, (ViewToConst)) \
    MAKE(constructOtherView, current, constructView, (OtherViewToConst)) \
    MAKE(constructCopy, all, operator=, (Object)) \
    MAKE(constructEvenOld, c8, constructLegacy, (EvenOld)) \
    MAKE(constructUnevenOld, c8, constructLegacy, (UnevenOld)) \
    CALL(createCharString, all, createCharString, createCharString, (SingleToWrite, Number<int const&>)) \
    CALL(assignObject, all, operator=, assign, (Object)) \
    CALL(assignText, all, operator=, assign, (OwnText)) \
    CALL(assignUnit, all, operator=, assignUnit, (Single)) \
    CALL(assignString, current, operator=, assignString, (StdString)) \
    CALL(assignView, current, operator=, assignView, (View)) \
    CALL(assignOtherView, current, operator=, assignView, (OtherView)) \
    CALL(assignEvenOld, c8, operator=, assignLegacy, (EvenOld)) \
    CALL(assignUnevenOld, c8, operator=, assignLegacy, (UnevenOld)) \
    CALL(fromChar, c8, fromChar, fromChar, (CountedTextOrNull, Number<int const&>)) \
    CALL(clear, all, clear, clear, ()) \
    CALL(clearUnused, all, clearUnused, clearUnused, ()) \
    CALL(calcLength, all, calcLength, calcLength, ()) \
    CALL(setLength, all, setLength, setLength, (Number<short const&>)) \
    ASK(isEmpty, all, isEmpty, isEmpty, ()) \
    ASK(hasData, all, hasData, hasData, ()) \
    OWN(textPointers, current, TextPointers, ()) \
    OWN(writeText, all, WriteText, (Place, Single)) \
    CALL(addText, all, add, add, (OwnText)) \
    CALL(addCounted, both8, add, add, (CountedTextOrNull, Number<unsigned int>)) \
    CALL(addObject, all, add, add, (Object)) \
    CALL(appendText, all, operator+=, append, (OwnText)) \
    CALL(appendObject, all, operator+=, append, (Object)) \
    CALL(appendChar, all, operator+=, appendChar, (Char<char const&>)) \
    CALL(appendWideUnit, c8, operator+=, appendWideUnit, (Number<unsigned short const&>)) \
    CALL(plusChar, all, operator+, plusChar, (Char<char const&>)) \
    CALL(plusObject, all, operator+, plus, (Object)) \
    ASK(combinedText, all, combined, combined, (OwnText)) \
    ASK(combinedObject, all, combined, plus, (Object)) \
    ASK(isEqualObject, all, isEqual, isEqual, (Object)) \
    ASK(startsWithText, all, startsWith, startsWith, (OwnText)) \
    CALL(removeRange, all, remove, removeRange, (Number<int const&>, Number<int const&>)) \
    ASK(equalObject, all, operator==, equals, (Object)) \
    ASK(unequalObject, all, operator!=, unequal, (Object)) \
    ASK(equalText, all, operator==, equals, (OwnText)) \
    ASK(unequalText, current, operator!=, unequal, (OwnText)) \
    ASK(equalEvenOld, c8, operator==, equalsLegacy, (EvenOld)) \
    ASK(equalUnevenOld, c8, operator==, equalsLegacy, (UnevenOld)) \
    ASK(isEqualCounted, all, isEqual, isEqual, (CountedText, Number<int>)) \
    ASK(isEqualSameCase, all, isEqualSameCase, equals, (Object)) \
    ASK(isEqualSameCaseCounted, both8, isEqualSameCase, isEqualSameCaseUnits, (CountedText, Number<int>)) \
    ASK(isEqualUpperCaseInput, all, isEqualUpperCaseInput, isEqualUpperCaseInput, (Object)) \
    ASK(isEqualLowerCaseInput, all, isEqualLowerCaseInput, isEqualLowerCaseInput, (Object)) \
    ASK(compare, all, compare, compare, (Object)) \
    ASK(compareSameCase, all, compareSameCase, compareSameCase, (Object)) \
    ASK(less, all, operator<, less, (Object)) \
    ASK(greater, all, operator>, greater, (Object)) \
    ASK(indexOfObject, all, indexOf, indexOf, (Object, Number<int>)) \
    ASK(indexOfCaseSenObject, all, indexOfCaseSen, indexOfCaseSen, (Object, Number<int>)) \
    ASK(indexOfUnit, all, indexOf, indexOfUnit, (Single, Number<int>)) \
    ASK(indexOfCaseSenUnit, all, indexOfCaseSen, indexOfCaseSenUnit, (Single, Number<int>)) \
    ASK(indexOfWideUnit, c8, indexOf, indexOfWideUnit, (WidenedUnit, Number<int>)) \
    ASK(lastIndexOfUnit, all, lastIndexOf, lastIndexOfUnit, (Single, Number<int>)) \
    ASK(lastIndexOfWideUnit, c8, lastIndexOf, lastIndexOfWideUnit, (WidenedUnit, Number<int>)) \
    ASK(indexOfFirstOfTwo, all, indexOfFirstOcc, indexOfFirstOcc, (Object, Object, Out<int>)) \
    ASK(indexOfFirstOfSix, all, indexOfFirstOcc, indexOfFirstOcc, (Object, Object, Object, Object, Object, Object, Out<int>)) \
    ASK(count, all, count, count, (Char<char>)) \
    ASK(countCaseSen, all, countCaseSen, countCaseSen, (Char<char const&>)) \
    ASK(containsChar, all, contains, containsChar, (Char<char const&>)) \
    ASK(containsText, all, contains, contains, (OwnText)) \
    ASK(containsObject, all, contains, contains, (Object)) \
    ASK(containsCaseSenText, all, containsCaseSen, containsCaseSen, (OwnText)) \
    ASK(containsCaseSenObject, all, containsCaseSen, containsCaseSen, (Object)) \
    ASK(containsCaseSenCounted, all, containsCaseSen, containsCaseSen, (CountedText, Number<int const&>)) \
    ASK(containsUpperCaseText, all, containsUpperCaseInput, containsUpperCaseInput, (OwnText)) \
    ASK(containsUpperCaseObject, all, containsUpperCaseInput, containsUpperCaseInput, (Object)) \
    ASK(startsWithChar, both8 | o16, startsWith, startsWithChar, (Char<char const&>)) \
    ASK(endsWithChar, all, endsWith, endsWithChar, (Char<char const&>)) \
    ASK(startsWithCounted, all, startsWith, startsWith, (CountedTextOrNull, Number<int>)) \
    ASK(startsWithObject, all, startsWith, startsWith, (ObjectByValue)) \
    ASK(startsWithCaseSenText, all, startsWithCaseSen, startsWithCaseSen, (OwnText)) \
    ASK(startsWithCaseSenObject, all, startsWithCaseSen, startsWithCaseSen, (ObjectByValue)) \
    ASK(endsWithText, all, endsWith, endsWith, (OwnText)) \
    ASK(endsWithGated, all, endsWith, endsWith, (Text, Number<int>)) \
    ASK(endsWithObject, all, endsWith, endsWith, (Object)) \
    CALL(replaceObject, all, replace, replace, (Object, Object)) \
    CALL(replaceCaseSen, all, replaceCaseSen, replaceCaseSen, (Object, Object)) \
    CALL(replaceUnit, all, replace, replaceUnit, (Single, Single)) \
    CALL(removeObject, all, remove, remove, (Object)) \
    CALL(removeCaseSens, all, removeCaseSens, removeCaseSens, (Object)) \
    CALL(removeUnit, all, remove, removeUnit, (Single)) \
    CALL(insert, all, insert, insert, (Number<int const&>, Object)) \
    CALL(trim, all, trim, trim, ()) \
    CALL(makeUpper, all, makeUpper, makeUpper, ()) \
    CALL(makeLower, all, makeLower, makeLower, ()) \
    CALL(addSpacing, both8, addSpacing, addSpacing, (Text, Number<int const&>)) \
    CALL(addSpacingC, all, addSpacingC, addSpacingC, (Text, Number<int const&>)) \
    ASK(leftCount, all, left, left, (Number<int>)) \
    ASK(mid, all, mid, mid, (Number<int const&>, Number<int const&>)) \
    ASK(leftUnit, all, left, leftUnit, (Single, Flag)) \
    CALL(leftNCut, all, leftNCut, leftNCut, (Single, Flag)) \
    CALL(addNrInt, current, addNr, addNumber, (Decimal<int const&>)) \
    CALL(addNrLong, c8 | both16, addNr, addNumber, (Decimal<long long const&>)) \
    CALL(addNrUnsigned, current, addNr, addNumber, (Decimal<unsigned long long const&>)) \
    CALL(addNrIntWidth, c8, addNr, addNumber, (Decimal<int const&>, Number<unsigned char const&>)) \
    CALL(addNrLongWidth, c8 | both16, addNr, addNumber, (Decimal<long long const&>, Number<unsigned char const&>)) \
    CALL(fromNr, c8 | both16, fromNr, fromNr, (Wide<long long const&>)) \
    CALL(addNrSpacing, all, addNrSpacing, addNrSpacing, (Wide<long long const&>, Number<signed char const&>)) \
    CALL(addHexSignedChar, c8, addHexCode, addHexCode, (Wide<signed char const&>)) \
    CALL(addHexUnsignedChar, c8, addHexCode, addHexCode, (Wide<unsigned char const&>)) \
    CALL(addHexShort, c8, addHexCode, addHexCode, (Wide<short const&>)) \
    CALL(addHexUnsignedShort, c8, addHexCode, addHexCode, (Wide<unsigned short const&>)) \
    CALL(addHexInt, c8, addHexCode, addHexCode, (Wide<int const&>)) \
    CALL(addHexUnsignedInt, c8, addHexCode, addHexCode, (Wide<unsigned int const&>)) \
    ASK(toInt, c8 | both16, toInt, toInt, (Out<bool>)) \
    ASK(toInt64, c8, toInt64, toInt64, (Out<bool>)) \
    CALL(toIntFromHex, c8, toIntFromHex, toIntFromHex, (Number<int const&>, Flag, Flag, Out<bool>)) \
    MAKE(constructChar, both16, constructChar, (Char<char const&>)) \
    MAKE(constructUnitText, both16, constructUnitText, (Units)) \
    MAKE(constructUnitsCounted, both16, constructUnitsCounted, (CountedUnits, Number<int>)) \
    MAKE(constructView8, c16, constructView8, (View8)) \
    MAKE(constructOld, c16, constructLegacy, (Old16)) \
    CALL(assignUnitText, both16, operator=, assignUnitText, (OwnUnits)) \
    CALL(assignOld, c16, operator=, constructLegacy, (Old16)) \
    CALL(addUnits, both16, add, addUnits, (CountedUnitsOrNull, Number<unsigned int>)) \
    CALL(appendUnit, both16, operator+=, appendUnit, (Single)) \
    CALL(appendUnitText, both16, operator+=, appendUnitText, (OwnUnits)) \
    ASK(toString8Of250, both16, to_qvString8_250, toString8Of250, ()) \
    ASK(toString8Of500, both16, to_qvString8_500, toString8Of500, ()) \
    ASK(convertedTo250, both16, operator _qvString8_allSize<250>, toString8Of250, ()) \
    ASK(convertedTo500, both16, operator _qvString8_allSize<500>, toString8Of500, ()) \
    OWN(toChar, both16, ToChar, (Number<unsigned short>)) \
    ASK(equalUnitText, both16, operator==, equalsUnitText, (OwnUnits)) \
    ASK(isEqualUnits, both16, isEqual, isEqualUnits, (CountedUnits, Number<int>)) \
    ASK(isEqualSameCaseUnits, both16, isEqualSameCase, isEqualSameCaseUnits, (CountedUnits, Number<int>)) \
    CALL(indexOfText, both16, indexOf, indexOfText, (Text)) \
    ASK(startsWithUnit, both16, startsWith, startsWithUnit, (Single)) \
    ASK(endsWithUnit, both16, endsWith, endsWithUnit, (Single)) \
    CALL(addSpacingUnits, both16, addSpacing, addSpacingUnits, (Units, Number<int const&>)) \
    CALL(addNrUnsignedInt, c16, addNr, addNumber, (Decimal<unsigned int const&>)) \
    CALL(addNrUnsignedChar, c16, addNr, addNumber, (Decimal<unsigned char const&>)) \
    OWN(writeSpare, both16, WriteSpare, (Single)) \
    CALL(assignViewToConst, c8, operator=, assignView, (ViewToConst)) \
    CALL(assignNull, c8, operator=, assign, (Null))
// clang-format on

#define QV_MODEL_RULE(rule_)                                                                       \
    template <class Model, class... A>                                                             \
    static decltype(auto) onModel(Model& s, A&&... arguments)                                      \
    {                                                                                              \
        return s.rule_(std::forward<A>(arguments)...);                                             \
    }
#define QV_MEMBER_ROW(kind_, name_, images_, member_, rule_, parameters_)                          \
    struct name_ : Row<images_, void parameters_>                                                  \
    {                                                                                              \
        static constexpr char const* name = #name_;                                                \
        static constexpr char const* memberName = #kind_ " " #member_;                             \
        template <class C>                                                                         \
        static constexpr auto member()                                                             \
        {                                                                                          \
            return ExactFor<C>::kind_(&C::member_);                                                \
        }                                                                                          \
        QV_MODEL_RULE(rule_)                                                                       \
    };
#define QV_CALL(...) QV_MEMBER_ROW(member, __VA_ARGS__)
#define QV_ASK(...) QV_MEMBER_ROW(question, __VA_ARGS__)
#define QV_MAKE(name_, images_, rule_, parameters_)                                                \
    struct name_ : Row<images_, void parameters_>, Constructor                                     \
    {                                                                                              \
        static constexpr char const* name = #name_;                                                \
        static constexpr char const* memberName = "constructor ";                                  \
        QV_MODEL_RULE(rule_)                                                                       \
    };
#define QV_OWN(name_, images_, calls_, parameters_)                                                \
    struct name_ : Row<images_, void parameters_>, calls_                                          \
    {                                                                                              \
        static constexpr char const* name = #name_;                                                \
    };

namespace rows {
QV_STRING_CALLS(QV_CALL, QV_ASK, QV_MAKE, QV_OWN)
} // namespace rows

template <class... R>
struct Rows
{
    static constexpr std::size_t count = sizeof...(R);
    static constexpr unsigned images[] = {R::images...};
    static constexpr char const* names[] = {R::name...};
    static constexpr bool areConstructors[] = {std::is_base_of_v<Constructor, R>...};

    template <class Wanted>
    static constexpr std::size_t placeOf()
    {
        std::size_t place = 0;
        static_cast<void>(((std::is_same_v<R, Wanted> || (++place, false)) || ...));
        return place;
    }

    // What `Source::of<row>()` gives for each row of these images, for the others nothing.
    template <unsigned ofImages, class Entry, class Source>
    static constexpr std::array<Entry, count> table()
    {
        return {entryOf<ofImages, Entry, Source, R>()...};
    }

private:
    template <unsigned ofImages, class Entry, class Source, class Of>
    static constexpr Entry entryOf()
    {
        if constexpr ((Of::images & ofImages) != 0)
            return Source::template of<Of>();
        else
            return Entry{};
    }
};

template <class None, class... R>
using RowsBehind = Rows<R...>;

#define QV_NAME(name_, ...) , rows::name_
using StringRows = RowsBehind<void QV_STRING_CALLS(QV_NAME, QV_NAME, QV_NAME, QV_NAME)>;
#undef QV_NAME

} // namespace qvTest
