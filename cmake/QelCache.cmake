# The folder where scripts/setup keeps what is built once.

if(DEFINED ENV{QEL_CACHE_DIR})
    set(default_cache "$ENV{QEL_CACHE_DIR}")
elseif(DEFINED ENV{XDG_CACHE_HOME} AND NOT "$ENV{XDG_CACHE_HOME}" STREQUAL "")
    set(default_cache "$ENV{XDG_CACHE_HOME}/QelDisplay64t")
else()
    set(default_cache "$ENV{HOME}/.cache/QelDisplay64t")
endif()
set(QEL_CACHE_DIR "${default_cache}" CACHE PATH "Folder of what scripts/setup builds once")

# Sets QEL_QT_KEY and the like; a changed key reconfigures.
set(keys_file "${CMAKE_CURRENT_LIST_DIR}/../scripts/cache-keys")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${keys_file}")
file(STRINGS "${keys_file}" keys REGEX "^QEL_[A-Z]+_KEY=")
foreach(key IN LISTS keys)
    string(REGEX MATCH "^([A-Z_]+)=(.*)$" matched "${key}")
    set(${CMAKE_MATCH_1} "${CMAKE_MATCH_2}")
endforeach()
