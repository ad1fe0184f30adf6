#!/usr/bin/env bash
# Installs what is missing, builds the library and its batch host in release, and runs the host.
set -euo pipefail
source "$(dirname "$0")/common.sh"

"$root/scripts/install-dependencies.sh"
build_preset release mrvcharacter

host=$root/build/release/bin/mrvcharacter
say "mrvcharacter about"
"$host" about
say "mrvcharacter classes"
"$host" classes
