# The DLLs that the cross-built programs load, copied beside them when the tree is configured.

if(WIN32 AND CMAKE_CROSSCOMPILING)
    set(runtime_files "${QEL_CACHE_DIR}/${QEL_QT_KEY}/bin/Qt5Core.dll")
    foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${name}"
            OUTPUT_VARIABLE found OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        if(NOT IS_ABSOLUTE "${found}")
            message(FATAL_ERROR "The compiler does not know where its ${name} is.")
        endif()
        list(APPEND runtime_files "${found}")
    endforeach()
    file(COPY ${runtime_files} DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}" FOLLOW_SYMLINK_CHAIN)
endif()
