# `./dev package`: the tool and the library as a .deb and a tar.gz each. The tar.gz is for machines
# without dpkg; it unpacks over any prefix, such as /usr/local.
set(CPACK_PACKAGE_NAME qvnodedispatch)
set(CPACK_PACKAGE_VENDOR "qvNodeDispatch contributors")
set(CPACK_PACKAGE_CONTACT "${CPACK_PACKAGE_VENDOR} <contributors@qvnodedispatch.invalid>")
set(CPACK_GENERATOR TGZ DEB)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/packaging/cpack.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/debian.cmake)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(platform ${PROJECT_VERSION}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_ARCHIVE_TOOL_FILE_NAME qvnodedispatch-${platform})
set(CPACK_ARCHIVE_DEV_FILE_NAME libqv-dev-${platform})

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE qvnodedispatch)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME qvnodedispatch)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOL_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOL_DESCRIPTION "hand the render client on this machine one command
The tool appends a command such as abort, disable or restart to the message
queue in the client's shared memory. With it come a script that tells the
outcome by its exit status, a viewer for the client's mailbox, and recipes
for many nodes.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libqv-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_DESCRIPTION "support library of the render farm's programs
Strings of a fixed capacity that live inside shared records, a named shared
segment with a lock, a string list, checksums and text helpers, for C++20.
Views for GDB, LLDB and natvis come with it.")
include(CPack)
