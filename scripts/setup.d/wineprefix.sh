# The Wine prefix of the build: made once, on a screen of its own, and moved into place when it is finished.

# A program that crashes ends at once, with the exception as its exit code. Wine's debugger would hold it up, show a window that waits
# for somebody, and often end it with 0. Naming one that does not exist switches it off.
noDebugger='wine reg add "HKLM\\Software\\Microsoft\\Windows NT\\CurrentVersion\\AeDebug" /v Debugger /d none /f'

setupWinePrefix() {
    [ ! -e "$winePrefixHome/system.reg" ] || return 0
    local work=$qelCache/building/$QEL_WINE_KEY
    rm -rf "$work"
    mkdir -p "$work/product"
    runLogged "Making the Wine prefix" "$qelLogs/wineprefix.log" -- \
        env QEL_SCREENS_PREFIX="$work/product" "$qelRoot/scripts/with-screen" \
        timeout -k 5 300 sh -c "wineboot -i && $noDebugger && wineserver -w"
    [ -e "$work/product/system.reg" ] || die "Wine left no prefix; see $qelLogs/wineprefix.log."
    moveIntoCache "$work" "$winePrefixHome"
}
