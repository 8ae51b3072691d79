# Running a test program so that sum-results can read how it went.

# What a test may cost in all before it counts as hanging; --long raises it.
secondsForTests=${secondsForTests:-1500}

# runTests RESULTS NAME PROGRAM COMMAND...: runs a test program through COMMAND with a time limit. Its results (RESULTS/NAME.json) and
# its exit code (RESULTS/NAME.code) are read by sum-results, so that a program that crashed or hung counts as a failure.
runTests() {
    local results=$1 name=$2 program=$3 code=0
    shift 3
    if [ ! -e "$program" ]; then
        warn "$program was not built"
        printf '127\n' >"$results/$name.code"
        return 0
    fi
    (cd "$results" && runLogged "Running the $name tests" "$results/$name.log" \
        -p '^\[ +(OK|FAILED|SKIPPED) +\] .*\([0-9]+ ms\)' told -- \
        timeout -k 20 "$secondsForTests" "$@" "$program" --gtest_color=no --gtest_output="json:$name.json" \
        2>/dev/null) || code=$?
    printf '%s\n' "$code" >"$results/$name.code"
}
