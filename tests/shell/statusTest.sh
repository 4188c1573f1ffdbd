#!/usr/bin/env bash
# qvNodeDispatchStatus beside the tool: the same text byte for byte, the status, the object, the one
# line, and what it says of odd command lines.
#
#     statusTest.sh STATUS_PROGRAM TOOL
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=expect.sh
source "$(dirname "${BASH_SOURCE[0]}")/expect.sh"
isolate "$@"
need python3 python3
need setpriv util-linux
need ipcrm util-linux
need prlimit util-linux
program=$(realpath "$1")
tool=$(realpath "$2")
here=$(dirname "$(realpath "$0")")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# run STATUS WHAT COMMAND...: the command's status, its output left in `passed`.
run() {
    local status=0
    "${@:3}" >passed 2>complaints || status=$?
    expect "status of $2" "$1" "$status"
}

segment() {
    [[ $1 == none ]] || ipcrm -M 0x4efcff 2>/dev/null || true # one of another user stays
    [[ $1 == none ]] || python3 -ISB "$here/leaveSegment.py" "$1"
}

# outcome NAME STATUS STATE BRIEF [ARGUMENT...]: what a command comes to with a segment like that,
# behind the words in `as`.
as=()
outcome() {
    local name=$1 status=$2 state=$3 brief=$4
    shift 4
    segment "$state"
    "${as[@]}" "$tool" "$@" >text
    segment "$state"
    run "$status" "$name" "${as[@]}" "$program" "$@"
    expect "text of $name" "$(od -c text)" "$(od -c passed)"
    segment "$state"
    run "$status" "$name, told as an object" "${as[@]}" "$program" --json "$@"
    expect "object of $name" '' \
        "$(python3 -IS "$here/judgeObject.py" passed text "$1" "$name" "$status" 2>&1)"
    segment "$state"
    run "$status" "$name, object asked for behind the word" "${as[@]}" "$program" "$@" --json
    expect "object of $name" '' \
        "$(python3 -IS "$here/judgeObject.py" passed text "$1" "$name" "$status" 2>&1)"
    segment "$state"
    run "$status" "$name, in brief" "${as[@]}" "$program" "$@" --brief
    expect "line of $name" "$name${brief:+: $brief}" "$(cat passed)"
}

outcome unknownCommand 1 none 'the command is not known' 'Command send.'
outcome unknownCommand 1 none 'the command is not known' $'\nCommand send.\n'
outcome unknownCommand 1 none 'the command is not known' -
outcome unknownCommand 1 none 'the command is not known' ''
outcome unknownCommand 1 none 'the command is not known' EventFrameDone 65536
outcome noSegment 2 none 'no client runs here' abort
outcome wrongSize 3 tooSmall 'the record has another size' abort
outcome wrongFormat 3 blank 'the record has another format' abort
outcome lockFailed 4 locked 'the lock stayed taken' abort
outcome queueFull 5 full 'the queue is full' abort
outcome stored 0 empty '' abort
as=(setpriv --bounding-set -ipc_owner) # the superuser's right to pass is taken from it
outcome noRight 2 closed 'this user may not send to the client' abort
as=(prlimit --as=500000000) # the record has no room there
outcome attachFailed 6 huge "the client's segment cannot be attached" abort
as=()

# Bytes of all kinds: control characters, quotes, UTF-8 of two to four bytes, no UTF-8 (stray,
# cut off, overlong, a surrogate, beyond the last code point).
bytes='\001\t\r\033\177"\\\\ %% \303\251 \342\202\254 \360\237\230\200 \364\217\277\277'
bytes+=' \200 \360\237\230 \301\277 \340\237\277 \360\217\277\277 \355\240\200 \364\220\200\200'
bytes+=' \365\200\200\200 \376\377 \303'
# shellcheck disable=SC2059
outcome unknownCommand 1 none 'the command is not known' "$(printf "$bytes")"
outcome unknownCommand 1 none 'the command is not known' "$(printf '%09000d' 7)"

# No word.
"$tool" >text
run 1 usage "$program"
expect 'text of usage' "$(od -c text)" "$(od -c passed)"
run 1 'usage, told as an object' "$program" --json
expect 'word of usage' '[null, "usage", 1]' "$(python3 -c 'import json
told = json.load(open("passed"))
print(json.dumps([told["word"], told["outcome"], told["status"]]))')"
run 1 'usage in brief' "$program" --brief
expect 'line of usage' 'usage: there is no command' "$(cat passed)"
run 0 help "$program" --help
expect 'first line of the help' usage: "$(head -c 6 passed)"
run 0 version "$program" --version
expect version 8.3.05 "$(cat passed)"

# An answer that nobody gets: the status tells what came of the command all the same.
withoutReader='import os, subprocess, sys
reader, writer = os.pipe()
os.close(reader)
sys.exit(subprocess.run(sys.argv[1:], stdout=writer).returncode)'
for option in '' --json --brief; do
    for state in none:2 empty:0; do
        command="$program $option abort"
        segment "${state%:*}"
        run "${state#*:}" "abort $option into a full device" sh -c "$command >/dev/full"
        segment "${state%:*}"
        run "${state#*:}" "abort $option with standard output closed" sh -c "$command >&-"
        segment "${state%:*}"
        run "${state#*:}" "abort $option with all closed" sh -c "$command twice >&- 2>&-"
        segment "${state%:*}"
        # shellcheck disable=SC2086
        run "${state#*:}" "abort $option into a pipe without a reader" \
            python3 -c "$withoutReader" $command
    done
done

# advice TEXT ARGUMENT...: what is said on standard error.
advice() {
    "$program" "${@:2}" >passed 2>complaints || true
    expect "advice on ${*:2}" "${1:+qvNodeDispatchStatus: $1}" "$(cat complaints)"
}
advice '' abort
advice '' -ABORT
advice '' EventFrameDone 1
advice '' EventFrameDone 65535
advice "'twice' is ignored" abort twice
advice "'8' is ignored" EventFrameDone 7 8
advice 'did you mean abort?' abrot
advice 'did you mean abort?' -abor
advice 'did you mean RestartMachine?' RestartMachin
advice '' nonsense
advice 'EventFrameDone needs a number' EventFrameDone
advice "'12abc' is no number from 1 to 65535; sent as 12" EventFrameDone 12abc
advice "'1e3' is no number from 1 to 65535; sent as 1" EventFrameDone 1e3
advice "'70000' is no number from 1 to 65535; sent as 4464" EventFrameDone 70000
advice "'4294967297' is no number from 1 to 65535; sent as 1" EventFrameDone 4294967297
advice "'9223372036854775808' is no number from 1 to 65535; sent as 65535" \
    EventFrameDone 9223372036854775808
advice "'0' is no number from 1 to 65535" EventFrameDone 0

# The maker of this segment has ended.
segment empty
run 2 'a dead client' "$program" --require-client --brief abort
expect 'line of a dead client' 'clientDead: the client is dead' "$(cat passed)"
run 0 'a dead client that nobody asked about' "$program" abort

# Dead before its parent has fetched it: its id is still taken.
unfetched='import os, subprocess, sys
maker = os.spawnvp(os.P_NOWAIT, sys.executable, [sys.executable, "-B", sys.argv[1], "empty"])
os.waitid(os.P_PID, maker, os.WEXITED | os.WNOWAIT)
sys.exit(subprocess.run(sys.argv[2:]).returncode)'
run 2 'a dead client that nobody fetched' python3 -c "$unfetched" "$here/leaveSegment.py" \
    "$program" --require-client --brief abort
expect 'line of a dead client that nobody fetched' 'clientDead: the client is dead' "$(cat passed)"
run 0 'the same, and nobody asked' "$program" abort

run 2 'no client' "$program" --require-client --brief abort
expect 'line of no client' 'noSegment: no client runs here' "$(cat passed)"
finish
