# Read by ctest with the native build's entries: adds those of the Windows build if there is one.

if(EXISTS "${CMAKE_CURRENT_LIST_DIR}/../build/windows/CTestTestfile.cmake")
    subdirs("${CMAKE_CURRENT_LIST_DIR}/../build/windows")
endif()
