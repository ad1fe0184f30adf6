#!/usr/bin/env bash
# Validates thousands of characters and mappings as a job array of Slurm, and converts them if asked. Run again
# with the same REPORTS it does only what is missing or failed. docs/farm.md tells more.
#
#   submit.sh [OPTION...] LIST REPORTS [-- SBATCH_OPTION...]
#       LIST            names a file a line
#       REPORTS         folder of the run, which all nodes see
#       --size N        files of one task (100)
#       --convert DIR   also writes good files anew, each below DIR under its own whole path
#       --binary        converts to binary files
#       --wait          waits for the end, prints the summary and exits with 1 if files failed or are missing
#
# MRV_CHARACTER_HOST names the batch host where it is neither in PATH nor in build/release.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

fail() {
    echo "$*" >&2
    exit 2
}

size=100
convert=()
binary=()
wait=()
names=()
while (($#)); do
    case $1 in
        --size) size=${2:?} && shift ;;
        --convert) convert=("$(realpath -m -- "${2:?}")") && shift ;;
        --binary) binary=(--binary) ;;
        --wait) wait=(--wait) ;;
        --) shift && break ;;
        -*) fail "unknown option: $1" ;;
        *) names+=("$1") ;;
    esac
    shift
done
((${#names[@]} == 2)) || fail "usage: submit.sh [OPTION...] LIST REPORTS [-- SBATCH_OPTION...]"
command -v sbatch >/dev/null || fail "sbatch is missing: this runs where Slurm is (slurm-client)"
host=${MRV_CHARACTER_HOST:-$(command -v mrvcharacter || echo "$here/../../build/release/bin/mrvcharacter")}
host=$(realpath -- "$host")
"$host" about >/dev/null || fail "$host does not run"

list=${names[0]}
mkdir -p "${names[1]}"
reports=$(realpath -- "${names[1]}")
settings="${convert[*]} ${binary[*]}"
[[ -f $reports/settings ]] || echo "$settings" >"$reports/settings"
[[ $(<"$reports/settings") == "$settings" ]] || fail "$reports is of a run that converted otherwise: take a new folder"
grep -q . "$list" || fail "$list names no file"
! LC_ALL=C grep -qv '^[^[:cntrl:]]*$' "$list" || fail "$list has control characters, perhaps the line ends of DOS"
grep . "$list" | xargs -d '\n' realpath -ms -- | LC_ALL=C awk '!seen[$0]++' >"$reports/files.list"
if ((${#convert[@]})); then
    same=$(sed -E 's/\.mvsm(\.xml)?$/ (mapping)/; t; s/\.[^./]*$//' "$reports/files.list" | LC_ALL=C sort | uniq -d | head -n 1)
    [[ -z $same ]] || fail "several files would become one: $same"
fi

summary=$("$here/merge.sh" "$reports") || (($? == 1))
todo=$reports/todo.list
paste -- "$reports/files.list" "$reports/report.jsonl" |
    LC_ALL=C awk -F '\t' '!index($2, "\"result\":\"SUCCESS\"") { print $1 }' >"$todo"
if [[ ! -s $todo ]]; then
    printf 'nothing is left to do\n%s\n' "$summary"
    exit 0
fi

rounds=("$reports"/round-*/)
[[ -d ${rounds[0]} ]] || rounds=()
round=$reports/$(printf 'round-%04d' $((${#rounds[@]} + 1)))
mkdir "$round"
split -l "$size" -a 4 --numeric-suffixes=1 --additional-suffix=.list -- "$todo" "$round/share-"
shares=("$round"/share-*.list)

array=$(sbatch --parsable --job-name=mrvFarm --chdir="$round" --output=share-%4a.log --array="1-${#shares[@]}" "$@" \
    "$here/task.sh" "$host" "${convert[@]}" "${binary[@]}")
echo "round ${round##*-}: $(wc -l <"$todo") files in ${#shares[@]} tasks, job ${array%%;*}"
status=0
sbatch --parsable --job-name=mrvFarmMerge --chdir="$round" --output=merge.log --dependency="afterany:${array%%;*}" \
    "${wait[@]}" "$@" "$here/merge.sh" "$reports" >/dev/null || status=$?
((${#wait[@]} == 0)) || cat "$round/merge.log"
exit "$status"
