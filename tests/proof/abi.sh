#!/usr/bin/env bash
# Compares the library's binary interface with that of the last release: both are built with debug
# information and linked into a shared object, which is what abidiff reads. A change that breaks
# programs built against the release fails; additions do not.
#
# usage: abi.sh FOLDER [REVISION]    REVISION: the last release tag, v*, unless given
set -euo pipefail
folder=$1
root=$(git rev-parse --show-toplevel)
release=${2:-$(git -C "$root" describe --tags --match 'v*' --abbrev=0 2>/dev/null || true)}
if [[ -z $release ]]; then
    echo "proof: abi release=none"
    exit 0
fi

# Builds the library of a source tree as FOLDER/NAME.so.
build() {
    local name=$1 source=$2
    cmake -S "$source" -B "$folder/$name" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DQV_BUILD_TESTS=OFF >/dev/null
    cmake --build "$folder/$name" --target qv >/dev/null
    g++ -shared -o "$folder/$name.so" \
        -Wl,--whole-archive "$folder/$name/libqv.a" -Wl,--no-whole-archive
}

mkdir -p "$folder/releaseTree"
git -C "$root" archive "$release" | tar -x -C "$folder/releaseTree"
build release "$folder/releaseTree"
build now "$root"

# abidiff's status is made of bits: 4 for a change, 8 for one that breaks, 1 and 2 for its own ends.
status=0
abidiff --no-added-syms "$folder/release.so" "$folder/now.so" || status=$?
if ((status & 11)); then
    echo "abi.sh: the interface of $release is broken, or could not be compared" >&2
    exit 1
fi
echo "proof: abi release=$release status=$status"
