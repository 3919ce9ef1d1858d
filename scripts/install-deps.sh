#!/usr/bin/env bash
# Installs everything the project needs on a Debian 12 machine. Safe to run again: it asks apt only
# for what is missing.
#   --demo   only what building vexplot and the add-on and rendering the demo need (scripts/demo.sh):
#            no test, benchmark or analysis tools.
set -euo pipefail

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
)
case "${1:-}" in
    --demo) packages=("${demo_packages[@]}") ;;
    "") ;;
    *) echo "install-deps: unknown option $1 (use --demo or nothing)" >&2; exit 2 ;;
esac

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$p")
    fi
done
if [ ${#missing[@]} -eq 0 ]; then
    echo "install-deps: everything is installed"
    exit 0
fi

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
