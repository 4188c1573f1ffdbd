#!/usr/bin/env bash
# Includes run one way: sender -> client -> strings; sender -> segment -> support -> strings. The core
# of the strings knows no image, rule or class above it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

# folder -> what its quoted includes may begin with
declare -A allowed=(
    [qv/strings/core]='qv/strings/core/'
    [qv/strings]='qv/strings/'
    [qv/support]='qv/support/|qv/strings/'
    [qv/segment]='qv/segment/|qv/strings/|qv/support/'
    [qv/client]='qv/client/|qv/strings/'
    [sender]='sender/|qv/client/|qv/segment/|qv/strings/'
)

failed=0
for folder in "${!allowed[@]}"; do
    wrong=$(grep -HnE '^#include "' "$folder"/*.h "$folder"/*.cpp |
        grep -vE "#include \"(${allowed[$folder]})" || true)
    if [[ -n $wrong ]]; then
        echo "include against the arrows of $folder/:"
        echo "$wrong"
        failed=1
    fi
done
exit "$failed"
