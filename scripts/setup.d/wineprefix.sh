# The Wine prefix of the build: created once, on its own screen, and moved into place when it is complete.

# A crashing program ends at once, with the exception as its exit code. Wine's debugger would show a window that waits for the user, and
# often end with 0. Naming one that does not exist disables it.
noDebugger='wine reg add "HKLM\\Software\\Microsoft\\Windows NT\\CurrentVersion\\AeDebug" /v Debugger /d none /f'

setupWinePrefix() {
    [ ! -e "$winePrefixHome/system.reg" ] || return 0
    local work=$qelCache/building/$QEL_WINE_KEY
    rm -rf "$work"
    mkdir -p "$work/product"
    runLogged "Making the Wine prefix" "$qelLogs/wineprefix.log" -- \
        env QEL_SCREENS_PREFIX="$work/product" "$qelRoot/scripts/with-screen" \
        timeout -k 5 300 sh -c "wineboot -i && $noDebugger && wineserver -w"
    [ -e "$work/product/system.reg" ] || die "Wine did not create a prefix; see $qelLogs/wineprefix.log."
    moveIntoCache "$work" "$winePrefixHome"
}
