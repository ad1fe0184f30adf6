#!/usr/bin/env bash
# Runs clang-tidy and cppcheck over the library, the hosts and the fuzz targets. Ends non-zero on a finding.
#
#   scripts/analyse.sh [FOLDER_OR_FILE...]    such as mrvCore/system; default mrvCore hosts fuzz
#
# What is checked, and what is let pass and why, stands in .clang-tidy and in scripts/cppcheck.supp.
set -euo pipefail
source "$(dirname "$0")/common.sh"

"$root/scripts/install-dependencies.sh" analysis
cd "$root"
work=build/analyse
quietly "$work/configure.log" cmake --preset analyse

places=("$@")
((${#places[@]})) || places=(mrvCore hosts fuzz)
failed=0

say "clang-tidy"
# Findings go to the standard output; the other stream only counts what is not shown.
git ls-files -co --exclude-standard -- "${places[@]}" | grep '\.cpp$' |
    xargs -P "$jobs" -n 1 clang-tidy-14 -p "$work" --quiet 2>"$work/clang-tidy.log" || failed=1

say "cppcheck"
mkdir -p "$work/cppcheck"
cppcheck --enable=warning,performance,portability --std=c++17 --language=c++ --quiet --inline-suppr \
    --suppressions-list=scripts/cppcheck.supp --cppcheck-build-dir="$work/cppcheck" -j "$jobs" \
    --error-exitcode=1 -I . -DMRV_CORE_API= -DMRV_FUZZ_BUILD -DNDEBUG "${places[@]}" || failed=1

((failed == 0)) && say "no findings"
exit "$failed"
