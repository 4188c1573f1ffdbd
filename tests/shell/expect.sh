# shellcheck shell=bash
# Sourced by the shell tests.

failures=0
checks=0

# need COMMAND PACKAGE: ends the test, failed, when a tool is missing.
need() {
    command -v "$1" >/dev/null && return
    echo "FAILED: this test needs '$1', of the Debian package $2"
    exit 1
}

# Starts the test anew in a System V namespace of its own, so that no command of it reaches a
# client on this machine. A system that refuses says so, and fails the test.
isolate() {
    [[ -z ${isolated-} ]] || return 0
    need unshare util-linux
    local namespace=(unshare --ipc)
    ((EUID == 0)) || namespace+=(--user --map-root-user)
    exec env isolated=yes "${namespace[@]}" bash "$0" "$@"
}

# expect WHAT EXPECTED ACTUAL
expect() {
    checks=$((checks + 1))
    [[ $2 == "$3" ]] && return
    failures=$((failures + 1))
    printf 'FAILED: %s\n' "$1"
    diff --label expected --label actual -u <(printf '%s\n' "$2") <(printf '%s\n' "$3") || true
}

finish() {
    echo "$checks checks, $failures failed"
    ((failures == 0 && checks > 0))
    exit
}

# The words of the tool's command table, in its order.
commandWords() {
    sed -nE '/ commands\[\] = \{$/,/^\};/s/^ +\{"(\w+)",.*/\1/p' "$1"
}
