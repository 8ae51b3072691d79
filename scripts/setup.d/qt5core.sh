# Qt 5 Core for MinGW, from Debian's source package. Each stage leaves a stamp, so an interrupted build goes on where it was.

qtSourcePackage=qtbase-opensource-src
qtVersion=5.15.8

qtConfigureOptions=(
    -xplatform win32-g++ -device-option CROSS_COMPILE=x86_64-w64-mingw32-
    -prefix /qt5core -release -shared -opensource -confirm-license -silent
    -no-gui -no-widgets -no-dbus -no-opengl -no-openssl -no-icu -qt-pcre -qt-zlib -no-zstd -no-glib
    -no-feature-sql -no-feature-network -no-feature-testlib -no-feature-xml -no-feature-concurrent
    -no-compile-examples -nomake examples -nomake tests
)

# Qt's build calls the cross compiler by its plain name, which may stand for the variant with Windows threads, whose C++ library
# lacks std::thread. These wrappers make the name stand for the POSIX-threads variant.
writeQtToolWrappers() {
    local folder=$1 tool
    mkdir -p "$folder"
    for tool in gcc g++ gcc-ar gcc-nm gcc-ranlib cpp; do
        printf '#!/bin/sh\nexec x86_64-w64-mingw32-%s-posix "$@"\n' "$tool" >"$folder/x86_64-w64-mingw32-$tool"
        chmod +x "$folder/x86_64-w64-mingw32-$tool"
    done
}

qtFetch() { fetchSource "$qtSourcePackage" "$qtVersion" "$work/fetched"; }

qtUnpack() {
    rm -rf "$work/source"
    runLogged "Unpacking Qt $qtVersion with Debian's patches" "$qelLogs/qt-unpack.log" -- \
        dpkg-source --no-check --extract "$(echo "$work"/fetched/"$qtSourcePackage"_*.dsc)" "$work/source"
}

qtConfigure() {
    rm -rf "$work/build"
    mkdir -p "$work/build"
    writeQtToolWrappers "$work/tools"
    runLogged "Configuring Qt" "$qelLogs/qt-configure.log" -- \
        env --chdir="$work/build" PATH="$work/tools:$PATH" MAKEFLAGS="-j$(nproc)" "$work/source/configure" "${qtConfigureOptions[@]}"
}

qtMakefiles() {
    runLogged "Writing Qt's makefiles" "$qelLogs/qt-makefiles.log" -- \
        env PATH="$work/tools:$PATH" make -C "$work/build" -j"$(nproc)" sub-src-qmake_all
}

qtCompile() {
    runLogged "Building Qt 5 Core" "$qelLogs/qt-build.log" -p '^(compiling|moc|rcc|linking) ' 512 -- \
        env PATH="$work/tools:$PATH" make -C "$work/build/src" -j"$(nproc)" sub-corelib
}

# Only what the module and its tests use goes into the cache: headers, import library and DLL.
qtInstall() {
    rm -rf "${work:?}/image" "${work:?}/product"
    runLogged "Collecting Qt 5 Core" "$qelLogs/qt-install.log" -- \
        env PATH="$work/tools:$PATH" make -C "$work/build/src/corelib" install INSTALL_ROOT="$work/image"
    mkdir -p "$work/product/bin" "$work/product/lib" "$work/product/include"
    cp "$work"/image/qt5core/bin/Qt5Core.dll "$work/product/bin/"
    cp "$work"/image/qt5core/lib/libQt5Core.a "$work/product/lib/"
    cp -r "$work"/image/qt5core/include/QtCore "$work/product/include/"
    rm -rf "$work/product/include/QtCore/$qtVersion"
    cp "$work"/source/LICENSE.* "$work/product/" 2>/dev/null || true
}

setupQt() {
    [ ! -e "$qtHome/bin/Qt5Core.dll" ] || return 0
    local work=$qelCache/building/$QEL_QT_KEY
    say "Qt 5 Core for Windows is built once (about 6 minutes on two cores)"
    mkdir -p "$work"
    inStages "$work" qtFetch qtUnpack qtConfigure qtMakefiles qtCompile qtInstall
    moveIntoCache "$work" "$qtHome"
}
