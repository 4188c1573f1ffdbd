#!/bin/sh
# Takes a node from its render client when a Slurm job begins there: the frame in work is given up,
# and no other is taken until the epilog gives the node back. In slurm.conf:
#
#   Prolog=/etc/slurm/prolog.sh
#   PrologFlags=Alloc
#
# Without the flag a node is taken when the first step begins on it, not when the job does. For
# nodes that jobs get whole (OverSubscribe=EXCLUSIVE), as the epilog.
#
# The status is 0 whatever comes of it: Slurm drains a node whose prolog fails and puts the job back
# into its queue, and a render client that does not run takes nothing from a job. The system log
# tells. It shares no file with the epilog for the same reason: one that is missing would fail it.

# slurmd gives its prologs no search path.
PATH=${PATH:+$PATH:}/usr/local/bin:/usr/bin:/bin

text=$(qvNodeDispatchStatus abortdisable)
status=$?
if [ "$status" -ne 0 ]; then
    reason=$(printf '%s\n' "$text" | tail -n 1)
    logger -t qvNodeDispatch \
        "$SLURMD_NODENAME: client not disabled before job $SLURM_JOB_ID, status $status: $reason"
fi
exit 0
