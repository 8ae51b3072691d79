# The entries of ctest: each is a group of test cases or a check. The results of a group are in build/results as NAME.json, where
# scripts/sum-results counts them. The labels are native, windows and check; `ctest -C Long` adds the label long, whose groups run at full
# length what the others repeat a few times, and like `ctest -C Microsoft` the label microsoft: the Windows cases under the C++ ABI of
# Visual Studio.

set(QEL_LABEL native)
if(MSVC AND CMAKE_CROSSCOMPILING)
    set(QEL_LABEL microsoft)
elseif(WIN32)
    set(QEL_LABEL windows)
endif()
set(QEL_RESULTS "${PROJECT_SOURCE_DIR}/build/results")
file(MAKE_DIRECTORY "${QEL_RESULTS}")

# qel_test_group(NAME [LONG] [COST SECONDS] [LEFT_OUT SUITES] [PROGRAM TARGET] [ENVIRONMENT NAME=VALUE...]): cases of qel_tests or of
# another program, limited by GTEST_FILTER if that is set. COST is their approximate time, so that the longest start first.
function(qel_test_group name)
    cmake_parse_arguments(PARSE_ARGV 1 group "LONG" "COST;LEFT_OUT;PROGRAM" "ENVIRONMENT")
    set(title ${name})
    set(label ${QEL_LABEL})
    set(most_seconds 900)
    set(environment GTEST_COLOR=no GTEST_OUTPUT=json:${name}.json ${group_ENVIRONMENT})
    set(configurations)
    if(label STREQUAL microsoft)
        set(configurations CONFIGURATIONS Microsoft Long)
    endif()
    if(group_LONG)
        set(title long.${name})
        set(label long)
        set(most_seconds 5400)
        list(APPEND environment QEL_LONG_TESTS=1)
        set(configurations CONFIGURATIONS Long)
    endif()
    if(NOT group_PROGRAM)
        set(group_PROGRAM qel_tests)
    endif()
    set(command $<TARGET_FILE:${group_PROGRAM}>)
    if(WIN32 AND CMAKE_CROSSCOMPILING)
        # Groups run next to each other on all cores: further threads of the renderer would only wait for each other.
        list(APPEND environment LP_NUM_THREADS=1)
        # Ends from within if it hangs, so that its screen ends too.
        set(command "${PROJECT_SOURCE_DIR}/scripts/with-screen" timeout -k 20 ${most_seconds} wine ${command})
        math(EXPR most_seconds "${most_seconds} + 60")
    endif()
    add_test(NAME ${title} COMMAND ${command} WORKING_DIRECTORY "${QEL_RESULTS}" ${configurations})
    set_tests_properties(${title} PROPERTIES LABELS ${label} TIMEOUT ${most_seconds} ENVIRONMENT "${environment}")
    if(group_COST)
        set_tests_properties(${title} PROPERTIES COST ${group_COST})
    endif()
    if(group_LEFT_OUT)
        set_tests_properties(${title} PROPERTIES ENVIRONMENT_MODIFICATION "GTEST_FILTER=string_append:-${group_LEFT_OUT}")
    endif()
endfunction()

# Native: under the sanitizers, with leak detection.
function(qel_native_groups)
    set(sanitizers
        ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1:check_initialization_order=1
        UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
        LSAN_OPTIONS=print_suppressions=0)
    qel_test_group(native COST 70 ENVIRONMENT ${sanitizers})
    qel_test_group(native LONG ENVIRONMENT ${sanitizers})
endfunction()

# Windows: three thirds, each on its own screen, and the cases that use the most module memory with a guard page behind each block. The last
# leave out cases that make such blocks themselves or count the blocks of the ordinary heap.
function(qel_windows_groups)
    set(not_guarded "GuardedHeap*:CensusOfMemory.*:*MemoryFlat*:*BlockOfTheModulesOwn*:LoadStorm.*")
    set(guarded QEL_GUARDED_SUITE=1)
    foreach(third 1 2 3)
        math(EXPR index "${third} - 1")
        qel_test_group(${QEL_LABEL}.${third} COST 60 ENVIRONMENT GTEST_TOTAL_SHARDS=3 GTEST_SHARD_INDEX=${index})
    endforeach()
    qel_test_group(${QEL_LABEL}.loading PROGRAM qel_loading_host COST 20)
    qel_test_group(${QEL_LABEL}.guarded COST 50
        ENVIRONMENT ${guarded} "GTEST_FILTER=GuardedSuite*:ScreenDisplay*:Symbol*-${not_guarded}")
    if(QEL_LABEL STREQUAL microsoft)
        # How a thread and its library end depends on the C runtime.
        qel_test_group(microsoft.loads COST 150 ENVIRONMENT QEL_LONG_TESTS=1 "GTEST_FILTER=ModuleEntry.*:ProcessEnd.*")
        qel_check(microsoft LABEL microsoft CONFIGURATIONS Microsoft Long COMMAND "${PROJECT_SOURCE_DIR}/scripts/check" microsoft)
    else()
        qel_test_group(windows LONG)
        qel_test_group(guarded LONG LEFT_OUT ${not_guarded} ENVIRONMENT ${guarded})
    endif()
endfunction()

# qel_check(NAME COMMAND...): a program that prints "ok SENTENCE" or "not ok SENTENCE" for each thing it checks.
function(qel_check name)
    cmake_parse_arguments(PARSE_ARGV 1 check "" "LABEL" "CONFIGURATIONS;COMMAND")
    set(configurations)
    if(check_CONFIGURATIONS)
        set(configurations CONFIGURATIONS ${check_CONFIGURATIONS})
    endif()
    if(NOT check_LABEL)
        set(check_LABEL check)
    endif()
    add_test(NAME check.${name} COMMAND ${check_COMMAND} WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}" ${configurations})
    set_tests_properties(check.${name} PROPERTIES LABELS ${check_LABEL} TIMEOUT 5400)
endfunction()

# The checks of scripts/check. Those of Windows programs need the Windows build as well. `ctest -C Whole` also runs those that take minutes,
# of all sources and of all headers. That of the other C++ ABI belongs to its build.
function(qel_checks)
    set(check "${PROJECT_SOURCE_DIR}/scripts/check")
    execute_process(COMMAND "${check}" --list OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${check}")
    string(REGEX MATCHALL "[^\n]+" names "${listed}")
    list(FILTER names EXCLUDE REGEX "^(tidy-|headers$|microsoft$)")
    foreach(name IN LISTS names)
        qel_check(${name} COMMAND "${check}" ${name})
    endforeach()
    # The longest start early.
    set_tests_properties(check.package check.pictures PROPERTIES COST 55)
    foreach(name tidy-whole headers)
        qel_check(${name} CONFIGURATIONS Whole COMMAND "${check}" ${name})
    endforeach()
    qel_check(fuzz LABEL long CONFIGURATIONS Long COMMAND "${PROJECT_SOURCE_DIR}/scripts/fuzz" 60)
    qel_check(coverage LABEL coverage CONFIGURATIONS Coverage COMMAND "${PROJECT_SOURCE_DIR}/scripts/coverage")
endfunction()

if(WIN32)
    qel_windows_groups()
elseif(NOT QEL_COVERAGE)
    qel_native_groups()
    qel_checks()
    # If there are Windows builds, their groups run with these.
    set_property(DIRECTORY "${PROJECT_SOURCE_DIR}" APPEND PROPERTY TEST_INCLUDE_FILES "${CMAKE_CURRENT_LIST_DIR}/WindowsBuildTests.cmake")
endif()
