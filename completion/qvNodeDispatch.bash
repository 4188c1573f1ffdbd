# Completion of qvNodeDispatch and qvNodeDispatchStatus for bash.

_qvNodeDispatch() {
    local words=(
        abort enable disable restart abortdisable shutdown UseWorking IgnoreWorking
        RestartClientExe RestartMachine RestartMachineAfterRender IgnoreCPU ReserveCPUInteractive
        UseCPUInteractive ReloadAllConfig ConfigSearchForApplications UpdateServiceCfg
        ShowProcessTree DevDebug checkjob EventFrameDone
    )
    local typed=${COMP_WORDS[COMP_CWORD]} position=$COMP_CWORD
    COMPREPLY=()
    if [[ ${COMP_WORDS[0]##*/} == qvNodeDispatchStatus ]]; then
        [[ ${COMP_WORDS[1]} == --json ]] && ((position > 1)) && ((position -= 1))
        ((COMP_CWORD == 1)) && [[ $typed == -* && --json == "$typed"* ]] && COMPREPLY=(--json)
    fi
    ((position == 1)) || return 0 # all that can follow is a number

    [[ $typed == -* ]] && words=("${words[@]/#/-}")
    local word
    for word in "${words[@]}"; do
        [[ ${word,,} == "${typed,,}"* ]] && COMPREPLY+=("$word") # the tool ignores case
    done
}

complete -F _qvNodeDispatch qvNodeDispatch qvNodeDispatchStatus
