#!/usr/bin/env bash
# The whole test suite: a plain build and a sanitizer build (ASan, UBSan, LeakSanitizer), each
# with every test, then an installed copy consumed by the example project.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
bash scripts/deps.sh --test

jobs=$(nproc)
run_suite() { # name, extra cmake arguments...
    local dir=build-$1
    shift
    cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@"
    cmake --build "$dir" -j "$jobs"
    (cd "$dir" && ctest --output-on-failure -j "$jobs")
}

run_suite release -DMARKRULE_BUILD_BENCHMARKS=ON -DCMAKE_INSTALL_PREFIX="$root/build-release/_install"

# A consumer project against the installed package.
cmake --install build-release
cmake -S examples/consumer -B build-consumer -G Ninja -DCMAKE_PREFIX_PATH="$root/build-release/_install"
cmake --build build-consumer
./build-consumer/markrule-consumer

ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    run_suite sanitize -DMARKRULE_SANITIZE=ON
