# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# Sourced by ./test: steps that run side by side where they can.
# shellcheck shell=bash

LOGS=build/test
names=()
declare -A after=() command=() began=() ended=() pid=()

# step NAME AFTER COMMAND...: adds a step, which begins when all steps named in AFTER have passed
# and a processor is free. Its output goes to build/test/NAME.log.
step() {
    names+=("$1")
    after[$1]=$2
    command[$1]=$(printf '%q ' "${@:3}")
}

# begin NAME: each step is a process group of its own, so that all of it can be ended.
begin() {
    local name=$1
    printf '  %s begins\n' "$name"
    began[$name]=$SECONDS
    set -m
    (
        exec >"$LOGS/$name.log" 2>&1 </dev/null
        trap 'echo $? >"$LOGS/$name.status"' EXIT
        TIMEFORMAT='%R %U %S'
        { time eval "${command[$name]}" 2>&3; } 3>&2 2>"$LOGS/$name.time"
    ) &
    pid[$name]=$!
    set +m
}

# may_begin NAME: 0 yes, 1 not yet, 2 never, since a step that it needs has failed.
may_begin() {
    local needed
    for needed in ${after[$1]}; do
        [ -n "${ended[$needed]:-}" ] || return 1
        [ "${ended[$needed]}" = passed ] || return 2
    done
}

# finish NAME: takes the step's result and shows what failed.
finish() {
    local name=$1 took=$((SECONDS - began[$1]))
    progress ""
    if [ "$(cat "$LOGS/$name.status")" = 0 ]; then
        ended[$name]=passed
        printf '  %s passed, %s s\n' "$name" "$took"
        return
    fi
    ended[$name]=failed
    printf '\n== %s FAILED after %s s; the end of %s:\n' "$name" "$took" "$LOGS/$name.log"
    grep -E 'error|FAILED|Failure' -A 6 "$LOGS/$name.log" | head -n 40 || true
    tail -n 25 "$LOGS/$name.log"
    printf '\n'
}

stop_steps() {
    local name
    for name in "${!pid[@]}"; do
        [ -n "${ended[$name]:-}" ] || kill -- "-${pid[$name]}" 2>/dev/null || true
    done
}

# run_steps: runs all steps, as many at once as there are processors. Says at the end what was left
# out, the slowest steps and how many passed, and ends the script when not all did. Call it by itself:
# after "if" or before "||" a step would go on after what fails in it.
run_steps() {
    local name status running slots lines passed=0
    slots=$(nproc)
    rm -rf "$LOGS"
    mkdir -p "$LOGS"
    trap stop_steps EXIT
    trap 'exit 130' INT TERM
    while [ ${#ended[@]} -lt ${#names[@]} ]; do
        running=0 lines=""
        for name in "${names[@]}"; do
            [ -z "${ended[$name]:-}" ] && [ -n "${began[$name]:-}" ] || continue
            if [ -f "$LOGS/$name.status" ]; then
                finish "$name"
            elif ! kill -0 "${pid[$name]}" 2>/dev/null; then # ended, perhaps by somebody
                [ -f "$LOGS/$name.status" ] || echo 1 >"$LOGS/$name.status"
                finish "$name"
            else
                running=$((running + 1))
                lines+="$name: $(last_line "$LOGS/$name.log" | cut -c 1-60)  "
            fi
        done
        for name in "${names[@]}"; do
            [ -z "${began[$name]:-}${ended[$name]:-}" ] || continue
            status=0
            may_begin "$name" || status=$?
            if [ "$status" -eq 2 ]; then
                ended[$name]="not run"
            elif [ "$status" -eq 0 ] && [ "$running" -lt "$slots" ]; then
                progress ""
                begin "$name"
                running=$((running + 1))
            fi
        done
        progress "$lines"
        sleep 1
    done
    progress ""
    say "Left out"
    grep -h -E '\*\*\*Skipped|is not installed' "$LOGS"/*.log || echo "  nothing"
    say "The slowest steps: seconds of the clock, of all processors"
    for name in "${names[@]}"; do
        [ -s "$LOGS/$name.time" ] &&
            awk -v name="$name" '{ printf "  %-16s %6.0f %6.0f\n", name, $1, $2 + $3 }' "$LOGS/$name.time"
    done | sort -k 2 -n -r | head -n 5
    awk '{ sum += $2 + $3 } END { printf "  all steps        %6s %6.0f\n", "", sum }' "$LOGS"/*.time
    say "Result"
    for name in "${names[@]}"; do
        if [ "${ended[$name]}" = passed ]; then
            passed=$((passed + 1))
        elif [ "${ended[$name]}" = failed ]; then
            echo "  failed: $name, see $LOGS/$name.log"
        else
            echo "  not run: $name, which needs ${after[$name]}"
        fi
    done
    echo "$passed passed, $((${#names[@]} - passed)) failed"
    [ "$passed" -eq ${#names[@]} ] || exit 1
}
