# Wine for this project alone: its own prefix, no messages of its own, no helpers that would ask the user something.

# On a screen of with-screen, that screen's.
export WINEPREFIX=${QEL_SCREENS_PREFIX:-$winePrefixHome}
export WINEARCH=win64
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"

# windowsPath FILE: the name under which a Windows program finds FILE; Wine shows the whole file system as drive Z.
windowsPath() {
    local path
    path=$(realpath -m -- "$1")
    printf 'Z:%s\n' "${path//\//\\}"
}

# Starts the prefix's background services with no output of theirs, so that no pipe of the caller stays open behind them.
wakeWine() { timeout 120 wine wineboot </dev/null >/dev/null 2>&1 || true; }
