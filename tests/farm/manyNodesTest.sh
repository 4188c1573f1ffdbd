#!/usr/bin/env bash
# The recipes for many nodes: a command reaches the nodes that have a client, and the one that has
# none is named and decides the status.
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=farm.sh
source "$(dirname "${BASH_SOURCE[0]}")/farm.sh"
need clush clustershell pdsh pdsh parallel parallel ansible-playbook ansible-core \
    python3 python3 nsenter util-linux ssh openssh-client ssh-keygen openssh-client \
    /usr/sbin/sshd openssh-server ip iproute2
startFarm real

# The road to the first two is the real one.
run ssh render02 'hostname; echo "from ${SSH_CONNECTION%% *} to $(command -v qvNodeDispatchStatus)"'
expectLine render02
expectLine 'from 10\.0\.2\.1 to /usr/local/bin/qvNodeDispatchStatus'
run ssh render03 'echo "${SSH_CONNECTION:-no connection}"'
expectLine 'no connection'

expectHeardByBoth() {
    expectHeard render01 "$1"
    expectHeard render02 "$1"
}

runRecipe clush
expectStatus 2
expectLine 'clush: render03: exited with exit code 2'
expectNoLine 'clush: render0[12]: .*'
expectHeardByBoth Disable

runRecipe view-many
expectLine 'none: A client is attached, and its queue has room\.'
expectLine 'missing: There is no segment: no client runs on this machine\.'
[[ $(grep -c '^none: ' <<<"$text") == 1 ]] || fail "equal nodes are not folded: $text"

# A node that cannot be reached, and one where the tool is missing.
startRealNode render04 4
endNode render04
runRecipe counts
expectStatus 0
[[ $text == '2 stored, 1 noSegment, 1 unreachable' ]] || fail "counts: $text"
expectHeardByBoth Disable
runRecipe counts-who
[[ $text == render03 ]] || fail "nodes without a client: $text"
rm "$QV_FARM/bin/qvNodeDispatchStatus"
runRecipe counts
[[ $text == '3 status127, 1 unreachable' ]] || fail "counts: $text"
cp "$2" "$QV_FARM/bin"

runRecipe pdsh
expectStatus 2
expectLine 'pdsh@[^:]+: render03: ssh exited with exit code 2'
expectNoLine 'pdsh@[^:]+: render0[12]: .*'
expectHeardByBoth Disable

runRecipe parallel
expectStatus 1
expectLine $'render03\t [0-9.]+.* Shared Memory does not exist\\.'
expectHeardByBoth Disable
runRecipe parallel-failed
[[ $text == 'render03 2' ]] || fail "failed nodes in the log: $text"

# The client of the third node is up: the log sends to that node alone.
startClient render03 "$standInClient"
runRecipe parallel-again
expectStatus 0
expectHeard render03 Disable
kill "$client"
wait "$client"

# Files of the user, the terminal's colours and the search for a Python have no part in this.
export ANSIBLE_HOME=$HOME/ansible ANSIBLE_NOCOLOR=1 ANSIBLE_PYTHON_INTERPRETER=/usr/bin/python3 \
    ANSIBLE_PIPELINING=1
recipe inventory >./inventory

runRecipe ansible-once
expectStatus 2
expectLine 'render01 \| CHANGED \| rc=0 >>'
expectLine 'render02 \| CHANGED \| rc=0 >>'
expectLine 'render03 \| FAILED \| rc=2 >>'
expectHeardByBoth Disable

runRecipe ansible
expectStatus 2
expectLine 'render01 +: ok=4 +changed=1 .* failed=0 .*'
expectLine 'render02 +: ok=4 +changed=1 .* failed=0 .*'
expectLine 'render03 +: .* unreachable=0 +failed=1 .*'
expectLine 'fatal: \[render03\]: .*noSegment \(status 2\): Shared Memory does not exist\..*'
expectHeardByBoth Disable

# The number of the word that has one, and a run in check mode, which sends nothing.
dispatch() {
    run ansible-playbook -i inventory contrib/ansible/dispatch.yml --limit render01 "$@"
}
dispatch -e qv_dispatch_word=EventFrameDone -e qv_dispatch_number=7
expectStatus 0
dispatch -e qv_dispatch_word=abort --check
expectStatus 0
expectHeard render01 'kind 2, type 5, value 7'
