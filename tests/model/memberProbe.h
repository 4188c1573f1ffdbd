#pragma once

namespace qvTest {

// Names a member by its exact parameter types: `MemberProbe<char const*>::of(&C::add)` is well
// formed only when C has `add(char const*)`. A plain call would also accept a neighbour through a
// conversion (a unit for a char, a rewritten `!=`), and so drive the wrong rule.
template <class... Parameters>
struct MemberProbe
{
    template <class Result, class Owner>
    static Result of(Result (Owner::*)(Parameters...));

    template <class Result, class Owner>
    static Result of(Result (Owner::*)(Parameters...) const);

    template <class Result>
    static Result of(Result (*)(Parameters...));
};

} // namespace qvTest

// For use where C is the class under test: QV_HAS(add, char const*).
#define QV_HAS(member, ...)                                                                        \
    requires                                                                                       \
    {                                                                                              \
        qvTest::MemberProbe<__VA_ARGS__>::of(&C::member);                                          \
    }
