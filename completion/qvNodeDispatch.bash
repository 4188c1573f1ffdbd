# Completion of qvNodeDispatch and qvNodeDispatchStatus for bash.

_qvNodeDispatch() {
    local words=(
        abort enable disable restart abortdisable shutdown UseWorking IgnoreWorking
        RestartClientExe RestartMachine RestartMachineAfterRender IgnoreCPU ReserveCPUInteractive
        UseCPUInteractive ReloadAllConfig ConfigSearchForApplications UpdateServiceCfg
        ShowProcessTree DevDebug checkjob EventFrameDone
    )
    local typed=${COMP_WORDS[COMP_CWORD]} position=$COMP_CWORD word
    COMPREPLY=()
    if [[ ${COMP_WORDS[0]##*/} == qvNodeDispatchStatus ]]; then
        for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
            [[ $word == --* ]] && ((position -= 1)) # an option is no word, wherever it is
        done
        for word in --json --brief --require-client --help --version; do
            [[ $typed == -* && $word == "$typed"* ]] && COMPREPLY+=("$word")
        done
    fi
    ((position == 1)) || return 0 # all that can follow is a number

    [[ $typed == -* ]] && words=("${words[@]/#/-}")
    for word in "${words[@]}"; do
        [[ ${word,,} == "${typed,,}"* ]] && COMPREPLY+=("$word") # the tool ignores case
    done
}

complete -F _qvNodeDispatch qvNodeDispatch qvNodeDispatchStatus
