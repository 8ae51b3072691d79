# Speaking to the user, and running long commands with visible progress.

say() { printf '%s\n' "== $*"; }
warn() { printf '%s\n' "!! $*" >&2; }
die() {
    warn "$*"
    exit 1
}

# sayUsage SCRIPT: prints the comment at its head.
sayUsage() { sed -n '2,/^set /{/^# shellcheck/d;s/^# \{0,1\}//p}' "$1"; }

isTerminal() { [ -t 1 ] && [ -z "${CI:-}" ]; }

# Ends the group of the running command if the script itself is interrupted: background commands of a script ignore Ctrl-C.
qelRunning=
stopRunning() {
    [ -z "$qelRunning" ] || kill -TERM -- "-$qelRunning" 2>/dev/null || true
    qelRunning=
}
trap 'stopRunning' EXIT
trap 'stopRunning; exit 130' INT
trap 'stopRunning; exit 143' TERM

# runLogged TITLE LOG [-p PATTERN TOTAL] -- COMMAND...
# Runs COMMAND with its output in LOG and shows its progress: the number of lines of LOG that match PATTERN, out of about TOTAL, or else the
# elapsed seconds. TOTAL may be "counted" for a command that writes it to LOG itself, like ninja. On failure prints the end of LOG and
# returns the command's exit code.
runLogged() {
    local title=$1 log=$2 pattern='' total=0
    shift 2
    if [ "$1" = -p ]; then
        pattern=$2 total=$3
        shift 3
    fi
    [ "$1" = -- ] && shift
    mkdir -p "$(dirname "$log")"
    : >"$log"
    local began=$SECONDS
    setsid "$@" >"$log" 2>&1 </dev/null 9>&- &
    qelRunning=$!
    local pid=$qelRunning shown=-1
    while kill -0 "$pid" 2>/dev/null; do
        sleep 0.2
        showProgress "$title" "$log" "$pattern" "$total" $((SECONDS - began))
    done
    local code=0
    wait "$pid" || code=$?
    qelRunning=
    if isTerminal && [ "$shown" -ge 0 ]; then printf '\r\033[K'; fi
    if [ "$code" -ne 0 ]; then
        warn "$title failed (exit code $code). The end of $log:"
        tail -n 30 "$log" >&2
        return "$code"
    fi
    say "$title: done in $((SECONDS - began)) s"
}

# Progress: one line that is rewritten on a terminal; one line every 15 seconds in a log file.
showProgress() {
    local title=$1 log=$2 pattern=$3 total=$4 seconds=$5 every=15 text
    if isTerminal; then every=1; fi
    if [ $((seconds / every)) -eq "$shown" ] || [ "$seconds" -lt "$every" ]; then return 0; fi
    shown=$((seconds / every))
    text="   $title: $seconds s"
    if [ "$total" = counted ]; then
        total=$(sed -n 's|^\[[0-9]*/\([0-9]*\)\].*|\1|p' "$log" | tail -n 1)
    fi
    if [ -n "$pattern" ]; then text="$text, $(grep -c -E "$pattern" "$log" || true) of about ${total:-?}"; fi
    if isTerminal; then printf '\r\033[K%s' "$text"; else printf '%s\n' "$text"; fi
}
