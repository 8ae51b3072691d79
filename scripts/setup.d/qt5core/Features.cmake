# Writes Qt's configuration: every feature that its sources ask for is off, but for those that QString and what it stands on need.

set(features_on
    shared cross_compile thread c__11 c__14 c__17 c__1z c99 c11 std_atomic64 signaling_nan properties alloca alloca_malloc_h
    cxx11_future textcodec textdate datestring filesystemiterator temporaryfile cborstreamreader cborstreamwriter
    doubleconversion system_zlib)
# Features that are asked for by an older kind of macro as well.
set(older_off
    ANIMATION BIG_CODECS CLOCK_MONOTONIC CODECS CONCATENATETABLESPROXYMODEL CONCURRENT DBUS EVENTFD FILESYSTEMWATCHER GESTURES GLIB
    ICONV IDENTITYPROXYMODEL INOTIFY ITEMMODEL LIBRARY MIMETYPE PROCESS PROXYMODEL REGULAREXPRESSION SETTINGS SHAREDMEMORY
    SORTFILTERPROXYMODEL STATEMACHINE STRINGLISTMODEL SYSTEMSEMAPHORE TRANSLATION TRANSPOSEPROXYMODEL WIDGETS XMLSTREAM
    XMLSTREAMREADER XMLSTREAMWRITER)

set(features ${features_on})
file(GLOB_RECURSE texts "${corelib}/*.h" "${corelib}/*.cpp")
foreach(text IN LISTS texts)
    file(STRINGS "${text}" lines REGEX "QT_(REQUIRE_)?CONFIG\\([a-z0-9_]+\\)")
    string(REGEX MATCHALL "CONFIG\\([a-z0-9_]+\\)" asked "${lines}")
    list(TRANSFORM asked REPLACE "CONFIG\\((.*)\\)" "\\1")
    list(APPEND features ${asked})
endforeach()
list(REMOVE_DUPLICATES features)
list(SORT features)

set(config "")
foreach(feature IN LISTS features)
    set(value -1)
    if(feature IN_LIST features_on)
        set(value 1)
    endif()
    string(APPEND config "#define QT_FEATURE_${feature} ${value}\n")
endforeach()
foreach(feature IN LISTS older_off)
    string(APPEND config "#define QT_NO_${feature}\n")
endforeach()
file(CONFIGURE OUTPUT "${generated}/qconfig.h" CONTENT [[
#define QT_VERSION_STR "@PROJECT_VERSION@"
#define QT_VERSION_MAJOR @PROJECT_VERSION_MAJOR@
#define QT_VERSION_MINOR @PROJECT_VERSION_MINOR@
#define QT_VERSION_PATCH @PROJECT_VERSION_PATCH@
#define QT_LARGEFILE_SUPPORT 64
#define QT_COMPILER_SUPPORTS_SSE2 1
@config@]] @ONLY)
file(CONFIGURE OUTPUT "${generated}/qtcore-config.h" CONTENT "")
file(CONFIGURE OUTPUT "${generated}/private/qconfig_p.h" CONTENT "")
file(CONFIGURE OUTPUT "${generated}/private/qtcore-config_p.h" CONTENT "")
file(CONFIGURE OUTPUT "${generated}/QtCoreDepends" CONTENT "")
file(CONFIGURE OUTPUT "${generated}/qtcore_tracepoints_p.h" CONTENT "#include <private/qtrace_p.h>\n")
# Where a Qt that is installed would look for its parts; a host has this one beside itself.
file(CONFIGURE OUTPUT "${generated}/qconfig.cpp" CONTENT [[
#define QT_CONFIGURE_CROSSBUILD 0
#define QT_CONFIGURE_PREFIX_PATH "/qt5core"
#define QT_CONFIGURE_SETTINGS_PATH "etc/xdg"
#define QT_CONFIGURE_LIBLOCATION_TO_PREFIX_PATH ".."
#define QT_CONFIGURE_HOSTBINDIR_TO_EXTPREFIX_PATH ".."
#define QT_CONFIGURE_HOSTBINDIR_TO_HOSTPREFIX_PATH ".."
static const short qt_configure_str_offsets[] = {0};
static const char qt_configure_strs[] = "";
]])
