# Recipes that go on where they were interrupted.

# inStages FOLDER STAGE...: runs each stage function that has no stamp in FOLDER yet, in order.
inStages() {
    local folder=$1 stage
    shift
    for stage in "$@"; do
        [ -e "$folder/$stage.done" ] && continue
        "$stage"
        : >"$folder/$stage.done"
    done
}

# moveIntoCache WORK HOME: the finished WORK/product becomes HOME in one step, so HOME is never seen half made.
moveIntoCache() {
    local work=$1 home=$2
    rm -rf "$home"
    mv -T "$work/product" "$home"
    rm -rf "$work"
    say "Kept in $home"
}
