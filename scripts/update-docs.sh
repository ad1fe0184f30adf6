#!/usr/bin/env bash
# Puts what the batch host prints of its classes into the generated part of docs/file-formats.md.
#
#   scripts/update-docs.sh [--check] [HOST]    HOST is a built mrvcharacter; the release build's by default
#
# With --check nothing is written, and the exit code tells whether the document is up to date.
set -euo pipefail
source "$(dirname "$0")/common.sh"

check=0
if [[ ${1:-} == --check ]]; then
    check=1
    shift
fi
host=${1:-}
if [[ -z $host ]]; then
    build_preset release mrvcharacter
    host=$root/build/release/bin/mrvcharacter
fi

document=$root/docs/file-formats.md
begin='<!-- begin of what mrvcharacter classes --markdown prints -->'
end='<!-- end of what mrvcharacter classes --markdown prints -->'
if [[ $(grep -cxF -e "$begin" -e "$end" "$document") != 2 ]]; then
    echo "$document: the two marker comments of the generated part are not there" >&2
    exit 2
fi

wanted=$(mktemp)
trap 'rm -f "$wanted"' EXIT
{
    sed "/^$begin\$/q" "$document"
    "$host" classes --markdown
    sed -n "/^$end\$/,\$p" "$document"
} >"$wanted"

if cmp -s "$wanted" "$document"; then
    exit 0
fi
if ((check)); then
    diff -u "$document" "$wanted" | head -n 40 >&2 || true
    echo "docs/file-formats.md is not up to date with the classes; run scripts/update-docs.sh" >&2
    exit 1
fi
cat "$wanted" >"$document"
say "updated $document"
