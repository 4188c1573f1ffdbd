#!/usr/bin/env bash
# Holds the library's interface to tests/layout/interface.txt: builds it with debug information,
# links it into a shared object, which is what abidw reads, and compares. A wanted change of the
# interface is a change of that file: --write writes it.
#
# usage: abi.sh FOLDER [--write]
set -euo pipefail
folder=$1
tests=$(dirname "$(realpath "${BASH_SOURCE[0]}")")/..

# One compiler, since abidw says the types in the compiler's words.
cmake -S "$tests/.." -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_COMPILER=g++ -DQV_BUILD_TESTS=OFF >/dev/null
cmake --build "$folder" --target qv >/dev/null
g++ -shared -o "$folder/interface.so" \
    -Wl,--whole-archive "$folder/libqv.a" -Wl,--no-whole-archive
python3 -B "$tests/proof/interface.py" "$folder/interface.so" "${@:2}"
