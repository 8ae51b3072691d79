# Qt 5 Core for MinGW, from Debian's source package, by the build in qt5core/. Each stage leaves a stamp, so an interrupted build
# continues where it was.

qtSourcePackage=qtbase-opensource-src
qtVersion=5.15.8

qtFetch() { fetchSource "$qtSourcePackage" "$qtVersion" "$work/fetched"; }

qtUnpack() {
    rm -rf "$work/source"
    runLogged "Unpacking Qt $qtVersion with Debian's patches" "$qelLogs/qt-unpack.log" -- \
        dpkg-source --no-check --extract "$(echo "$work"/fetched/"$qtSourcePackage"_*.dsc)" "$work/source"
}

qtConfigure() {
    rm -rf "$work/build"
    runLogged "Configuring Qt 5 Core" "$qelLogs/qt-configure.log" -- \
        cmake -G Ninja -S "$qelRoot/scripts/setup.d/qt5core" -B "$work/build" -DQT_SOURCE="$work/source" \
        --toolchain "$qelRoot/cmake/mingw-w64-posix.cmake"
}

qtCompile() { runLogged "Building Qt 5 Core" "$qelLogs/qt-build.log" -p '^\[[0-9]+/' counted -- ninja -C "$work/build"; }

# Only what the module and its tests use goes into the cache: headers, import library and DLL.
qtInstall() {
    rm -rf "${work:?}/product"
    runLogged "Collecting Qt 5 Core" "$qelLogs/qt-install.log" -- cmake --install "$work/build" --prefix "$work/product"
}

setupQt() {
    [ ! -e "$qtHome/bin/Qt5Core.dll" ] || return 0
    local work=$qelCache/building/$QEL_QT_KEY
    say "Building Qt 5 Core for Windows, once"
    mkdir -p "$work"
    inStages "$work" qtFetch qtUnpack qtConfigure qtCompile qtInstall
    moveIntoCache "$work" "$qtHome"
}
