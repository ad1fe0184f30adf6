#!/usr/bin/env bash
# Compares the list of installed files with the stored one.
#   checkInstalledFiles.sh PREFIX LIBRARY_FOLDER STORED_LIST
# MRV_UPDATE_GOLDEN=1 rewrites the stored list.
set -euo pipefail

# The library folder and the name of the build type vary between systems.
list() {
    (cd "$1" && find . \( -type f -o -type l \) | sed -e 's|^\./||' -e "s|^$2/|lib/|" \
        -e 's|mrvCoreTargets-[a-z]*\.cmake|mrvCoreTargets-<type>.cmake|') | LC_ALL=C sort
}

if [[ ${MRV_UPDATE_GOLDEN:-0} == 1 ]]; then
    list "$1" "$2" >"$3"
fi
diff -u "$3" <(list "$1" "$2")
