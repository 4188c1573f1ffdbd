# `cmake --install`, in three components: tool for the nodes, dev for programs that use the library,
# doc for their authors. No installed file knows its place, so the whole can be moved.
set(share ${CMAKE_INSTALL_DATAROOTDIR})
set(toolDocs ${share}/doc/qvnodedispatch)
set(devDocs ${share}/doc/libqv-dev)
set(docDocs ${share}/doc/libqv-doc)
set(qvPackage ${CMAKE_INSTALL_LIBDIR}/cmake/qv)
set(pkgConfig ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# The library, and its folder as it is.
install(TARGETS qv EXPORT qv ARCHIVE COMPONENT dev LIBRARY COMPONENT dev)
install(DIRECTORY qv ${PROJECT_BINARY_DIR}/include/qv TYPE INCLUDE COMPONENT dev
    FILES_MATCHING PATTERN "*.h")
install(DIRECTORY debugger DESTINATION ${share}/qv COMPONENT dev PATTERN __pycache__ EXCLUDE)

# find_package(qv) and pkg-config.
include(CMakePackageConfigHelpers)
install(EXPORT qv NAMESPACE qv:: FILE qvTargets.cmake DESTINATION ${qvPackage} COMPONENT dev)
configure_package_config_file(cmake/qvConfig.cmake.in ${PROJECT_BINARY_DIR}/qvConfig.cmake
    INSTALL_DESTINATION ${qvPackage} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/qvConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/qvConfig.cmake ${PROJECT_BINARY_DIR}/qvConfigVersion.cmake
    DESTINATION ${qvPackage} COMPONENT dev)
set(prefix /prefix)
cmake_path(RELATIVE_PATH prefix BASE_DIRECTORY /prefix/${pkgConfig}
    OUTPUT_VARIABLE fromPkgConfigToPrefix)
if(QV_CHECKED)
    set(qvCheckedFlag " -DQV_CHECKED")
endif()
if(APPLE)
    set(qvSystemLibraries " -framework CoreFoundation")
endif()
if(BUILD_SHARED_LIBS) # a shared library links them
    set(qvPrivateLibraries "${qvSystemLibraries}")
    unset(qvSystemLibraries)
endif()
configure_file(cmake/qv.pc.in qv.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qv.pc DESTINATION ${pkgConfig} COMPONENT dev)

# The documents are in the same places relative to each other as in the tree, so that their links
# hold; the tool's too, below. A link to a file that is not installed becomes text.
function(qv_keep_links folder component)
    cmake_path(ABSOLUTE_PATH folder BASE_DIRECTORY "\${CMAKE_INSTALL_PREFIX}")
    install(CODE "set(documents \"\$ENV{DESTDIR}${folder}\")
include(\"${PROJECT_SOURCE_DIR}/cmake/installedLinks.cmake\")" COMPONENT ${component})
endfunction()
file(GLOB drawings CONFIGURE_DEPENDS docs/image*.svg)
install(FILES docs/memory-images.md docs/run.svg ${drawings} DESTINATION ${devDocs}/docs
    COMPONENT dev)
install(FILES README.md CHANGELOG.md DESTINATION ${devDocs} COMPONENT dev)
install(FILES LICENSE RENAME copyright DESTINATION ${devDocs} COMPONENT dev) # Debian's name for it
qv_keep_links(${devDocs} dev)

# The library's documentation: the API reference if it is built, manual pages and examples.
if(QV_REFERENCE)
    install(DIRECTORY ${QV_REFERENCE}/ DESTINATION ${docDocs}/html COMPONENT doc)
endif()
install(DIRECTORY docs/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT doc
    FILES_MATCHING PATTERN "*.3")
install(DIRECTORY examples DESTINATION ${docDocs} COMPONENT doc FILES_MATCHING PATTERN "*.cpp")
install(FILES CHANGELOG.md DESTINATION ${docDocs} COMPONENT doc)
install(FILES LICENSE RENAME copyright DESTINATION ${docDocs} COMPONENT doc)

if(NOT QV_BUILD_TOOL)
    return()
endif()

# The tool, its manual pages, and its completions for shells.
install(TARGETS qvNodeDispatch qvNodeDispatchStatus mailboxView RUNTIME COMPONENT tool)
install(DIRECTORY docs/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool
    FILES_MATCHING PATTERN "*.1")
foreach(command IN ITEMS qvNodeDispatch qvNodeDispatchStatus) # both shells look for a file so named
    install(FILES completion/qvNodeDispatch.bash RENAME ${command}
        DESTINATION ${share}/bash-completion/completions COMPONENT tool)
    install(FILES completion/qvNodeDispatch.fish RENAME ${command}.fish
        DESTINATION ${share}/fish/vendor_completions.d COMPONENT tool)
endforeach()
install(FILES completion/mailboxView.bash RENAME mailboxView
    DESTINATION ${share}/bash-completion/completions COMPONENT tool)
install(FILES completion/mailboxView.fish DESTINATION ${share}/fish/vendor_completions.d
    COMPONENT tool)
install(FILES completion/_qvNodeDispatch completion/_mailboxView
    DESTINATION ${share}/zsh/site-functions COMPONENT tool)
install(FILES docs/cookbook.md docs/mailbox.md docs/mailbox.svg docs/run.svg
    docs/scale.md docs/scale.svg
    DESTINATION ${toolDocs}/docs COMPONENT tool)
install(DIRECTORY contrib DESTINATION ${toolDocs} COMPONENT tool
    PATTERN "*.sh" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
        WORLD_READ WORLD_EXECUTE)
install(FILES README.md CHANGELOG.md SECURITY.md DESTINATION ${toolDocs} COMPONENT tool)
install(FILES LICENSE RENAME copyright DESTINATION ${toolDocs} COMPONENT tool)
qv_keep_links(${toolDocs} tool)
