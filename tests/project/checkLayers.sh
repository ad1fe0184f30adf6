#!/usr/bin/env bash
# Fails on every include inside mrvCore that looks up a floor, on a file that lies on no floor, and on
# a frozen class that is included from outside the folders that may know it.
#   checkLayers.sh SOURCE_ROOT
set -euo pipefail
cd "$1"

find mrvCore \( -name '*.h' -o -name '*.cpp' \) -print0 | sort -z |
    xargs -0 grep -HnE '^[[:space:]]*#[[:space:]]*include "' |
    awk -v floors=tests/project/floors.txt '
        BEGIN {
            while ((getline line < floors) > 0)
                if (line !~ /^#/ && split(line, column, " ") == 2) floorOf["mrvCore/" column[1]] = column[2]
        }
        function lookUp(path,    best, row) {
            best = ""
            for (row in floorOf)
                if ((path == row || index(path, row "/") == 1) && length(row) > length(best)) best = row
            return best == "" ? -1 : floorOf[best]
        }
        {
            split($0, part, ":")
            file = part[1]
            match($0, /"[^"]+"/)
            included = substr($0, RSTART + 1, RLENGTH - 2)
            from = lookUp(file)
            to = lookUp(included)
            where = file ":" part[2] ": "
            if (from < 0) { print where "the file lies on no floor of floors.txt"; bad = 1 }
            else if (to < 0) { print where included " lies on no floor, or is not named from the root"; bad = 1 }
            else if (to > from) { print where "floor " from " includes " included " of floor " to; bad = 1 }
            if (included ~ /\/_compatibility\// && file !~ /^mrvCore\/(animation|assetManagement)\// &&
                file != "mrvCore/mrvCore.cpp") { print where "includes the frozen class " included; bad = 1 }
        }
        END { exit bad }'
