# CPack runs this over the files of each package format before it packs them. Debian wants some of
# them otherwise than `cmake --install` lays them down.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} upper)
    set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    set(share ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr/share)

    # Debian's own changes, ours under the name that it looks for, ours as the documents name them.
    set(docs ${share}/doc/${package})
    configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.in ${docs}/changelog.Debian
        @ONLY NO_SOURCE_PERMISSIONS)
    configure_file(${docs}/CHANGELOG.md ${docs}/changelog COPYONLY)
    file(GLOB pages ${share}/man/*/*)
    execute_process(COMMAND gzip -9n ${docs}/changelog.Debian ${docs}/changelog ${pages}
        COMMAND_ERROR_IS_FATAL ANY)

    file(COPY ${CMAKE_CURRENT_LIST_DIR}/lintian/${package}
        DESTINATION ${share}/lintian/overrides NO_SOURCE_PERMISSIONS)

    # site-functions is for the administrator's own.
    if(EXISTS ${share}/zsh/site-functions)
        file(RENAME ${share}/zsh/site-functions ${share}/zsh/vendor-completions)
    endif()
endforeach()
