# clang-cl and lld-link with the libraries that `scripts/setup --microsoft` puts into the cache: the C++ ABI of Visual Studio, whose branches
# CMake and the sources take (MSVC is set). What it builds is for tests; see scripts/setup.d/microsoft/README.md.

include("${CMAKE_CURRENT_LIST_DIR}/QelCache.cmake")
set(QEL_MICROSOFT_DIR "${QEL_CACHE_DIR}/${QEL_MICROSOFT_KEY}" CACHE PATH "Folder of compiler, headers and libraries")
set(LLVM_TOOLS "${QEL_MICROSOFT_DIR}/llvm/bin")
if(NOT EXISTS "${LLVM_TOOLS}/clang-cl")
    message(FATAL_ERROR "The compiler is not in ${LLVM_TOOLS}: run scripts/setup --microsoft first.")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QEL_MICROSOFT_DIR)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_C_COMPILER "${LLVM_TOOLS}/clang-cl")
set(CMAKE_CXX_COMPILER "${LLVM_TOOLS}/clang-cl")
set(CMAKE_C_COMPILER_TARGET x86_64-pc-windows-msvc)
set(CMAKE_CXX_COMPILER_TARGET x86_64-pc-windows-msvc)
set(CMAKE_LINKER "${LLVM_TOOLS}/lld-link")
set(CMAKE_AR "${LLVM_TOOLS}/llvm-lib")
set(CMAKE_RC_COMPILER "${LLVM_TOOLS}/llvm-rc")
set(CMAKE_MT "${LLVM_TOOLS}/llvm-mt")
set(CMAKE_MSVC_RUNTIME_LIBRARY MultiThreadedDLL)

# Headers: first those that fill the gaps of Wine's, then the compiler's, then Wine's and OpenGL's.
get_filename_component(gaps "${CMAKE_CURRENT_LIST_DIR}/../scripts/setup.d/microsoft/include" ABSOLUTE)
set(wine "${QEL_MICROSOFT_DIR}/wine")
set(headers "-imsvc${gaps} -imsvc${QEL_MICROSOFT_DIR}/llvm/lib/clang/19/include -imsvc${wine}/msvcrt -imsvc${wine}/windows -imsvc${QEL_MICROSOFT_DIR}/opengl")
set(common "-fmsc-version=1933 /X -nobuiltininc -D_UCRT -D_CRT_SECURE_NO_WARNINGS -DWINE_UNICODE_NATIVE /Gy /Gw")
set(libcxx "-D_LIBCPP_NO_VCRUNTIME -D_LIBCPP_DISABLE_VISIBILITY_ANNOTATIONS -D_LIBCPP_NO_AUTO_LINK")
set(CMAKE_C_FLAGS_INIT "${common} ${headers}")
set(CMAKE_CXX_FLAGS_INIT "${common} ${libcxx} /EHsc -imsvc${gaps}/c++ -imsvc${QEL_MICROSOFT_DIR}/llvm/include/c++/v1 ${headers}")
set(CMAKE_RC_FLAGS_INIT "/I${gaps} /I${wine}/windows /I${wine}/msvcrt")
foreach(kind EXE SHARED MODULE)
    # /Brepro: the same sources give the same bytes.
    set(CMAKE_${kind}_LINKER_FLAGS_INIT "/manifest:no /Brepro /libpath:${QEL_MICROSOFT_DIR}/lib")
endforeach()

set(CMAKE_FIND_ROOT_PATH ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
