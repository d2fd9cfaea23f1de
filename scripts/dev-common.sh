# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# What every verb of ./dev uses: messages, logs, and an environment that does not depend on the user's.
# shellcheck shell=bash

logs=build/logs
jobs=$(nproc 2>/dev/null || echo 2)

say() {
    printf '==> %s\n' "$*"
}

# Ends with one sentence that names the cause and the mend.
fail() {
    printf './dev: %s\n' "$*" >&2
    exit 1
}

prepare_environment() {
    mkdir -p "$logs" 2>/dev/null \
        || fail "The folder $root/build can't be written to; give its owner back with chown, or free the disk."
    export LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive
    # What is set for the user's own Qt programs must not change what ours look like.
    unset QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR QT_FONT_DPI \
        QT_SCREEN_SCALE_FACTORS QT_AUTO_SCREEN_SCALE_FACTOR QT_DEVICE_PIXEL_RATIO QT_LOGGING_RULES \
        QT_PLUGIN_PATH QT_IM_MODULE CMAKE_GENERATOR CMAKE_BUILD_PARALLEL_LEVEL \
        CC CXX CFLAGS CXXFLAGS CPPFLAGS LDFLAGS
    if [ ! -w "${XDG_RUNTIME_DIR:-/nowhere}" ]; then
        export XDG_RUNTIME_DIR="$root/build/runtime"
        mkdir -p "$XDG_RUNTIME_DIR"
        chmod 700 "$XDG_RUNTIME_DIR"
    fi
    if [ ! -w "${HOME:-/nowhere}" ]; then
        export CCACHE_DIR="$root/build/ccache"
    fi
}

# need_disk MIB: at least so much room below build/.
need_disk() {
    local free
    free=$(df -Pm build | awk 'NR == 2 { print $4 }')
    [ "$free" -ge "$1" ] \
        || fail "The disk of $root/build has $free MiB left and this needs $1; free some or remove build/."
}

# logged NAME COMMAND...: runs with the output in build/logs/NAME.log and nothing on the screen.
logged() {
    local log="$logs/$1.log"
    shift
    "$@" >"$log" 2>&1
}

# explain LOG SENTENCE: ends with the sentence that fits what the log tells, else with SENTENCE.
explain() {
    local log=$1
    if grep -q 'No space left on device' "$log"; then
        fail "The disk is full; free some room or remove $root/build. All output is in $log."
    fi
    if grep -qE 'Killed signal terminated program|virtual memory exhausted|out of memory' "$log"; then
        fail "The compiler ran out of memory; close other programs or add swap. All output is in $log."
    fi
    fail "$2 All output is in $log."
}

# Seconds since the time stamp of $1, as "1 min 5 s".
elapsed() {
    local seconds=$(($(date +%s) - $1))
    if [ "$seconds" -lt 60 ]; then
        echo "$seconds s"
    else
        echo "$((seconds / 60)) min $((seconds % 60)) s"
    fi
}
