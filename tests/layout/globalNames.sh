#!/usr/bin/env bash
# A program that links the library gives its own functions any name it likes: each global symbol of
# ours begins with qv or _qv, is in a namespace that does, or is one of the names that the farm's
# programs have always called.
#
# usage: globalNames.sh LIBRARY
set -euo pipefail
command -v nm >/dev/null || { echo "nm is missing (package binutils)" >&2; exit 1; }

# What the standard library's templates leave behind in our objects is its own affair.
ours='_?qv|std::'
given='(int2Str|float2Str|bool2str|z_compressBound_copy|crctab64|crc16tab)(\(|$)'

names=$(nm --demangle --defined-only --extern-only "$1" | sed -nE 's/^[0-9a-f]{16} . //p' | sort -u)
grep -q '^qvSharedMemory::attach' <<<"$names" || { echo "this is not the library" >&2; exit 1; }
# A template's symbol is listed with its result type ahead of its name.
foreign=$(sed -E 's/^([^(<]* )?((typeinfo|vtable|guard variable) for )?/ /; s/^ //' <<<"$names" |
    grep -vE "^(($ours)|$given)" || true)
[[ -z $foreign ]] && exit 0
echo "global names that a program may have for itself:"
echo "$foreign"
exit 1
