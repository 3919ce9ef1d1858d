#!/usr/bin/env bash
# Smoke runs of the libFuzzer targets (fuzz/): builds them with clang, AddressSanitizer and
# UndefinedBehaviorSanitizer in build-fuzz/, then runs each for a bounded time from its seed
# corpus (fuzz/corpus/<target>/, copied, so the repository's corpus stays as committed) with its
# dictionary. A crash, a hang (an input running over 10 s), a sanitizer report or a broken rule
# fails the run; the input is kept in build-fuzz/artifacts/.
#   bash scripts/fuzz.sh                      every target, 60 s each, built in build-fuzz/
#   FUZZ_BUILD_DIR=build-mine bash scripts/fuzz.sh   built elsewhere
#   FUZZ_SECONDS=600 bash scripts/fuzz.sh fuzz_macro_file
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
jobs=$(nproc)
build=${FUZZ_BUILD_DIR:-build-fuzz}
seconds=${FUZZ_SECONDS:-60}
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    targets=(fuzz_settings_file fuzz_macro_command fuzz_macro_file fuzz_studio_message)
fi

if [ ! -f "$build/CMakeCache.txt" ]; then
    CC=clang CXX=clang++ cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DVEX_BUILD_FUZZ=ON -DVEX_SANITIZE=ON -DVEX_BUILD_TESTS=OFF -DVEX_BUILD_BENCH=OFF
fi
cmake --build "$build" -j"$jobs" --target "${targets[@]}"

mkdir -p "$build/artifacts"
for target in "${targets[@]}"; do
    name=${target#fuzz_}
    work="$build/corpus/$name"
    rm -rf "$work"
    mkdir -p "$work"
    cp -r "fuzz/corpus/$name/." "$work/"
    log="$build/$target.log"
    echo "fuzz: $target for $seconds s"
    status=0
    # Inputs are kept to 4 KB: enough for any settings file or macro line worth trying, and runs
    # stay short enough to try many.
    "$build/bin/$target" "$work" -dict="fuzz/$name.dict" -max_total_time="$seconds" \
        -timeout=10 -rss_limit_mb=2048 -max_len=4096 -print_final_stats=1 \
        -artifact_prefix="$build/artifacts/$target-" >"$log" 2>&1 || status=$?
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    echo "fuzz: $target: ${runs:-0} inputs in $seconds s, corpus of $(ls "$work" | wc -l) inputs"
    if [ "$status" -ne 0 ]; then
        grep -E 'ERROR|broken rule|SUMMARY|Test unit written' "$log" >&2 || true
        echo "fuzz: $target failed (status $status); the log is $log" >&2
        exit 1
    fi
done
