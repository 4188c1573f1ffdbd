#pragma once

// Part of stringExecute.h: editing, slicing, numbers.
#include "tests/model/stringExecute.h"

namespace qvTest {

template <class C, std::size_t N>
bool StringExecution<C, N>::edit()
{
    switch (call.operation) {
    case Operation::removeRange:
        if constexpr (QV_HAS(remove, int const&, int const&))
            return s.remove(call.a, call.b), true;
        return false;
    case Operation::replaceObject:
        if constexpr (QV_HAS(replace, C const&, C const&))
            return givesSelf(s.replace(o, second));
        return false;
    case Operation::replaceCaseSen:
        if constexpr (QV_HAS(replaceCaseSen, C const&, C const&))
            return givesSelf(s.replaceCaseSen(o, second));
        return false;
    case Operation::replaceUnit:
        if constexpr (isWide<C> && QV_HAS(replace, Unit const&, Unit const&))
            return givesSelf(s.replace(single(), secondSingle()));
        else if constexpr (QV_HAS(replace, Unit const&, Unit const&))
            return s.replace(single(), secondSingle()), true;
        return false;
    case Operation::removeObject:
        if constexpr (QV_HAS(remove, C const&))
            return givesSelf(s.remove(o));
        return false;
    case Operation::removeCaseSens:
        if constexpr (QV_HAS(removeCaseSens, C const&))
            return givesSelf(s.removeCaseSens(o));
        return false;
    case Operation::removeUnit:
        if constexpr (QV_HAS(remove, Unit const&))
            return givesText(s.remove(single()));
        return false;
    case Operation::insert:
        if constexpr (QV_HAS(insert, int const&, C const&))
            return s.insert(call.a, o), true;
        return false;
    case Operation::trim:
        if constexpr (QV_HAS(trim))
            return s.trim(), true;
        return false;
    case Operation::makeUpper:
        if constexpr (QV_HAS(makeUpper))
            return s.makeUpper(), true;
        return false;
    case Operation::makeLower:
        if constexpr (QV_HAS(makeLower))
            return s.makeLower(), true;
        return false;
    case Operation::addSpacing:
        if constexpr (QV_HAS(addSpacing, char const*, int const&))
            return s.addSpacing(t, call.a), true;
        return false;
    case Operation::addSpacingUnits:
        if constexpr (QV_HAS(addSpacing, unsigned short const*, int const&))
            return s.addSpacing(u, call.a), true;
        return false;
    case Operation::addSpacingC:
        if constexpr (QV_HAS(addSpacingC, char const*, int const&))
            return s.addSpacingC(t, call.a), true;
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::slice()
{
    C const& source = s;
    switch (call.operation) {
    case Operation::leftCount:
        if constexpr (QV_HAS(left, int))
            return givesText(source.left(call.a));
        return false;
    case Operation::mid:
        if constexpr (QV_HAS(mid, int const&, int const&))
            return givesText(source.mid(call.a, call.b));
        return false;
    case Operation::leftUnit:
        if constexpr (QV_HAS(left, Unit const&, bool const&))
            return givesText(source.left(single(), call.flag));
        return false;
    case Operation::leftNCut:
        if constexpr (QV_HAS(leftNCut, Unit const&, bool const&))
            return givesText(s.leftNCut(single(), call.flag));
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::numberText()
{
    long long const v = call.wide;
    switch (call.operation) {
    case Operation::addNrInt:
        if constexpr (QV_HAS(addNr, int const&))
            return s.addNr(static_cast<int>(v)), true;
        return false;
    case Operation::addNrLong:
        if constexpr (QV_HAS(addNr, long long const&))
            return s.addNr(v), true;
        return false;
    case Operation::addNrUnsigned:
        if constexpr (QV_HAS(addNr, unsigned long long const&))
            return s.addNr(static_cast<unsigned long long>(v)), true;
        return false;
    case Operation::addNrUnsignedInt:
        if constexpr (QV_HAS(addNr, unsigned int const&))
            return s.addNr(static_cast<unsigned int>(v)), true;
        return false;
    case Operation::addNrUnsignedChar:
        if constexpr (QV_HAS(addNr, unsigned char const&))
            return s.addNr(static_cast<unsigned char>(v)), true;
        return false;
    case Operation::addNrIntWidth:
        if constexpr (QV_HAS(addNr, int const&, unsigned char const&))
            return s.addNr(static_cast<int>(v), static_cast<unsigned char>(call.a)), true;
        return false;
    case Operation::addNrLongWidth:
        if constexpr (QV_HAS(addNr, long long const&, unsigned char const&))
            return s.addNr(v, static_cast<unsigned char>(call.a)), true;
        return false;
    case Operation::fromNr:
        if constexpr (QV_HAS(fromNr, long long const&))
            return givesText(C::fromNr(v));
        return false;
    case Operation::addNrSpacing:
        if constexpr (QV_HAS(addNrSpacing, long long const&, signed char const&))
            return s.addNrSpacing(v, static_cast<signed char>(call.a)), true;
        return false;
    case Operation::addHexSignedChar:
        if constexpr (QV_HAS(addHexCode, signed char const&))
            return s.addHexCode(static_cast<signed char>(v)), true;
        return false;
    case Operation::addHexUnsignedChar:
        if constexpr (QV_HAS(addHexCode, unsigned char const&))
            return s.addHexCode(static_cast<unsigned char>(v)), true;
        return false;
    case Operation::addHexShort:
        if constexpr (QV_HAS(addHexCode, short const&))
            return s.addHexCode(static_cast<short>(v)), true;
        return false;
    case Operation::addHexUnsignedShort:
        if constexpr (QV_HAS(addHexCode, unsigned short const&))
            return s.addHexCode(static_cast<unsigned short>(v)), true;
        return false;
    case Operation::addHexInt:
        if constexpr (QV_HAS(addHexCode, int const&))
            return s.addHexCode(static_cast<int>(v)), true;
        return false;
    case Operation::addHexUnsignedInt:
        if constexpr (QV_HAS(addHexCode, unsigned int const&))
            return s.addHexCode(static_cast<unsigned int>(v)), true;
        return false;
    default:
        return false;
    }
}

template <class C, std::size_t N>
bool StringExecution<C, N>::numberValue()
{
    C const& source = s;
    switch (call.operation) {
    case Operation::toInt:
        if constexpr (QV_HAS(toInt, bool*))
            return parsed([&](bool* ok) { return source.toInt(ok); });
        return false;
    case Operation::toInt64:
        if constexpr (QV_HAS(toInt64, bool*))
            return parsed([&](bool* ok) { return source.toInt64(ok); });
        return false;
    case Operation::toIntFromHex:
        if constexpr (QV_HAS(toIntFromHex, int const&, bool const&, bool const&, bool*))
            return parsed(
                [&](bool* ok) { return s.toIntFromHex(call.a, call.flag, call.secondFlag, ok); });
        return false;
    default:
        return false;
    }
}

// The 8-bit strings that come out are compared up to the end of their text: the byte behind an even
// capacity has no meaning.
template <class C, std::size_t N>
bool StringExecution<C, N>::narrowing()
{
    C const& source = s;
    switch (call.operation) {
    case Operation::toString8Of250:
        if constexpr (requires { source.to_qvString8_250(); })
            return givesNarrow<250>(source.to_qvString8_250());
        return false;
    case Operation::toString8Of500:
        if constexpr (requires { source.to_qvString8_500(); })
            return givesNarrow<500>(source.to_qvString8_500());
        return false;
    case Operation::convertedTo250:
        if constexpr (requires { source.operator _qvString8_allSize<250>(); })
            return givesNarrow<250>(source.operator _qvString8_allSize<250>());
        return false;
    case Operation::convertedTo500:
        if constexpr (requires { source.operator _qvString8_allSize<500>(); })
            return givesNarrow<500>(source.operator _qvString8_allSize<500>());
        return false;
    case Operation::toChar:
        if constexpr (QV_HAS(toChar, char*, unsigned short)) {
            auto const size = static_cast<unsigned short>(call.a);
            std::vector<unsigned char> buffer = bufferOf(size, source.length);
            source.toChar(reinterpret_cast<char*>(buffer.data()), size);
            outcome.narrow = std::move(buffer);
            return true;
        }
        return false;
    default:
        return false;
    }
}

} // namespace qvTest
