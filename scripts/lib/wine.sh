# The project's own Wine: a separate prefix, no messages, no helpers that ask the user.

# On a screen of with-screen, the prefix of that screen.
export WINEPREFIX=${QEL_SCREENS_PREFIX:-$winePrefixHome}
export WINEARCH=win64
# In a locale without UTF-8, files cannot have names of any language.
export LC_ALL=C.UTF-8
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"

# windowsPath FILE: the Windows name of FILE; Wine shows the whole file system as drive Z.
windowsPath() {
    local path
    path=$(realpath -m -- "$1")
    printf 'Z:%s\n' "${path//\//\\}"
}

# Starts the prefix's background services without output, so that no pipe of the caller stays open.
wakeWine() { timeout 120 wine wineboot </dev/null >/dev/null 2>&1 || true; }
