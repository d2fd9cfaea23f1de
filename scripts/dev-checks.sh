# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# ./dev lint and ./dev docs
# shellcheck shell=bash

verb_lint() {
    local all=no problems=()
    [ "${1:-}" != --all ] || all=yes
    need_packages build workbench desktop test lint
    local sources=()
    mapfile -t sources < <(git ls-files --cached --others --exclude-standard -- '*.h' '*.cpp' | existing)
    say "Checking the format of ${#sources[@]} files"
    printf '%s\0' "${sources[@]}" | xargs -0 -n 32 -P "$jobs" clang-format --dry-run -Werror \
        || problems+=("format (clang-format -i mends it)")
    say "Checking licence lines"
    check_licences || problems+=("licence lines")
    say "Checking the directions of includes"
    python3 scripts/check-layers || problems+=("include directions")
    tidy "$all" || problems+=("clang-tidy")
    [ ${#problems[@]} -eq 0 ] || fail "Lint found problems: $(printf '%s; ' "${problems[@]}")told above."
    say "Lint found nothing"
}

existing() {
    while IFS= read -r file; do
        [ ! -f "$file" ] || echo "$file"
    done
}

check_licences() {
    local file bad=0
    while IFS= read -r file; do
        if ! head -n 4 "$file" | grep -q 'SPDX-License-Identifier: MIT'; then
            echo "$file: no SPDX-License-Identifier in the first lines" >&2
            bad=1
        fi
    done < <(git ls-files --cached --others --exclude-standard -- '*.h' '*.cpp' '*.py' '*.sh' '*.cmake' \
        '*CMakeLists.txt' dev .ci/run 'scripts/*' | existing)
    return "$bad"
}

# clang-tidy takes source files only; a changed header is looked at through the source beside it.
tidy() {
    local files=()
    if [ "$1" = yes ]; then
        mapfile -t files < <(git ls-files -- 'core/*.cpp' 'platform/*.cpp' 'ui_base/*.cpp')
    else
        mapfile -t files < <(changed_files | sed -n 's/\.\(h\|cpp\)$/.cpp/p' \
            | grep -E '^(core|platform|ui_base)/' | sort -u | existing)
    fi
    if [ ${#files[@]} -eq 0 ]; then
        say "No source of the libraries changed, clang-tidy has nothing to do"
        return 0
    fi
    build_preset dev
    python3 scripts/tidy-database build/dev/compile_commands.json build/lint || return 1
    say "Running clang-tidy on ${#files[@]} files"
    printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$jobs" clang-tidy -p build/lint --quiet \
        --warnings-as-errors='*' 2>"$logs/tidy.log"
}

# What differs from the main branch, committed or not.
changed_files() {
    local base branch
    base=HEAD
    for branch in origin/main main; do
        if git rev-parse -q --verify "$branch" >/dev/null; then
            base=$(git merge-base HEAD "$branch")
            break
        fi
    done
    git diff --name-only "$base"
    git ls-files --others --exclude-standard
}

verb_docs() {
    need_packages build docs
    say "Making the reference"
    rm -rf build/docs
    mkdir -p build/docs
    local version
    version=$(sed -n 's/^project(LumoUiBase VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
    sed "s,@PROJECT_VERSION@,$version,; s,@OUTPUT@,build/docs," docs/Doxyfile.in >build/docs/Doxyfile
    logged doxygen doxygen build/docs/Doxyfile \
        || explain "$logs/doxygen.log" "doxygen could not make the reference."
    python3 scripts/check-docs build/docs/warnings.log \
        || fail "Public names without a docstring, or docstrings that doxygen can't read; they are told above."
    say "The reference is in $root/build/docs/html/index.html"
}
