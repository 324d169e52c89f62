#!/usr/bin/env bash
# Installs what building and testing MarkRule needs, when it is missing (Debian 12, as root).
set -euo pipefail
packages=(cmake ninja-build g++ qtbase5-dev libbenchmark-dev)
missing=()
for p in "${packages[@]}"; do
    dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
if [ "$(id -u)" -ne 0 ]; then
    echo "missing packages: ${missing[*]} (install them as root)" >&2
    exit 1
fi
export DEBIAN_FRONTEND=noninteractive
apt-get update -q
apt-get install -y -q --no-install-recommends "${missing[@]}"
