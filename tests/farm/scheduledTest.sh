#!/usr/bin/env bash
# The crontab and the Slurm scripts of contrib/, run as their daemons would run them.
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=farm.sh
source "$(dirname "${BASH_SOURCE[0]}")/farm.sh"
need nsenter util-linux
startFarm standIns
noClient='.* Shared Memory does not exist\.'

# A crontab's settings, and its entries without the five fields of time and the user.
crontab=$source/contrib/cron/qvNodeDispatch
[[ -z $(tail -c 1 "$crontab") ]] || fail 'cron ignores a last line without its end'
mapfile -t settings < <(grep -E '^[A-Z]+=' "$crontab")
mapfile -t entries < <(grep -E '^[0-9*]' "$crontab")
((${#entries[@]} == 2)) || fail "entries of the crontab: ${#entries[@]}"

# onSchedule NODE ENTRY: with nothing but cron's environment. The tool lies in no folder of the
# crontab's search path here, so its own comes first.
onSchedule() {
    local command searchPath
    read -r _ _ _ _ _ _ command <<<"$2"
    [[ $command != *%* ]] || fail "cron takes % for the end of a line: $command"
    searchPath=$(printf '%s\n' "${settings[@]}" | sed -n 's/^PATH=//p')
    run nsenter --ipc="/proc/$(<"$QV_FARM/$1/pid")/ns/ipc" \
        env -i "${settings[@]}" "PATH=$QV_FARM/bin:$searchPath" /bin/sh -c "$command"
}

# cron mails what is printed: nothing from the nodes that have a client, the reason from the other.
for entry in "${entries[@]}"; do
    onSchedule render01 "$entry"
    [[ -z $text ]] || fail "cron would mail: $text"
    onSchedule render03 "$entry"
    expectLine "$noClient"
done
expectHeard render01 Disable Enable

# The system log of a node is a file here.
cat >"$QV_FARM/bin/logger" <<'SCRIPT'
#!/bin/sh
printf '%s\n' "$*" >>"$QV_FARM/log"
SCRIPT
chmod +x "$QV_FARM/bin/logger"
: >"$QV_FARM/log"

# aroundJob prolog|epilog NODE: what slurmd does there.
aroundJob() {
    run ssh "$2" "SLURM_JOB_ID=4711 SLURMD_NODENAME=$2 contrib/slurm/$1.sh"
}

aroundJob prolog render02
expectStatus 0
expectHeard render02 'Abort & Disable'
aroundJob epilog render02
expectStatus 0
expectHeard render02 Enable
[[ ! -s $QV_FARM/log ]] || fail "logged without need: $(<"$QV_FARM/log")"

aroundJob prolog render03
expectStatus 0
aroundJob epilog render03
expectStatus 0
text=$(<"$QV_FARM/log")
expectLine "-t qvNodeDispatch render03: client not disabled before job 4711, status 2: $noClient"
expectLine "-t qvNodeDispatch render03: client not enabled after job 4711, status 2: $noClient"
