# With BUILD_SHARED_LIBS the library is libqv.so.MAJOR and exports what its headers declare, templates
# included; qvSegment and qvSupport are its own. The programs for the nodes run from one file, so they
# are linked with a static library of the same sources.
set(qvForNodes qv)
set_target_properties(qv PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    DEFINE_SYMBOL "") # the objects are the same in both libraries
if(BUILD_SHARED_LIBS)
    if(NOT APPLE) # its linker knows no version scripts: everything is visible there
        set(exports ${CMAKE_CURRENT_LIST_DIR}/exports.map)
        target_link_options(qv PRIVATE -Wl,--version-script=${exports})
        set_property(TARGET qv APPEND PROPERTY LINK_DEPENDS ${exports})
    endif()
    if(QV_BUILD_TOOL)
        set(qvForNodes qvStatic)
        get_target_property(sources qv SOURCES)
        add_library(qvStatic STATIC EXCLUDE_FROM_ALL ${sources})
        foreach(property IN ITEMS INCLUDE_DIRECTORIES COMPILE_DEFINITIONS COMPILE_FEATURES
                LINK_LIBRARIES)
            foreach(scope IN ITEMS "" INTERFACE_)
                get_target_property(value qv ${scope}${property})
                if(value)
                    set_property(TARGET qvStatic PROPERTY ${scope}${property} ${value})
                endif()
            endforeach()
        endforeach()
    endif()
endif()
