# GoogleTest compiled as the tests are, where the packaged one is of another kind: by a sanitizer,
# another C++ library, another processor. Debian's googletest holds its sources.
find_path(QV_GTEST_SOURCES src/gtest-all.cc PATHS /usr/src/googletest/googletest REQUIRED
    NO_CMAKE_FIND_ROOT_PATH)
set(INSTALL_GTEST OFF)
add_subdirectory(${QV_GTEST_SOURCES} gtest EXCLUDE_FROM_ALL)
target_compile_options(gtest PRIVATE ${QV_TEST_OPTIONS} -w) # its warnings are not ours to mend
