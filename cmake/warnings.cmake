# Warnings are errors, for g++ 12 and clang 14 alike.
add_library(qv_warnings INTERFACE)
target_compile_options(qv_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-qual -Wcast-align
    -Wundef -Wnon-virtual-dtor -Woverloaded-virtual -Wdouble-promotion -Wformat=2
    -Wimplicit-fallthrough -Wextra-semi
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond -Wduplicated-branches -Wlogical-op>)
