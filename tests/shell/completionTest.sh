#!/usr/bin/env bash
# The completions offer the words of the command table with the names of the usage list, in
# sessions of the shells themselves.
#
#     completionTest.sh COMPLETION_FOLDER COMMAND_TABLE TOOL
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=expect.sh
source "$(dirname "${BASH_SOURCE[0]}")/expect.sh"
folder=$(realpath "$1")
table=$(realpath "$2")
tool=$(realpath "$3")
need zsh zsh
need fish fish
need script bsdutils
export LC_ALL=C TERM=dumb HOME

HOME=$(mktemp -d)
trap 'rm -rf "$HOME"' EXIT
cd "$HOME"
touch aFile # a completion of file names would offer it

mapfile -t words < <(commandWords "$table")
expect 'words in the command table' 21 "${#words[@]}"
dashed=("${words[@]/#/-}")

# What is typed, and all that is offered for the word in hand.
typed=() offered=()
line() { typed+=("$1") offered+=("$2"); }
line 'qvNodeDispatch ' "${words[*]}"
line 'qvNodeDispatch -' "${dashed[*]}"
line 'qvNodeDispatch RESTARTM' 'RestartMachine RestartMachineAfterRender'
line 'qvNodeDispatch -checkj' '-checkjob'
line 'qvNodeDispatch noSuchWord' ''
line 'qvNodeDispatch abort ' ''
line 'qvNodeDispatch EventFrameDone ' ''
line 'qvNodeDispatch --json ' ''
line 'qvNodeDispatchStatus ' "${words[*]}"
options='--brief --help --json --require-client --version'
line 'qvNodeDispatchStatus -' "$options ${dashed[*]}"
line 'qvNodeDispatchStatus --' "$options"
line 'qvNodeDispatchStatus --r' '--require-client'
line 'qvNodeDispatchStatus --json ' "${words[*]}"
line 'qvNodeDispatchStatus --json -disa' '-disable'
line 'qvNodeDispatchStatus --brief --require-client RESTARTM' \
    'RestartMachine RestartMachineAfterRender'
line 'qvNodeDispatchStatus --json abort ' ''
line 'qvNodeDispatchStatus abort ' ''
line 'qvNodeDispatchStatus abort -' "$options"
line 'qvNodeDispatchStatus --json abort --re' '--require-client'

# The words of a line, sorted, since each shell has an order of its own.
sorted() {
    tr ' ' '\n' <<<"$1" | sed '/^$/d' | sort
}

# Types lines into an interactive shell.
runSession() {
    printf '%s\n' "${@:2}" exit | script -qec "stty cols 200; $1" session >/dev/null
}

# Behind each line comes a key that inserts all completions, and the commands are functions that
# write down what they get: the arguments in front, and what is offered in place of the last word.
# That word stays when nothing is offered.
checkSession() {
    local i insertAll=$'\x18' answers
    runSession "$2" "${typed[@]/%/$insertAll}"
    mapfile -t answers <answers
    rm answers
    for i in "${!typed[@]}"; do
        local arguments=${typed[i]#* } last=${typed[i]##* }
        expect "$1: ${typed[i]}" "$(sorted "${arguments%"$last"} ${offered[i]:-$last}")" \
            "$(sorted "${answers[i]-}")"
    done
}

cat >.bashrc <<SESSION
source '$folder/qvNodeDispatch.bash'
bind '"\C-x": insert-completions'
qvNodeDispatch() { echo "\$*" >>answers; }
qvNodeDispatchStatus() { echo "\$*" >>answers; }
SESSION
checkSession bash "bash --rcfile .bashrc -i"

cat >.zshrc <<SESSION
fpath=('$folder' \$fpath)
autoload -Uz compinit && compinit -D -u
insertAll() { _main_complete; compstate[insert]=all }
zle -C insertAll complete-word insertAll
bindkey '^X' insertAll
bindkey '^T' list-choices
zstyle ':completion:*' list-grouped false
qvNodeDispatch() { echo "\$*" >>answers }
qvNodeDispatchStatus() { echo "\$*" >>answers }
SESSION
checkSession zsh "ZDOTDIR=. zsh -i"

fishOffers() {
    fish --no-config -c "source '$folder/qvNodeDispatch.fish'; complete -C '$1'"
}
for i in "${!typed[@]}"; do
    expect "fish: ${typed[i]}" "$(sorted "${offered[i]}")" \
        "$(sorted "$(fishOffers "${typed[i]}" | cut -f1)")"
done

# What fish and zsh say beside each word is the name in the usage list, which leaves out one word.
usage=$("$tool" | sed -nE 's/^  (\w+) *:  (.*)/\L\1\t\E\2/p')
expect 'words in the usage list' 20 "$(wc -l <<<"$usage")"
named() {
    sed -E 's/^([^\t]+)/\L\1/; /^eventframedone\t./d' | sort
}
expect 'names in fish' "$(named <<<"$usage")" "$(fishOffers 'qvNodeDispatch ' | named)"

runSession "ZDOTDIR=. TERM=xterm zsh -i" $'qvNodeDispatch \x14'
listed=$(sed -nE 's/^(\x1b\[J)?(\w+) +-- ([^\x1b\r]*).*/\2\t\3/p' session)
expect 'names in zsh' "$(named <<<"$usage")" "$(named <<<"$listed")"
finish
