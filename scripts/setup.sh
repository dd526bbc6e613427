# Sourced by the scripts beside it: installs Debian packages, configures and builds. All of it talks
# on standard error, which leaves standard output to what a script is for.

# shellcheck shell=bash

set -euo pipefail

project_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }

# install_packages PACKAGE...: installs those that are missing.
install_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        say "this is no Debian system: see to it that there is what these packages hold: $*"
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
        if ! command -v sudo >/dev/null; then
            say "not root, and there is no sudo: have these packages installed: ${missing[*]}"
            exit 1
        fi
        as_root=(sudo)
    fi
    say "installing ${missing[*]}"
    {
        "${as_root[@]}" apt-get update
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends "${missing[@]}"
    } >&2
}

# What any build needs.
install_build_packages() {
    install_packages g++ cmake make libtinyxml2-dev nlohmann-json3-dev libcli11-dev "$@"
}

# What the tests need as well.
install_test_packages() {
    install_build_packages libgtest-dev python3 libxml2-utils mandoc bash-completion zsh fish vim \
        pkgconf jing trang "$@"
}

# build PRESET [TARGET...]: brings build/PRESET up to date, quietly when it is.
build() {
    local preset=$1 targets=("${@:2}")
    local build_dir=$project_dir/build/$preset
    if [ ! "$build_dir/.configured" -nt "$project_dir/CMakePresets.json" ]; then
        (cd "$project_dir" && cmake --preset "$preset") >&2
        touch "$build_dir/.configured"
    fi
    cmake --build "$build_dir" --parallel "$(nproc)" ${targets[@]:+--target "${targets[@]}"} >&2
}

# copy_sources FOLDER: copies the files that git knows, as they are now.
copy_sources() {
    git -C "$project_dir" ls-files -z | tar -C "$project_dir" -c --null -T - | tar -C "$1" -x
}
