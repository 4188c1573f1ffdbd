#!/usr/bin/env bash
# What qvNodeDispatchStatus says on both streams where nothing is to be sent: to a dead client, in each
# form, and where only its version is asked for.
#
#     statusFormsTest.sh STATUS_PROGRAM
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=expect.sh
source "$(dirname "${BASH_SOURCE[0]}")/expect.sh"
isolate "$@"
need python3 python3
program=$(realpath "$1")
here=$(dirname "$(realpath "$0")")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# says STATUS ARGUMENT...: the answer is left in `passed`.
says() {
    local wanted=$1 status=0
    shift
    "$program" --require-client "$@" abort >passed 2>complaints || status=$?
    expect "status of $*" "$wanted" "$status"
    expect "complaint of $*" 'qvNodeDispatchStatus: the client is dead; nothing is sent' \
        "$(cat complaints)"
}

python3 -ISB "$here/leaveSegment.py" empty # its maker has ended
says 2
expect 'lines of the banner, and nothing behind it' 2 "$(wc -l <passed)"
says 2 --brief
expect 'line' 'clientDead: the client is dead' "$(cat passed)"
says 2 --json
expect 'object' '"outcome": "clientDead", "status": 2, "reason": "the client is dead", ' \
    "$(grep -o '"outcome.*, "text' passed | sed 's/"text$//')"

"$program" --version >passed 2>complaints
expect 'lines of the version' 1 "$(wc -l <passed)"
expect 'complaints about the version' '' "$(cat complaints)"
"$program" --help >passed
expect 'end of the help' '  --version         the version' "$(tail -n 1 passed)"
finish
