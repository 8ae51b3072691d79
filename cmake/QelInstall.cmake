# What `cmake --install` and the zip carry: a folder that works wherever it is put.

# Packing takes what was built; it does not build the tests first.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

# What is built with the tests' runtime is not packed; it is installed for the host that tests the CMake package.
set(for_tests_alone OFF)
if(MSVC AND CMAKE_CROSSCOMPILING)
    set(for_tests_alone ON)
endif()

set(package_folder lib/cmake/QelDisplay64t)
set(document_folder share/doc/QelDisplay64t)

install(TARGETS QelBase64t QelGeometry64t QelDisplay64t qel_include EXPORT QelDisplay64tTargets
    RUNTIME DESTINATION bin ARCHIVE DESTINATION lib LIBRARY DESTINATION lib INCLUDES DESTINATION include/QelDisplay64t)
if(MSVC)
    # With the debugger's views of our values.
    foreach(library QelBase64t QelGeometry64t QelDisplay64t)
        install(FILES $<TARGET_PDB_FILE:${library}> DESTINATION bin OPTIONAL)
    endforeach()
endif()
set_target_properties(qel_include PROPERTIES EXPORT_NAME Headers)
install(EXPORT QelDisplay64tTargets NAMESPACE QelDisplay64t:: DESTINATION ${package_folder})
foreach(program qelview qelminimal qelhostcontext)
    if(TARGET ${program} AND NOT for_tests_alone)
        install(TARGETS ${program} RUNTIME DESTINATION bin)
    endif()
endforeach()

# base/detail/ is for the libraries themselves.
install(DIRECTORY include/ base/ DESTINATION include/QelDisplay64t FILES_MATCHING PATTERN "*.h" PATTERN detail EXCLUDE)
install(DIRECTORY examples/minimal examples/hostcontext DESTINATION share/QelDisplay64t/examples)
if(MINGW)
    install(FILES cmake/mingw-w64-posix.cmake DESTINATION share/QelDisplay64t/cmake)
endif()

include(CMakePackageConfigHelpers)
configure_package_config_file(cmake/QelDisplay64tConfig.cmake.in "${CMAKE_BINARY_DIR}/QelDisplay64tConfig.cmake"
    INSTALL_DESTINATION ${package_folder} NO_SET_AND_CHECK_MACRO)
# Before 1.0.0 a new minor version may change the interfaces.
write_basic_package_version_file("${CMAKE_BINARY_DIR}/QelDisplay64tConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/QelDisplay64tConfig.cmake" "${CMAKE_BINARY_DIR}/QelDisplay64tConfigVersion.cmake"
    DESTINATION ${package_folder})
# Qt comes along in the cross build alone, without a pkg-config file of its own.
if(CMAKE_CROSSCOMPILING)
    set(QEL_PC_QT_CFLAGS "-I\${prefix}/include -I\${prefix}/include/QtCore -DQT_CORE_LIB -DQT_NO_DEBUG")
    set(QEL_PC_QT_LIBS -lQt5Core)
else()
    set(QEL_PC_QT_PACKAGE Qt5Core)
endif()
configure_file(cmake/QelDisplay64t.pc.in "${CMAKE_BINARY_DIR}/QelDisplay64t.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/QelDisplay64t.pc" DESTINATION lib/pkgconfig)

install(FILES LICENSE README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${document_folder})
install(DIRECTORY docs DESTINATION ${document_folder} PATTERN Doxyfile EXCLUDE PATTERN package.md EXCLUDE)
# What the folder is, for whoever unpacks it.
install(FILES docs/package.md DESTINATION . RENAME README.md)

# The cross build brings along what its binaries load, with the licences of all that is in them; elsewhere Qt and the compiler's
# libraries are the machine's own.
if(CMAKE_CROSSCOMPILING)
    install(FILES ${QEL_RUNTIME_DLLS} DESTINATION bin)
    install(FILES "${QEL_QT_HOME}/${QEL_QT_LIBRARY}" DESTINATION lib)
    install(DIRECTORY "${QEL_QT_HOME}/include/QtCore" DESTINATION include)
    install(FILES "${QEL_QT_HOME}/LICENSE.LGPL3" "${QEL_QT_HOME}/LICENSE.GPL3" DESTINATION ${document_folder}/licences/qt5core)
endif()
if(for_tests_alone)
    return()
endif()
if(CMAKE_CROSSCOMPILING)
    foreach(package qtbase5-dev libz-mingw-w64-dev gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev libcli11-dev libstb-dev
            nlohmann-json3-dev)
        install(FILES "/usr/share/doc/${package}/copyright" DESTINATION ${document_folder}/licences RENAME ${package}.txt)
    endforeach()
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_VENDOR "the QelDisplay64t authors")
set(CPACK_PACKAGE_FILE_NAME "QelDisplay64t-${PROJECT_VERSION}-win64")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
