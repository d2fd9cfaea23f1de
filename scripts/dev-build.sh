# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# Configuring and building a preset, and the oneTBB that ThreadSanitizer understands.
# shellcheck shell=bash

# build_preset PRESET [TARGET...] [-- CMAKE OPTION...]
build_preset() {
    local preset=$1 targets=() start log
    shift
    while [ $# -gt 0 ] && [ "$1" != -- ]; do
        targets+=("$1")
        shift
    done
    [ $# -gt 0 ] && shift
    need_disk 1500
    start=$(date +%s)
    log="$logs/configure-$preset.log"
    say "Configuring '$preset'"
    if ! logged "configure-$preset" cmake --preset "$preset" "$@"; then
        grep -A 6 '^CMake Error' "$log" >&2 || tail -n 20 "$log" >&2
        explain "$log" "The build can't be configured; mend what is told above, or remove build/$preset if it is stale."
    fi
    log="$logs/build-$preset.log"
    say "Building '$preset' with $jobs jobs"
    if ! show_build "$log" cmake --build "build/$preset" -j "$jobs" \
        ${targets[0]+--target "${targets[@]}"}; then
        grep -E -A 8 'error:|error |FAILED:' "$log" | head -n 60 >&2
        explain "$log" "The code does not build; mend the first error above."
    fi
    say "Built in $(elapsed "$start")"
}

# Runs a build with its output in a log; on the screen every tenth part of the way has its line.
show_build() {
    local log=$1
    shift
    "$@" 2>&1 | tee "$log" | awk '
        match($0, /^\[[0-9]+\/[0-9]+\]/) {
            split(substr($0, 2, RLENGTH - 2), step, "/")
            tenth = int(10 * step[1] / step[2])
            if (tenth > shown) { shown = tenth; printf "    %3d %%  %s\n", 10 * tenth, $0; fflush() }
        }'
}

tbb_for_tsan=build/tsan-tbb

# oneTBB of the package is not instrumented, so ThreadSanitizer can't see how its tasks follow one
# another and reports races that are none. Debian's source is built once with instrumentation. It is
# fetched with package lists of our own, which leaves the machine's alone and needs no root.
need_tsan_tbb() {
    [ -e "$tbb_for_tsan/.built" ] && return
    local work="$root/$tbb_for_tsan/work" start
    start=$(date +%s)
    rm -rf "$tbb_for_tsan"
    mkdir -p "$work/lists/partial" "$work/cache/archives/partial"
    say "Fetching the source of oneTBB from Debian"
    logged tsan-tbb-fetch fetch_tbb_source "$work" || explain_fetch "$logs/tsan-tbb-fetch.log"
    say "Building oneTBB for ThreadSanitizer, once"
    logged tsan-tbb-build build_tbb "$work" \
        || explain "$root/$logs/tsan-tbb-build.log" "oneTBB does not build for ThreadSanitizer; remove $tbb_for_tsan and try again."
    rm -rf "$work"
    touch "$tbb_for_tsan/.built"
    say "oneTBB for ThreadSanitizer built in $(elapsed "$start")"
}

explain_fetch() {
    if no_network "$1"; then
        fail "No network to Debian's mirror, which has the source of oneTBB; connect and run ./dev again. All output is in $1."
    fi
    explain "$1" "Debian's source of oneTBB can't be fetched; mend what the log tells and run ./dev again."
}

# Tries the mirrors that the machine uses, then Debian's own, since not every mirror has sources.
fetch_tbb_source() (
    cd "$1" || exit
    export APT_CONFIG="$1/apt.conf"
    cat >apt.conf <<CONFIG
Dir::Etc::sourcelist "$1/debian.sources";
Dir::Etc::sourceparts "-";
Dir::State::lists "$1/lists";
Dir::Cache "$1/cache";
APT::Sandbox::User "root";
CONFIG
    # shellcheck disable=SC2016
    APT_CONFIG='' apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' | grep -E '^https?://.* main$' | sort -u | source_list >debian.sources
    apt-get update && apt-get source onetbb && return
    echo 'http://deb.debian.org/debian bookworm main' | source_list >debian.sources
    apt-get update && apt-get source onetbb
)

# Turns lines of address, suite and component into entries for sources.
source_list() {
    local uri suite component keys=/usr/share/keyrings/debian-archive-keyring.gpg
    while read -r uri suite component; do
        printf 'Types: deb-src\nURIs: %s\nSuites: %s\nComponents: %s\n' "$uri" "$suite" "$component"
        [ ! -e "$keys" ] || printf 'Signed-By: %s\n' "$keys"
        printf '\n'
    done
}

build_tbb() (
    cd "$1" || exit
    cmake -S onetbb-*/ -B build -G Ninja -D CMAKE_BUILD_TYPE=RelWithDebInfo \
        -D TBB_SANITIZE=thread -D TBB_TEST=OFF -D TBBMALLOC_BUILD=OFF -D TBB_STRICT=OFF \
        -D CMAKE_CXX_FLAGS=-fsanitize=thread -D CMAKE_INSTALL_LIBDIR=lib \
        -D CMAKE_INSTALL_PREFIX="$root/$tbb_for_tsan" \
        && cmake --build build -j "$jobs" && cmake --install build
)
