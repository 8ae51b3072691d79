# Checks that every header compiles alone: the target all_verify_interface_header_sets compiles portable headers natively and the others for
# Windows.

if(QEL_FUZZ OR QEL_COVERAGE OR MSVC OR NOT TARGET qel_kit)
    return()
endif()

set(windows_only "^(tests/)?(system|display|gdi|bench)/|Windows[^/]*\\.h$")
set(checked)
foreach(folder IN LISTS QEL_FOLDERS ITEMS system display gdi)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}" "${folder}/*.h")
    foreach(header IN LISTS headers)
        file(STRINGS "${header}" includes_windows REGEX "#include <windows\\.h>" LIMIT_COUNT 1)
        if(header MATCHES "${windows_only}" OR includes_windows)
            set(for_windows ON)
        else()
            set(for_windows OFF)
        endif()
        if(WIN32 AND for_windows OR NOT WIN32 AND NOT for_windows)
            list(APPEND checked "${header}")
        endif()
    endforeach()
endforeach()
list(FILTER checked EXCLUDE REGEX "^tests/abi/freestanding/")
list(REMOVE_DUPLICATES checked)

add_library(qel_headers INTERFACE)
target_sources(qel_headers INTERFACE FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${checked})
set_target_properties(qel_headers PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
target_compile_definitions(qel_headers INTERFACE $<$<BOOL:${WIN32}>:UNICODE;_UNICODE;NOMINMAX;WIN32_LEAN_AND_MEAN>)
target_include_directories(qel_headers INTERFACE tests examples/gallery)
# Only whether they compile matters.
target_compile_options(qel_headers INTERFACE -O0 -g0 $<$<BOOL:${QEL_SANITIZE}>:-fno-sanitize=all>)
foreach(library qel_options qel_kit qel_view qel_symbol qel_transform qel_module qel_system qel_display qel_gdi qelview_core qel_bench_core
        qel_include qel_gl qel_eigen qel_glm qel_json qel_cli11 qel_stb qel_gtest Qt5::Core)
    if(TARGET ${library})
        target_link_libraries(qel_headers INTERFACE ${library})
    endif()
endforeach()
