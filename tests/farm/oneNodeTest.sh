#!/usr/bin/env bash
# The recipes for one node, and for a node that a command does not reach.
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=farm.sh
source "$(dirname "${BASH_SOURCE[0]}")/farm.sh"
need jq jq ipcs util-linux ipcrm util-linux nsenter util-linux python3 python3
startFarm standIns

# startFrozen LOCK COUNT: a client on render03 that hangs, with its lock byte and its message count.
startFrozen() {
    startClient render03 python3 -B "$source/tests/farm/frozenClient.py" "$@"
}

# Ends it so that it cannot remove its segment.
killFrozen() {
    kill -KILL "$client"
    wait "$client" 2>/dev/null || true
}

noClient=' [0-9.]+\+\+\+\+ Unable to attach shared memory! Shared Memory does not exist\.'
noLock=' [0-9.]+\+\+\+\+ Unable to lock shared memory data! lock: unable to get lock'

runRecipeOn render01 by-hand
expectStatus 0
expectLine 'Command send\.'
expectHeard render01 Abort

runRecipe over-ssh
expectStatus 0
expectHeard render01 Abort

runRecipeOn render01 script
expectStatus 0
expectHeard render01 'Reload all config'
runRecipeOn render03 script
expectStatus 2
[[ $text =~ ^$noClient$ ]] || fail "more than the reason: $text"

runRecipe outcome
expectStatus 0
expectLine $'render01\t0\tstored'
expectLine $'render02\t0\tstored'
expectLine $'render03\t2\tnoSegment'
expectHeard render01 Enable
expectHeard render02 Enable

pid=$(<"$QV_FARM/render02/pid")
export pid
runRecipe container
expectStatus 0
expectHeard render02 Abort

runRecipeOn render01 owner
[[ $text == "$(id -un)" ]] || fail "owner of the segment: $text"

runRecipeOn render01 view
expectStatus 0
runRecipeOn render01 stale
expectStatus 0
runRecipeOn render01 check
expectStatus 0
runRecipeOn render01 wait
expectStatus 0
expectHeard render01 Abort
runRecipeOn render03 look
expectNoLine '0x004efcff.*'

# The script's pause helps where the lock comes free in it: here the pause frees it.
startFrozen 1 0
mkdir "$QV_FARM/pause"
printf '#!/bin/sh\nkill -USR1 %d\n' "$client" >"$QV_FARM/pause/sleep"
chmod +x "$QV_FARM/pause/sleep"
PATH=$QV_FARM/pause:$PATH runRecipeOn render03 script
expectStatus 0
[[ -z $text ]] || fail "the script prints: $text"
killFrozen
runRecipeOn render03 remove

startFrozen 1 0
runRecipeOn render03 free-lock
expectStatus 0
run ssh render03 qvNodeDispatchStatus abort
expectStatus 0
killFrozen
runRecipeOn render03 remove

# A lock is stale, then its client dies too. The first sender that gives up removes the segment, as
# the last one out.
startFrozen 1 0
runRecipeOn render03 stale
expectStatus 8
killFrozen
run ssh render03 qvNodeDispatchStatus abort
expectStatus 4
expectLine "$noLock"
run ssh render03 qvNodeDispatchStatus abort
expectStatus 2
expectLine "$noClient"

# Or the recipe does.
startFrozen 1 0
runRecipeOn render03 look
expectStatus 0
expectLine '0x004efcff .* 1 +'
expectLine "[0-9]+ +[^ ]+ +$client +$client *"
killFrozen
runRecipeOn render03 look
expectLine '0x004efcff .* 0 +'
runRecipeOn render03 view
expectStatus 5
runRecipeOn render03 remove
expectStatus 0
runRecipeOn render03 look
expectNoLine '0x004efcff.*'

startFrozen 0 30
run ssh render03 qvNodeDispatchStatus abort
expectStatus 5
expectLine ' [0-9.]+ qvNodedispatch: Message buffer is full!'
killFrozen
runRecipeOn render03 remove

# What a dead client is told counts as stored and goes with its segment.
startFrozen 0 0
killFrozen
run ssh render03 qvNodeDispatchStatus abort
expectStatus 0
run ssh render03 qvNodeDispatchStatus abort
expectStatus 2
