#!/usr/bin/env bash
# Builds the pages of the public headers with Doxygen, and fails on every warning that counts.
#
#   scripts/build-docs.sh [FOLDER] [VERSION]    default build/docs; the pages begin at FOLDER/html/index.html
#
# Classes and functions have a comment. What says all by its type and name needs none: data members, enumerations in a
# class that has a comment, operators, constructors, accessors, and what containers have everywhere.
set -euo pipefail
source "$(dirname "$0")/common.sh"

folder=$(realpath --canonicalize-missing "${1:-$root/build/docs}")
command -v doxygen >/dev/null || { echo "Doxygen is missing: scripts/install-dependencies.sh docs" >&2; exit 1; }
mkdir -p "$folder"
cd "$root"

{
    cat docs/api/Doxyfile
    echo "OUTPUT_DIRECTORY = $folder"
    echo "PROJECT_NUMBER = ${2:-}"
} | doxygen - 2>"$folder/warnings.log"

accessors='(get|set|is|has|touch|to|from)[A-Z0-9]\w*|x|y|z|w'
containers='begin|end|r?begin|r?end|size|sizeInt|length|empty|any|clear|front|back|push|pop|push_back|pop_back|push_front|pop_front|insert|erase|find|swap|resize|reserve|capacity|data|c_str|at'
warnings=$(perl -ne '
    next if /Member .*\((variable|enumeration|typedef|friend|enumvalue)\) of .* is not documented/;
    next if /Member (operator\W|~|('"$accessors|$containers"')\().*\(function\) of .* is not documented/;
    next if /Member (\w+)\(.*\(function\) of (?:class|struct) (?:\w+::)*(\w+)(?:<.*>)? is not documented/ && $1 eq $2;
    print' "$folder/warnings.log" | sort -u)
if [[ -n $warnings ]]; then
    printf '%s\n' "$warnings" >&2
    exit 1
fi
say "the pages are in $folder/html/index.html"
