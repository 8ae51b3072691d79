# Writes the version into the file properties of every library and program.

if(WIN32)
    enable_language(RC)
endif()

# qel_version_resource(TARGET DESCRIPTION)
function(qel_version_resource target description)
    if(NOT WIN32)
        return()
    endif()
    get_target_property(kind ${target} TYPE)
    set(file_type VFT_APP)
    set(file_name "${target}.exe")
    if(kind STREQUAL SHARED_LIBRARY)
        set(file_type VFT_DLL)
        set(file_name "${target}.dll")
    endif()
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}-version.rc")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/version.rc.in" "${resource}" @ONLY)
    # A separate library, since the resource compiler accepts none of the compiler's options.
    add_library(${target}_version OBJECT "${resource}")
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_version>)
endfunction()
