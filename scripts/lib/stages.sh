# Recipes that continue where they were interrupted.

# inStages FOLDER STAGE...: runs each stage function without a stamp in FOLDER, in order.
inStages() {
    local folder=$1 stage
    shift
    for stage in "$@"; do
        [ -e "$folder/$stage.done" ] && continue
        "$stage"
        : >"$folder/$stage.done"
    done
}

# moveIntoCache WORK HOME: makes the finished WORK/product the new HOME in one step, so that HOME is never incomplete.
moveIntoCache() {
    local work=$1 home=$2
    rm -rf "$home"
    mv -T "$work/product" "$home"
    rm -rf "$work"
    say "Stored in $home"
}
