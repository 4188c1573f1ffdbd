#!/usr/bin/env bash
# Builds the packages a second time, from a copy of the tree in another folder, at another hour of
# another zone, for another umask and without a compiler cache: their bytes have to be the same.
#
#     reproduce.sh FOLDER_OF_PACKAGES
set -euo pipefail
packages=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
umask 077
copy=$scratch/another/folder
mkdir -p "$copy"
git ls-files -z --cached --others --exclude-standard | xargs -0 cp --parents -t "$copy"

SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH TZ=Pacific/Chatham LC_ALL=C
unset CMAKE_C_COMPILER_LAUNCHER CMAKE_CXX_COMPILER_LAUNCHER
bash "$copy/packaging/build.sh" "$scratch/built" >"$scratch/log" 2>&1 ||
    { cat "$scratch/log" >&2; exit 1; }
if ! diff --label here --label there -u "$packages/SHA256SUMS" "$scratch/built/packages/SHA256SUMS"
then
    echo "reproduce.sh: a second build gives other bytes" >&2
    exit 1
fi
echo "reproduce.sh: a second build gives the same bytes"
