# assimp from Debian's source package, twice: a static library for MinGW with the importers that the viewer offers, and the same under the
# address sanitizer for the programs that fuzz the readers, since damage that an importer does to the heap shows nowhere else.

assimpVersion=5.2.5

# Coordinates stay double, so that survey coordinates lose nothing before an origin is subtracted.
# The archive of zipped models is compiled but never linked: none of these importers opens one. So its header is all it needs.
assimpOptions=(
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DASSIMP_NO_EXPORT=ON -DASSIMP_DOUBLE_PRECISION=ON
    -DASSIMP_BUILD_ALL_IMPORTERS_BY_DEFAULT=OFF -DASSIMP_BUILD_OBJ_IMPORTER=ON -DASSIMP_BUILD_PLY_IMPORTER=ON
    -DASSIMP_BUILD_STL_IMPORTER=ON -DASSIMP_BUILD_OFF_IMPORTER=ON
    -DASSIMP_BUILD_ASSIMP_TOOLS=OFF -DASSIMP_BUILD_SAMPLES=OFF -DASSIMP_BUILD_TESTS=OFF -DASSIMP_BUILD_DOCS=OFF
    -DASSIMP_WARNINGS_AS_ERRORS=OFF -DASSIMP_BUILD_ZLIB=OFF -DASSIMP_BUILD_MINIZIP=ON -DASSIMP_INSTALL=OFF
    -DUNZIP_FOUND=TRUE
)

assimpFetch() { fetchSource assimp "$assimpVersion" "$work/fetched"; }

# Debian leaves out what it packages elsewhere; those headers go back to where upstream has them.
assimpUnpack() {
    rm -rf "$work/source"
    mkdir -p "$work/source"
    tar -C "$work/source" --strip-components=1 -xf "$(echo "$work"/fetched/assimp_*.orig.tar.xz)"
    local contrib=$work/source/contrib
    mkdir -p "$contrib/stb" "$contrib/utf8cpp/source" "$contrib/minizip"
    cp /usr/include/stb/stb_image.h "$contrib/stb/"
    cp -r /usr/include/utf8cpp/. "$contrib/utf8cpp/source/"
    cp /usr/include/minizip/*.h "$contrib/minizip/"
}

# Set by whoever builds one of them.
assimpCompilers=()

assimpConfigure() {
    rm -rf "$work/build"
    runLogged "Configuring $assimpName" "$qelLogs/assimp-configure.log" -- \
        cmake -S "$work/source" -B "$work/build" -G Ninja "${assimpCompilers[@]}" \
        -DUNZIP_INCLUDE_DIRS="$work/source/contrib/minizip" "${assimpOptions[@]}"
}

assimpBuild() {
    runLogged "Building $assimpName" "$qelLogs/assimp-build.log" -p '^\[[0-9]+/' told -- ninja -C "$work/build" assimp
}

assimpInstall() {
    rm -rf "${work:?}/product"
    mkdir -p "$work/product/lib"
    cp -r "$work/source/include" "$work/product/include"
    cp "$work"/build/include/assimp/*.h "$work/product/include/assimp/"
    cp "$(find "$work/build" -name 'libassimp*.a' | head -n 1)" "$work/product/lib/libassimp.a"
    cp "$work/source/LICENSE" "$work/product/"
}

# buildAssimp NAME KEY HOME COMPILER_OPTION...
buildAssimp() {
    local assimpName=$1 work=$qelCache/building/$2 home=$3
    [ ! -e "$home/lib/libassimp.a" ] || return 0
    assimpCompilers=("${@:4}")
    mkdir -p "$work"
    inStages "$work" assimpFetch assimpUnpack assimpConfigure assimpBuild assimpInstall
    moveIntoCache "$work" "$home"
}

setupAssimp() {
    buildAssimp assimp "$QEL_ASSIMP_KEY" "$assimpHome" -DCMAKE_TOOLCHAIN_FILE="$qelRoot/cmake/mingw-w64-posix.cmake"
}

setupAssimpForFuzzing() {
    buildAssimp "assimp for fuzzing" "$QEL_ASSIMPFUZZ_KEY" "$qelCache/$QEL_ASSIMPFUZZ_KEY" \
        -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_FLAGS=-fsanitize=address \
        -DCMAKE_CXX_FLAGS=-fsanitize=address "-DCMAKE_C_FLAGS_RELEASE=-O1 -g1" "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -g1"
}
