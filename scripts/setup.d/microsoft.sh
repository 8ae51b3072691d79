# The compiler, headers and libraries of the Microsoft C++ ABI, for tests alone, by the recipes in microsoft/ and qt5core/: LLVM's tools and
# Wine's headers from Debian's packages, which are unpacked and not installed; libc++ and Qt 5 Core from Debian's sources. Each stage leaves a
# stamp, so an interrupted set-up continues where it was.

llvmVersion=19.1.7
# Of LLVM 19, since the libc++ of Debian's usual version lacks parts of C++20.
llvmPackages=(clang-19 libclang-common-19-dev libclang-cpp19 libllvm19 lld-19 llvm-19 libc++-19-dev)
llvmTools=(clang lld llvm-ar llvm-cvtres llvm-mt llvm-pdbutil llvm-rc llvm-readobj llvm-symbolizer llvm-undname)

microsoftFetch() {
    mkdir -p "$work/packages"
    # The newest package of this version; apt checks its signature and hash.
    local version packages=(libwine-dev) name
    version=$(apt-cache madison clang-19 | awk -v v="1:$llvmVersion-" 'index($3, v) == 1 { print $3; exit }')
    [ -n "$version" ] || die "clang-19 $llvmVersion is needed, and the archive does not offer it. The recipe is for Debian 12."
    for name in "${llvmPackages[@]}"; do packages+=("$name=$version"); done
    runLogged "Fetching clang $version and Wine's headers" "$qelLogs/microsoft-fetch.log" -- \
        env --chdir="$work/packages" apt-get -o APT::Sandbox::User= -o Acquire::Retries=3 download "${packages[@]}"
    fetchSource llvm-toolchain-19 "$llvmVersion" "$work/fetched-llvm"
    fetchSource "$qtSourcePackage" "$qtVersion" "$work/fetched"
}

# Only the tools that are used stay; their libraries go where they look for them.
microsoftUnpack() {
    local package tool llvm=$work/unpacked/usr/lib/llvm-19 to=$work/product/llvm
    rm -rf "$work/unpacked" "$work/product"
    mkdir -p "$to/bin" "$to/lib" "$to/include"
    for package in "$work"/packages/*.deb; do
        runLogged "Unpacking $(basename "$package")" "$qelLogs/microsoft-unpack.log" -- dpkg-deb -x "$package" "$work/unpacked"
    done
    for tool in "${llvmTools[@]}"; do cp "$llvm/bin/$tool" "$to/bin/"; done
    ln -s clang "$to/bin/clang-cl"
    ln -s lld "$to/bin/lld-link"
    ln -s llvm-ar "$to/bin/llvm-lib"
    cp "$work"/unpacked/usr/lib/x86_64-linux-gnu/lib{LLVM,clang-cpp}.so.19.1 "$to/lib/"
    cp -r "$llvm/lib/clang" "$to/lib/"
    cp -r "$llvm/include/c++" "$to/include/"
    cp -r "$work/unpacked/usr/include/wine/wine" "$work/product/wine"
    # OpenGL's headers are MinGW's, without the rest of its headers.
    mkdir "$work/product/opengl"
    cp -r /usr/share/mingw-w64/include/GL "$work/product/opengl/"
    # Identifiers of the system's interfaces, which are data and no import.
    mkdir "$work/product/lib"
    cp "$work/unpacked/usr/lib/x86_64-linux-gnu/wine/x86_64-windows/libuuid.a" "$work/product/lib/uuid.lib"
    rm -rf "$work/unpacked" "$work/libcxx"
    mkdir "$work/libcxx"
    runLogged "Unpacking libc++ $llvmVersion" "$qelLogs/microsoft-libcxx.log" -- \
        tar -x -f "$(echo "$work"/fetched-llvm/*.orig.tar.xz)" -C "$work/libcxx" --strip-components=2 \
        --wildcards "*/libcxx/src" "*/libcxx/include"
}

# microsoftBuild TITLE NAME SOURCES PREFIX OPTION...: configures, compiles and installs a recipe.
microsoftBuild() {
    local title=$1 name=$2 sources=$3 prefix=$4
    shift 4
    runLogged "Configuring $title" "$qelLogs/microsoft-$name-configure.log" -- \
        cmake -G Ninja -S "$sources" -B "$work/build-$name" --toolchain "$qelRoot/cmake/clang-microsoft.cmake" \
        -DQEL_MICROSOFT_DIR="$work/product" -DCMAKE_BUILD_TYPE=Release "$@"
    runLogged "Building $title" "$qelLogs/microsoft-$name-build.log" -p '^\[[0-9]+/' counted -- ninja -C "$work/build-$name"
    runLogged "Collecting $title" "$qelLogs/microsoft-$name-install.log" -- cmake --install "$work/build-$name" --prefix "$prefix"
}

# Nothing can be linked before these libraries exist.
microsoftLibraries() {
    microsoftBuild "the runtime and libc++" libraries "$qelRoot/scripts/setup.d/microsoft" "$work/product" \
        -DLIBCXX_SOURCE="$work/libcxx" -DCMAKE_TRY_COMPILE_TARGET_TYPE=STATIC_LIBRARY
}

microsoftQt() {
    microsoftBuild "Qt 5 Core" qt "$qelRoot/scripts/setup.d/qt5core" "$work/product/qt" -DQT_SOURCE="$work/source"
}

setupMicrosoft() {
    [ ! -e "$microsoftHome/qt/bin/Qt5Core.dll" ] || return 0
    local work=$qelCache/building/$QEL_MICROSOFT_KEY
    say "Building the tools of the Microsoft C++ ABI, once"
    mkdir -p "$work"
    inStages "$work" microsoftFetch microsoftUnpack microsoftLibraries qtUnpack microsoftQt
    moveIntoCache "$work" "$microsoftHome"
}
