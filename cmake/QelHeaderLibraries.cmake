# Header-only libraries, each as a target with its own include folder: the system's include folder must never reach the cross compiler.

set(QEL_HEADERS_DIR "/usr/include" CACHE PATH "Where header-only libraries are installed")

# qel_header_library(NAME FOLDER): creates the target NAME for #include <FOLDER/...>, unless it is not installed.
function(qel_header_library name folder)
    if(NOT EXISTS "${QEL_HEADERS_DIR}/${folder}")
        return()
    endif()
    set(shown "${CMAKE_BINARY_DIR}/headers/${name}")
    file(MAKE_DIRECTORY "${shown}")
    file(CREATE_LINK "${QEL_HEADERS_DIR}/${folder}" "${shown}/${folder}" COPY_ON_ERROR SYMBOLIC)
    add_library(${name} INTERFACE)
    target_include_directories(${name} SYSTEM INTERFACE "${shown}")
endfunction()

qel_header_library(qel_glm glm)
qel_header_library(qel_json nlohmann)
qel_header_library(qel_cli11 CLI)
qel_header_library(qel_stb stb)

if(EXISTS "${QEL_HEADERS_DIR}/eigen3")
    add_library(qel_eigen INTERFACE)
    target_include_directories(qel_eigen SYSTEM INTERFACE "${QEL_HEADERS_DIR}/eigen3")
endif()
