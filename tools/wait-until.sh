# Sourced.

# wait_until SECONDS COMMAND...: repeats the command until it succeeds. Fails when the time is over.
wait_until() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $deadline ] || return 1
        sleep 0.05
    done
}
