#!/usr/bin/env bash
# Installs what building and testing MarkRule needs, when it is missing (Debian 12, as root).
# With --test also what only the tests use: a headless browser, Chinese fonts and PDF tools for the
# HTML report's browser test. Those are best effort: when they cannot be installed, that test skips.
set -euo pipefail
packages=(cmake ninja-build g++ qtbase5-dev libbenchmark-dev libjemalloc-dev)
test_packages=(chromium fonts-noto-cjk poppler-utils)

missing_of() { # packages... -> those not installed
    for p in "$@"; do
        dpkg -s "$p" >/dev/null 2>&1 || echo "$p"
    done
}

install() { # packages...
    if [ "$(id -u)" -ne 0 ]; then
        echo "missing packages: $* (install them as root)" >&2
        return 1
    fi
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -q
    apt-get install -y -q --no-install-recommends "$@"
}

mapfile -t missing < <(missing_of "${packages[@]}")
[ ${#missing[@]} -eq 0 ] || install "${missing[@]}"

if [ "${1:-}" = "--test" ]; then
    mapfile -t missing < <(missing_of "${test_packages[@]}")
    if [ ${#missing[@]} -gt 0 ] && ! install "${missing[@]}"; then
        echo "warning: ${missing[*]} not installed: the HTML report's browser test will skip" >&2
    fi
fi
exit 0
