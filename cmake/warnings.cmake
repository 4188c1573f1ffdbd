# No warnings, by g++ 12 and clang 14 alike. Here they are errors (QV_WERROR); in another project,
# which may have a newer compiler, they are not.
add_library(qv_warnings INTERFACE)
target_compile_options(qv_warnings INTERFACE
    -Wall -Wextra -Wpedantic $<$<BOOL:${QV_WERROR}>:-Werror>
    -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-qual -Wcast-align
    -Wundef -Wnon-virtual-dtor -Woverloaded-virtual -Wdouble-promotion -Wformat=2
    -Wimplicit-fallthrough -Wextra-semi
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wduplicated-branches -Wlogical-op>
    # clang 13 does not know yet that C++20 lets a call leave out a macro's variable arguments.
    $<$<AND:$<CXX_COMPILER_ID:Clang>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,14>>:-Wno-gnu-zero-variadic-macro-arguments>)
