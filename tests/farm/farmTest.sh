#!/usr/bin/env bash
# `./dev farm` on few nodes: each odd node is named with what is wrong there, and the figures of
# every engine are kept.
#
#     farmTest.sh TOOL STATUS_SCRIPT MAILBOX_VIEW STAND_IN_CLIENT FARM_NODES
set -euo pipefail
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
    echo "farmTest.sh: $*" >&2
    exit 1
}

runFarm() {
    status=0
    text=$(bash "$(dirname "$0")/runFarm.sh" "${programs[@]}" "$1" "$scratch/figures" 2>&1) ||
        status=$?
    ((status != 77)) || {
        echo "$text" >&2
        exit 77
    }
}

programs=("$@")
runFarm 9
((status == 0)) || fail "status $status"$'\n'"$text"
for line in \
    'noSegment: farm000001' 'queueFull: farm000003' \
    'lockFailed: farm000005' 'unreachable: farm000007' \
    '5 stored, 1 lockFailed, 1 noSegment, 1 queueFull, 1 unreachable'; do
    grep -qxF -- "$line" <<<"$text" || fail "no line '$line'"$'\n'"$text"
done
# A sender waits 2.5 seconds for the lock: no engine is done sooner.
jq -e '[.runs[] | [.engine, .nodes, .lockFailed, .seconds > 2.4, .megabytes > 1]]
    == [["clush", 9, [5], true, true], ["tree", 9, [5], true, true],
        ["pdsh", 9, [5], true, true], ["parallel", 9, [5], true, true],
        ["unequal", 9, [5], true, true]]
    and .kilobytesOfNode > 20 and .kilobytesOfNode < 500' "$scratch/figures" >/dev/null ||
    fail "figures: $(<"$scratch/figures")"

runFarm 7
((status == 1)) || fail "status $status of too few nodes"
[[ $text == 'runFarm.py: 8 nodes at least, one of each kind among them' ]] || fail "says: $text"
