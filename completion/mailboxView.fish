# Completion of mailboxView for fish.

complete -c mailboxView -f
complete -c mailboxView -l json -d 'one JSON object per look, on one line'
complete -c mailboxView -l brief -d 'the verdict in one line, equal on equal nodes'
complete -c mailboxView -l lock -d "look under the mailbox's lock"
complete -c mailboxView -l watch -d 'look every MS milliseconds (1000) until SIGINT or SIGTERM'
complete -c mailboxView -l wait-empty -d 'look until a living client has taken all its messages'
complete -c mailboxView -l wait-client -d 'look until a client is there that has started'
complete -c mailboxView -l timeout -x -d 'how many seconds to wait, which both need'
complete -c mailboxView -l check -d 'one line and a status for a monitoring system'
complete -c mailboxView -l warning -s w -x -d 'warn of more than N messages (15)'
complete -c mailboxView -l critical -s c -x -d 'call more than N messages critical (25)'
complete -c mailboxView -l metrics -d 'metrics for Prometheus'
complete -c mailboxView -l free-lock -d 'free a stale lock, where nobody but the client can hold it'
complete -c mailboxView -l help -s h -d 'this text'
complete -c mailboxView -l version -d 'the version'
