# SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
# SPDX-License-Identifier: MIT

# Sourced by ./run, ./test, ./bench, ./fuzz and the scripts beside it: what they need done first.
# shellcheck shell=bash

export PYTHONDONTWRITEBYTECODE=1 # nothing is left beside the sources
mkdir -p build

BUILD_PACKAGES=(g++ cmake ninja-build qt6-base-dev zlib1g-dev fonts-liberation)
TEST_PACKAGES=(libgtest-dev)
MEMORY_PACKAGES=(valgrind)
CHECK_PACKAGES=(desktop-file-utils appstream mandoc man-db reuse)
DRIVE_PACKAGES=(xvfb openbox xdotool x11-utils imagemagick python3)
ACCESSIBILITY_PACKAGES=(dbus-daemon at-spi2-core python3-gi gir1.2-atspi-2.0)

say() { printf '\n== %s\n' "$*"; }

fail() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# progress TEXT: how far something is. In a terminal the next one takes its place; elsewhere one in
# half a minute is enough.
progress() {
    if [ -t 1 ]; then
        printf '\r\033[K  %s' "${1:0:$(($(tput cols 2>/dev/null || echo 80) - 3))}"
    elif [ -n "$1" ] && ((SECONDS >= next_progress)); then
        printf '  %s\n' "$1"
        next_progress=$((SECONDS + 30))
    fi
}
next_progress=30

# fuzzer_package: the runtime library of libFuzzer, whose package has the version of clang in its name.
fuzzer_package() { echo "libclang-rt-$(clang -dumpversion | cut -d . -f 1)-dev"; }

# last_line LOG
last_line() { tail -n 1 "$1" 2>/dev/null | tr -d '\r'; }

# follow LOG COMMAND...: runs the command with its output in LOG; how far it is shows meanwhile.
follow() {
    local log=$1 watcher status=0 script=$$
    shift
    : >"$log"
    (while sleep 1 && kill -0 "$script" 2>/dev/null; do progress "$(last_line "$log")"; done) &
    watcher=$!
    "$@" >"$log" 2>&1 </dev/null || status=$?
    kill "$watcher" && wait "$watcher" 2>/dev/null || true
    progress ""
    return "$status"
}

# install PACKAGE...: installs with apt what is missing. Asks nothing but sudo's password.
install() {
    local missing=() sudo=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    command -v apt-get >/dev/null || fail "please install: ${missing[*]}"
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "please install as root: ${missing[*]}"
        sudo=(sudo)
        sudo true
    fi
    say "Installing ${missing[*]} (a few minutes, mostly for the download; log: build/install.log)"
    if ! { follow build/install.log "${sudo[@]}" apt-get update &&
        follow build/install.log "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends -o Dpkg::Use-Pty=0 "${missing[@]}"; }; then
        tail -n 20 build/install.log
        fail "installing failed, see build/install.log"
    fi
}

# compile PRESET [TARGET...]: configures where needed and builds. Several at once take turns, and
# windows that are driven meanwhile do not wait for it.
compile() {
    local preset=$1
    shift
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset" || return
    flock "build/$preset.lock" nice cmake --build --preset "$preset" ${1:+--target "$@"}
}

# build PRESET [TARGET...]: the same for a person who waits, with the end of what went wrong.
build() {
    local log=build/$1.log
    follow "$log" compile "$@" && return
    { grep -E 'error|FAILED' -A 6 "$log" || tail -n 40 "$log"; } | head -n 60
    fail "building failed, see $log"
}
