#!/usr/bin/env bash
# Builds the library and runs the whole test suite.
# BUILD_DIR picks the build folder; ORV_SANITIZE (address,undefined or thread) builds under sanitizers.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
build=${BUILD_DIR:-build}
bench=ON; [ -n "${ORV_SANITIZE:-}" ] && bench=OFF
cmake -S . -B "$build" -G Ninja -DORV_SANITIZE="${ORV_SANITIZE:-}" -DORV_BENCH=$bench >/dev/null
cmake --build "$build"
ctest --test-dir "$build" --output-on-failure -j "$(nproc)" ${CTEST_ARGS:-}
