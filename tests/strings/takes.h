#pragma once

/// Asks for members of S that take exactly Arguments, in whatever class of S they are written.
template <typename S, typename... Arguments>
struct Takes
{
    /// Members whose result no caller may use: any result will do.
    template <typename Result, typename Owner>
    static bool member(Result (Owner::*address)(Arguments...))
    {
        Result (S::*volatile kept)(Arguments...) = address;
        return kept != nullptr;
    }
    template <typename Result, typename Owner>
    static bool constMember(Result (Owner::*address)(Arguments...) const)
    {
        Result (S::*volatile kept)(Arguments...) const = address;
        return kept != nullptr;
    }

    /// Members whose result is laid down.
    template <typename Result, typename Owner>
    static bool constGives(Result (Owner::*address)(Arguments...) const)
    {
        return constMember(address);
    }
};
