#!/usr/bin/env bash
# One task of the array that submit.sh starts, in the folder of its round. Line N of the report tells about the
# file on line N of the share.
#
#   task.sh HOST [DIR [--binary]]    the folder to convert to
set -euo pipefail

host=$1
folder=${2:-}
form=("${@:3}")
share=$(printf 'share-%04d' "$SLURM_ARRAY_TASK_ID")
threads=${SLURM_CPUS_PER_TASK:-1}
unfinished=$share.jsonl.$SLURM_JOB_ID.tmp

escape() {
    local text=${1//\\/\\\\}
    printf '%s' "${text//\"/\\\"}"
}

validateAlone() {
    local line status=0
    line=$("$host" validate --json --threads 1 -- "$1") || status=$?
    ((status != 143)) || exit 143 # the task is told to end, which is no fault of the file
    if ((status > 1)); then
        line=$(printf '{"file":"%s","result":"KILLED","messages":["validate ended with the status %d%s"]}' \
            "$(escape "$1")" "$status" "$( ((status > 128)) && printf ', SIG%s' "$(kill -l "$status")")")
    fi
    printf '%s\n' "$line"
}

# Below the folder a file keeps its whole path, so that equal names do not meet.
convert() {
    local target
    target=$folder$(dirname -- "$1")
    mkdir -p -- "$target"
    if "$host" convert --threads 1 "${form[@]}" -- "$1" "$target"; then
        printf '%s,"convertedTo":"%s"}\n' "${2%\}}" "$(escape "$target")"
    else
        printf '%s\n' "${2/'"result":"SUCCESS"'/'"result":"CONVERSION_FAILED"'}"
    fi
}

echo "process $$ on $(uname -n)"
"$host" about >/dev/null # else all files would seem to be at fault
mapfile -t files <"$share.list"

# All at once, which is faster. A damaged file may end the process; what is left is then done one by one. The
# last line of such a process may be cut off.
mapfile lines < <("$host" validate --json --threads "$threads" -- "${files[@]}")
((${#lines[@]} == 0)) || [[ ${lines[-1]} == *$'\n' ]] || unset 'lines[-1]'

for i in "${!files[@]}"; do
    line=${lines[i]:-}
    line=${line%$'\n'}
    [[ -n $line ]] || line=$(validateAlone "${files[i]}")
    if [[ -n $folder && $line == *'"result":"SUCCESS"'* ]]; then
        line=$(convert "${files[i]}" "$line")
    fi
    printf '%s\n' "$line"
done >"$unfinished"
mv -- "$unfinished" "$share.jsonl"
