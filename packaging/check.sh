#!/usr/bin/env bash
# Tries the packages of a folder: lintian, then what the .debs and the tar.gz unpack to.
#
#     check.sh FOLDER
set -euo pipefail
tests=$(dirname "$(realpath "${BASH_SOURCE[0]}")")/../tests/package
cd "$1"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

lintian --allow-root --fail-on error ./*.deb
for package in ./*.deb; do
    dpkg-deb -x "$package" "$scratch/deb"
done
mkdir "$scratch/tar"
for package in ./*.tar.gz; do
    tar -xzf "$package" -C "$scratch/tar"
done

version=$(dpkg-deb -f qvnodedispatch_*.deb Version)
for prefix in "$scratch/deb/usr" "$scratch/tar"; do
    file "$prefix/bin/qvNodeDispatch" | grep -E 'static-pie linked|statically linked' ||
        { echo "check.sh: the tool is not static" >&2; exit 1; }
    bash "$tests/installedTree.sh" "$prefix" "$version"
done
