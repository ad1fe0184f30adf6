#!/usr/bin/env bash
# Compiles every public header on its own.
#   checkHeaders.sh COMPILER STANDARD SOURCE_ROOT
set -euo pipefail
compiler=$1
standard=$2
cd "$3"

export compiler standard
check() {
    printf '#include "%s"\n#include "%s"\n' "$1" "$1" |
        "$compiler" -x c++ "-std=$standard" -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wshadow \
            -Wnon-virtual-dtor -Werror -I . - || { echo "does not compile alone as $standard: $1" >&2; exit 255; }
}
export -f check

find mrvCore -name '*.h' -not -path '*/_compatibility/*' -print0 | sort -z |
    xargs -0 -n 1 -P "$(nproc)" bash -c 'check "$0"'
