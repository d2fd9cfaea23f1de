# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# ./dev test
# shellcheck shell=bash

verb_test() {
    local preset=dev
    case ${1:-} in
    --all)
        shift
        test_all "$@"
        return
        ;;
    --asan | --tsan | --release | --coverage)
        preset=${1#--}
        shift
        ;;
    esac
    test_preset "$preset" "$@"
}

# Goes through to the end also when one of them fails, since each finds what the others can't.
test_all() {
    local flag failed=()
    for flag in '' --asan --tsan; do
        "$root/dev" test ${flag:+"$flag"} "$@" || failed+=("${flag:-the plain run}")
    done
    [ ${#failed[@]} -eq 0 ] || fail "Not passed: ${failed[*]}. The logs are in $root/$logs."
    say "The plain run, --asan and --tsan passed"
}

test_preset() {
    local preset=$1
    shift
    local groups=(build workbench desktop test) options=()
    case $preset in
    tsan) groups+=(tsan) ;;
    coverage) groups+=(coverage) ;;
    release) groups+=(bench) ;;
    esac
    need_packages "${groups[@]}"
    if [ "$preset" = tsan ]; then
        need_tsan_tbb
        options=(-- -D "TBB_DIR=$root/$tbb_for_tsan/lib/cmake/TBB")
    fi
    build_preset "$preset" "${options[@]}"
    run_tests "$preset" "$@"
}

run_tests() {
    local preset=$1 start result=0 log
    shift
    start=$(date +%s)
    log="$root/$logs/test-$preset.log"
    rm -f "build/$preset/tests.xml"
    say "Running the tests of '$preset'"
    $(fixed_addresses "$preset") ctest --test-dir "build/$preset" -j "$(test_jobs)" --output-on-failure \
        --no-tests=error --output-junit tests.xml --output-log "$log" "$@" || result=$?
    [ "$preset" != coverage ] || report_coverage
    summarise "$preset" "$result" "$(elapsed "$start")" "$log"
    return "$result"
}

test_jobs() {
    [ "$jobs" -gt 2 ] && echo "$jobs" || echo 2
}

# ThreadSanitizer of Debian 12 does not start where the kernel spreads addresses wider than it knows.
fixed_addresses() {
    local bits
    bits=$(cat /proc/sys/vm/mmap_rnd_bits 2>/dev/null || echo 0)
    if [ "$1" = tsan ] && [ "$bits" -gt 28 ] && setarch "$(uname -m)" -R true 2>/dev/null; then
        echo "setarch $(uname -m) -R"
    fi
}

summarise() {
    local preset=$1 result=$2 time=$3 log=$4 verdict=FAILED tests failures skipped
    [ "$result" -ne 0 ] || verdict=passed
    if [ ! -e "build/$preset/tests.xml" ]; then
        echo "$preset: no test ran; $log tells why"
        return
    fi
    read -r tests failures skipped < <(python3 scripts/junit-summary "build/$preset/tests.xml")
    echo
    echo "$preset $verdict: $tests tests, $failures failures, $skipped skipped, $time; log: $log"
}

report_coverage() {
    gcovr --root "$root" --filter 'core/' --filter 'platform/' --filter 'ui_base/' \
        --object-directory build/coverage --exclude-unreachable-branches \
        --html-details build/coverage/report.html >"$logs/coverage.log" 2>&1 \
        && gcovr --root "$root" --filter 'core/' --filter 'platform/' --filter 'ui_base/' \
            --object-directory build/coverage --print-summary 2>/dev/null | tail -n 4 \
        && say "Coverage of the lines is in $root/build/coverage/report.html" \
        || say "No coverage report; $logs/coverage.log tells why"
}
