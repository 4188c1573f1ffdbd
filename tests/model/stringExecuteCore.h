#pragma once

// Part of stringExecute.h: construction, assignment, state and append.
#include "tests/model/stringExecute.h"

namespace qvTest {

template <class C, std::size_t N>
bool StringExecution<C, N>::construct()
{
    switch (call.operation) {
    case Operation::constructEmpty:
        return constructed();
    case Operation::constructText:
        return constructed(t);
    case Operation::constructCounted:
        return constructed(countedText(), call.a);
    case Operation::constructCopy:
        return constructed(static_cast<C const&>(o));
    case Operation::constructUnits:
        if constexpr (!isWide<C> && std::is_constructible_v<C, unsigned short const*>) {
            std::vector<unsigned short> const units = call.widenedCharacters();
            return constructed(call.flag ? nullptr : units.data());
        }
        return false;
    case Operation::constructView:
        if constexpr (std::is_constructible_v<C, View const*>)
            return constructed(o.asUni());
        return false;
    case Operation::constructOtherView:
        if constexpr (std::is_constructible_v<C, View const*>)
            return withOtherView([&](View const* view) { constructed(view); });
        return false;
    case Operation::constructEvenOld:
        if constexpr (convertsFrom<C, _qvString8_allSize<N>, _qvString8_evenSize_old<N>>)
            return withLegacy<_qvString8_evenSize_old<N>>(evenOldImage(N),
                                                          [&](auto& old) { constructed(old); });
        return false;
    case Operation::constructUnevenOld:
        if constexpr (convertsFrom<C, _qvString8_allSize<N>, _qvString8_UnevenSize_old<N>>)
            return withLegacy<_qvString8_UnevenSize_old<N>>(unevenOldImage(N),
                                                            [&](auto& old) { constructed(old); });
        return false;
    case Operation::constructChar:
        if constexpr (isWide<C> && std::is_constructible_v<C, char const&>)
            return constructed(call.c);
        return false;
    case Operation::constructUnitText:
        if constexpr (isWide<C> && std::is_constructible_v<C, unsigned short const*>)
            return constructed(u);
        return false;
    case Operation::constructUnitsCounted:
        if constexpr (std::is_constructible_v<C, unsigned short const*, int>)
            return constructed(countedUnits(), call.a);
        return false;
    case Operation::constructView8:
        if constexpr (isWide<C> && std::is_constructible_v<C, _qvString8_Uni_pointer const*>)
            return withView8([&](_qvString8_Uni_pointer const* view) { constructed(view); });
        return false;
    case Operation::constructOld:
        if constexpr (convertsFrom<C, _qvString<N>, _qvString_old<N>>)
            return withLegacy<_qvString_old<N>>(old16Image(N),
                                                [&](auto& old) { constructed(old); });
        return false;
    case Operation::createCharString:
        if constexpr (QV_HAS(createCharString, Unit&, int const&)) {
            Unit c = single();
            return givesText(C::createCharString(c, call.a));
        }
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::assign()
{
    switch (call.operation) {
    case Operation::assignObject:
        s = static_cast<C const&>(o);
        return true;
    case Operation::assignText:
        if constexpr (QV_HAS(operator=, char const*))
            return s = t, true;
        return false;
    case Operation::assignUnit:
        if constexpr (QV_HAS(operator=, Unit const&))
            return s = single(), true;
        return false;
    case Operation::assignUnitText:
        if constexpr (QV_HAS(operator=, unsigned short const*))
            return s = u, true;
        return false;
    case Operation::assignOld:
        if constexpr (QV_HAS(operator=, _qvString_old<N> const&) && std::is_same_v<C, _qvString<N>>)
            return withLegacy<_qvString_old<N>>(old16Image(N), [&](auto& old) { s = old; });
        return false;
    case Operation::assignString:
        if constexpr (QV_HAS(operator=, std::string const&))
            return s = call.characters, true;
        return false;
    case Operation::assignView:
        if constexpr (QV_HAS(operator=, View*))
            return s = const_cast<View*>(o.asUni()), true;
        return false;
    case Operation::assignOtherView:
        if constexpr (QV_HAS(operator=, View*))
            return withOtherView([&](View* view) { s = view; });
        return false;
    case Operation::assignEvenOld:
        if constexpr (QV_HAS(operator=, _qvString8_evenSize_old<N> const&) &&
                      std::is_same_v<C, _qvString8_allSize<N>>)
            return withLegacy<_qvString8_evenSize_old<N>>(evenOldImage(N),
                                                          [&](auto& old) { s = old; });
        return false;
    case Operation::assignUnevenOld:
        if constexpr (QV_HAS(operator=, _qvString8_UnevenSize_old<N> const&) &&
                      std::is_same_v<C, _qvString8_allSize<N>>)
            return withLegacy<_qvString8_UnevenSize_old<N>>(unevenOldImage(N),
                                                            [&](auto& old) { s = old; });
        return false;
    case Operation::fromChar:
        if constexpr (QV_HAS(fromChar, char const*, int const&))
            return s.fromChar(countedText(), call.a), true;
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::state()
{
    switch (call.operation) {
    case Operation::clear:
        if constexpr (QV_HAS(clear))
            return s.clear(), true;
        return false;
    case Operation::clearUnused:
        if constexpr (QV_HAS(clearUnused))
            return s.clearUnused(), true;
        return false;
    case Operation::calcLength:
        if constexpr (QV_HAS(calcLength))
            return s.calcLength(), true;
        return false;
    case Operation::setLength:
        if constexpr (QV_HAS(setLength, short const&))
            return s.setLength(static_cast<short>(call.a)), true;
        return false;
    case Operation::isEmpty:
        if constexpr (QV_HAS(isEmpty))
            return gives(s.isEmpty());
        return false;
    case Operation::hasData:
        if constexpr (QV_HAS(hasData))
            return gives(s.hasData());
        return false;
    case Operation::textPointers:
        if constexpr (requires { s.asChar(), s.toChar(), s.asUni(); }) {
            auto const* const self = reinterpret_cast<_qvString8_Uni_pointer const*>(&s);
            return gives(s.asChar() == s.text && s.toChar() == s.text && s.asUni() == self);
        } else if constexpr (isWide<C> && requires { s.asUni(); })
            return gives(s.asUni() == reinterpret_cast<_qvString_Uni_pointer*>(&s));
        return false;
    case Operation::writeText:
        s.text[call.a] = single();
        return true;
    case Operation::writeSpare:
        if constexpr (requires { s.reserved; })
            return s.reserved = single(), true;
        else if constexpr (requires { s.trailer; })
            return s.trailer = single(), true;
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::append()
{
    switch (call.operation) {
    case Operation::addText:
        if constexpr (QV_HAS(add, char const*))
            return s.add(t), true;
        return false;
    case Operation::addCounted:
        if constexpr (QV_HAS(add, char const*, unsigned int))
            return s.add(countedText(), static_cast<unsigned int>(call.a)), true;
        return false;
    case Operation::addObject:
        if constexpr (QV_HAS(add, C const&))
            return s.add(o), true;
        return false;
    case Operation::appendText:
        if constexpr (QV_HAS(operator+=, char const*))
            return s += t, true;
        return false;
    case Operation::appendObject:
        if constexpr (QV_HAS(operator+=, C const&))
            return s += o, true;
        return false;
    case Operation::appendChar:
        if constexpr (QV_HAS(operator+=, char const&))
            return s += call.c, true;
        return false;
    case Operation::appendWideUnit:
        if constexpr (!isWide<C> && QV_HAS(operator+=, unsigned short const&))
            return s += static_cast<unsigned short>(call.a), true;
        return false;
    case Operation::appendUnit:
        if constexpr (isWide<C> && QV_HAS(operator+=, unsigned short const&))
            return s += single(), true;
        return false;
    case Operation::appendUnitText:
        if constexpr (QV_HAS(operator+=, unsigned short const*))
            return s += u, true;
        return false;
    case Operation::addUnits:
        if constexpr (QV_HAS(add, unsigned short const*, unsigned int))
            return s.add(countedUnits(), static_cast<unsigned int>(call.a)), true;
        return false;
    case Operation::plusChar:
        if constexpr (QV_HAS(operator+, char const&))
            return givesText(s + call.c);
        return false;
    case Operation::plusObject:
        if constexpr (QV_HAS(operator+, C const&))
            return givesText(s + o);
        return false;
    case Operation::combinedText:
        if constexpr (QV_HAS(combined, char const*))
            return givesText(s.combined(t));
        return false;
    case Operation::combinedObject:
        if constexpr (QV_HAS(combined, C const&))
            return givesText(s.combined(o));
        return false;
    default:
        return false;
    }
}

} // namespace qvTest
