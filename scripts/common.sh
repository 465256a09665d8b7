# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# Sourced by ./run, ./test, ./bench and ./fuzz: what all of them need done first.
# shellcheck shell=bash

say() { printf '\n== %s\n' "$*"; }

fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# install PACKAGE...: installs with apt what is missing. Asks nothing.
install() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    command -v apt-get >/dev/null || fail "please install: ${missing[*]}"
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "please install as root: ${missing[*]}"
        sudo=(sudo)
    fi
    say "Installing ${missing[*]}"
    "${sudo[@]}" apt-get update -qq
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

BUILD_PACKAGES=(g++ cmake ninja-build qt6-base-dev zlib1g-dev fonts-liberation)
TEST_PACKAGES=(libgtest-dev libbenchmark-dev)
MEMORY_PACKAGES=(valgrind)
DRIVE_PACKAGES=(xvfb openbox xdotool x11-utils imagemagick python3)
ACCESSIBILITY_PACKAGES=(dbus-daemon at-spi2-core python3-gi gir1.2-atspi-2.0)

# build PRESET [TARGET...]: configures where needed and builds; prints the end of the log of what
# went wrong.
build() {
    local preset=$1
    shift
    mkdir -p build
    local log=build/$preset.log
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" >"$log" 2>&1 ||
        { tail -n 40 "$log"; fail "configuring failed, see $log"; }
    cmake --build --preset "$preset" ${1:+--target "$@"} >"$log" 2>&1 ||
        { grep -E 'error|FAILED' -A 6 "$log" | head -n 60; fail "building failed, see $log"; }
}
