#!/usr/bin/env bash
# Builds and runs a small host against the installed package: by CMake, and by pkg-config.
#   checkConsumer.sh PREFIX LIBRARY_FOLDER HOST_SOURCES COMPILER VERSION
set -euo pipefail
prefix=$1
libraries=$1/$2
sources=$3
compiler=$4
version=$5

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cmake -S "$sources" -B "$scratch/byCMake" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$compiler"
cmake --build "$scratch/byCMake"
"$scratch/byCMake/smallHost" | grep -F "$version"

export PKG_CONFIG_PATH=$libraries/pkgconfig
[[ $(pkg-config --modversion mrvCore) == "$version" ]]
flags=$(pkg-config --cflags --libs mrvCore)
# shellcheck disable=SC2086
"$compiler" -std=c++17 "$sources/smallHost.cpp" -o "$scratch/smallHost" $flags
LD_LIBRARY_PATH=$libraries "$scratch/smallHost" | grep -F "$version"
