#!/usr/bin/env bash
# Builds fuzz targets and runs each on its seeds; prints what was run and found. Ends non-zero on a finding.
#
#   scripts/fuzz.sh [TARGET] [SECONDS]    such as CharacterFile; default all targets, 60 seconds each
#
# Inputs that reach new code are kept in build/fuzz/corpus/TARGET, so that the next run goes on from there;
# findings land in build/fuzz/findings/TARGET.
set -euo pipefail
source "$(dirname "$0")/common.sh"

seconds=${2:-60}
if [[ ${1:-all} == all ]]; then
    targets=("$root"/fuzz/mrv*Fuzz.cpp)
    targets=("${targets[@]##*/mrv}")
    targets=("${targets[@]%Fuzz.cpp}")
else
    targets=("$1")
fi

"$root/scripts/install-dependencies.sh" fuzz
programs=("${targets[@]/#/mrv}")
build_preset fuzz "${programs[@]/%/Fuzz}"

# The files that a run begins with: those of fuzz/corpus, and stored files that tests read.
seeds() {
    local files=("$root/fuzz/corpus/$1"/*)
    case $1 in
        CharacterFile) files+=("$root"/tests/data/versions/character_* "$root"/tests/data/characters/*.mvc
            "$root/samples/hound.mvc") ;;
        MappingFile) files+=("$root"/tests/data/versions/mapping_* "$root"/tests/data/mappings/*.mvsm) ;;
    esac
    printf '%s\n' "${files[@]}" | grep -v '\*$'
}

# The words of the seeds, for the fuzzer to put anywhere.
dictionary() {
    seeds "$1" | xargs grep -ahoE '</?[A-Za-z_:]{3,40}>?|[A-Za-z_:]{3,40}=?' | sort -u | sed 's/.*/"&"/' || true
}

# run TARGET: fuzzes for the given time.
run() {
    local work=$root/build/fuzz log=$root/build/fuzz/$1.log
    mkdir -p "$work/corpus/$1" "$work/findings/$1"
    dictionary "$1" >"$work/$1.dict"
    local words=() inputs
    [[ ! -s $work/$1.dict ]] || words=(-dict="$work/$1.dict")
    inputs=$(seeds "$1" | paste -sd,)
    local passed=0
    # Damaged files leave objects without an owner; the messages of demanded ends go nowhere.
    ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=halt_on_error=1 nice "$work/bin/mrv${1}Fuzz" \
        -max_total_time="$seconds" -max_len=20000 -timeout=20 -rss_limit_mb=2048 -close_fd_mask=3 \
        -print_final_stats=1 "${words[@]}" ${inputs:+-seed_inputs="$inputs"} \
        -artifact_prefix="$work/findings/$1/" "$work/corpus/$1" >"$log" 2>&1 || passed=$?
    local executions coverage
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    coverage=$(grep -oE 'cov: [0-9]+' "$log" | tail -1)
    printf '%-18s %10s executions  %-10s  %4s inputs  %s\n' "$1" "${executions:-0}" "${coverage:-cov: 0}" \
        "$(ls "$work/corpus/$1" | wc -l)" "$( ((passed == 0)) && echo 'no finding' || echo "FINDING, see $log")"
    return "$passed"
}

say "fuzzing, $seconds seconds a target"
failed=0
for target in "${targets[@]}"; do
    run "$target" || failed=1
done
exit "$failed"
