#!/usr/bin/env bash
# Installs what is needed, builds everything from scratch and runs every test: the one command CI
# runs (.ci/run). In order, each stage timed:
#   1. the normal build (build/) and every test with CTest;
#   2. the same tests in an AddressSanitizer + UndefinedBehaviorSanitizer build (scripts/sanitize.sh);
#   3. a smoke run of each libFuzzer target, half a minute each (scripts/fuzz.sh);
#   4. valgrind memcheck over an end-to-end vexplot run of the normal build (scripts/memcheck.sh).
# docs/hardening.md has the figures of a run on the project's machine.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

started=$(date +%s)
stage_started=$started
stage() {
    local now
    now=$(date +%s)
    echo "test: $1 took $((now - stage_started)) s (total $((now - started)) s)"
    stage_started=$now
}

bash scripts/install-deps.sh
jobs=$(nproc)
stage "installing"

rm -rf build
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$jobs"
ctest --test-dir build --output-on-failure -j"$jobs"
stage "the normal build and its tests"

bash scripts/sanitize.sh
stage "the sanitizer build and its tests"

rm -rf build-fuzz
FUZZ_SECONDS=${FUZZ_SECONDS:-30} bash scripts/fuzz.sh
stage "the fuzz smoke runs"

bash scripts/memcheck.sh build
stage "valgrind memcheck"
