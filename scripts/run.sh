#!/usr/bin/env bash
# The main job: builds the library and the markgrade grader, then grades the built-in sample exam
# (a Site-scene schedule, a pricing file and a building-model file against their standard answers).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
bash scripts/deps.sh
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build-release -j "$(nproc)" --target markgrade >/dev/null
./build-release/grader/markgrade "$@"
