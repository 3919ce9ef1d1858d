#!/usr/bin/env bash
# The studio's browser benchmark (bench/web/drag.bench.mjs): builds vexplot and the page's files into
# build/ and times a steady drag in Debian's Chromium, with the demo scene at 800 x 600 and with
# 100,000 triangles at 1280 x 720. Needs what scripts/install-deps.sh installs (Chromium, Node.js,
# tests/web/node_modules).
#   bash scripts/bench-studio.sh              (BENCH_SECONDS=N: each measured drag's length)
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"
if [ ! -d build ]; then
    cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo
fi
cmake --build build -j"$(nproc)" --target vexplot studio_web
# What the figures depend on: the machine, the browser, and what else was running (the load).
echo "bench-studio: $(nproc) cores, $(sed -n 's/^model name\s*: //p' /proc/cpuinfo | head -1)," \
     "Chromium $(/usr/bin/chromium --version 2>/dev/null | awk '{print $2}'), Node.js $(node --version)," \
     "load average $(cut -d' ' -f1-3 /proc/loadavg)"
VEXPLOT="$root/build/bin/vexplot" node bench/web/drag.bench.mjs
