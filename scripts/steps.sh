# How the script shows what it does: one line a step, quiet when it went well, the end of the log
# when it did not. Sourced, never run.

: "${zolva_root:?the tree of the sources}"
zolva_logs="$zolva_root/build/logs"

# step NAME COMMAND...: runs it with its output in a log; on failure shows the log's end.
step() {
    local name=$1 started log code=0
    shift
    mkdir -p "$zolva_logs"
    log="$zolva_logs/${name//[^[:alnum:]]/-}.log"
    started=$EPOCHREALTIME
    "$@" >"$log" 2>&1 </dev/null || code=$?
    if [ "$code" -eq 0 ]; then
        printf '  %-28s %7.1f s\n' "$name" "$(seconds_since "$started")" >&2
        return 0
    fi
    printf '  %-28s failed after %.1f s\n' "$name" "$(seconds_since "$started")" >&2
    tail -n 40 "$log" | sed 's/^/    | /' >&2
    printf '    the whole log: %s\n' "${log#"$zolva_root"/}" >&2
    return "$code"
}

seconds_since() {
    awk -v from="$1" -v to="$EPOCHREALTIME" 'BEGIN { printf "%.1f", to - from }'
}

say() {
    printf '%s\n' "$*" >&2
}

die() {
    printf 'zolva: %s\n' "$*" >&2
    exit 1
}
