# Configuring and building a preset, with counted progress.

# buildPreset PRESET [TARGET...]: configures when the tree is new (the build itself notices later changes) and builds the targets, or
# everything.
buildPreset() {
    local preset=$1 tree=$qelRoot/build/$1
    shift
    local targets=(--target "${@:-all}")
    if [ ! -e "$tree/build.ninja" ]; then
        runLogged "Configuring the $preset build" "$qelRoot/build/logs/$preset-configure.log" -- \
            env --chdir="$qelRoot" cmake --preset "$preset"
    fi
    runLogged "Building $preset" "$qelRoot/build/logs/$preset-build.log" -p '^\[[0-9]+/' told -- \
        env LC_ALL=C.UTF-8 cmake --build "$tree" "${targets[@]}"
}
