#!/usr/bin/env bash
# Installs everything the project needs on a Debian 12 machine. Safe to run again: it asks apt only
# for what is missing, and npm only when the studio tests' lock file changed.
#   --demo   only what building vexplot and the add-on and rendering the demo need (scripts/demo.sh):
#            no test, benchmark or analysis tools.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
demo=false

# Building vexplot and the add-on, drawing with Mesa's EGL and encoding with FFmpeg's libraries
# (CMake's OpenGL module asks for libOpenGL whenever EGL is asked for); reading the field's data
# files with VTK 9.1 (only its IO and filter modules are linked).
demo_packages=(
    build-essential cmake pkg-config
    libboost-dev
    libavformat-dev libavcodec-dev libavutil-dev libswscale-dev
    libegl-dev libgl-dev libopengl-dev libegl-mesa0 libgl1-mesa-dri
    libpng-dev
    libvtk9-dev
    # Text in pictures (axis labels, the colour legend): FreeType and the DejaVu Sans font
    libfreetype-dev fonts-dejavu-core
    # The studio (vexplot --serve): JPEG pictures for the browser, JSON messages (Boost.Beast, the
    # web server, comes with libboost-dev)
    libturbojpeg0-dev nlohmann-json3-dev
)
packages=(
    "${demo_packages[@]}"
    git
    libgtest-dev libgmock-dev googletest libbenchmark-dev
    clang libclang-rt-14-dev llvm
    valgrind time
    ffmpeg
    # The studio's browser tests drive Debian's Chromium (tests/web)
    chromium
    # vexplot --parallel-export (docs/parallel-export.md): Open MPI's library and headers for
    # libvexmpi, and mpirun for the tests and benchmarks that start jobs; vexplot builds without
    # the option where they are missing
    libopenmpi-dev openmpi-bin
)
case "${1:-}" in
    --demo) packages=("${demo_packages[@]}"); demo=true ;;
    "") ;;
    *) echo "install-deps: unknown option $1 (use --demo or nothing)" >&2; exit 2 ;;
esac
# Node.js and npm for the studio's tests, asked of apt only when there are none: a machine may have
# a newer Node.js from elsewhere (with its own npm inside), which Debian's packages would replace.
if ! $demo; then
    command -v node >/dev/null 2>&1 || packages+=(nodejs)
    command -v npm >/dev/null 2>&1 || packages+=(npm)
fi

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$p")
    fi
done
if [ ${#missing[@]} -eq 0 ]; then
    echo "install-deps: every Debian package is installed"
else
    sudo=""
    if [ "$(id -u)" -ne 0 ]; then
        if command -v sudo >/dev/null 2>&1; then
            sudo="sudo"
        else
            echo "install-deps: missing ${missing[*]}; run this script as root" >&2
            exit 1
        fi
    fi
    echo "install-deps: installing ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    $sudo apt-get update -qq
    $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
$demo && exit 0

# The studio tests' npm packages, exactly as tests/web/package-lock.json pins them, into
# tests/web/node_modules. playwright-core downloads no browser; the variable makes sure of it. The
# lock file's checksum, kept beside the packages, tells whether they are still the ones it pins.
web="$root/tests/web"
stamp="$web/node_modules/.install-deps.sha256"
wanted=$(cat "$web/package.json" "$web/package-lock.json" | sha256sum | cut -d' ' -f1)
if [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$wanted" ]; then
    echo "install-deps: tests/web/node_modules matches its lock file"
else
    echo "install-deps: npm ci in tests/web (Node.js $(node --version), npm $(npm --version))"
    PLAYWRIGHT_SKIP_BROWSER_DOWNLOAD=1 npm ci --prefix "$web" --no-audit --no-fund
    echo "$wanted" > "$stamp"
fi
