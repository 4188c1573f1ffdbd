#!/usr/bin/env bash
# However a test of the farm ends, nothing of it is left: no process, and so no namespace with its
# segments and networks, and no file. And who may not make namespaces is told so.
#
#     leftoversTest.sh TOOL STATUS_SCRIPT MAILBOX_VIEW STAND_IN_CLIENT FARM_NODES
set -euo pipefail

# The farm that is to end, in a run of this script by itself. QV_UP is where it says that it is up.
if [[ -n ${QV_UP:-} ]]; then
    # shellcheck source-path=SCRIPTDIR source=farm.sh
    source "$(dirname "${BASH_SOURCE[0]}")/farm.sh"
    startFarm real
    sleep infinity | "$5" ccnfl >/dev/null &
    # A connection that has outlived its command, as the engines keep them.
    ssh -M -S "$QV_FARM/control" -o ControlPersist=60 render01 true
    readlink /proc/self/ns/pid >"$QV_UP"
    [[ $QV_ENDING != fail ]] || fail 'as it was asked to'
    sleep infinity
fi

name=$(basename "$0")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
    echo "$name: $*" >&2
    exit 1
}

# within SECONDS COMMAND...: whether it succeeds in that time.
within() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < end)) || return 1
        sleep 0.05
    done
}

# What runs in a namespace of processes, or was started by the farm's outer shell.
isOver() {
    ! grep -qxF "$1" <<<"$(readlink /proc/[0-9]*/ns/pid 2>/dev/null)" &&
        ! grep -qzxF "QV_UP=$scratch/up" /proc/[0-9]*/environ 2>/dev/null
}

# ends HOW STATUS: a farm that is up ends so, or is sent a signal of that name.
ends() {
    local farm namespace status=0
    rm -f "$scratch/up"
    QV_ENDING=$1 QV_UP=$scratch/up bash "$0" "${programs[@]}" 2>"$scratch/errors" &
    farm=$!
    within 30 test -s "$scratch/up" || {
        wait "$farm" || status=$?
        cat "$scratch/errors" >&2
        exit "$status"
    }
    namespace=$(<"$scratch/up")
    if [[ $1 != fail ]]; then
        ! isOver "$namespace" || fail "the farm is not found while it runs"
        kill -s "$1" "$farm"
    fi
    wait "$farm" || status=$?
    ((status == $2)) || fail "status $status, not $2, after $1"
    within 10 isOver "$namespace" || fail "processes are left after $1"
    [[ ! -e /run/farm ]] || fail "files are left after $1"
}

# Job control, since a shell without it lets its background processes ignore the interrupt.
set -m
programs=("$@")
ends fail 1
ends INT 130
ends HUP 129
ends TERM 143
ends KILL 137

mkdir "$scratch/bin"
printf '#!/bin/sh\necho "unshare: unshare failed: Operation not permitted" >&2\nexit 1\n' \
    >"$scratch/bin/unshare"
chmod +x "$scratch/bin/unshare"
status=0
text=$(PATH=$scratch/bin:$PATH QV_UP=$scratch/up bash "$0" "$@" 2>&1) || status=$?
((status == 77)) || fail "status $status, not 77, where no namespaces are to be had"
expected="$name: skipped: this user may not make namespaces here: "
expected+='unshare: unshare failed: Operation not permitted'
[[ $text == "$expected" ]] || fail "says '$text', not '$expected'"
