# assimp for MinGW, from Debian's source package: a static library with the importers that the viewer offers.

assimpVersion=5.2.5

# Coordinates stay double, so that survey coordinates lose nothing before an origin is subtracted.
# The archive of zipped models is compiled but never linked: none of these importers opens one. So its header is all it needs.
assimpOptions=(
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DASSIMP_NO_EXPORT=ON -DASSIMP_DOUBLE_PRECISION=ON
    -DASSIMP_BUILD_ALL_IMPORTERS_BY_DEFAULT=OFF -DASSIMP_BUILD_OBJ_IMPORTER=ON -DASSIMP_BUILD_PLY_IMPORTER=ON
    -DASSIMP_BUILD_STL_IMPORTER=ON -DASSIMP_BUILD_OFF_IMPORTER=ON -DASSIMP_BUILD_GLTF_IMPORTER=ON
    -DASSIMP_BUILD_ASSIMP_TOOLS=OFF -DASSIMP_BUILD_SAMPLES=OFF -DASSIMP_BUILD_TESTS=OFF -DASSIMP_BUILD_DOCS=OFF
    -DASSIMP_WARNINGS_AS_ERRORS=OFF -DASSIMP_BUILD_ZLIB=OFF -DASSIMP_BUILD_MINIZIP=ON -DASSIMP_INSTALL=OFF
    -DUNZIP_FOUND=TRUE
)

assimpFetch() { fetchSource assimp "$assimpVersion" "$work/fetched"; }

# Upstream's code, but for its glTF importer, which copies the file's floats as they are into the scene's doubles. Debian leaves out
# what it packages elsewhere; those headers go back to where upstream has them.
assimpUnpack() {
    rm -rf "$work/source"
    mkdir -p "$work/source"
    tar -C "$work/source" --strip-components=1 -xf "$(echo "$work"/fetched/assimp_*.orig.tar.xz)"
    patch --quiet -d "$work/source" -p1 <"$qelRoot/scripts/setup.d/assimp-gltf-in-double.patch"
    local contrib=$work/source/contrib
    mkdir -p "$contrib/stb" "$contrib/utf8cpp/source" "$contrib/minizip"
    cp /usr/include/stb/stb_image.h "$contrib/stb/"
    cp -r /usr/include/utf8cpp/. "$contrib/utf8cpp/source/"
    cp /usr/include/minizip/*.h "$contrib/minizip/"
}

assimpConfigure() {
    rm -rf "$work/build"
    runLogged "Configuring assimp" "$qelLogs/assimp-configure.log" -- \
        cmake -S "$work/source" -B "$work/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$qelRoot/cmake/mingw-w64-posix.cmake" \
        -DUNZIP_INCLUDE_DIRS="$work/source/contrib/minizip" "${assimpOptions[@]}"
}

assimpBuild() {
    runLogged "Building assimp" "$qelLogs/assimp-build.log" -p '^\[[0-9]+/' told -- ninja -C "$work/build" assimp
}

assimpInstall() {
    rm -rf "${work:?}/product"
    mkdir -p "$work/product/lib"
    cp -r "$work/source/include" "$work/product/include"
    cp "$work"/build/include/assimp/*.h "$work/product/include/assimp/"
    cp "$(find "$work/build" -name 'libassimp*.a' | head -n 1)" "$work/product/lib/libassimp.a"
    cp "$work/source/LICENSE" "$work/product/"
}

setupAssimp() {
    [ ! -e "$assimpHome/lib/libassimp.a" ] || return 0
    local work=$qelCache/building/$QEL_ASSIMP_KEY
    mkdir -p "$work"
    inStages "$work" assimpFetch assimpUnpack assimpConfigure assimpBuild assimpInstall
    moveIntoCache "$work" "$assimpHome"
}
