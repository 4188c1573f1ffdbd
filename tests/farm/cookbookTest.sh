#!/usr/bin/env bash
# Every shell block of the cookbook has a name and is run by one of these tests, and its links lead
# somewhere.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
cookbook=../../docs/cookbook.md
failed=0

wrong() {
    echo "docs/cookbook.md: $*" >&2
    failed=1
}

mapfile -t opened < <(sed -nE 's/^ *```([a-z].*)$/\1/p' "$cookbook")
((${#opened[@]})) || wrong 'has no blocks'
for block in "${opened[@]}"; do
    name=${block#* }
    [[ $name != "$block" ]] || wrong "a block without a name: $block"
    grep -qE "(runRecipe|runRecipeOn [a-z0-9]+|recipe) $name( |\$)" ./*Test.sh ||
        wrong "no test runs the block $name"
done

# A heading's anchor is its text in lower case, without punctuation, with blanks as dashes.
anchors() {
    sed -nE 's/^##* //p' "$1" | tr '[:upper:] ' '[:lower:]-' | sed 's/[^a-z0-9_-]//g'
}
mapfile -t links < <(grep -oE '\]\([^)]+\)' "$cookbook" | sed -E 's/^\]\(|\)$//g')
for link in "${links[@]}"; do
    file=${link%%#*}
    file=${file:+../../docs/$file}
    file=${file:-$cookbook}
    [[ -e $file ]] || wrong "leads to no file: $link"
    [[ $link != *#* ]] || grep -qxF -- "${link#*#}" <<<"$(anchors "$file")" ||
        wrong "leads to no heading: $link"
done
# The table of contents has every heading.
mapfile -t headings < <(anchors "$cookbook" | tail -n +2)
for heading in "${headings[@]}"; do
    [[ " ${links[*]} " == *" #$heading "* ]] || wrong "not in the contents: $heading"
done
exit "$failed"
