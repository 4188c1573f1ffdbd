#pragma once

// Part of stringExecute.h: comparison and search. These leave every object as it was, so they run
// on constant ones.
#include "tests/model/stringExecute.h"

namespace qvTest {

template <class C, std::size_t N>
bool StringExecution<C, N>::equality()
{
    C const& left = s;
    C const& right = o;
    switch (call.operation) {
    case Operation::isEqualObject:
        if constexpr (QV_HAS(isEqual, C const&))
            return gives(left.isEqual(right));
        return false;
    case Operation::equalObject:
        if constexpr (QV_HAS(operator==, C const&))
            return gives(left == right);
        return false;
    case Operation::unequalObject:
        if constexpr (QV_HAS(operator!=, C const&))
            return gives(left != right);
        return false;
    case Operation::equalText:
        if constexpr (QV_HAS(operator==, char const*))
            return gives(left == t);
        return false;
    case Operation::unequalText:
        if constexpr (QV_HAS(operator!=, char const*))
            return gives(left != t);
        return false;
    case Operation::equalEvenOld:
        if constexpr (QV_HAS(operator==, _qvString8_evenSize_old<N> const&) &&
                      std::is_same_v<C, _qvString8_allSize<N>>)
            return withLegacy<_qvString8_evenSize_old<N>>(evenOldImage(N),
                                                          [&](auto& old) { gives(left == old); });
        return false;
    case Operation::equalUnevenOld:
        if constexpr (QV_HAS(operator==, _qvString8_UnevenSize_old<N> const&) &&
                      std::is_same_v<C, _qvString8_allSize<N>>)
            return withLegacy<_qvString8_UnevenSize_old<N>>(unevenOldImage(N),
                                                            [&](auto& old) { gives(left == old); });
        return false;
    case Operation::isEqualCounted:
        if constexpr (QV_HAS(isEqual, char const*, int))
            return gives(left.isEqual(countedText(), call.a));
        return false;
    case Operation::equalUnitText:
        if constexpr (QV_HAS(operator==, unsigned short const*))
            return gives(left == u);
        return false;
    case Operation::isEqualUnits:
        if constexpr (QV_HAS(isEqual, unsigned short const*, int))
            return gives(left.isEqual(countedUnits(), call.a));
        return false;
    case Operation::isEqualSameCaseUnits:
        if constexpr (QV_HAS(isEqualSameCase, unsigned short const*, int))
            return gives(left.isEqualSameCase(countedUnits(), call.a));
        return false;
    case Operation::isEqualSameCase:
        if constexpr (QV_HAS(isEqualSameCase, C const&))
            return gives(left.isEqualSameCase(right));
        return false;
    case Operation::isEqualSameCaseCounted:
        if constexpr (QV_HAS(isEqualSameCase, char const*, int))
            return gives(left.isEqualSameCase(countedText(), call.a));
        return false;
    case Operation::isEqualUpperCaseInput:
        if constexpr (QV_HAS(isEqualUpperCaseInput, C const&))
            return gives(left.isEqualUpperCaseInput(right));
        return false;
    case Operation::isEqualLowerCaseInput:
        if constexpr (QV_HAS(isEqualLowerCaseInput, C const&))
            return gives(left.isEqualLowerCaseInput(right));
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::order()
{
    C const& left = s;
    C const& right = o;
    switch (call.operation) {
    case Operation::compare:
        if constexpr (QV_HAS(compare, C const&))
            return gives(left.compare(right));
        return false;
    case Operation::compareSameCase:
        if constexpr (QV_HAS(compareSameCase, C const&))
            return gives(left.compareSameCase(right));
        return false;
    case Operation::less:
        if constexpr (QV_HAS(operator<, C const&))
            return gives(left < right);
        return false;
    case Operation::greater:
        if constexpr (QV_HAS(operator>, C const&))
            return gives(left > right);
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::affixes()
{
    C const& left = s;
    switch (call.operation) {
    case Operation::startsWithText:
        if constexpr (QV_HAS(startsWith, char const*))
            return gives(left.startsWith(t));
        return false;
    case Operation::startsWithChar:
        if constexpr (QV_HAS(startsWith, char const&))
            return gives(left.startsWith(call.c));
        return false;
    case Operation::startsWithUnit:
        if constexpr (QV_HAS(startsWith, unsigned short const&))
            return gives(left.startsWith(call.single<unsigned short>()));
        return false;
    case Operation::endsWithUnit:
        if constexpr (QV_HAS(endsWith, unsigned short const&))
            return gives(left.endsWith(call.single<unsigned short>()));
        return false;
    case Operation::startsWithCounted:
        if constexpr (QV_HAS(startsWith, char const*, int))
            return gives(left.startsWith(countedText(), call.a));
        return false;
    case Operation::startsWithObject:
        if constexpr (QV_HAS(startsWith, C))
            return gives(left.startsWith(o));
        return false;
    case Operation::startsWithCaseSenText:
        if constexpr (QV_HAS(startsWithCaseSen, char const*))
            return gives(left.startsWithCaseSen(t));
        return false;
    case Operation::startsWithCaseSenObject:
        if constexpr (QV_HAS(startsWithCaseSen, C))
            return gives(left.startsWithCaseSen(o));
        return false;
    case Operation::endsWithChar:
        if constexpr (QV_HAS(endsWith, char const&))
            return gives(left.endsWith(call.c));
        return false;
    case Operation::endsWithText:
        if constexpr (QV_HAS(endsWith, char const*))
            return gives(left.endsWith(t));
        return false;
    case Operation::endsWithGated:
        if constexpr (QV_HAS(endsWith, char const*, int))
            return gives(left.endsWith(t, call.a));
        return false;
    case Operation::endsWithObject:
        if constexpr (QV_HAS(endsWith, C const&))
            return gives(left.endsWith(o));
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::positions()
{
    C const& left = s;
    auto const pattern = [&](std::size_t i) -> C const& {
        return objects[call.arguments[i]].get();
    };
    switch (call.operation) {
    case Operation::indexOfObject:
        if constexpr (QV_HAS(indexOf, C const&, int))
            return gives(left.indexOf(o, call.a));
        return false;
    case Operation::indexOfCaseSenObject:
        if constexpr (QV_HAS(indexOfCaseSen, C const&, int))
            return gives(left.indexOfCaseSen(o, call.a));
        return false;
    case Operation::indexOfText:
        if constexpr (QV_HAS(indexOf, char const*))
            return gives(s.indexOf(t));
        return false;
    case Operation::indexOfUnit:
        if constexpr (QV_HAS(indexOf, Unit const&, int))
            return gives(left.indexOf(single(), call.a));
        return false;
    case Operation::indexOfCaseSenUnit:
        if constexpr (QV_HAS(indexOfCaseSen, Unit const&, int))
            return gives(left.indexOfCaseSen(single(), call.a));
        return false;
    case Operation::indexOfWideUnit:
        if constexpr (!isWide<C> && QV_HAS(indexOf, unsigned short const&, int))
            return gives(left.indexOf(call.widenedCharacter(), call.a));
        return false;
    case Operation::lastIndexOfUnit:
        if constexpr (QV_HAS(lastIndexOf, Unit const&, int))
            return gives(left.lastIndexOf(single(), call.a));
        return false;
    case Operation::lastIndexOfWideUnit:
        if constexpr (!isWide<C> && QV_HAS(lastIndexOf, unsigned short const&, int))
            return gives(left.lastIndexOf(call.widenedCharacter(), call.a));
        return false;
    case Operation::indexOfFirstOfTwo:
        if constexpr (QV_HAS(indexOfFirstOcc, C const&, C const&, int*))
            return firstOf(
                [&](int* which) { return left.indexOfFirstOcc(pattern(0), pattern(1), which); });
        return false;
    case Operation::indexOfFirstOfSix:
        if constexpr (QV_HAS(indexOfFirstOcc, C const&, C const&, C const&, C const&, C const&,
                             C const&, int*))
            return firstOf([&](int* which) {
                return left.indexOfFirstOcc(pattern(0), pattern(1), pattern(2), pattern(3),
                                            pattern(4), pattern(5), which);
            });
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::containment()
{
    C const& left = s;
    switch (call.operation) {
    case Operation::count:
        if constexpr (QV_HAS(count, char))
            return gives(left.count(call.c));
        return false;
    case Operation::countCaseSen:
        if constexpr (QV_HAS(countCaseSen, char const&))
            return gives(left.countCaseSen(call.c));
        return false;
    case Operation::containsChar:
        if constexpr (QV_HAS(contains, char const&))
            return gives(left.contains(call.c));
        return false;
    case Operation::containsText:
        if constexpr (QV_HAS(contains, char const*))
            return gives(left.contains(t));
        return false;
    case Operation::containsObject:
        if constexpr (QV_HAS(contains, C const&))
            return gives(left.contains(o));
        return false;
    case Operation::containsCaseSenText:
        if constexpr (QV_HAS(containsCaseSen, char const*))
            return gives(left.containsCaseSen(t));
        return false;
    case Operation::containsCaseSenObject:
        if constexpr (QV_HAS(containsCaseSen, C const&))
            return gives(left.containsCaseSen(o));
        return false;
    case Operation::containsCaseSenCounted:
        if constexpr (QV_HAS(containsCaseSen, char const*, int const&))
            return gives(left.containsCaseSen(countedText(), call.a));
        return false;
    case Operation::containsUpperCaseText:
        if constexpr (QV_HAS(containsUpperCaseInput, char const*))
            return gives(left.containsUpperCaseInput(t));
        return false;
    case Operation::containsUpperCaseObject:
        if constexpr (QV_HAS(containsUpperCaseInput, C const&))
            return gives(left.containsUpperCaseInput(o));
        return false;
    default:
        return false;
    }
}

} // namespace qvTest
