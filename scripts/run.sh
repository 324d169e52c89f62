#!/usr/bin/env bash
# The main job: builds the library and the markgrade grader, then grades the built-in sample exam
# (a Site-scene schedule, a pricing file and a building-model file against their standard answers).
# With no arguments it also writes the sample's HTML report and says where it is.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
bash scripts/deps.sh
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build-release -j "$(nproc)" --target markgrade >/dev/null
if [ $# -gt 0 ]; then
    exec ./build-release/grader/markgrade "$@"
fi
./build-release/grader/markgrade
./build-release/grader/markgrade -f html -o build-release/sample-report
echo
echo "HTML report of the sample: $root/build-release/sample-report/index.html"
