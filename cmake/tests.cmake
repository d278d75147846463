# Tests mirror the source tree; every *_test.cpp is found. tests/testing holds what tests share.
#
# A preset's `ctest` runs everything that ./test runs of it. Labels: unit (GoogleTest), script (clients and programs
# from outside), check (documents, formatting, files that are built), lint, package.
enable_testing()

# Little optimisation: more takes as long again, and without any there are ten times the sections for the linker.
set(TILLORA_TEST_OPTIMISATION $<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:CXX>>:-Og>)
if(WIN32)
  set(BUILD_GMOCK OFF CACHE INTERNAL "")
  set(INSTALL_GTEST OFF CACHE INTERNAL "")
  set(gtest_disable_pthreads ON CACHE INTERNAL "")
  set(TILLORA_GOOGLETEST_DIR /usr/src/googletest CACHE PATH "Source folder of GoogleTest")
  add_subdirectory(${TILLORA_GOOGLETEST_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  target_compile_options(gtest PRIVATE ${TILLORA_TEST_OPTIMISATION})
else()
  find_package(GTest REQUIRED)
endif()

# A shared test drives forms without windows natively and real windows on Windows: makeDesk() makes the desk of the side
# it is built for. Other Windows tests name the headless desk.
set(testing_folders tests/testing)
if(WIN32)
  list(APPEND testing_folders tests/testing/win32)
  set(windows_side tillora_win32 tillora_windows_libraries oleacc)
endif()
tillora_static_library(tillora_testing
  FOLDERS ${testing_folders}
  LINK ${windows_side} tillora_shop tillora_core GTest::gtest)
target_compile_options(tillora_testing PRIVATE ${TILLORA_TEST_OPTIMISATION})
tillora_together(tillora_testing HEADERS TEST)

file(GLOB_RECURSE all_tests CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/*_test.cpp)
list(FILTER all_tests EXCLUDE REGEX "/tests/testing/")
set(windows_tests ${all_tests})
list(FILTER windows_tests INCLUDE REGEX
  "/tests/(com|platform|ui/win32|component/automation|host/automation|reliability/win32|windows)/")
set(native_tests ${all_tests})
list(REMOVE_ITEM native_tests ${windows_tests})
# Behaviour that holds with and without windows is tested on both sides: natively in native_tests, for Windows in
# shared_tests. What the tabs do in real windows does not depend on the bitness, so it is tested in 64 bits only. The
# controls and the dialog are tested in both.
set(shared_tests ${all_tests})
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  list(FILTER shared_tests INCLUDE REGEX "/tests/shared/")
else()
  list(FILTER shared_tests INCLUDE REGEX "/tests/shared/(ui|component)/")
endif()

set(TILLORA_REPORTS ${PROJECT_BINARY_DIR}/reports)
file(MAKE_DIRECTORY ${TILLORA_REPORTS})

# tillora_check(<name> <command>...): a test that passes if the command does.
function(tillora_check name)
  add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set_tests_properties(${name} PROPERTIES LABELS check TIMEOUT 120)
endfunction()

# tillora_lint(<preset>): the static analysis of what this preset compiles.
function(tillora_lint preset)
  add_test(NAME lint COMMAND tools/lint.py ${preset}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set_tests_properties(lint PROPERTIES LABELS lint TIMEOUT 1800)
endfunction()

# tillora_unit_tests(<test> <program> [<environment>...])
function(tillora_unit_tests test program)
  add_test(NAME ${test} COMMAND ${program} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set(reports ${TILLORA_REPORTS})
  if(WIN32)
    set(reports Z:${reports})
  else()
    list(APPEND ARGN ASAN_OPTIONS=allow_addr2line=1:malloc_context_size=8)
  endif()
  set_tests_properties(${test} PROPERTIES LABELS unit TIMEOUT 1800
    ENVIRONMENT "GTEST_OUTPUT=xml:${reports}/${test}.xml;GTEST_BRIEF=1;${ARGN}")
endfunction()

# tillora_unit_test_shards(<program> <count>): tests <program>-1, <program>-2, ... that share its tests.
function(tillora_unit_test_shards program count)
  foreach(shard RANGE 1 ${count})
    math(EXPR index "${shard} - 1")
    tillora_unit_tests(${program}-${shard} ${program}
      GTEST_TOTAL_SHARDS=${count} GTEST_SHARD_INDEX=${index})
  endforeach()
endfunction()

# tillora_long_test(<test> <program> <filter>): tests that sample in the everyday run, gone through in full
# (docs/reliability.md): ctest --preset native -C long -L long.
function(tillora_long_test test program filter)
  set(seconds 14400)
  add_test(NAME ${test} CONFIGURATIONS long
    COMMAND ${program} --gtest_filter=${filter}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set_tests_properties(${test} PROPERTIES LABELS long TIMEOUT ${seconds}
    ENVIRONMENT "TILLORA_LONG=1;TILLORA_TEST_SECONDS=${seconds}")
endfunction()

if(WIN32)
  include(windows_tests)
else()
  include(native_tests)
endif()
