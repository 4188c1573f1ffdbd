#pragma once

/// What the questions are put in that memberTable.py makes of the table of members.

#include "qv/strings/interop.h"
#include "tests/strings/takes.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace memberTable {

template <typename... Arguments>
struct Function
{
    template <typename Result>
    static bool is(Result (*)(Arguments...));
};

// clang-format off

/// Whether S has a member of exactly these arguments, const, static or neither.
#define HAS(NAME, ...)                                                                             \
    (requires { Takes<S __VA_OPT__(, ) __VA_ARGS__>::member(&S::NAME); } ||                        \
     requires { Takes<S __VA_OPT__(, ) __VA_ARGS__>::constMember(&S::NAME); } ||                   \
     requires { Function<__VA_ARGS__>::is(&S::NAME); })

#define BUILDS(...) (std::is_constructible_v<S __VA_OPT__(, ) __VA_ARGS__>)

// clang-format on

/// A row's question, in the names of the table.
#define QUESTION(ROW, ASKED)                                                                       \
    template <typename S>                                                                          \
    struct ROW                                                                                     \
    {                                                                                              \
        static constexpr int N = qvInterop::capacityOf<S>;                                         \
        using unit = typename S::Unit;                                                             \
        static constexpr bool isThere = ASKED;                                                     \
    };

/// One row, with its cells in the order of the table's columns.
template <template <typename> typename Row>
void expectRow(char const* row, bool const (&said)[5])
{
    EXPECT_EQ(Row<_qvString8_allSize<10>>::isThere, said[0]) << "_qvString8_allSize, " << row;
    EXPECT_EQ(Row<_qvString8_evenSize_old<10>>::isThere, said[1])
        << "_qvString8_evenSize_old, " << row;
    EXPECT_EQ(Row<_qvString8_UnevenSize_old<15>>::isThere, said[2])
        << "_qvString8_UnevenSize_old, " << row;
    EXPECT_EQ(Row<_qvString<10>>::isThere, said[3]) << "_qvString, " << row;
    EXPECT_EQ(Row<_qvString_old<10>>::isThere, said[4]) << "_qvString_old, " << row;
}

} // namespace memberTable
