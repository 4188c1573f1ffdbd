# The release tool starts fastest, and runs on every node, as a static-pie. Without a static C
# library it links dynamically against the C library alone. Either way the C linker driver keeps
# the C++ run time out: the product needs none of it once it is optimised.
target_link_options(qvNodeDispatch PRIVATE -Wl,--gc-sections)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT QV_SANITIZE)
    set_target_properties(qvNodeDispatch PROPERTIES LINKER_LANGUAGE C)
    if(QV_STATIC_TOOL)
        include(CheckCSourceCompiles)
        set(CMAKE_REQUIRED_FLAGS -fPIE)
        set(CMAKE_REQUIRED_LINK_OPTIONS -static-pie)
        check_c_source_compiles("int main(void) { return 0; }" QV_HAS_STATIC_PIE)
        unset(CMAKE_REQUIRED_FLAGS)
        unset(CMAKE_REQUIRED_LINK_OPTIONS)
        if(QV_HAS_STATIC_PIE)
            target_link_options(qvNodeDispatch PRIVATE -static-pie)
        endif()
    endif()
endif()
