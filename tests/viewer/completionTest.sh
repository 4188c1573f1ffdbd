#!/usr/bin/env bash
# The completions of mailboxView offer the options of its help, with the same words beside them, in
# the shells themselves.
#
#     completionTest.sh COMPLETION_FOLDER MAILBOX_VIEW
set -euo pipefail
# shellcheck source-path=SCRIPTDIR source=../shell/expect.sh
source "$(dirname "${BASH_SOURCE[0]}")/../shell/expect.sh"
folder=$(realpath "$1")
view=$(realpath "$2")
need zsh zsh
need fish fish
need script bsdutils
export LC_ALL=C HOME

HOME=$(mktemp -d)
trap 'rm -rf "$HOME"' EXIT
cd "$HOME"
touch aFile # a completion of file names would offer it

# The help's options, each with its words behind a tab.
helped=$("$view" --help | sed -nE 's/^  (-., )?(--[a-z-]+)( \[?[A-Z]+\]?)? +(.*)/\2\t\4/p' | sort)
expect 'options in the help' 14 "$(wc -l <<<"$helped")"
options=$(cut -f1 <<<"$helped")
waits=$'--wait-client\n--wait-empty'

# bashOffers WORD...: what is offered in place of the last word.
bashOffers() {
    # shellcheck disable=SC2016 # the inner shell's variables
    bash --norc -c 'source "$1"; shift; COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)); _mailboxView
        ((${#COMPREPLY[@]} == 0)) || printf "%s\n" "${COMPREPLY[@]}"' \
        bash "$folder/mailboxView.bash" mailboxView "$@" | sort
}
expect 'bash: all' "$options" "$(bashOffers -)"
expect 'bash: at the start' "$options" "$(bashOffers '')"
expect 'bash: some' "$waits" "$(bashOffers --wait)"
expect 'bash: a second one' --timeout "$(bashOffers --wait-empty --t)"
expect 'bash: a number' '' "$(bashOffers --timeout '')"
expect 'bash: no files' '' "$(bashOffers a)"
expect 'bash: the command' 'complete -F _mailboxView mailboxView' \
    "$(bash --norc -c "source '$folder/mailboxView.bash'; complete -p mailboxView")"

fishOffers() {
    fish --no-config -c "source '$folder/mailboxView.fish'; complete -C '$1'" | sort
}
expect 'fish: all, with their words' "$helped" "$(fishOffers 'mailboxView --')"
expect 'fish: some' "$waits" "$(fishOffers 'mailboxView --wait' | cut -f1)"
expect 'fish: a number' '' "$(fishOffers 'mailboxView --timeout ')"
expect 'fish: no files' '' "$(fishOffers 'mailboxView a')"

# zshSession LINE: types it, and the key that lists the completions.
cat >.zshrc <<SESSION
fpath=('$folder' \$fpath)
autoload -Uz compinit && compinit -D -u
bindkey '^T' list-choices
zstyle ':completion:*' list-grouped false
mailboxView() { }
SESSION
zshOffers() {
    printf '%s\n' "$1"$'\x14' exit |
        ZDOTDIR=. TERM=xterm script -qec 'stty cols 200; zsh -i' session >/dev/null
    sed -nE 's/^(\x1b\[J)?(--[a-z-]+) +-- ([^\x1b\r]*).*/\2\t\3/p' session | sed 's/ *$//' | sort
}
expect 'zsh: all, with their words' "$helped" "$(zshOffers 'mailboxView --')"
expect 'zsh: some' "$waits" "$(zshOffers 'mailboxView --wait-' | cut -f1)"
expect 'zsh: a number' '' "$(zshOffers 'mailboxView --timeout ')"
finish
