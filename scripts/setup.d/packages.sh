# Debian packages; scripts/packages lists them.

neededPackages() {
    local last='$'
    if [ "$wanted" = --for-viewer ]; then last='/^# Only the tests/'; fi
    sed -n "1,${last}p" "$qelRoot/scripts/packages" | sed -e 's/#.*//' -e '/^[[:space:]]*$/d'
}

# The needed packages that are not installed, one per line.
missingPackages() {
    local needed
    needed=$(neededPackages)
    # shellcheck disable=SC2086 # a list of names
    { dpkg-query -W -f '${db:Status-Status} ${Package}\n' $needed 2>/dev/null || true; } |
        awk -v needed="$needed" '
            $1 == "installed" { have[$2] = 1 }
            END { n = split(needed, names, "\n"); for (i = 1; i <= n; ++i) if (!(names[i] in have)) print names[i] }'
}

asRoot() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo -- "$@"
    else
        die "'$*' must run as root, and sudo is not installed."
    fi
}

# Package tools show their own progress if they may ask for a password, and counted progress otherwise.
packageWork() {
    local title=$1 log=$2 total=$3
    shift 3
    if [ "$(id -u)" -eq 0 ]; then
        runLogged "$title" "$log" -p '^(Get:|Unpacking |Setting up )' "$total" -- "$@"
    else
        say "$title"
        asRoot "$@"
    fi
}

updatePackageLists() {
    packageWork "Reading the package lists" "$qelLogs/apt-update.log" 10 apt-get -o Acquire::Retries=3 update
}

setupPackages() {
    local missing steps
    missing=$(missingPackages)
    [ -n "$missing" ] || return 0
    # shellcheck disable=SC2086 # a list of names, in one line
    say "Missing packages:" $missing
    updatePackageLists
    # shellcheck disable=SC2086 # a list of names
    steps=$(apt-get -s --no-install-recommends install $missing 2>/dev/null | grep -c '^Inst' || true)
    # shellcheck disable=SC2086
    packageWork "Installing $steps packages" "$qelLogs/apt-install.log" $((steps * 3)) \
        env DEBIAN_FRONTEND=noninteractive apt-get -y --no-install-recommends -o Acquire::Retries=3 install $missing
    missing=$(missingPackages)
    # shellcheck disable=SC2086
    [ -z "$missing" ] || die "Still missing:" $missing
}
