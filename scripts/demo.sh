#!/usr/bin/env bash
# Installs what is missing, builds the library and its batch host in release, and runs the host on the samples.
#
#   scripts/demo.sh [--valgrind]    the option runs all under memcheck; a fault or a leak ends the demo with code 9
set -euo pipefail
source "$(dirname "$0")/common.sh"

groups=()
checker=()
if [[ ${1:-} == --valgrind ]]; then
    groups=(analysis)
    checker=(valgrind --quiet --error-exitcode=9 --leak-check=full --show-leak-kinds=definite,indirect,possible
        --suppressions="$root/scripts/valgrind.supp")
fi
"$root/scripts/install-dependencies.sh" "${groups[@]}"
build_preset release mrvcharacter

host=$root/build/release/bin/mrvcharacter
results=$root/build/demo
mkdir -p "$results"
cd "$root"

run() {
    say "mrvcharacter $*"
    "${checker[@]}" "$host" "$@"
}

run about
run classes
run info samples/*.mvcf samples/*.mvc
for name in courier hound; do
    run convert "samples/$name.mvcf" "build/demo/$name.mvc"
    run convert "samples/$name.mvc" "build/demo/$name.mvcf"
    run diff "build/demo/$name.mvc" "build/demo/$name.mvcf"
    run draw "samples/$name.mvcf" "build/demo/$name.png"
done
run map samples/hound.mvcf build/demo/hound.mvsm.xml
run choose samples/courier.mvcf --count 3 --seed 7
say "the pictures are $results/courier.png and $results/hound.png"
