# The memory sanitizer takes what uninstrumented code wrote for unwritten. So it has to see whatever
# writes bytes that the product reads: the tests, GoogleTest and the C++ library. Of the latter it
# compiles the templates; written.cpp answers for the rest.
link_libraries(qv_sanitizers)
add_compile_options(
    "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-include ${CMAKE_CURRENT_LIST_DIR}/ownTemplates.h>")

include(${CMAKE_CURRENT_LIST_DIR}/../compiledGTest.cmake)

add_library(written OBJECT ${CMAKE_CURRENT_LIST_DIR}/written.cpp)
link_libraries(written)
# Linked statically, the library's own calls pass through written.cpp too.
add_link_options(-static-libstdc++)
foreach(function IN ITEMS
        _ZNSt8ios_baseC2Ev _ZNSt6localeC1Ev _ZNSt6localeC1ERKS_ _ZNKSt5ctypeIcE13_M_widen_initEv
        _ZSt29_Rb_tree_insert_and_rebalancebPSt18_Rb_tree_node_baseS0_RS_ __cxa_demangle fopencookie)
    add_link_options(-Wl,--wrap=${function})
endforeach()
