# The sources that QString's needs, those that these need, and so on; and what moc writes for them.

set(sources)
function(add_sources folder)
    list(TRANSFORM ARGN PREPEND "${folder}/")
    list(TRANSFORM ARGN REPLACE "^(.*/[^.]+)$" "\\1.cpp")
    set(sources ${sources} ${ARGN} PARENT_SCOPE)
endfunction()
add_sources("${corelib}/codecs"
    qlatincodec qtextcodec qutfcodec)
add_sources("${corelib}/global"
    qendian qfloat16 qglobal qhooks qlibraryinfo qlogging qmalloc qnumeric qoperatingsystemversion qoperatingsystemversion_win qrandom)
add_sources("${corelib}/io"
    qabstractfileengine qbuffer qdebug qdir qdiriterator qfile qfiledevice qfileinfo qfilesystemengine qfilesystemengine_win
    qfilesystementry qfilesystemiterator_win qfsfileengine qfsfileengine_iterator qfsfileengine_win qiodevice qipaddress
    qloggingcategory qloggingregistry qresource qresource_iterator qstandardpaths qstandardpaths_win qtemporaryfile qurl qurlidna qurlquery
    qurlrecode)
add_sources("${corelib}/kernel"
    qabstracteventdispatcher qcoreapplication qcoreapplication_win qcoreevent qcoreglobaldata qdeadlinetimer
    qelapsedtimer_win qeventdispatcher_win qeventloop qmetaobject qmetatype qobject qsocketnotifier qsystemerror qvariant
    qwineventnotifier qwinregistry)
if(MSVC)
    # This compiler emits the inline functions of every exported class that it sees, and these ask for the rest of their class.
    add_sources("${corelib}/kernel" qbasictimer qtimer)
    add_sources("${corelib}/text" qcollator qcollator_win)
endif()
add_sources("${corelib}/plugin"
    qsystemlibrary quuid)
add_sources("${corelib}/serialization"
    qcborcommon qcbordiagnostic qcborstreamreader qcborstreamwriter qcborvalue qdatastream qjsonarray qjsoncbor qjsondocument
    qjsonobject qjsonparser qjsonvalue qjsonwriter qtextstream)
add_sources("${corelib}/text"
    qbytearray qbytearraymatcher qlocale qlocale_tools qlocale_win qregexp qstring qstring_compat qstringlist qvsnprintf)
add_sources("${corelib}/thread"
    qmutex qreadwritelock qrunnable qsemaphore qthread qthread_win qthreadpool qthreadstorage qwaitcondition_win)
add_sources("${corelib}/time"
    qcalendar qdatetime qgregoriancalendar qjuliancalendar qmilankoviccalendar qromancalendar)
add_sources("${corelib}/tools"
    qarraydata qbitarray qcryptographichash qhash qline qlist qmap qpoint qrect qringbuffer qsharedpointer qsize)
add_sources("${third_party}/double-conversion"
    bignum.cc bignum-dtoa.cc cached-powers.cc diy-fp.cc double-conversion.cc fast-dtoa.cc fixed-dtoa.cc strtod.cc)

# What moc writes for a header or a source is included by the source; for two headers it is a source of its own.
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/moc")
function(run_moc input output)
    execute_process(COMMAND "${QT_MOC}" --no-notes -D_WIN32 -DWIN32 -DQ_OS_WIN "-I${generated}" "-I${QT_SOURCE}/include/QtCore"
        "-I${QT_SOURCE}/include" "-I${CMAKE_BINARY_DIR}/include" -o "${CMAKE_BINARY_DIR}/moc/${output}" "${input}"
        COMMAND_ERROR_IS_FATAL ANY)
endfunction()
foreach(source IN LISTS sources)
    file(STRINGS "${source}" lines REGEX "^ *# *include \"(moc_[a-z0-9_]+\\.cpp|[a-z0-9_]+\\.moc)\"")
    string(REGEX MATCHALL "moc_[a-z0-9_]+\\.cpp|[a-z0-9_]+\\.moc" outputs "${lines}")
    foreach(output IN LISTS outputs)
        set(input "${source}")
        if(output MATCHES "^moc_(.*)\\.cpp$")
            file(GLOB input "${corelib}/*/${CMAKE_MATCH_1}.h")
        endif()
        run_moc("${input}" "${output}")
    endforeach()
endforeach()
foreach(header qeventdispatcher_win_p qwineventnotifier)
    run_moc("${corelib}/kernel/${header}.h" "moc_${header}.cpp")
    list(APPEND sources "${CMAKE_BINARY_DIR}/moc/moc_${header}.cpp")
endforeach()
