# CPack reads this before it packs each format. The time in every package is that of the last
# commit, unless SOURCE_DATE_EPOCH says another one, so that one commit gives the same bytes each
# time.
set(sources ${CMAKE_CURRENT_LIST_DIR}/..)
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND git -C ${sources} log -1 --format=%ct
        OUTPUT_VARIABLE epoch OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
    if(failed) # no checkout
        file(TIMESTAMP ${sources}/CHANGELOG.md epoch "%s" UTC)
    endif()
    set(ENV{SOURCE_DATE_EPOCH} ${epoch})
endif()
set(ENV{QV_PACKED_VERSION} ${CPACK_PACKAGE_VERSION}) # what is installed goes into a package

if(CPACK_GENERATOR STREQUAL "RPM")
    set(CPACK_COMPONENTS_ALL tool)
    # Its own format, as Debian's changelog has one.
    string(TIMESTAMP date "%a %b %d %Y" UTC)
    set(CPACK_RPM_CHANGELOG_FILE ${CPACK_PACKAGE_DIRECTORY}/_CPack_Packages/changelog)
    set(version ${CPACK_PACKAGE_VERSION}-${CPACK_RPM_PACKAGE_RELEASE})
    file(WRITE ${CPACK_RPM_CHANGELOG_FILE} "* ${date} ${CPACK_PACKAGE_CONTACT} - ${version}
- Built from the sources of this version.
")
endif()
