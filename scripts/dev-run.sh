# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# ./dev run and ./dev bench
# shellcheck shell=bash

verb_run() {
    local arguments=()
    [ "${1:-}" = -- ] && shift
    arguments=("$@")
    need_packages build workbench desktop
    build_preset run workbench
    local workbench="$root/build/run/examples/workbench/workbench"
    local data="$root/examples/workbench/data/bunny.obj"
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        say "Opening the workbench"
        # The library places its popups itself, which a native Wayland window does not allow.
        QT_QPA_PLATFORM=xcb "$workbench" "${arguments[@]:-$data}"
        return
    fi
    run_tour "$workbench" "$data" "${arguments[@]}"
}

# Without a display there is nothing to click: the workbench shows itself around and leaves pictures.
run_tour() {
    local workbench=$1 data=$2 tour="$root/build/tour" log="$root/$logs/tour.log"
    shift 2
    if [ "${1:-}" = --tour ]; then
        [ $# -ge 2 ] || fail "--tour needs the folder for its pictures, as in: ./dev run -- --tour DIR"
        tour=$2
        shift 2
    else
        rm -f "$tour"/*.png
    fi
    mkdir -p "$tour" || fail "The folder $tour for the pictures can't be made; name another one."
    say "No display here: the workbench takes its tour on a virtual one"
    QT_QPA_PLATFORM=xcb scripts/virtual-desktop "$workbench" --tour "$tour" "${@:-$data}" 2>&1 | tee "$log" \
        || explain "$log" "The tour did not come to its end."
    say "$(find "$tour" -name '*.png' | wc -l) pictures of the tour are in $tour"
}

verb_bench() {
    need_packages build workbench desktop test bench
    build_preset release -- -D LUMO_BUILD_BENCH=ON
    python3 bench/run.py --build build/release "$@"
}
