# The sanitizers of the product: the library, the tools, the examples. The tests call it from outside,
# and compiling their many small instantiations with checks would double the build; so they are the
# same objects under every preset of a compiler. The memory sanitizer alone has to see them too:
# tests/memory/instrument.cmake.
add_library(qv_sanitizers INTERFACE)
if(QV_SANITIZE)
    target_compile_options(qv_sanitizers INTERFACE
        -fsanitize=${QV_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
    add_link_options(-fsanitize=${QV_SANITIZE})
endif()
if(QV_SANITIZE MATCHES "address")
    # Optimising all the checks of 81 members at 62 capacities takes minutes and finds no more.
    target_compile_options(qv_sanitizers INTERFACE -O1)
endif()
if(QV_SANITIZE STREQUAL "memory")
    # A call's arguments and result are judged at the call. To see where bytes were left unwritten,
    # add -fsanitize-memory-track-origins, at twice the time.
    target_compile_options(qv_sanitizers INTERFACE -fsanitize-memory-param-retval)
endif()
if(QV_COVERAGE)
    target_compile_options(qv_sanitizers INTERFACE -O0 --coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()
