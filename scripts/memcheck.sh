#!/usr/bin/env bash
# valgrind memcheck over one end-to-end vexplot run (scripts/memcheck.mcr: the dialog builds a
# list, it is saved and opened again, then animated to an H.264 movie, drawn by Mesa and encoded
# by FFmpeg). Fails on any memory error and on any leak, definite, indirect or possible; only the
# third-party internals listed with their reasons in scripts/valgrind.supp are suppressed. Then the
# movie writers' test of pictures that end at their last pixel, under memcheck as well.
#   bash scripts/memcheck.sh [BUILD_DIR]      (default build/, as scripts/test.sh leaves it)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "${1:-$root/build}" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# Some processors' builds of a system library that FFmpeg loads (libhwy) run an instruction at load
# time that this valgrind cannot decode (RDTSCP): valgrind then ends the program with SIGILL before
# any of the project's code has run. That is a limit of the tool on this processor, not a finding,
# so it is said plainly and the check is passed over; any other failure still fails.
undecodable_at_load() {
    [ "$1" -eq 132 ] && grep -q 'unhandled instruction bytes' "$2" &&
        grep -m1 ' at 0x' "$2" | grep -q '(in /usr/lib/' &&
        ! grep -qE 'by 0x[0-9A-F]+: main ' "$2"
}

status=0
valgrind --tool=memcheck --leak-check=full --show-leak-kinds=definite,indirect,possible \
    --errors-for-leak-kinds=definite,indirect,possible --num-callers=40 --error-exitcode=99 \
    --suppressions="$root/scripts/valgrind.supp" --log-file=memcheck.log \
    "$build/bin/vexplot" --size 64x48 --demo-triangles 200 --file-name memcheck.keyframe \
    "$root/scripts/memcheck.mcr" >vexplot.out 2>vexplot.err || status=$?
if [ "$status" -ne 0 ] && undecodable_at_load "$status" memcheck.log; then
    grep -m1 -A2 'unhandled instruction bytes' memcheck.log | sed 's/^==[0-9]*== */memcheck: /' >&2
    grep -m1 ' at 0x' memcheck.log | sed 's/^==[0-9]*== */memcheck: /' >&2
    echo "memcheck: valgrind cannot decode an instruction a system library runs at load on this" \
        "processor; the end-to-end run and the movie writers were not checked here" >&2
    exit 0
fi
if [ "$status" -ne 0 ]; then
    cat vexplot.err memcheck.log >&2
    echo "memcheck: the run failed (status $status)" >&2
    exit 1
fi
for file in memcheck.keyframe memcheck.mp4; do
    if [ ! -s "$file" ]; then
        cat vexplot.err >&2
        echo "memcheck: the run wrote no $file" >&2
        exit 1
    fi
done
grep -E 'ERROR SUMMARY|definitely lost|indirectly lost|possibly lost' memcheck.log |
    sed 's/^==[0-9]*== */memcheck: /'

# FFmpeg's colour converter is assembly that the sanitizer build cannot see into; memcheck can. The
# movie writers hand it pictures in buffers that end at their last pixel, in every format.
status=0
valgrind --tool=memcheck --error-exitcode=99 --num-callers=40 --log-file=encoder.log \
    "$build/bin/movie_writer_tests" --gtest_filter='*PicturesEndingAtTheirLastPixel*' \
    >encoder.out 2>&1 || status=$?
if [ "$status" -ne 0 ]; then
    cat encoder.out encoder.log >&2
    echo "memcheck: the movie writers read past a picture (status $status)" >&2
    exit 1
fi
grep -E 'ERROR SUMMARY' encoder.log | sed 's/^==[0-9]*== */memcheck: movie writers: /'
