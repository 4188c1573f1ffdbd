# Programs for the nodes start fastest, and run on every node, as a static-pie: the tools with musl
# (muslTool.cmake) where it is installed, else with the C library of the machine. Without a static C
# library they are linked as usual.
set(qvReleased OFF)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT QV_SANITIZE AND NOT QV_COVERAGE)
    set(qvReleased ON)
endif()
if(qvReleased AND QV_STATIC_TOOL)
    include(CheckCSourceCompiles)
    set(CMAKE_REQUIRED_FLAGS -fPIE)
    set(CMAKE_REQUIRED_LINK_OPTIONS -static-pie)
    check_c_source_compiles("int main(void) { return 0; }" QV_HAS_STATIC_PIE)
    unset(CMAKE_REQUIRED_FLAGS)
    unset(CMAKE_REQUIRED_LINK_OPTIONS)
endif()

include(cmake/hardening.cmake)
include(cmake/muslTool.cmake)

function(qv_for_nodes program)
    target_link_libraries(${program} PRIVATE qv_hardening)
    target_link_options(${program} PRIVATE -Wl,--gc-sections)
    if(qvReleased AND QV_STATIC_TOOL AND QV_HAS_STATIC_PIE)
        target_link_options(${program} PRIVATE -static-pie)
    endif()
endfunction()

foreach(front IN ITEMS qvNodeDispatch qvNodeDispatchStatus)
    if(QV_TOOL_LIBC STREQUAL "musl")
        qv_link_with_musl(${front})
        continue()
    endif()
    target_link_libraries(${front} PRIVATE ${qvForNodes})
    qv_for_nodes(${front})
    # The C linker driver keeps the C++ run time out: the product needs none of it once it is
    # optimised.
    if(qvReleased)
        set_target_properties(${front} PROPERTIES LINKER_LANGUAGE C)
    endif()
endforeach()
