#!/usr/bin/env bash
# The demo, from a fresh Debian 12 machine to a movie: installs what it needs, builds vexplot and
# the key frame add-on (nothing else), renders examples/demo.mcr to out/demo.mp4 and says where the
# movie is. Run from anywhere, as root or with sudo available:
#   bash scripts/demo.sh
# Each step's time is printed; docs/movies.md has the figures measured on the project's machine.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

build=build-demo
now() { date +%s.%N; }
seconds_since() { awk -v now="$(now)" -v start="$1" 'BEGIN { printf "%.1f", now - start }'; }
started=$(now)

echo "demo: installing what the demo needs"
step=$(now)
bash scripts/install-deps.sh --demo
echo "demo: ... $(seconds_since "$step") s"

# Only vexplot and the add-on. A movie's time goes into Mesa's rasteriser and FFmpeg's encoders,
# not into this project's code, so light optimisation without debug information builds fastest
# for the same movie.
echo "demo: building vexplot and the add-on in $build/"
step=$(now)
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O1 -DNDEBUG" \
    -DVEX_BUILD_TESTS=OFF -DVEX_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target vexplot >/dev/null
echo "demo: ... $(seconds_since "$step") s"

echo "demo: rendering examples/demo.mcr (161 frames of 1280 x 720)"
step=$(now)
mkdir -p out
# Progress lines (ending in a percentage) left out; messages and the export log stay.
"$build/bin/vexplot" --size 1280x720 examples/demo.mcr 2>&1 | { grep -v '%$' || true; }
echo "demo: ... $(seconds_since "$step") s"

echo "demo: done in $(seconds_since "$started") s; the movie is $root/out/demo.mp4"
