#!/usr/bin/env bash
# Holds the product to what it promises to do without: which source asks the platform for what, read
# off the objects of the library and of the tool.
#
# usage: platformCalls.sh LIBRARY OBJECT...
set -euo pipefail
command -v nm >/dev/null || { echo "nm is missing (package binutils)" >&2; exit 1; }

calls=$(nm --print-file-name --undefined-only "$@") # "libqv.a:qvRand.cpp.o:   U name", one a line
grep -q 'U shmget$' <<<"$calls" || { echo "these are not the objects of the product" >&2; exit 1; }

# The sources that ask for one of the symbols are these and no others.
askedBy() {
    local what=$1 symbols=$2 expected=${3-} found
    found=$(awk -v symbols="^($symbols)\$" '$NF ~ symbols {
        sub(/\.o:.*/, ""); sub(/.*[\/:]/, ""); print }' <<<"$calls" | sort -u | paste -sd' ')
    [[ $found == "$expected" ]] && return
    echo "$what: asked for by '$found', expected '$expected'" >&2
    failed=1
}

failed=0
# The list owns the one block of heap there is.
askedBy 'the heap' \
    '[mc]alloc|realloc(array)?|free|aligned_alloc|posix_memalign|strn?dup|_Zn[aw].*|_Zd[al].*' \
    qvStringList.cpp
askedBy 'the environment' '(secure_)?getenv|environ' qvProcess.cpp
askedBy 'shared memory' 'shm(get|at|dt|ctl)' qvSharedMemory.cpp
# Folding is that of the default locale, which nobody changes.
askedBy 'a locale' '(set|new|use)locale'
askedBy 'files' '(f|fre)?open(at)?(64)?|creat|syslog'
askedBy 'threads' 'pthread_create|thrd_create|v?fork|clone'
askedBy 'exceptions' '__cxa_(throw|allocate_exception)'
# A copy of a list without memory, and a call outside a contract where those are checked.
askedBy 'the end of the process' 'abort|_?exit|quick_exit|raise|kill' 'contract.cpp qvStringList.cpp'
askedBy 'standard error' 'stderr|perror' contract.cpp
exit "$failed"
