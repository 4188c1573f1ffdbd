# Completion of mailboxView for bash.

_mailboxView() {
    local options=(
        --json --brief --lock --watch --wait-empty --wait-client --timeout --check --warning
        --critical --metrics --free-lock --help --version
    )
    local typed=${COMP_WORDS[COMP_CWORD]} option
    COMPREPLY=()
    for option in "${options[@]}"; do
        [[ $typed == -* || -z $typed ]] && [[ $option == "$typed"* ]] && COMPREPLY+=("$option")
    done
    case ${COMP_WORDS[COMP_CWORD - 1]} in
        --timeout | --warning | --critical | -w | -c) COMPREPLY=() ;; # a number
    esac
}

complete -F _mailboxView mailboxView
