#!/usr/bin/env bash
# Installs what is missing, builds everything in release and runs all tests.
#
#   scripts/test.sh [CMAKE_OPTION...]    such as -DMRV_WARNINGS_AS_ERRORS=ON
set -euo pipefail
source "$(dirname "$0")/common.sh"

"$root/scripts/install-dependencies.sh"
build_preset release -- "$@"
say "running the tests"
ctest --preset release --parallel "$jobs"
