# Read by ctest with the native build's entries: adds those of the Windows builds that exist.

foreach(preset windows microsoft)
    if(EXISTS "${CMAKE_CURRENT_LIST_DIR}/../build/${preset}/CTestTestfile.cmake")
        subdirs("${CMAKE_CURRENT_LIST_DIR}/../build/${preset}")
    endif()
endforeach()
