# Configuring and building a preset, with counted progress.

# buildPreset PRESET [TARGET...]: configures, since packages may have been added, and builds the targets or everything.
buildPreset() {
    local preset=$1 tree=$qelRoot/build/$1
    shift
    local targets=(--target "${@:-all}")
    runLogged "Configuring $preset" "$qelRoot/build/logs/$preset-configure.log" -- env --chdir="$qelRoot" cmake --preset "$preset"
    runLogged "Building $preset" "$qelRoot/build/logs/$preset-build.log" -p '^\[[0-9]+/' counted -- \
        env LC_ALL=C.UTF-8 cmake --build "$tree" "${targets[@]}"
}
