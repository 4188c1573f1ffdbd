#!/usr/bin/env bash
# Tries the packages of a folder: their checksums and times, lintian and rpmlint, then what they
# unpack to.
#
#     check.sh FOLDER
set -euo pipefail
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
tests=$here/../tests
# shellcheck source-path=SCRIPTDIR source=../tests/shell/expect.sh
source "$tests/shell/expect.sh"
need lintian lintian
need file file
need qemu-aarch64 qemu-user
need rpm rpm
need rpmlint rpmlint
need unshare util-linux
cd "$1"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# What the programs of a folder show of what is linked into them. libgcc shows nothing.
linked() {
    local program libraries
    for program in mailboxView qvNodeDispatch qvNodeDispatchStatus; do
        grep -qa GLIBC_TUNABLES "$1/$program" && libraries=glibc || libraries=musl
        ! grep -qa 'terminate called' "$1/$program" || libraries+=' libstdc++'
        echo "$program: $libraries"
    done
}

expect 'what SHA256SUMS says of the packages' \
    "$(find . -type f ! -name SHA256SUMS -printf '%P: OK\n' | LC_ALL=C sort)" \
    "$(sha256sum --check SHA256SUMS 2>/dev/null | LC_ALL=C sort)"
expect 'lintian finds no error' yes \
    "$(lintian --allow-root --fail-on error ./*.deb >&2 && echo yes)"
expect 'rpmlint finds nothing' '0 errors, 0 warnings' \
    "$(rpmlint --config "$here/rpmlint.toml" ./*.rpm | tee /dev/stderr |
        grep -o '[0-9]* errors, [0-9]* warnings')"

# An own root with nothing in it but the package. The rpm of Enterprise Linux 8 has each of these.
mkdir "$scratch/rpm"
as_root=(unshare --ipc)
((EUID == 0)) || as_root+=(--user --map-root-user)
in_root=("${as_root[@]}" rpm --force-debian --root "$scratch/rpm") # Debian's rpm asks for alien
expect 'what the .rpm depends on' 'rpmlib(CompressedFileNames) <= 3.0.4-1
rpmlib(FileDigests) <= 4.6.0-1
rpmlib(PayloadFilesHavePrefix) <= 4.0-1
rpmlib(PayloadIsXz) <= 5.2-1' "$(rpm -qp --requires ./*.rpm)"
expect 'the .rpm is installed, and nothing differs' '' \
    "$("${in_root[@]}" -i "$PWD"/*.rpm 2>&1
       "${in_root[@]}" -V qvnodedispatch 2>&1)"
expect 'the tool runs where nothing else is' 'Shared Memory does not exist.' \
    "$("${as_root[@]}" chroot "$scratch/rpm" /usr/bin/qvNodeDispatch abort |
        grep -o 'Shared.*exist\.')"
expect 'so does the one for scripts' noSegment \
    "$("${as_root[@]}" chroot "$scratch/rpm" /usr/bin/qvNodeDispatchStatus --json abort |
        grep -o noSegment)"
expect 'so does the view' 'no segment' \
    "$("${as_root[@]}" chroot "$scratch/rpm" /usr/bin/mailboxView | grep -o 'no segment')"
expect 'what is linked in, by the SPDX document of the .rpm' "$(linked "$scratch/rpm/usr/bin")" \
    "$(python3 -B "$here/checkLinked.py" "$scratch/rpm/usr" | sed 's/ libgcc//')"
expect 'what is left of the .rpm when it is removed' '' \
    "$("${in_root[@]}" -e qvnodedispatch 2>&1
       find "$scratch/rpm" -ipath '*qv*' -o -name 'mailboxView*')"

mkdir "$scratch"/{deb,x86_64,aarch64}
for package in ./*.deb; do
    dpkg-deb -x "$package" "$scratch/deb"
done
tar -xzf libqv-doc-*.tar.gz -C "$scratch/x86_64"
for machine in x86_64 aarch64; do
    for package in ./*"-$machine.tar.gz"; do
        tar -xzf "$package" -C "$scratch/$machine"
    done
done
committed=${SOURCE_DATE_EPOCH:-$(git -C "$tests" log -1 --format=%ct)}
expect 'the times in the packages' "$committed" \
    "$(find "$scratch"/{deb,x86_64,aarch64} -type f -printf '%T@\n' | sed 's/\.0*$//' | sort -u)"

for name in qvnodedispatch libqv-dev libqv-doc; do
    expect "$name has its changes where Debian looks for them" "$(cat "$here/../CHANGELOG.md")" \
        "$(zcat "$scratch/deb/usr/share/doc/$name/changelog.gz")"
done

version=$(dpkg-deb -f qvnodedispatch_*.deb Version)
version=${version%-*}
for prefix in "$scratch/deb/usr" "$scratch/x86_64"; do
    expect 'what is linked in, by the SPDX document' "$(linked "$prefix/bin")" \
        "$(python3 -B "$here/checkLinked.py" "$prefix" | sed 's/ libgcc//')"
    expect 'the tool is static' yes \
        "$(file "$prefix/bin/qvNodeDispatch" |
            grep -qE 'static-pie linked|statically linked' && echo yes)"
    expect 'the reference has a first page' yes \
        "$(grep -q 'qvNodeDispatch' "$prefix/share/doc/libqv-doc/html/index.html" && echo yes)"
    expect 'the installed tree works' yes \
        "$(bash "$tests/package/installedTree.sh" "$prefix" "$version" >&2 && echo yes)"
done

# No processor for these is here: qemu runs what has no library of the system to ask for.
foreign=$scratch/aarch64
for program in qvNodeDispatch qvNodeDispatchStatus mailboxView; do
    expect "$program is static, for aarch64" 'aarch64 static-pie linked' \
        "$(file "$foreign/bin/$program" |
            sed -nE 's/.*ARM (aarch64),.*, (static-pie linked|statically linked),.*/\1 \2/p')"
done
expect 'what is linked in, by the SPDX document for aarch64' "$(linked "$foreign/bin")" \
    "$(python3 -B "$here/checkLinked.py" "$foreign" | sed 's/ libgcc//')"
expect 'the tool runs on aarch64' 'Shared Memory does not exist.' \
    "$("${as_root[@]}" qemu-aarch64 "$foreign/bin/qvNodeDispatch" abort |
        grep -o 'Shared.*exist\.')"
expect 'so does the one for scripts, on aarch64' noSegment \
    "$("${as_root[@]}" qemu-aarch64 "$foreign/bin/qvNodeDispatchStatus" --json abort |
        grep -o noSegment)"
expect 'so does the view, on aarch64' 'no segment' \
    "$("${as_root[@]}" qemu-aarch64 "$foreign/bin/mailboxView" | grep -o 'no segment')"
read -ra flags < <(PKG_CONFIG_LIBDIR=$foreign/lib/pkgconfig pkg-config --cflags --libs qv)
aarch64-linux-gnu-g++ -std=c++20 -static "$tests/package/consumer/consumer.cpp" "${flags[@]}" \
    -o "$scratch/consumer"
expect 'a program for aarch64 links the library' "QV_consumer_1234567 'render07' Abort $version" \
    "$(qemu-aarch64 "$scratch/consumer")"

finish
