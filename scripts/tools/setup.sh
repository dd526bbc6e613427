# Sourced by the scripts: installs Debian packages, configures and builds. All of it prints on
# standard error, which leaves standard output to the script.

# shellcheck shell=bash

set -euo pipefail
unset CDPATH

project_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }

fail() {
    say "$*"
    exit 1
}

# install_packages PACKAGE...: installs those that are missing.
install_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        say "not a Debian system; please install what these packages contain: $*"
        return
    fi
    local package missing=()
    for package in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "please install these packages: ${missing[*]}"
        as_root=(sudo)
    fi
    say "installing ${missing[*]}"
    local get=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get)
    local install=("${get[@]}" install -y --no-install-recommends "${missing[@]}")
    # Package lists may be absent, or so old that the packages they name are gone.
    {
        { compgen -G '/var/lib/apt/lists/*_Packages*' >/dev/null && "${install[@]}"; } ||
            { "${get[@]}" update && "${install[@]}"; }
    } >&2
}

# What the tool itself needs.
install_tool_packages() {
    install_packages g++ cmake make libtinyxml2-dev "$@"
}

# What a build needs that leaves nothing out.
install_build_packages() {
    install_tool_packages libcli11-dev libgtest-dev nlohmann-json3-dev python3 "$@"
}

# What all the tests need as well.
install_test_packages() {
    install_build_packages bash-completion busybox fish jing librsvg2-bin libxml2-utils locales mandoc \
        ninja-build pkgconf python3-jsonschema tcl trang vim zsh "$@"
}

# is_configured PRESET: whether build/PRESET can be compiled. One that was moved or copied cannot.
is_configured() {
    local build_dir=$project_dir/build/$1
    [ -e "$build_dir/cmake_install.cmake" ] &&
        grep -qxF "CMAKE_CACHEFILE_DIR:INTERNAL=$build_dir" "$build_dir/CMakeCache.txt"
}

# configure PRESET [ARGUMENT...]: configures build/PRESET.
configure() {
    is_configured "$1" || rm -rf "${project_dir:?}/build/$1"
    (cd "$project_dir" && cmake --preset "$@" >/dev/null)
}

# compile PRESET [TARGET...]: brings a configured build/PRESET up to date.
compile() {
    cmake --build "$project_dir/build/$1" --parallel "$(nproc)" ${2:+--target "${@:2}"} >&2
}

# build PRESET [TARGET...]: configures build/PRESET, nothing left out, and brings it up to date.
build() {
    configure "$1" --no-warn-unused-cli \
        -DCMAKE_REQUIRE_FIND_PACKAGE_{CLI11,GTest,Python3,nlohmann_json}=ON
    compile "$@"
}

# list_sources: the files of the project, each followed by a NUL: those that git tracks or would
# track, or all but build/ where git does not know.
list_sources() {
    cd "$project_dir"
    local list=(git ls-files -z --cached --others --exclude-standard)
    if [ ! -e .git ] || ! "${list[@]}" >/dev/null 2>&1; then
        list=(find . -path ./build -prune -o -path ./.git -prune -o -type f -printf '%P\0')
    fi
    local file
    "${list[@]}" | sort -zu | while IFS= read -r -d '' file; do
        [ ! -e "$file" ] || printf '%s\0' "$file"
    done
}

# copy_sources FOLDER: copies the files of the project into a new folder.
copy_sources() {
    mkdir -p "$1"
    (list_sources) | tar -C "$project_dir" -c --null -T - | tar -C "$1" -x
}
