#!/usr/bin/env bash
# `./dev farm`: one command to many nodes by each engine, and the figures that came of it.
#
#     runFarm.sh TOOL STATUS_SCRIPT MAILBOX_VIEW STAND_IN_CLIENT FARM_NODES \
#         [--times TIMES] NODES RESULT
#
# The nodes are System V namespaces (farmNodes.cpp), reached by the stand-in for ssh. What the real
# one costs is measured on a real node, where that may be made. RESULT is a file for the figures; of
# TIMES runs the fastest counts.
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=farm.sh
source "$(dirname "${BASH_SOURCE[0]}")/farm.sh"
need clush clustershell pdsh pdsh parallel parallel /usr/bin/python3 python3
realNode=()
if mayHaveRealNodes; then
    startRealNode real01 1
    realNode=(--real-node real01)
fi
/usr/bin/python3 -B "$source/tests/farm/runFarm.py" "${realNode[@]}" "${@:5}"
