#!/usr/bin/env bash
# The library as a folder of another project, static and shared: a program links it, nothing but the
# library is built or installed with it, and a warning of another compiler ends no build.
#
#     subprojectTest.sh SOURCE_ROOT LIBRARY VERSION [COMPILER_LAUNCHER]
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source-path=SCRIPTDIR source=../shell/expect.sh
source "$here/../shell/expect.sh"
source_root=$1 release=$2 version=$3 launcher=${4-}
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# One folder, made over from static to shared: the objects of both are the same. With a ccache the
# test's next run finds them too.
export CCACHE_BASEDIR=$scratch CCACHE_NOHASHDIR=1
folder=$scratch/build
for shared in OFF ON; do
    cmake -S "$here/superproject" -B "$folder" -G Ninja -DQV_SOURCE="$source_root" \
        -DBUILD_SHARED_LIBS=$shared -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" \
        >"$scratch/log" 2>&1 || cat "$scratch/log"
    cmake --build "$folder" >"$scratch/built" 2>&1 || cat "$scratch/built"
    expect "the program, shared $shared" "QV_consumer_1234567 'render07' Abort $version" \
        "$("$folder/program")"
    expect "warnings that end the build, shared $shared" '' \
        "$(grep -o -m 1 -e '-Werror' "$folder/build.ninja")"
    cmake --install "$folder" --prefix "$folder/installed$shared" >"$scratch/log"
    expect "what is installed, shared $shared" bin/program \
        "$(cd "$folder/installed$shared" && find . -type f -printf '%P\n')"
done
expect 'objects that the shared library compiles anew' '' \
    "$(grep -o 'Building CXX object qv/.*' "$scratch/built")"

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
