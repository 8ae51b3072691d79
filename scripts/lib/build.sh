# Configuring and building a preset, with counted progress.

# buildPreset PRESET [TARGET...]: configures, since packages may have been added, and builds the targets or those of the build preset, which
# names some or all.
buildPreset() {
    local preset=$1 targets=()
    shift
    if [ $# -gt 0 ]; then targets=(--target "$@"); fi
    runLogged "Configuring $preset" "$qelRoot/build/logs/$preset-configure.log" -- env --chdir="$qelRoot" cmake --preset "$preset"
    runLogged "Building $preset" "$qelRoot/build/logs/$preset-build.log" -p '^\[[0-9]+/' counted -- \
        env --chdir="$qelRoot" LC_ALL=C.UTF-8 cmake --build --preset "$preset" "${targets[@]}"
}
