#!/usr/bin/env bash
# What is installed works from where it lies: the tool and its script, the manual pages, the links
# of the documents, the headers, and programs that find the library by CMake or by pkg-config.
#
#     installedTree.sh PREFIX VERSION
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source-path=SCRIPTDIR source=../shell/expect.sh
source "$here/../shell/expect.sh"
isolate "$@"
need g++ g++
need clang++ clang
need cmake cmake
need pkg-config pkg-config
need man man-db
need python3 python3
prefix=$(realpath "$1")
version=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# The script has to find the tool beside it, as no other one is in PATH.
expect 'the tool lists its commands' yes \
    "$("$prefix/bin/qvNodeDispatch" | grep -q RestartMachineAfterRender && echo yes)"
expect 'the script tells what the tool says' noSegment \
    "$("$prefix/bin/qvNodeDispatchStatus" --json abort | sed -E 's/.*"outcome": "(\w+)".*/\1/')"
expect 'the view finds no client' 'no segment' \
    "$("$prefix/bin/mailboxView" | grep -o 'no segment' | head -n 1)"

pages=("$prefix"/share/man/man*/*)
expect 'there are manual pages' yes "$([[ -f ${pages[0]} ]] && echo yes)"
for page in "${pages[@]}"; do
    name=$(basename "${page%.gz}")
    expect "man finds $name" "$page" "$(man -M "$prefix/share/man" -w "${name##*.}" "${name%.*}")"
done

expect 'links that lead nowhere' '' "$(python3 -B "$here/documentLinks.py" "$prefix")"

# A header that another one needs and that is not installed shows here.
export PKG_CONFIG_LIBDIR=$prefix/lib/pkgconfig
read -ra compile < <(pkg-config --cflags qv)
read -ra link < <(pkg-config --libs qv)
(cd "$prefix/include" && find qv -name '*.h' -printf '#include <%p>\n') >"$scratch/all.cpp"
warnings=(-Wall -Wextra -Wpedantic -Werror)
g++ -std=c++20 "${warnings[@]}" "${compile[@]}" -fsyntax-only "$scratch/all.cpp"

expect 'the version of pkg-config' "$version" "$(pkg-config --modversion qv)"
said="QV_consumer_1234567 'render07' Abort $version"
for compiler in g++ clang++; do
    consumer=$scratch/consumer.o # linked twice
    "$compiler" -std=c++20 "${warnings[@]}" "${compile[@]}" -c "$here/consumer/consumer.cpp" \
        -o "$consumer"
    "$compiler" "$consumer" "${link[@]}" -o "$scratch/byPkgConfig"
    expect "$compiler, by pkg-config" "$said" "$("$scratch/byPkgConfig")"

    read -ra linkStatic < <(pkg-config --static --libs qv)
    "$compiler" -static "$consumer" "${linkStatic[@]}" -o "$scratch/static"
    expect "$compiler, by pkg-config --static" "$said" "$("$scratch/static")"

    cmake -S "$here/consumer" -B "$scratch/$compiler" -DCMAKE_CXX_COMPILER="$compiler" \
        -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF \
        -DQV_VERSION="$version" >"$scratch/log" || cat "$scratch/log"
    cmake --build "$scratch/$compiler" >"$scratch/log" || cat "$scratch/log"
    expect "$compiler, by find_package" "$said" "$("$scratch/$compiler/consumer")"
done

# The examples compile where they are installed and need no other header.
examples=("$prefix"/share/doc/libqv-doc/examples/*.cpp)
expect 'there are examples' 7 "${#examples[@]}"
for example in "${examples[@]}"; do
    name=$(basename "$example" .cpp)
    g++ -std=c++20 "${warnings[@]}" "${compile[@]}" "$example" "${link[@]}" -o "$scratch/$name" &&
        built=yes || built=no
    expect "the example $name is built" yes "$built"
done
expect 'an example runs' 'render07 from a record' "$("$scratch/stringInterop" | tail -n 1)"

finish
