#!/usr/bin/env bash
# The manual pages are well-formed, and what they repeat is what the sources have.
#
#     manTest.sh SOURCE_ROOT
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=expect.sh
source "$(dirname "${BASH_SOURCE[0]}")/expect.sh"
need mandoc mandoc
need man man-db
cd "$1"
export LC_ALL=C.UTF-8 MANWIDTH=80

# holds PAGE WHAT: each line of standard input appears in the page, whatever its layout.
holds() {
    local page=$1 what=$2 text lines line
    text=$(mandoc -T ascii "docs/man/$page" | col -b | tr -s ' \t\n' ' ')
    mapfile -t lines
    expect "the sources have a $what" yes "$( ((${#lines[@]})) && echo yes)"
    for line in "${lines[@]}"; do
        expect "$page has this $what" "$line" "$([[ $text == *"$line"* ]] && echo "$line")"
    done
}

for page in docs/man/*; do
    expect "mandoc on $page" '' "$(mandoc -T lint -W warning "$page" 2>&1)"
    expect "man on $page" '' "$(man --warnings -E UTF-8 -l "$page" 2>&1 >/dev/null)"
done

# The words are the items of the tool's page, and there are no others.
expect 'words of qvNodeDispatch.1' "$(commandWords sender/commandTable.cpp | sort)" \
    "$(sed -nE 's/^\.It Cm //p' docs/man/qvNodeDispatch.1 | sed 's/ Ar .*//; s/ , /\n/g' | sort)"

# The texts of the outcomes, as far as they are fixed.
holds qvNodeDispatch.1 'text of an outcome' < <(grep -vE '^(#|    \{)' sender/outcome.cpp |
    grep -oE '"[^"]*(Unknown|\+\+\+\+|full|send)[^"]*"' |
    sed -E 's/"//g; s/\\n//g; s/ *(%s|\(%d).*//; s/^ +//')

# The names of the outcomes with their statuses.
expect 'outcomes of qvNodeDispatchStatus.1' \
    "$(sed -nE 's/^ +\{"(\w+)", ([0-9]), ".*/\2 \1/p' sender/outcome.cpp | sort)" \
    "$(sed -nE 's/^\.It ([0-9]) Ta (\w+) Ta .*/\1 \2/p' docs/man/qvNodeDispatchStatus.1 | sort)"

# The class as it is declared, and the texts of its errors.
holds qvSharedMemory.3 declaration < <(sed -n '/^public:/,/^private:/p' qv/segment/qvSharedMemory.h |
    sed -nE '/= delete/d; s/ = .*;/;/; s/^    ([^/ ][^;]*;).*/\1/p')
holds qvSharedMemory.3 'text of an error' < <(
    cat qv/segment/qvSharedMemory.cpp qv/segment/core/segmentKey.h | tr '\n' ' ' |
        grep -oE '(fail\(\w+, +|setError\(|segmentMissingText\[\] = )"[^"]*"' |
        sed -E 's/^[^"]*"//; s/"$//')
finish
