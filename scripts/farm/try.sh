#!/usr/bin/env bash
# Tries the farm for real on this machine: its own munged, slurmctld and slurmd in a temporary folder, 1000 files,
# one of them damaged, one task killed half-way. Checks what is reported, then reruns and checks what was done.
# Needs the packages of "install-dependencies.sh farm" and a built release; stops the services that it started.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "$0")/../common.sh"
farm=$root/scripts/farm
host=$root/build/release/bin/mrvcharacter

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

for program in munged slurmctld slurmd sbatch; do
    [[ -n $(PATH=$PATH:/usr/sbin type -P "$program") ]] || fail "$program is missing: run scripts/install-dependencies.sh farm"
done
[[ -x $host ]] || fail "build/release/bin/mrvcharacter is missing: run scripts/demo.sh"
PATH=$PATH:/usr/sbin

work=$(mktemp -d)
chmod 755 "$work"
services=()
stopServices() {
    # In the opposite order, so that none waits for one that is gone.
    for ((i = ${#services[@]} - 1; i >= 0; --i)); do
        kill "${services[i]}" 2>/dev/null || true
        wait "${services[i]}" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap stopServices EXIT

startServices() {
    local node ports=() port
    node=$(uname -n)
    node=${node%%.*}
    for ((port = 20000 + $$ % 20000; ${#ports[@]} < 2; ++port)); do
        (: <"/dev/tcp/127.0.0.1/$port") 2>/dev/null || ports+=("$port")
    done
    mkdir "$work"/{munge,state,spool}
    (umask 077 && head -c 128 /dev/urandom >"$work/munge/key")
    cat >"$work/slurm.conf" <<END
ClusterName=try
SlurmctldHost=$node(127.0.0.1)
SlurmctldPort=${ports[0]}
SlurmdPort=${ports[1]}
SlurmUser=$(id -un)
SlurmdUser=$(id -un)
AuthInfo=socket=$work/munge/socket
StateSaveLocation=$work/state
SlurmdSpoolDir=$work/spool
SlurmctldPidFile=$work/slurmctld.pid
SlurmdPidFile=$work/slurmd.pid
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
JobAcctGatherType=jobacct_gather/none
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
SchedulerParameters=sched_interval=1,batch_sched_delay=1
MpiDefault=none
ReturnToService=2
NodeName=$node NodeAddr=127.0.0.1 CPUs=$jobs State=UNKNOWN
PartitionName=try Nodes=$node Default=YES MaxTime=30
END
    echo "CgroupMountpoint=$work" >"$work/cgroup.conf"
    export SLURM_CONF=$work/slurm.conf

    munged --foreground --force --key-file="$work/munge/key" --socket="$work/munge/socket" \
        --pid-file="$work/munge/pid" --log-file="$work/munge/log" --seed-file="$work/munge/seed" 2>"$work/munged.log" &
    services+=($!)
    waitFor "munged" test -S "$work/munge/socket"
    slurmctld -D -i -f "$SLURM_CONF" 2>"$work/slurmctld.log" &
    services+=($!)
    waitFor "slurmctld" scontrol ping
    slurmd -D -f "$SLURM_CONF" 2>"$work/slurmd.log" &
    services+=($!)
    waitFor "slurmd" isIdle
}

isIdle() { [[ $(sinfo --noheader --format=%t) == idle ]]; }

# waitFor WHAT COMMAND...: at most 60 seconds
waitFor() {
    local what=$1 tries
    shift
    for ((tries = 0; tries < 1200; ++tries)); do
        ! "$@" >/dev/null 2>&1 || return 0
        sleep 0.05
    done
    tail -n 20 "$work"/*.log >&2
    fail "waited too long for $what"
}

# Samples and files of all former versions, in both forms; names with blanks.
makeFiles() {
    local sources=("$root"/samples/*.mvc* "$root"/tests/data/versions/character_v*.mvc*) i source
    for ((i = 0; i < 1000; ++i)); do
        source=${sources[i % ${#sources[@]}]}
        mkdir -p "$work/files/unit $((i / 100))"
        cp "$source" "$work/files/unit $((i / 100))/$i of the crowd.${source##*.}"
    done
    find "$work/files" -type f | sort >"$work/list"
    damaged=$(grep '\.mvc$' "$work/list" | sed -n 300p)
    cp "$root/samples/courier.mvc" "$damaged"
    # Another count of attributes than its class has: this ends the process that reads the file.
    printf '\0' | dd of="$damaged" bs=1 seek=10 conv=notrunc status=none
}

submit() {
    MRV_CHARACTER_HOST=$host "$farm/submit.sh" --size 50 --convert "$work/converted" --wait "$work/list" "$work/run" -- --time=10
}

# expect WHAT EXPECTED: compares it with standard input.
expect() {
    diff <(cat) <(printf '%s' "$2${2:+$'\n'}") >&2 || fail "$1 is not as expected"
    echo "as expected: $1"
}

# The names of the files with a result.
withResult() { paste "$work/run/files.list" "$work/run/report.jsonl" | sed -n "s/\t.*\"result\":\"$1\".*//p"; }

say "starting munged, slurmctld and slurmd"
startServices
say "making 1000 files"
makeFiles

say "round 1, one damaged file, task 7 is killed half-way"
submit >"$work/submit.log" 2>&1 &
submission=$!
round=$work/run/round-0001
unfinished() { compgen -G "$round/share-0007.jsonl.*.tmp" || true; }
hasBegun() { [[ $(wc -l <"$(unfinished)") -ge 5 ]]; }
waitFor "task 7" hasBegun
kill -KILL "$(sed -n 's/^process \([0-9]*\) .*/\1/p' "$round/share-0007.log")"
lines=$(wc -l <"$(unfinished)")
status=0
wait "$submission" || status=$?
cat "$work/submit.log"
((status == 1)) || fail "round 1 ended with $status"
((lines < 50)) || fail "task 7 was not killed half-way"
[[ ! -f $round/share-0007.jsonl ]] || fail "task 7 was not killed"
echo "task 7 was killed after $lines of 50 files"
withResult KILLED | expect "the failed file is the damaged one" "$damaged"
withResult MISSING | expect "the missing files are the share of task 7" "$(<"$round/share-0007.list")"
# The last file of the killed task may be converted and not yet told.
converted=$(find "$work/converted" -type f | wc -l)
((converted == 949 + lines || converted == 950 + lines)) || fail "$converted files were converted"
find "$work/converted" -type f -print0 | xargs -0 "$host" validate --json | grep -c '"version":24,"result":"SUCCESS"' |
    expect "converted files are whole and current, $converted in number" "$converted"

say "round 2, the same once more"
touch "$work/before"
status=0
submit || status=$?
((status == 1)) || fail "round 2 ended with $status"
cat "$work/run"/round-0002/share-*.list | sort |
    expect "just the damaged file and the share of task 7 were done" "$(sort - "$round/share-0007.list" <<<"$damaged")"
find "$work/converted" -type f -newer "$work/before" | wc -l | expect "just the share of task 7 was written" 50
withResult MISSING | expect "no file is missing" ""
withResult KILLED | expect "the damaged file fails still" "$damaged"

say "round 3, with the file mended"
cp "$root/samples/courier.mvc" "$damaged"
submit || fail "round 3 ended with $?"
cat "$work/run"/round-0003/share-*.list | expect "just the mended file was done" "$damaged"
submit | head -n 1 | expect "a further round does nothing" "nothing is left to do"
say "all is as expected"
