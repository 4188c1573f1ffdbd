#!/usr/bin/env bash
# `cmake --install` lays down exactly the files of tool.txt, dev.txt and doc.txt and the library's
# headers, knows no folder of this machine, and what it lays down works after it was moved.
#
#     installTest.sh SOURCE_ROOT BUILD_FOLDER VERSION
set -euo pipefail
here=$(dirname "${BASH_SOURCE[0]}")
# shellcheck source-path=SCRIPTDIR source=../shell/expect.sh
source "$here/../shell/expect.sh"
source_root=$1 build=$2 version=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# All of the library's headers, and no other, are installed.
headers=$(cd "$source_root" && find qv -name '*.h' -printf 'include/%p\n')
expected() {
    cat "$here/$1.txt"
    [[ $1 != dev ]] || printf '%s\n' "$headers"
}
for component in tool dev doc; do
    cmake --install "$build" --component "$component" --prefix "$scratch/first/$component" \
        >/dev/null
    expect "files of the component $component" "$(expected $component | LC_ALL=C sort)" \
        "$(cd "$scratch/first/$component" && find . ! -type d -printf '%P\n' | LC_ALL=C sort)"
done

mkdir "$scratch/moved"
cp -a "$scratch"/first/{tool,dev,doc}/. "$scratch/moved"
rm -r "$scratch/first"
expect 'files that name a folder of this machine' '' \
    "$(grep -rIlF -e "$source_root/" -e "$build" -e "$scratch" "$scratch/moved")"
expect 'flags of this build that a program would inherit' '' \
    "$(grep -rE '^[^#]*-(fno-|fsanitize|W)' "$scratch"/moved/lib/{cmake,pkgconfig})"
bash "$here/installedTree.sh" "$scratch/moved" "$version"

finish
