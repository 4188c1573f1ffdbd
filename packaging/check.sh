#!/usr/bin/env bash
# Tries the packages of a folder: their checksums and times, lintian, then what they unpack to.
#
#     check.sh FOLDER
set -euo pipefail
tests=$(dirname "$(realpath "${BASH_SOURCE[0]}")")/../tests
# shellcheck source-path=SCRIPTDIR source=../tests/shell/expect.sh
source "$tests/shell/expect.sh"
need lintian lintian
need file file
cd "$1"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

expect 'packages of which SHA256SUMS has the sum' "$(find . -type f ! -name SHA256SUMS -printf '%P\n' | sort)" \
    "$(sha256sum --check SHA256SUMS | sed -n 's/: OK$//p' | sort)"
expect 'lintian finds no error' yes \
    "$(lintian --allow-root --fail-on error ./*.deb >&2 && echo yes)"

mkdir "$scratch"/{deb,tar}
for package in ./*.deb; do
    dpkg-deb -x "$package" "$scratch/deb"
done
for package in ./*.tar.gz; do
    tar -xzf "$package" -C "$scratch/tar"
done
committed=${SOURCE_DATE_EPOCH:-$(git -C "$tests" log -1 --format=%ct)}
expect 'the times in the packages' "$committed" \
    "$(find "$scratch" -type f -printf '%T@\n' | sed 's/\.0*$//' | sort -u)"

version=$(dpkg-deb -f qvnodedispatch_*.deb Version)
for prefix in "$scratch/deb/usr" "$scratch/tar"; do
    expect 'the tool is static' yes \
        "$(file "$prefix/bin/qvNodeDispatch" | grep -qE 'static-pie linked|statically linked' && echo yes)"
    expect 'the installed tree works' yes \
        "$(bash "$tests/package/installedTree.sh" "$prefix" "$version" >&2 && echo yes)"
done

finish
