#!/usr/bin/env bash
# Runs every benchmark beside what a user would pick instead, and writes one table of them.
#
#   scripts/bench.sh [FOLDER] [BENCHMARK_OPTION...]    such as --benchmark_filter=pool
#
# FOLDER, build/bench/results by default, gets table.csv, the same as table.md, and all figures of each program.
# Of a ratio less is better and 1 is equal.
set -euo pipefail
source "$(dirname "$0")/common.sh"

results=$root/build/bench/results
if (($#)) && [[ $1 != --* ]]; then
    results=$(realpath -m "$1")
    shift
fi
"$root/scripts/install-dependencies.sh" benchmarks
build_preset bench
mkdir -p "$results"

for program in "$root"/build/bench/bin/mrv*Benchmark "$root/build/bench/bin/mrvLoadMemory"; do
    name=$(basename "$program")
    say "running $name"
    "$program" "$@" >"$results/$name.csv"
done

# The lines of pairs have eight columns, those of single figures five.
{
    echo "topic,case,ours,peer,unit,ratio"
    awk -F, -v OFS=, 'NF == 8 {
        print $1, $3 ($2 == "mrvCore" ? "" : " (" substr($2, 9) ")"), $4, $7 " (" $6 ")", $5, $8
    }' "$results"/mrv*.csv
} >"$results/table.csv"
{
    awk -F, '{ gsub(/,/, " | "); print "| " $0 " |" } NR == 1 { print "|---|---|---:|---:|---|---:|" }' "$results/table.csv"
} >"$results/table.md"
say "the table is $results/table.md"
