# Completion of qvNodeDispatch and qvNodeDispatchStatus for fish.

# True where the word belongs: first, but for the options of qvNodeDispatchStatus.
function __qvNodeDispatch_wordIsNext
    set -l before (commandline -opc)
    if string match -qr 'qvNodeDispatchStatus$' -- $before[1]
        set before (string match -v -- '--*' $before)
    end
    test (count $before) -eq 1
end

set -l vocabulary \
    abort Abort \
    enable Enable \
    disable Disable \
    restart 'Restart client executable' \
    abortdisable 'Abort & Disable' \
    shutdown 'Shutdown qvClient' \
    UseWorking 'Respect working hours' \
    IgnoreWorking 'Ignore working hours' \
    RestartClientExe 'Restart client executable' \
    RestartMachine 'Restart machine' \
    RestartMachineAfterRender 'Restart machine after render segment finished' \
    IgnoreCPU 'Ignore current CPU usage' \
    ReserveCPUInteractive 'Reserve CPU for interactive user' \
    UseCPUInteractive "No 'Reserve CPU for interactive user'" \
    ReloadAllConfig 'Reload all config' \
    ConfigSearchForApplications 'Search for render applications' \
    UpdateServiceCfg 'Update service config' \
    ShowProcessTree 'Show process tree' \
    DevDebug 'Dev Debug' \
    checkjob "Send 'Check Job' to qvServer for rendering job" \
    EventFrameDone 'Pass on a number, which follows'

for command in qvNodeDispatch qvNodeDispatchStatus
    complete -c $command -f
    for i in (seq 1 2 (count $vocabulary))
        set -l word $vocabulary[$i]
        set -l about $vocabulary[(math $i + 1)]
        complete -c $command -n __qvNodeDispatch_wordIsNext -a $word -d $about
        complete -c $command -n __qvNodeDispatch_wordIsNext -o $word -d $about
    end
end

complete -c qvNodeDispatchStatus -l json -d 'the answer as one JSON object'
complete -c qvNodeDispatchStatus -l brief -d 'the answer as one line that is equal on equal nodes'
complete -c qvNodeDispatchStatus -l require-client -d 'send nothing when the client is dead'
complete -c qvNodeDispatchStatus -l help -d 'this text'
complete -c qvNodeDispatchStatus -l version -d 'the version'
