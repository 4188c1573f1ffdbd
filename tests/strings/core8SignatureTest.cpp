// The signatures of the 8-bit core. Small values go by const reference and operator+ is not const:
// callers that take a member's address, or bind a reference, rest on both.

#include "tests/strings/guarded.h"

namespace {

using namespace guarded;

/// True for a member that takes exactly these arguments, whatever it returns.
template <typename... Arguments, typename Class, typename Result>
constexpr bool takes(Result (Class::*)(Arguments...))
{
    return true;
}

/// A member of exactly this type exists. An overload set picks its match here.
template <typename Member>
constexpr bool exists(Member)
{
    return true;
}

template <typename S>
class Core8Signature : public testing::Test
{};
TYPED_TEST_SUITE(Core8Signature, MainStrings8, ImageName);

TYPED_TEST(Core8Signature, SmallValuesGoByConstReference)
{
    using S = TypeParam;
    static_assert(takes<short const&>(&S::setLength));
    static_assert(takes<char const*, int const&>(&S::fromChar));
    static_assert(exists<S (*)(char&, int const&)>(&S::createCharString));
}

TYPED_TEST(Core8Signature, PlusAndCombinedReturnByValueAndOnlyCombinedIsConst)
{
    using S = TypeParam;
    static_assert(exists<S (S::*)(char const&)>(&S::operator+));
    static_assert(exists<S (S::*)(S const&)>(&S::operator+));
    static_assert(exists<S (S::*)(char const*) const>(&S::combined));
    static_assert(exists<S (S::*)(S const&) const>(&S::combined));
}

TYPED_TEST(Core8Signature, QuestionsAreConst)
{
    using S = TypeParam;
    static_assert(exists<bool (S::*)() const>(&S::isEmpty));
    static_assert(exists<bool (S::*)() const>(&S::hasData));
    static_assert(exists<bool (S::*)(S const&) const>(&S::isEqual));
    static_assert(exists<bool (S::*)(char const*) const>(&S::startsWith));
}

} // namespace
