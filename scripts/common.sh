# Shared by the scripts of this folder: where the project is, and running a step quietly.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
jobs=$(nproc)

say() { printf '%s\n' "== $*"; }

# quietly LOG COMMAND...: what the command prints goes to the log, and is shown only when it fails.
quietly() {
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        printf 'failed: %s\n' "$*" >&2
        return 1
    fi
}

# build_preset PRESET [TARGET...] [-- CMAKE_OPTION...]: configures and builds.
build_preset() {
    local preset=$1
    shift
    local targets=()
    while (($#)) && [[ $1 != -- ]]; do
        targets+=(--target "$1")
        shift
    done
    (($#)) && shift
    cd "$root"
    say "building the preset $preset"
    quietly "build/$preset/configure.log" cmake --preset "$preset" "$@"
    grep -A3 'CMake Warning' "build/$preset/configure.log" >&2 || true
    quietly "build/$preset/build.log" cmake --build --preset "$preset" --parallel "$jobs" "${targets[@]}"
}
