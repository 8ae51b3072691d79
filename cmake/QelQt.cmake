# The target Qt5::Core: Qt 5 Core from the cache for the cross builds, the installed one otherwise. QEL_QT_HOME is the folder in the cache and
# QEL_QT_LIBRARY the import library in it.

if(WIN32 AND CMAKE_CROSSCOMPILING)
    if(MSVC)
        set(QEL_QT_HOME "${QEL_MICROSOFT_DIR}/qt")
        set(QEL_QT_LIBRARY lib/Qt5Core.lib)
    else()
        set(QEL_QT_HOME "${QEL_CACHE_DIR}/${QEL_QT_KEY}")
        set(QEL_QT_LIBRARY lib/libQt5Core.a)
    endif()
    if(NOT EXISTS "${QEL_QT_HOME}/bin/Qt5Core.dll")
        message(FATAL_ERROR "Qt 5 Core for Windows is not in ${QEL_QT_HOME}: run scripts/setup first.")
    endif()
    add_library(Qt5::Core SHARED IMPORTED GLOBAL)
    set_target_properties(Qt5::Core PROPERTIES
        IMPORTED_IMPLIB "${QEL_QT_HOME}/${QEL_QT_LIBRARY}"
        IMPORTED_LOCATION "${QEL_QT_HOME}/bin/Qt5Core.dll"
        INTERFACE_INCLUDE_DIRECTORIES "${QEL_QT_HOME}/include;${QEL_QT_HOME}/include/QtCore"
        INTERFACE_COMPILE_DEFINITIONS "QT_CORE_LIB;QT_NO_DEBUG")
else()
    find_package(Qt5 5.15 REQUIRED COMPONENTS Core)
endif()
