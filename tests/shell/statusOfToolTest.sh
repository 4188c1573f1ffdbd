#!/usr/bin/env bash
# qvNodeDispatchStatus beside the tool itself, in every state of the client's segment that can be
# made on one machine.
#
#     statusOfToolTest.sh STATUS_SCRIPT TOOL STAND_IN_CLIENT
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=expect.sh
source "$(dirname "${BASH_SOURCE[0]}")/expect.sh"
isolate "$@"
need setpriv util-linux
need ipcrm util-linux
need python3 python3
standInClient=$(realpath "$3")
here=$(dirname "$(realpath "$0")")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$1" "$2" "$work"
cd "$work"

# sent OUTCOME STATUS [ARGUMENT...]: what a command comes to, after the words in `as`.
as=()
sent() {
    local status=0 fields
    "${as[@]}" ./qvNodeDispatchStatus --json "${@:3}" >object || status=$?
    expect "status of $1" "$2" "$status"
    fields=$(python3 -c 'import json; told = json.load(open("object"))
print(told["outcome"], told["status"])' 2>&1)
    expect "object of $1" "$1 $2" "$fields"
}
segment() {
    python3 -B "$here/leaveSegment.py" "$1"
}

sent usage 1
sent unknownCommand 1 'Command send.'
sent unknownCommand 1 EventFrameDone 65536
sent noSegment 2 abort

segment tooSmall
sent wrongSize 3 abort
segment blank
sent wrongFormat 3 abort
segment locked
sent lockFailed 4 abort
segment full
sent queueFull 5 abort
sent noSegment 2 abort # the tool was the last one out

segment closed
as=(setpriv --bounding-set -ipc_owner) # the superuser's right to pass is taken from it
sent noRight 2 abort
as=()
ipcrm -M 0x4efcff

"$standInClient" --messages 2 --seconds 20 >received &
for _ in {1..100}; do
    grep -q ready received && break
    sleep 0.05
done
sent stored 0 -EventFrameDone 70000
status=0
./qvNodeDispatchStatus abort >passed || status=$?
expect 'status of a stored command' 0 "$status"
expect 'end of its text' "$(printf 'Command send.\n\n' | od -c)" "$(tail -n 2 passed | od -c)"
wait
expect 'what the client received' $'kind 2, type 5, value 4464\nkind 2, type 2, value 1: Abort' \
    "$(grep ^kind received)"
finish
