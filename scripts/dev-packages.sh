# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# The Debian packages each verb needs, and how the missing ones get onto the machine.
# shellcheck shell=bash

packages_build=(g++ cmake ninja-build ccache mold pkgconf python3 qtbase5-dev qttools5-dev-tools
                libqt5svg5-dev libqt5x11extras5-dev libtbb-dev)
packages_workbench=(libqt5opengl5-dev libgl-dev libassimp-dev libmeshoptimizer-dev)
packages_desktop=(xvfb openbox xdotool x11-utils libgl1-mesa-dri fontconfig fonts-liberation fonts-dejavu-core)
packages_test=(libgtest-dev libgmock-dev librapidcheck-dev libqt5svg5 libqt5gui5 binutils)
packages_tsan=(dpkg-dev xz-utils patch)
packages_coverage=(gcovr)
packages_bench=(libbenchmark-dev libboost-dev valgrind nodejs)
packages_lint=(clang-format clang-tidy git)
packages_docs=(doxygen graphviz)

# need_packages GROUP...: installs what is missing of the groups.
need_packages() {
    local group names missing=()
    for group in "$@"; do
        local -n names="packages_$group"
        local name
        for name in "${names[@]}"; do
            is_installed "$name" || missing+=("$name")
        done
    done
    [ ${#missing[@]} -eq 0 ] || install_packages "${missing[@]}"
    need_cmake
}

is_installed() {
    command -v dpkg-query >/dev/null \
        && [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

install_packages() {
    need_debian_12 "$@"
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "Packages are missing and sudo is not there to install them;" \
            "as root run: apt-get install $*"
        as_root=(sudo)
        # Without a terminal sudo could not ask, so it has to go without a password.
        if [ ! -t 0 ]; then
            sudo -n true 2>/dev/null || fail "Packages are missing and sudo wants a password but there is" \
                "no terminal; as root run: apt-get install $*"
        fi
    fi
    say "Installing from Debian: $*"
    apt_install "$@" && return
    # The lists may be absent, as in a fresh image, or too old for what the mirror holds.
    say "Reading the package lists"
    logged apt-update "${as_root[@]}" apt-get -o DPkg::Lock::Timeout=300 update \
        || explain_apt "$logs/apt-update.log" "$*"
    apt_install "$@" || explain_apt "$logs/apt-install.log" "$*"
}

# Reads as_root of its caller.
apt_install() {
    logged apt-install "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 install -y --no-install-recommends "$@"
}

no_network() {
    grep -qE 'Temporary failure resolving|Could not resolve|Could not connect|Cannot initiate the connection|Connection (timed out|refused|failed)|Network is unreachable' "$1"
}

explain_apt() {
    local log=$1 names=$2 missing
    missing=$(sed -n 's/^E: Unable to locate package //p' "$log" | sort -u | tr '\n' ' ')
    if no_network "$log"; then
        fail "No network to Debian's mirror; connect and run ./dev again (missing: $names). All output is in $log."
    elif [ -n "$missing" ]; then
        fail "Debian's lists here do not hold: $missing; put 'main' of bookworm into /etc/apt/sources.list and run ./dev again."
    elif grep -q 'Could not get lock' "$log"; then
        fail "Another program is installing packages; wait for its end and run ./dev again."
    elif grep -qE 'dpkg was interrupted' "$log"; then
        fail "An earlier installation was interrupted; run 'dpkg --configure -a' as root, then ./dev again."
    fi
    explain "$log" "apt-get could not install $names; mend what its output tells and run ./dev again."
}

need_debian_12() {
    local id='' version=''
    if [ -r /etc/os-release ]; then
        id=$(. /etc/os-release && echo "${ID:-}")
        version=$(. /etc/os-release && echo "${VERSION_ID:-}")
    fi
    [ "$id $version" = "debian 12" ] || fail "This is '${id:-unknown} $version' and ./dev installs packages on" \
        "Debian 12 only; use a Debian 12 machine or container, or install what answers to: $*"
}

need_cmake() {
    local path version
    path=$(command -v cmake) || fail "cmake is installed but not in PATH; add /usr/bin to PATH."
    version=$(cmake --version | awk 'NR == 1 { print $3 }')
    if [ "$(printf '%s\n' 3.25 "$version" | sort -V | head -n 1)" != 3.25 ]; then
        fail "$path is version $version and 3.25 is needed; take it out of PATH, so that Debian's /usr/bin/cmake is found."
    fi
}
