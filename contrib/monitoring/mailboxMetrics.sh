#!/bin/sh
# Writes the mailbox's metrics for the textfile collector of Prometheus' node exporter. The file is
# replaced as a whole, so that the exporter never reads half of one.
#
#     mailboxMetrics.sh [FOLDER]
set -eu
folder=${1:-/var/lib/prometheus/node-exporter}
file=$folder/qv_mailbox.prom
new=$file.$$ # the exporter reads *.prom only
trap 'rm -f "$new"' EXIT
mailboxView --metrics >"$new"
chmod 644 "$new"
mv "$new" "$file"
