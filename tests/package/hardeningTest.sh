#!/usr/bin/env bash
# A front of the sender in the release is built with what cmake/hardening.cmake names.
#
#     hardeningTest.sh LIBC PIE FRONT OBJECT...
#
# LIBC is the C library that it is linked with, PIE whether it is loaded at addresses of chance.
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=../shell/expect.sh
source "$(dirname "${BASH_SOURCE[0]}")/../shell/expect.sh"
need readelf binutils
libc=$1 pie=$2 tool=$3
shift 3

calls=$(nm --undefined-only "$@")
expect 'return addresses are checked' __stack_chk_fail "$(grep -o -m 1 __stack_chk_fail <<<"$calls")"
expect 'the kind of the program' "$([[ $pie == OFF ]] && echo EXEC || echo DYN)" \
    "$(readelf --file-header "$tool" | awk '$1 == "Type:" { print $2 }')"
segments=$(readelf --segments --wide "$tool")
if [[ $libc == glibc ]]; then # musl has neither
    expect 'calls of the C library are checked' __vsnprintf_chk \
        "$(grep -o -m 1 __vsnprintf_chk <<<"$calls")"
    expect 'tables of addresses become read-only' GNU_RELRO "$(grep -o GNU_RELRO <<<"$segments")"
fi
expect 'segments to write to and to run' '' "$(grep 'LOAD.*RWE' <<<"$segments")"
expect 'no stack is executable' RW "$(sed -nE 's/.*GNU_STACK.* (R.*) 0x.*/\1/p' <<<"$segments" | xargs)"
if [[ $(uname -m) == x86_64 ]]; then
    marks=$(for object in "$@"; do readelf --notes "$object" | grep -o 'IBT, SHSTK'; done)
    expect 'objects with marked targets of jumps' $# "$(grep -c . <<<"$marks")"
fi

finish
