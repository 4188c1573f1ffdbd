#!/usr/bin/env bash
# Builds the packages of the tree that it belongs to, with their checksums, in FOLDER/packages.
#
#     build.sh FOLDER
set -euo pipefail
sources=$(realpath "$(dirname "${BASH_SOURCE[0]}")/..")
mkdir -p "$1"
folder=$(realpath "$1")
packages=$folder/packages
rm -rf "$packages"
mkdir "$packages"

# pack BUILD_FOLDER [CMAKE_ARGUMENT...]
pack() {
    local build=$folder/$1
    shift
    (cd "$sources" && cmake --preset release -B "$build" -DQV_BUILD_TESTS=OFF \
        -DQV_BUILD_EXAMPLES=OFF "$@") >"$build.log" 2>&1 || { cat "$build.log" >&2; return 1; }
    cmake --build "$build"
    rm -rf "$build/packed"
    # What belongs to root is read by all, whoever packs it.
    (umask 022 && cd "$build" && cpack -B "$build/packed")
    find "$build/packed" -maxdepth 1 -type f -exec cp -t "$packages" {} +
    rm -r "$build/packed"
}

(cd "$sources" && ./dev reference) >"$folder/reference.log" 2>&1 ||
    { cat "$folder/reference.log" >&2; exit 1; }
pack x86_64 -DQV_REFERENCE="$sources/build/reference"
pack aarch64 -DCMAKE_TOOLCHAIN_FILE="$sources/cmake/aarch64.cmake"
cd "$packages"
sha256sum -- * >"$folder/SHA256SUMS"
mv "$folder/SHA256SUMS" .
