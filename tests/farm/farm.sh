# A farm of three nodes on this machine, to be sourced by the tests of the cookbook's recipes:
#
#     source farm.sh TOOL STATUS_SCRIPT MAILBOX_VIEW STAND_IN_CLIENT
#
# A node is a System V namespace. Clients run on render01 and render02; render03 has none. The
# recipes are taken from docs/cookbook.md and run as they stand, with an ssh that enters a node. A
# real node has a network and an OpenSSH server of its own besides, and is reached by the real ssh.
# shellcheck shell=bash
set -euo pipefail

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# skip REASON: ctest takes 77 for a test that could not be run here.
skip() {
    echo "$(basename "$0"): skipped: $*" >&2
    exit 77
}

# Nothing here may meet a client of this machine, and nothing may be left behind however the test
# ends. So the test runs once more as process 1 of its own namespaces: when that one ends, the kernel
# ends all others in them, and with the last of them segments, networks and files are gone.
if [[ $$ != 1 || -z ${QV_FARM:-} ]]; then
    apart=(unshare --ipc --net --mount --pid --fork --kill-child --mount-proc)
    ((EUID == 0)) || apart+=(--user --map-root-user)
    why=$("${apart[@]}" true 2>&1) || skip "this user may not make namespaces here: $why"
    QV_FARM=/run/farm setpriv --pdeathsig KILL "${apart[@]}" bash "$0" "$@" &
    inside=$!
    for signal in HUP INT TERM; do
        # shellcheck disable=SC2064 # the names are put in now
        trap "kill -KILL $inside; trap - $signal; kill -$signal $$" "$signal"
    done
    status=0
    wait "$inside" || status=$?
    exit "$status"
fi
mount -t tmpfs -o mode=755 farm /run
mkdir "$QV_FARM"
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
standInClient=$4

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

# startNode NODE: a System V namespace, which lasts as long as a process in it.
startNode() {
    mkdir "$QV_FARM/$1"
    unshare --ipc sleep infinity &
    nodeStarted "$1" $! ipc
}

# nodeStarted NODE PID NAMESPACE: waits until the process has got its own.
nodeStarted() {
    echo "$2" >"$QV_FARM/$1/pid"
    waitFor "the namespace of $1" isApart "$2" "$3"
}

isApart() {
    [[ $(readlink "/proc/$1/ns/$2") != "$(readlink "/proc/self/ns/$2")" ]]
}

# mayHaveRealNodes: whether the users here are those of root, or a few that a user may have.
mayHaveRealNodes() {
    awk '{ users += $3 } END { exit users < 65535 }' /proc/self/uid_map
}

# makeNetwork: keys and settings of the administrator, and of an ssh that knows no other hosts.
makeNetwork() {
    ip link set lo up
    mkdir /run/sshd
    ssh-keygen -q -t ed25519 -N '' -C administrator -f "$QV_FARM/userKey"
    cat >"$QV_FARM/ssh_config" <<CONFIG
IdentityFile $QV_FARM/userKey
IdentitiesOnly yes
UserKnownHostsFile $QV_FARM/known_hosts
GlobalKnownHostsFile none
StrictHostKeyChecking yes
CONFIG
}

# startRealNode NODE NUMBER: a node with its own host name, network, users and OpenSSH server, in
# which the programs are installed.
startRealNode() {
    local dir=$QV_FARM/$1 desk=10.0.$2.1 node=10.0.$2.2
    mayHaveRealNodes || skip "a real OpenSSH server needs users beside root: run it as root"
    [[ -f $QV_FARM/ssh_config ]] || makeNetwork
    mkdir -p "$dir/home"
    ssh-keygen -q -t ed25519 -N '' -C "$1" -f "$dir/hostKey"
    echo "$1 $(<"$dir/hostKey.pub")" >>"$QV_FARM/known_hosts"
    printf 'Host %s\nHostName %s\nHostKeyAlias %s\n' "$1" "$node" "$1" >>"$QV_FARM/ssh_config"
    unshare --ipc --net --uts --mount bash "$source/tests/farm/realNode.sh" "$1" "$node" &
    nodeStarted "$1" $! net
    why=$(ip link add "$1" type veth peer name eth0 netns "$(<"$dir/pid")" 2>&1) ||
        skip "this kernel makes no pairs of network devices: $why"
    ip address add "$desk/24" dev "$1"
    ip link set "$1" up
    waitFor "the server of $1" ssh "$1" true 2>>"$dir/log"
}

# endNode NODE: it can be reached no more.
endNode() {
    kill "$(<"$QV_FARM/$1/pid")"
}

# startClient NODE COMMAND...: a client on the node, which says that it is ready.
startClient() {
    local node=$1
    shift
    : >"$QV_FARM/$node/heard"
    nsenter --target "$(<"$QV_FARM/$node/pid")" --ipc "$@" >>"$QV_FARM/$node/heard" &
    # shellcheck disable=SC2034 # the tests end it by this
    client=$!
    waitFor "the client of $node" grep -q ready "$QV_FARM/$node/heard"
    : >"$QV_FARM/$node/heard"
}

# startFarm real|standIns: three nodes; of what kind the first two of them are.
startFarm() {
    if [[ $1 == real ]]; then
        startRealNode render01 1
        startRealNode render02 2
    else
        startNode render01
        startNode render02
    fi
    startNode render03
    startClient render01 "$standInClient"
    startClient render02 "$standInClient"
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
