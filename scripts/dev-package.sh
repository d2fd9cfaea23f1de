# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# ./dev package
# shellcheck shell=bash

verb_package() {
    need_packages build test
    build_preset package
    local prefix="$root/build/package/prefix" archive libdir mode log="$root/$logs/package.log"
    say "Installing into $prefix"
    rm -rf "$prefix"
    logged package cmake --install build/package --prefix "$prefix" --strip \
        || explain "$log" "The package can't be installed."
    libdir=$(sed -n 's/^CMAKE_INSTALL_LIBDIR:[A-Z]*=//p' build/package/CMakeCache.txt)
    for mode in headers install pkgconfig load; do
        say "Trying the package: $mode"
        logged package cmake -D MODE=$mode -D PREFIX="$prefix" -D LIBDIR="$libdir" -D CXX=c++ \
            -D CCACHE="$(command -v ccache)" -D WORK="$root/build/package/test" -P tests/package/check.cmake \
            || explain "$log" "The package does not serve a host ($mode)."
    done
    archive="lumo_ui_base-$(sed -n 's/^CMAKE_PROJECT_VERSION:[A-Z]*=//p' build/package/CMakeCache.txt)-$(uname -m)"
    # The same files give the same archive, whoever packs them.
    tar -C "$prefix" --sort=name --owner=0 --group=0 --numeric-owner --transform "s,^\.,$archive," \
        -czf "build/package/$archive.tar.gz" . || fail "The archive can't be written; free the disk of $root/build."
    say "Packed as $root/build/package/$archive.tar.gz"
}
