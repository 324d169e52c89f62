#!/usr/bin/env bash
# The main job: builds the library and runs the example host on its built-in sample.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
bash scripts/deps.sh
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_INSTALL_PREFIX="$root/build-release/_install" >/dev/null
cmake --build build-release -j "$(nproc)" >/dev/null
cmake --install build-release >/dev/null
cmake -S examples/consumer -B build-consumer -G Ninja -DCMAKE_PREFIX_PATH="$root/build-release/_install" >/dev/null
cmake --build build-consumer >/dev/null
./build-consumer/markrule-consumer
