#!/usr/bin/env bash
# qvNodeDispatchStatus beside a tool that prints recorded texts: each comes through byte for byte
# and becomes its status and its outcome.
#
#     statusTest.sh STATUS_SCRIPT
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=expect.sh
source "$(dirname "${BASH_SOURCE[0]}")/expect.sh"
isolate "$@"
need python3 python3
need dash dash
need busybox busybox
need localedef libc-bin
export LC_ALL=C.UTF-8
script=$(realpath "$1")
here=$(dirname "$(realpath "$0")")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
mkdir beside alone commands
cp "$script" beside/
cp "$script" alone/
cat >beside/qvNodeDispatch <<'TOOL'
#!/bin/sh
cat "${0%/*}/recorded"
. "${0%/*}/ending"
TOOL
chmod +x beside/qvNodeDispatch
echo 'exit 0' >beside/ending

ruler=$(printf '%064d' 0 | tr 0 -)
banner="$ruler"'\nqvNodeDispatch  8.3.05      (c) qvNodeDispatch contributors\n'

# Makes a text, in the escapes of printf, what the tool prints.
record() {
    # shellcheck disable=SC2059
    printf -- "$1" >beside/recorded
}

# run STATUS WHAT COMMAND...: the command's status, its output left in `passed`.
run() {
    local status=0
    "${@:3}" >passed 2>complaints || status=$?
    expect "status of $2" "$1" "$status"
}

# recorded OUTCOME STATUS [WORD]: what becomes of the recorded text.
recorded() {
    local shell word=${3-abort}
    for shell in dash 'bash --posix' 'busybox sh'; do
        # shellcheck disable=SC2086
        run "$2" "$1 in $shell" $shell beside/qvNodeDispatchStatus "$word"
        expect "text of $1 in $shell" "$(od -c beside/recorded)" "$(od -c passed)"
    done
    run "$2" "$1, told as an object" beside/qvNodeDispatchStatus --json "$word"
    expect "object of $1" '' \
        "$(python3 "$here/judgeObject.py" passed beside/recorded "$word" "$1" "$2" 2>&1)"
}

# outcome NAME STATUS TEXT [WORD]: what becomes of a text behind the banner.
outcome() {
    record "$banner$3"
    recorded "$1" "$2" "${4-abort}"
}

outcome stored 0 'Command send.\n\n'
outcome usage 1 'qvNodeDispatch send the local client a command.\nUsage: qvNodeDispatch -command\n'
outcome unknownCommand 1 'Unknown command aborted\n'
outcome unknownCommand 1 'Unknown command \n' ''
attach='++++ Unable to attach shared memory!'
outcome noSegment 2 " 8.3.05$attach Shared Memory does not exist.\n"
outcome noRight 2 " 8.3.05$attach shmget: Permission denied\n"
outcome noRight 2 " 8.3.05$attach attach (shmat): Permission denied\n"
outcome attachFailed 6 " 8.3.05$attach attach (shmat): Cannot allocate memory\n"
outcome attachFailed 6 " 8.3.05$attach Shared Memory already exist, but size does not match.\n"
outcome accessFailed 6 ' 8.3.05++++ Unable to access shared memory data! Not attached.\n'
outcome wrongSize 3 ' 8.3.05++++ Shared memory has wrong data size! (22987!=22988)\n'
outcome wrongFormat 3 \
    ' 8.3.05++++ Shared memory has wrong data format! (0!=517  3077!=3077  1!=1)\n'
outcome lockFailed 4 ' 8.3.05++++ Unable to lock shared memory data! lock: unable to get lock\n'
outcome queueFull 5 ' 8.3.05 qvNodedispatch: Message buffer is full!\n'

# The version is the banner's, whichever it is.
record "${banner/8.3.05/10.0} 10.0 qvNodedispatch: Message buffer is full!\n"
recorded queueFull 5

# The words of the user, which the tool repeats, never stand for an outcome.
outcome unknownCommand 1 'Unknown command Command send.\n\n' 'Command send.'
outcome unknownCommand 1 'Unknown command \nCommand send.\n\n' $'\nCommand send.\n'
outcome unknownCommand 1 "Unknown command \n 8.3.05$attach Shared Memory does not exist.\n"

# A text that is nearly one of the tool's is none.
outcome noOutcome 6 ''
outcome noOutcome 6 'Command send.\n'
outcome noOutcome 6 ' Command send.\n\n'
outcome noOutcome 6 '\nCommand send.\n\n'
outcome noOutcome 6 ' 8.3.06 qvNodedispatch: Message buffer is full!\n'
for failure in 'Unable to attach shared memory! Shared Memory does not exist.' \
    'Unable to attach shared memory! shmget: Permission denied' \
    'Unable to attach shared memory! attach (shmat): Cannot allocate memory' \
    'Unable to access shared memory data! Not attached.' \
    'Unable to lock shared memory data! lock: unable to get lock' \
    'Shared memory has wrong data size! (22987!=22988)' \
    'Shared memory has wrong data format! (0!=517  3077!=3077  1!=1)'; do
    outcome noOutcome 6 "++++ $failure\n"
done
outcome noOutcome 6 ' 8.3.05 qvNodedispatch: Message buffer is full!'
for text in '' 'Command send.\n\n' 'one\nqvNodeDispatch  8.3.05      two\nCommand send.\n\n'; do
    record "$text"
    recorded noOutcome 6
done

# Bytes of all kinds: control characters, quotes, UTF-8 of two to four bytes, no UTF-8 (stray,
# cut off, overlong, a surrogate, beyond the last code point), no newline or many at the end.
bytes='\001\t\r\033\177"\\\\ %% \303\251 \342\202\254 \360\237\230\200 \364\217\277\277'
bytes+=' \200 \360\237\230 \301\277 \340\237\277 \360\217\277\277 \355\240\200 \364\220\200\200'
bytes+=' \365\200\200\200 \376\377 \303'
# shellcheck disable=SC2059
word=$(printf "$bytes")
outcome unknownCommand 1 "Unknown command $bytes" "$word"
outcome unknownCommand 1 "Unknown command $bytes\n\n\n"

# In GBK a letter can be the second byte of a character, and bash goes by the locale.
localedef -i zh_CN -f GBK ./zh_CN.GBK || { echo 'FAILED: no GBK; install locales'; exit 1; }
record "${banner}Unknown command \\201"
run 1 'a word in GBK' env LOCPATH="$work" LC_ALL=zh_CN.GBK \
    bash --posix beside/qvNodeDispatchStatus abort
expect 'text of a word in GBK' "$(od -c beside/recorded)" "$(od -c passed)"

# A tool that does not end well has told nothing that counts, whatever it printed.
for ending in 'exit 1' 'kill -KILL $$'; do
    echo "$ending" >beside/ending
    outcome toolFailed 6 'Command send.\n\n'
done
echo 'exit 0' >beside/ending

# A text that nobody gets.
record "${banner}Command send.\n\n"
withoutReader='import os, subprocess, sys
reader, writer = os.pipe()
os.close(reader)
sys.exit(subprocess.run(sys.argv[1:], stdout=writer).returncode)'
for arguments in abort '--json abort'; do
    command="beside/qvNodeDispatchStatus $arguments"
    run 6 "$arguments into a full device" sh -c "$command >/dev/full"
    run 6 "$arguments with standard output closed" sh -c "$command >&-"
    # shellcheck disable=SC2086
    run 6 "$arguments into a pipe without a reader" python3 -c "$withoutReader" $command
done

# The tool is looked for beside the script, also behind a link to it, then in PATH.
ln -s beside/qvNodeDispatchStatus linked
run 0 'through a link' ./linked abort
run 0 'the name alone' env PATH="$work/beside:$PATH" qvNodeDispatchStatus abort
run 0 'a tool in PATH' env PATH="$work/beside:$PATH" alone/qvNodeDispatchStatus abort
expect 'text of a tool in PATH' "$(od -c beside/recorded)" "$(od -c passed)"
for command in awk dirname od readlink; do
    ln -s "$(command -v "$command")" commands/ # the machine's own PATH may have the tool
done
run 6 'no tool' env PATH="$work/commands" alone/qvNodeDispatchStatus abort
expect 'text of no tool' '' "$(cat passed)"
expect 'complaint of no tool' \
    'qvNodeDispatchStatus: no qvNodeDispatch beside this script or in PATH' "$(cat complaints)"
: >nothing
run 6 'no tool, told as an object' env PATH="$work/commands" alone/qvNodeDispatchStatus --json abort
expect 'object of no tool' '' \
    "$(python3 "$here/judgeObject.py" passed nothing abort noTool 6 2>&1)"

# The arguments reach the tool as they are; --json is one of them anywhere but in front.
printf '#!/bin/sh\nprintf "<%%s>" "$@"\n' >beside/qvNodeDispatch
run 6 'arguments' beside/qvNodeDispatchStatus -EventFrameDone '7 8' '' '*' --json
expect 'arguments' '<-EventFrameDone><7 8><><*><--json>' "$(cat passed)"
finish
