#!/bin/sh
# Gives a node back to its render client when a Slurm job has ended there. In slurm.conf:
#
#   Epilog=/etc/slurm/epilog.sh
#
# For nodes that jobs get whole (OverSubscribe=EXCLUSIVE): on a shared node the end of one job does
# not mean that the others are done.
#
# The status is 0 whatever comes of it: Slurm drains a node whose epilog fails, and a render client
# that does not run is no reason to keep jobs away. The system log tells.

# slurmd gives its epilogs no search path.
PATH=${PATH:+$PATH:}/usr/local/bin:/usr/bin:/bin

text=$(qvNodeDispatchStatus enable)
status=$?
if [ "$status" -ne 0 ]; then
    reason=$(printf '%s\n' "$text" | tail -n 1)
    logger -t qvNodeDispatch \
        "$SLURMD_NODENAME: client not enabled after job $SLURM_JOB_ID, status $status: $reason"
fi
exit 0
