#!/usr/bin/env bash
# Includes run one way: sender, viewer -> client -> strings, and sender, viewer -> segment -> support
# -> strings. The core of the strings knows no image, member or class above it. An example is what a
# user writes: it sees public headers alone, those that lie in a room itself. The version of all
# programs is the tool's, and so is the judgement of processes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."

# folder -> what its quoted includes may begin with
declare -A allowed=(
    [qv/strings/core]='qv/strings/core/'
    [qv/strings]='qv/strings/'
    [qv/support/core]='qv/(support|strings)/'
    [qv/support]='qv/(support|strings)/'
    [qv/segment/core]='qv/(segment|support|strings)/'
    [qv/segment]='qv/(segment|support|strings)/'
    [qv/client]='qv/(client|strings)/'
    [sender]='sender/|qv/(client|segment|strings)/'
    [viewer]='viewer/|sender/(clientOfSegment|printable|processLook|qvVersion)\.h|qv/(client|segment|strings)/'
    [examples]='examples/|qv/[a-z]+/[^/]+"'
)

failed=0
while IFS= read -r folder; do
    if [[ -z ${allowed[$folder]-} ]]; then
        echo "no arrows are laid down for $folder/"
        failed=1
        continue
    fi
    wrong=$(grep -HnE '^#include "' "$folder"/*.h "$folder"/*.cpp 2>/dev/null |
        grep -vE "#include \"(${allowed[$folder]})" || true)
    if [[ -n $wrong ]]; then
        echo "include against the arrows of $folder/:"
        echo "$wrong"
        failed=1
    fi
done < <(find qv sender viewer examples \( -name '*.h' -o -name '*.cpp' \) -printf '%h\n' | sort -u)
exit "$failed"
