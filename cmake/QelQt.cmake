# The target Qt5::Core: Qt 5 Core from the cache for the cross build, the installed one otherwise.

if(WIN32 AND CMAKE_CROSSCOMPILING)
    set(qt_home "${QEL_CACHE_DIR}/${QEL_QT_KEY}")
    if(NOT EXISTS "${qt_home}/bin/Qt5Core.dll")
        message(FATAL_ERROR "Qt 5 Core for Windows is not in ${qt_home}: run scripts/setup first.")
    endif()
    add_library(Qt5::Core SHARED IMPORTED GLOBAL)
    set_target_properties(Qt5::Core PROPERTIES
        IMPORTED_IMPLIB "${qt_home}/lib/libQt5Core.a"
        IMPORTED_LOCATION "${qt_home}/bin/Qt5Core.dll"
        INTERFACE_INCLUDE_DIRECTORIES "${qt_home}/include;${qt_home}/include/QtCore"
        INTERFACE_COMPILE_DEFINITIONS "QT_CORE_LIB;QT_NO_DEBUG")
else()
    find_package(Qt5 5.15 REQUIRED COMPONENTS Core)
endif()
