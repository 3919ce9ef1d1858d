#!/usr/bin/env bash
# The studio on the demo scene, from a fresh Debian 12 machine: installs what vexplot needs, builds
# vexplot and the key frame add-on (nothing else) and serves the host to a web browser until
# Ctrl+C. Open the address it prints (it carries the session's token). Run from anywhere, as root or
# with sudo available:
#   bash scripts/studio.sh            (port 8080 of 127.0.0.1)
#   bash scripts/studio.sh 9000       (another port; 0 takes any free one)
# Files the page saves and downloads live in out/studio/. From another machine, forward the port
# through SSH (ssh -L 8080:127.0.0.1:8080 THIS_HOST) and open the same address there.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
port=${1:-8080}

build=build-demo
echo "studio: installing what vexplot needs"
bash scripts/install-deps.sh --demo
echo "studio: building vexplot and the add-on in $build/"
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O1 -DNDEBUG" \
    -DVEX_BUILD_TESTS=OFF -DVEX_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target vexplot >/dev/null

mkdir -p out/studio
cd out/studio
echo "studio: serving the demo scene; Ctrl+C ends it"
exec "$root/$build/bin/vexplot" --serve "127.0.0.1:$port" --size 1280x720
