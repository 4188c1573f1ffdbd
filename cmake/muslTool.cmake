# The tools for the nodes are linked with musl where it is installed (Debian's musl-dev). Beyond its
# system calls, nearly all of a run is the start of the C library, and musl starts fast. The library,
# the view and the tests stay with the machine's own C library.
#
# A program's objects are all compiled against the headers of the C library that it is linked
# with: structures, macros and inline functions are each library's own. So the sources of libqv
# that the tools link are compiled a second time, as qvMusl, in a few seconds. Of the C++ library
# the tools use headers alone, and these fit any C library but for two names of glibc.
#
# Sets QV_TOOL_LIBC in the cache: "musl", or "glibc" for what the machine has. With musl there are
#
#     qvMusl                      the library's part of the tools
#     qv_link_with_musl(PROGRAM)  a program of sources alone becomes one with qvMusl and musl
#
# Whole runs of `qvNodeDispatch abort` beside a program that makes the same system calls without
# any C library (bench/floorSender.c), 2,000 times each in turns, g++ 12.2:
#
#                              of the floor   microseconds   instructions   page faults   system calls
#     floor                        1.00            148              44            4             14
#     musl, static-pie             1.22            180          12,540           11             16
#     musl, fixed address          1.19            175          10,460           10             16
#     glibc, static-pie            3.5             518          60,535           26             27
#     glibc, dynamic, minimal C    5.0             735         112,370           51             42
#
# So random addresses (QV_TOOL_PIE) stay: a fixed one saves a page fault and 2,080 instructions, but
# whoever can overwrite a return address then knows where to lead it.
#
# With musl two protections of hardening.cmake are lost: _FORTIFY_SOURCE does nothing, and the tables
# of addresses that a static-pie relocates stay writable, since musl's start does not protect them.
# Those of the tools name texts, no functions; at a fixed address they would be constants.
set(QV_TOOL_LIBC glibc CACHE INTERNAL "The C library that the tools are linked with")
if(NOT qvReleased OR NOT QV_STATIC_TOOL OR NOT QV_MUSL_TOOL)
    return()
endif()

if(CMAKE_CXX_LIBRARY_ARCHITECTURE MATCHES "gnu") # else this would find the machine's own
    string(REPLACE "gnu" "musl" muslName ${CMAKE_CXX_LIBRARY_ARCHITECTURE})
    find_path(QV_MUSL_INCLUDE stdio.h PATHS /usr/include/${muslName} NO_DEFAULT_PATH)
    find_path(QV_MUSL_LIB rcrt1.o PATHS /usr/lib/${muslName} NO_DEFAULT_PATH)
    mark_as_advanced(QV_MUSL_INCLUDE QV_MUSL_LIB)
endif()
if(NOT QV_MUSL_INCLUDE OR NOT QV_MUSL_LIB)
    return()
endif()

# The default include folders of a compiler, with musl in the place of the machine's C library: the
# C++ library, musl, and the compiler's own.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=include
    OUTPUT_VARIABLE compilersFolder OUTPUT_STRIP_TRAILING_WHITESPACE)
set(muslFolders ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
list(FILTER muslFolders INCLUDE REGEX "/c[+][+]/")
list(APPEND muslFolders ${QV_MUSL_INCLUDE} ${compilersFolder})
list(TRANSFORM muslFolders PREPEND "SHELL:-isystem ")

# The two names: glibc's version, asked for by the C++ library's configuration for Linux, and an
# older name of a type.
set(muslOptions -nostdinc -nostdinc++ ${muslFolders}
    "-D__GLIBC_PREREQ(major,minor)=0" -D__locale_t=locale_t)
if(QV_TOOL_PIE)
    list(APPEND muslOptions -fPIE)
    set(muslLinkOptions -static-pie)
    set(muslStart rcrt1.o)
else()
    list(APPEND muslOptions -fno-pie)
    set(muslLinkOptions -static -no-pie)
    set(muslStart crt1.o)
endif()
list(APPEND muslLinkOptions -nostdlib ${QV_MUSL_LIB}/${muslStart} ${QV_MUSL_LIB}/crti.o)
set(muslLibraries ${QV_MUSL_LIB}/libc.a -lgcc ${QV_MUSL_LIB}/crtn.o)

# Another C++ library may not fit.
include(CheckCXXSourceCompiles)
set(flags ${muslOptions})
list(TRANSFORM flags REPLACE "SHELL:" "")
list(TRANSFORM flags REPLACE "(.*[(].*)" "'\\1'") # a shell reads these
list(JOIN flags " " CMAKE_REQUIRED_FLAGS)
set(CMAKE_REQUIRED_LINK_OPTIONS ${muslLinkOptions})
set(CMAKE_REQUIRED_LIBRARIES ${muslLibraries})
check_cxx_source_compiles("
    #include <algorithm>
    #include <charconv>
    #include <cstdio>
    #include <string>
    #include <sys/shm.h>
    int main(int count, char** words) { return std::printf(\"%d %s\", count, words[0]); }"
    QV_HAS_MUSL)
unset(CMAKE_REQUIRED_FLAGS)
unset(CMAKE_REQUIRED_LINK_OPTIONS)
unset(CMAKE_REQUIRED_LIBRARIES)
if(NOT QV_HAS_MUSL)
    return()
endif()
set(QV_TOOL_LIBC musl CACHE INTERNAL "The C library that the tools are linked with")

# The tools' part of the library, and their only string type.
add_library(qvMusl OBJECT
    qv/client/qvClientCommandName.cpp
    qv/segment/core/deferredSignals.cpp
    qv/segment/core/segmentKey.cpp
    qv/segment/qvSharedMemory.cpp
    qv/strings/core/append.cpp
    qv/strings/core/compare.cpp
    $<$<BOOL:${QV_CHECKED}>:qv/strings/core/contract.cpp>
    qv/strings/core/edit.cpp
    qv/strings/core/findText.cpp
    qv/strings/core/findUnit.cpp
    qv/strings/core/move.cpp
    qv/strings/core/numberText.cpp
    qv/strings/core/run.cpp
    qv/strings/core/splice.cpp
    qv/support/core/systemErrorText.cpp
    qv/support/qvCRC.cpp
    qv/support/qvSystem.cpp
    sender/workingText.cpp)
target_compile_features(qvMusl PUBLIC cxx_std_20)
target_include_directories(qvMusl PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include)
target_compile_definitions(qvMusl PUBLIC $<$<BOOL:${QV_CHECKED}>:QV_CHECKED>)
target_compile_options(qvMusl PUBLIC ${muslOptions} PRIVATE
    -fno-exceptions -fno-rtti -ffunction-sections -fdata-sections)
target_link_libraries(qvMusl PRIVATE qv_warnings)
set_target_properties(qvMusl PROPERTIES POSITION_INDEPENDENT_CODE OFF) # muslOptions has it

function(qv_link_with_musl program)
    target_link_libraries(${program} PRIVATE qvMusl qv_hardening ${muslLibraries})
    target_link_options(${program} PRIVATE ${muslLinkOptions} -Wl,--gc-sections)
    # CMake adds no library of the C++ driver's to a program that this driver links.
    set_target_properties(${program} PROPERTIES
        LINKER_LANGUAGE CXX
        POSITION_INDEPENDENT_CODE OFF)
endfunction()
