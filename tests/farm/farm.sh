# A farm of three nodes on this machine, to be sourced by the tests of the cookbook's recipes:
#
#     source farm.sh TOOL STATUS_SCRIPT MAILBOX_VIEW STAND_IN_CLIENT
#
# A node is a System V namespace. Clients run on render01 and render02; render03 has none. The
# recipes are taken from docs/cookbook.md and run as they stand, with an ssh that enters a node.
# shellcheck shell=bash
set -euo pipefail

# Nothing here may meet a client of this machine, so everything happens in a namespace of our own;
# this shell becomes the one inside.
if [[ ${QV_FARM_SHELL:-} != "$$" ]]; then
    asUser=()
    unshare --ipc true 2>/dev/null || asUser=(--user --map-root-user)
    QV_FARM_SHELL=$$ exec unshare "${asUser[@]}" --ipc bash "$0" "$@"
fi
QV_FARM=$(mktemp -d)
export QV_FARM
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
standInClient=$4

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# endFarm: ends what was started in the background and leaves nothing behind.
endFarm() {
    local started
    mapfile -t started < <(jobs -pr)
    ((${#started[@]} == 0)) || kill "${started[@]}" 2>/dev/null || true
    wait
    rm -rf "$QV_FARM"
}
trap endFarm EXIT

# need PROGRAM PACKAGE...: what the recipes of a test run, and the Debian packages that have it.
need() {
    while (($#)); do
        command -v "$1" >/dev/null || fail "$1 is missing: apt-get install $2"
        shift 2
    done
}

# waitFor WHAT COMMAND...: until the command succeeds, at most ten seconds.
waitFor() {
    local what=$1
    shift
    for _ in {1..200}; do
        ! "$@" || return 0
        sleep 0.05
    done
    fail "waited in vain for $what"
}

# startNode NODE: a namespace of its own, which lasts as long as a process in it. Processes end by
# themselves if this test is killed.
startNode() {
    mkdir "$QV_FARM/$1"
    unshare --ipc sleep 120 &
    echo $! >"$QV_FARM/$1/pid"
    waitFor "the namespace of $1" isApart $!
}

isApart() {
    [[ $(readlink "/proc/$1/ns/ipc") != "$(readlink /proc/self/ns/ipc)" ]]
}

# startClient NODE COMMAND...: a client on the node, which says that it is ready.
startClient() {
    local node=$1
    shift
    : >"$QV_FARM/$node/heard"
    nsenter --ipc="/proc/$(<"$QV_FARM/$node/pid")/ns/ipc" "$@" >>"$QV_FARM/$node/heard" &
    # shellcheck disable=SC2034 # the tests end it by this
    client=$!
    waitFor "the client of $node" grep -q ready "$QV_FARM/$node/heard"
    : >"$QV_FARM/$node/heard"
}

startFarm() {
    for node in render01 render02 render03; do
        startNode "$node"
    done
    startClient render01 "$standInClient" --seconds 120
    startClient render02 "$standInClient" --seconds 120
}

# recipe NAME: the block of that name in the cookbook, without the indent of a list.
recipe() {
    local block
    block=$(awk -v name="$1" '
        $0 ~ "^ *```[a-z]+ " name "$" { indent = index($0, "`"); next }
        /^ *```$/ { indent = 0 }
        indent { print substr($0, indent) }
    ' "$source/docs/cookbook.md")
    [[ -n $block ]] || fail "the cookbook has no block $1"
    printf '%s\n' "$block"
}

# Of the last command: its name, its status, and all it printed.
ran='' status=0 text=''
run() {
    ran="$*" status=0
    text=$("$@" 2>&1 </dev/null) || status=$?
}

# runRecipe NAME: in a shell of the administrator's machine. runRecipeOn NODE NAME: on a node.
runRecipe() {
    local commands
    commands=$(recipe "$1")
    run sh -c "$commands"
}
runRecipeOn() {
    local commands
    commands=$(recipe "$2")
    run ssh "$1" "$commands"
}

expectStatus() {
    ((status == $1)) || fail "status $status, not $1, of: $ran"$'\n'"$text"
}

# expectLine REGEX: a whole line of what the last command printed.
expectLine() {
    grep -qxE -- "$1" <<<"$text" || fail "no line '$1' from: $ran"$'\n'"$text"
}
expectNoLine() {
    ! grep -qxE -- "$1" <<<"$text" || fail "a line '$1' from: $ran"$'\n'"$text"
}

# expectHeard NODE COMMAND...: what the node's client got since the last look, by display names.
expectHeard() {
    local node=$1 expected got
    shift
    expected=$(printf '%s\n' "$@")
    waitFor "$# messages on $node" hasLines "$QV_FARM/$node/heard" $#
    got=$(sed 's/.*: //' "$QV_FARM/$node/heard")
    [[ $got == "$expected" ]] || fail "$node heard '$got', not '$expected'"
    : >"$QV_FARM/$node/heard"
}

hasLines() {
    (($(wc -l <"$1") >= $2))
}

# The programs under test and the way to the nodes are found first, and settings of the user who runs
# the tests have no say.
mkdir "$QV_FARM/bin" "$QV_FARM/desk" "$QV_FARM/home"
cp "$1" "$2" "$3" "$source/tests/farm/ssh" "$QV_FARM/bin"
ln -s "$source/contrib" "$QV_FARM/desk/contrib"
export PATH=$QV_FARM/bin:$PATH HOME=$QV_FARM/home LC_ALL=C.UTF-8
cd "$QV_FARM/desk"
