#!/usr/bin/env bash
# Merges the reports of all tasks and rounds into REPORTS/report.jsonl: line N tells about the file on line N of
# files.list, by its last report. Prints a summary and exits with 1 if files failed or are missing.
#
#   merge.sh REPORTS
set -euo pipefail
cd "$1"

pairs() {
    local report
    for report in round-*/share-*.jsonl; do
        [[ ! -f $report ]] || paste -- "${report%.jsonl}.list" "$report"
    done
}

pairs | LC_ALL=C awk -F '\t' '
    isReport { record[$1] = $2; next }
    $0 in record { print record[$0]; next }
    {
        gsub(/[\\"]/, "\\\\&")
        print "{\"file\":\"" $0 "\",\"result\":\"MISSING\",\"messages\":[]}"
    }' isReport=1 - isReport=0 files.list >"report.jsonl.$$.tmp"
mv "report.jsonl.$$.tmp" report.jsonl

count() { grep -c "\"result\":\"$1\"" report.jsonl || true; }
all=$(wc -l <report.jsonl)
good=$(count SUCCESS)
missing=$(count MISSING)
echo "$all files: $good good, $((all - good - missing)) failed, $missing missing"
grep -o '"result":"[A-Z_]*"' report.jsonl | sort | uniq -c
((good == all))
