#!/usr/bin/env bash
# The ten sources that took longest in the last build of a preset, in seconds.
#
#   scripts/slowest-sources.sh [PRESET]    release by default
set -euo pipefail
source "$(dirname "$0")/common.sh"

grep '\.o\s' "$root/build/${1:-release}/.ninja_log" |
    awk '{ name = $4; sub(/CMakeFiles\/[^\/]*\.dir\//, "", name); sub(/\.o$/, "", name)
           printf "%.1f\t%s\n", ($2 - $1) / 1000, name }' |
    sort -rn | head -n 10
