#!/usr/bin/env bash
# The library as a folder of another project, static and shared: a program links it, nothing but the
# library is built or installed with it, and a warning of another compiler ends no build.
#
#     subprojectTest.sh SOURCE_ROOT BUILD_FOLDER LIBRARY VERSION [CMAKE_OPTION...]
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source-path=SCRIPTDIR source=../shell/expect.sh
source "$here/../shell/expect.sh"
source_root=$1 build=$2 release=$3 version=$4
options=("${@:5}")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# One folder, made over from static to shared. The library's objects are those of the release: the
# same commands make them, but that no warning is an error.
folder=$scratch/build
launcher="python3;-B;$(realpath "$here")/knownObjects.py;$build;$scratch/compiled"
for shared in OFF ON; do
    cmake -S "$here/superproject" -B "$folder" -G Ninja -DQV_SOURCE="$source_root" \
        -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=$shared \
        -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" "${options[@]}" >"$scratch/log" 2>&1 || cat "$scratch/log"
    cmake --build "$folder" >"$scratch/log" 2>&1 || cat "$scratch/log"
    expect "the program, shared $shared" "QV_consumer_1234567 'render07' Abort $version" \
        "$("$folder/program")"
    expect "warnings that end the build, shared $shared" '' \
        "$(grep -o -m 1 -e '-Werror' "$folder/build.ninja")"
    cmake --install "$folder" --prefix "$folder/installed$shared" >"$scratch/log"
    expect "what is installed, shared $shared" bin/program \
        "$(cd "$folder/installed$shared" && find . -type f -printf '%P\n')"
done
expect 'what is compiled otherwise than the release' "$(realpath "$here")/consumer/consumer.cpp" \
    "$(cat "$scratch/compiled")"

expect 'the name that a program asks for' "libqv.so.${version%%.*}" \
    "$(readelf -d "$folder/program" | sed -nE 's/.*NEEDED.*\[(libqv.*)\]/\1/p')"

# The shared library shows what the static one of the release holds, but for what is its own.
interface() {
    nm --demangle --defined-only --extern-only "$@" | sed -nE 's/^[0-9a-f]{16} . //p' |
        sed 's/@@QV_[0-9]*$//' | grep -vE '^(([a-z ]*)?std::|qvSegment::|qvSupport::|QV_)' | sort -u
}
expect 'what the shared library fails to show' '' \
    "$(comm -23 <(interface "$release") <(interface --dynamic "$folder/qv/libqv.so"))"
expect 'what it keeps to itself' '' \
    "$(nm --dynamic --demangle --defined-only "$folder/qv/libqv.so" |
        grep -E ' (qvSegment|qvSupport)::')"

finish
