# SPDX-License-Identifier: MIT
# Functions shared by the scripts. Sourced from the root of the tree:
#
#   cd "$(dirname "$0")/.."
#   . scripts/lib.sh

jobs=$(nproc)

# Repeated builds are faster where ccache happens to be installed.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR="${CCACHE_BASEDIR:-$PWD}"
fi

# Prints a heading between the steps of a script.
heading() {
    printf '\n==== %s\n' "$*"
}

# build PRESET [TARGET...]: configures and builds a preset of CMakePresets.json in build/PRESET.
# Says nothing but warnings when there is nothing to do.
build() {
    local preset=$1
    shift
    local -a targets=()
    if (($#)); then
        targets=(--target "$@")
    fi
    heading "build $preset"
    cmake --preset "$preset" --log-level=WARNING >/dev/null
    cmake --build --preset "$preset" -j "$jobs" "${targets[@]}"
}

# run_tests PRESET [CTEST OPTION...]: runs the tests of a built preset.
run_tests() {
    local preset=$1
    shift
    heading "test $preset"
    ctest --preset "$preset" -j "$jobs" "$@"
}
