#!/usr/bin/env bash
# The example over a data set of the field: writes the data set "hill" with VTK (build/bin/makehill,
# an afternoon of wind over hilly land as a .pvd series of multiblock files in out/hill/), renders
# the flight of examples/hill.mcr to out/hill.mp4 and the four stills of examples/hill-strip.mcr
# into the README's strip, docs/images/hill-strip.png; then the flight's path picture and contact
# sheet, docs/images/hill-path.png and hill-sheet.png (vexpath). Needs the normal build (build/);
# run from anywhere:
#   bash scripts/hill.sh
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

build=${BUILD:-build}
if [ ! -x "$build/bin/vexplot" ] || [ ! -x "$build/bin/makehill" ] || [ ! -x "$build/bin/vexpath" ]; then
    cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
    cmake --build "$build" -j"$(nproc)" --target vexplot makehill pngstrip vexpath >/dev/null
fi
mkdir -p out
"$build/bin/makehill" out/hill
# The air is a volume: drawn, its outer surface would hide the wind inside it.
data=(--data out/hill/hill.pvd --hide-block air --color-by temperature --colormap viridis
      --streamtraces velocity --seed-line 0.2,0.5,0.5,0.2,5.5,0.5,9)
"$build/bin/vexplot" --size 1280x720 "${data[@]}" examples/hill.mcr 2>&1 | { grep -v '%$' || true; }
"$build/bin/vexplot" --size 640x360 "${data[@]}" examples/hill-strip.mcr
"$build/bin/pngstrip" docs/images/hill-strip.png out/hill-strip-1.png out/hill-strip-2.png \
    out/hill-strip-3.png out/hill-strip-4.png
"$build/bin/vexpath" picture examples/hill.keyframe -o docs/images/hill-path.png --size 960x540 \
    "${data[@]}"
"$build/bin/vexpath" sheet examples/hill.keyframe -o docs/images/hill-sheet.png --size 640x360 \
    --columns 5 "${data[@]}"
echo "hill: the movie is $root/out/hill.mp4, the strip $root/docs/images/hill-strip.png," \
    "the path $root/docs/images/hill-path.png"
