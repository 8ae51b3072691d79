# The target qel_options: the compile options of all our targets. Third-party code is compiled without warnings.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(QEL_SANITIZE "Build everything with the address and undefined-behaviour sanitizers" OFF)
if(QEL_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

option(QEL_COVERAGE "Count which lines and branches are reached; needs GCC" OFF)
if(QEL_COVERAGE)
    # Tests count from several threads; lost updates would make counts negative.
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()

option(QEL_FUZZ "Build the programs that fuzz the viewer's readers, instead of the tests; needs clang" OFF)
if(QEL_FUZZ)
    # The program does not depend on where the project lies, so results about it hold for all clones.
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.")
    add_link_options(-fsanitize=address,undefined)
endif()

# Shares compiled files between build trees and clones of the project: paths below the sources count as relative.
find_program(QEL_CCACHE ccache)
if(QEL_CCACHE AND NOT CMAKE_HOST_WIN32)
    foreach(language C CXX)
        # Precompiled headers are large, so their hashes are kept; CMake writes what they include just before they are compiled.
        set(CMAKE_${language}_COMPILER_LAUNCHER env "CCACHE_DIR=${QEL_CACHE_DIR}/ccache" "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}"
            CCACHE_NOHASHDIR=1 CCACHE_INODECACHE=1
            CCACHE_SLOPPINESS=pch_defines,time_macros,locale,include_file_mtime,include_file_ctime
            "${CMAKE_CURRENT_LIST_DIR}/compile-cached")
    endforeach()
    # Tells ccache which precompiled header a source was compiled with.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

add_library(qel_options INTERFACE)
target_compile_features(qel_options INTERFACE cxx_std_20)
if(MSVC)
    target_compile_options(qel_options INTERFACE /W4 /WX /permissive- /utf-8 /Zc:__cplusplus)
elseif(NOT QEL_FUZZ)
    # GCC's warnings; clang, which is only used for fuzzing, has others.
    target_compile_options(qel_options INTERFACE
        -Wall -Wextra -Wpedantic -Werror -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wuseless-cast
        -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wnull-dereference -Wduplicated-cond
        -Wlogical-op -Wdouble-promotion)
endif()

# qel_debugger_views(TARGET): puts the views of our values into the library's PDB, where Visual Studio's debugger finds them.
function(qel_debugger_views target)
    if(MSVC)
        set(views "${PROJECT_SOURCE_DIR}/base/QelDisplay64t.natvis")
        target_link_options(${target} PRIVATE "/NATVIS:${views}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${views}")
    endif()
endfunction()
