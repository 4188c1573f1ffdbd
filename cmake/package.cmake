# `./dev package`: the tool, the library and its documentation as a .deb and a tar.gz each, the tool
# as an .rpm too. The tar.gz is for machines without dpkg and rpm; it unpacks over any prefix, such as
# /usr/local. For a processor that is not this machine's there is the tar.gz alone.
set(CPACK_PACKAGE_NAME qvnodedispatch)
set(CPACK_PACKAGE_VENDOR "qvNodeDispatch contributors")
set(CPACK_PACKAGE_CONTACT "${CPACK_PACKAGE_VENDOR} <contributors@qvnodedispatch.invalid>")
set(CPACK_GENERATOR TGZ)
find_program(QV_RPMBUILD rpmbuild)
if(NOT CMAKE_CROSSCOMPILING)
    list(APPEND CPACK_GENERATOR DEB)
    if(QV_RPMBUILD)
        list(APPEND CPACK_GENERATOR RPM)
    endif()
endif()
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/packaging/cpack.cmake)
set(CPACK_PRE_BUILD_SCRIPTS
    ${PROJECT_SOURCE_DIR}/packaging/debian.cmake
    ${PROJECT_SOURCE_DIR}/packaging/rpm.cmake)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The linker lists the code of others that it puts into the programs. In a package, once they are
# stripped, packaging/linked.py writes a file about it beside them.
if(qvReleased AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set(linkMaps ${PROJECT_BINARY_DIR}/linkMaps)
    file(MAKE_DIRECTORY ${linkMaps})
    set(programs qvNodeDispatch qvNodeDispatchStatus mailboxView)
    foreach(program IN LISTS programs)
        target_link_options(${program} PRIVATE -Wl,-Map=${linkMaps}/${program}.map)
    endforeach()
    list(TRANSFORM programs REPLACE ".+" "\"\${prefix}/${CMAKE_INSTALL_BINDIR}/\\0\"")
    list(JOIN programs " " programs)
    install(CODE "
        if(DEFINED ENV{QV_PACKED_VERSION})
            set(prefix \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
            execute_process(COMMAND python3 -B \"${PROJECT_SOURCE_DIR}/packaging/linked.py\"
                \"${linkMaps}\" \"\${prefix}/${toolDocs}\" ${programs} COMMAND_ERROR_IS_FATAL ANY)
        endif()" COMPONENT tool)
endif()

set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(platform ${PROJECT_VERSION}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_ARCHIVE_TOOL_FILE_NAME qvnodedispatch-${platform})
set(CPACK_ARCHIVE_DEV_FILE_NAME libqv-dev-${platform})
set(CPACK_ARCHIVE_DOC_FILE_NAME libqv-doc-${PROJECT_VERSION})

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE qvnodedispatch)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME qvnodedispatch)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOL_PACKAGE_SHLIBDEPS ON)
set(toolDescription "The tool appends a command such as abort, disable or restart to the message
queue in the client's shared memory. With it come a script that tells the
outcome by its exit status, a viewer for the client's mailbox, and recipes
for many nodes.")
set(CPACK_DEBIAN_TOOL_DESCRIPTION
    "hand the render client on this machine one command\n${toolDescription}")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libqv-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS libqv-doc)
set(CPACK_DEBIAN_DEV_DESCRIPTION "support library of the render farm's programs
Strings of a fixed capacity that live inside shared records, a named shared
segment with a lock, a string list, checksums and text helpers, for C++20.
Views for GDB, LLDB and natvis come with it.")

set(CPACK_DEBIAN_DOC_PACKAGE_NAME libqv-doc)
set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOC_DESCRIPTION "support library of the render farm's programs, documentation
The API reference as HTML, the manual page and examples of libqv: strings of
a fixed capacity, a named shared segment with a lock, a string list,
checksums and text helpers, for C++20.")
# Without the reference there is no package of the documentation.
get_cmake_property(CPACK_COMPONENTS_ALL COMPONENTS)
if(NOT QV_REFERENCE)
    list(REMOVE_ITEM CPACK_COMPONENTS_ALL doc)
endif()

# For Enterprise Linux 8 and 9. The tools alone: a program has to link the library with the C++ library
# that both were compiled with, and theirs is another one.
set(CPACK_RPM_COMPONENT_INSTALL ON)
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_RELEASE 1)
set(CPACK_RPM_COMPRESSION_TYPE xz) # both read it
set(CPACK_RPM_PACKAGE_GROUP Applications/System)
set(CPACK_RPM_PACKAGE_RELOCATABLE OFF)
set(CPACK_RPM_PACKAGE_LICENSE "LicenseRef-All-Rights-Reserved")
set(CPACK_RPM_TOOL_PACKAGE_NAME qvnodedispatch)
set(CPACK_RPM_TOOL_PACKAGE_SUMMARY "Hand the render client on this machine one command")
set(CPACK_RPM_TOOL_PACKAGE_DESCRIPTION "${toolDescription}")
# The build host and the links to build ids would make two builds differ. The programs that the scripts
# among the documents call are no dependencies, nor is the loader of a static-pie, which loads itself.
set(CPACK_RPM_SPEC_MORE_DEFINE "
%define packager ${CPACK_PACKAGE_CONTACT}
%define _buildhost localhost
%define _build_id_links none
%define use_source_date_epoch_as_buildtime 1
%define __os_install_post %{nil}
%define __requires_exclude ^rtld[(]GNU_HASH[)]$
%define __requires_exclude_from ^/usr/share/doc/")
# Folders of the system are not the package's.
foreach(folder IN ITEMS bash-completion bash-completion/completions fish fish/vendor_completions.d
        man man/man1 zsh zsh/site-functions)
    list(APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION /usr/share/${folder})
endforeach()
include(CPack)
