#!/usr/bin/env bash
# Installs what the project is built from: Debian packages, and Breakpad built from its sources.
# Does nothing, silently, when all is there.
#
#   scripts/install-dependencies.sh [ci] [analysis] [benchmarks] [docs] [farm] [fuzz]
#       ci          also the formatter that .ci/run uses
#       analysis    also what scripts/analyse.sh and scripts/demo.sh --valgrind run
#       benchmarks  also the peers that the benchmarks run beside the library
#       docs        also what builds the pages of the public headers
#       fuzz        also the compiler of the fuzz targets
#       farm        also Slurm, for scripts/farm/try.sh
#
# MRV_REQUIRE_BREAKPAD=1 makes it an error when Breakpad cannot be had; otherwise the library is
# built without crash capture.
set -euo pipefail
source "$(dirname "$0")/common.sh"

packages=(
    ca-certificates g++ make cmake ninja-build pkg-config locales
    librapidxml-dev liblodepng-dev libgtest-dev libbenchmark-dev
    libcli11-dev nlohmann-json3-dev libassimp-dev libcairo2-dev
)
command -v npm >/dev/null || packages+=(npm)
for group in "$@"; do
    case $group in
        ci) packages+=(clang-format-14) ;;
        analysis) packages+=(clang clang-tidy-14 cppcheck valgrind libclang-rt-14-dev) ;;
        benchmarks) packages+=(libspdlog-dev libglm-dev libeigen3-dev libcereal-dev libtbb-dev
            libcgal-dev libembree-dev libboost-dev) ;;
        docs) packages+=(doxygen) ;;
        fuzz) packages+=(clang libclang-rt-14-dev) ;;
        farm) packages+=(slurm-wlm munge) ;;
        *) echo "unknown group: $group" >&2; exit 2 ;;
    esac
done

missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
done
if ((${#missing[@]})); then
    say "installing ${missing[*]}"
    as_root=()
    if ((EUID != 0)); then
        as_root=(sudo)
    fi
    log=$root/build/install.log
    quietly "$log" "${as_root[@]}" apt-get update
    quietly "$log" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
fi

if ! "$root/scripts/build-breakpad.sh" "$root/.deps"; then
    if [[ ${MRV_REQUIRE_BREAKPAD:-0} == 1 ]]; then
        exit 1
    fi
    echo "WARNING: Breakpad could not be built. The library is built WITHOUT crash capture." >&2
fi
