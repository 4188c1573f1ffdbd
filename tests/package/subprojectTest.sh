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

# The second build finds the first one's objects where there is a ccache: they are the same.
export CCACHE_BASEDIR=$scratch CCACHE_NOHASHDIR=1
for shared in OFF ON; do
    folder=$scratch/$shared
    cmake -S "$here/superproject" -B "$folder" -G Ninja -DQV_SOURCE="$source_root" \
        -DBUILD_SHARED_LIBS=$shared -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" \
        >"$scratch/log" 2>&1 || cat "$scratch/log"
    cmake --build "$folder" >"$scratch/log" 2>&1 || cat "$scratch/log"
    expect "the program, shared $shared" "QV_consumer_1234567 'render07' Abort $version" \
        "$("$folder/program")"
    expect "warnings that end the build, shared $shared" '' \
        "$(grep -o -m 1 -e '-Werror' "$folder/build.ninja")"
    cmake --install "$folder" --prefix "$folder/installed" >"$scratch/log"
    expect "what is installed, shared $shared" bin/program \
        "$(cd "$folder/installed" && find . -type f -printf '%P\n')"
done

expect 'the name that a program asks for' "libqv.so.${version%%.*}" \
    "$(readelf -d "$scratch/ON/program" | sed -nE 's/.*NEEDED.*\[(libqv.*)\]/\1/p')"

# The shared library shows what the static one of the release holds, but for what is its own.
interface() {
    nm --demangle --defined-only --extern-only "$@" | sed -nE 's/^[0-9a-f]{16} . //p' |
        sed 's/@@QV_[0-9]*$//' | grep -vE '^(([a-z ]*)?std::|qvSegment::|qvSupport::|QV_)' | sort -u
}
expect 'what the shared library fails to show' '' \
    "$(comm -23 <(interface "$release") <(interface --dynamic "$scratch/ON/qv/libqv.so"))"
expect 'what it keeps to itself' '' \
    "$(nm --dynamic --demangle --defined-only "$scratch/ON/qv/libqv.so" |
        grep -E ' (qvSegment|qvSupport)::')"

finish
