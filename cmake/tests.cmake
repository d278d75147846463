# Tests mirror the source tree; every *_test.cpp is found. tests/testing holds what tests share.
enable_testing()

set(BUILD_GMOCK OFF CACHE INTERNAL "")
set(INSTALL_GTEST OFF CACHE INTERNAL "")
set(gtest_disable_pthreads ${WIN32} CACHE INTERNAL "")
set(TILLORA_GOOGLETEST_DIR /usr/src/googletest CACHE PATH "Source folder of GoogleTest")
add_subdirectory(${TILLORA_GOOGLETEST_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)

# A shared test drives forms without windows natively and real windows on Windows: makeDesk() makes
# the desk of the side it is built for. Windows tests of other things name the headless desk.
set(testing_folders tests/testing)
if(WIN32)
  list(APPEND testing_folders tests/testing/win32)
endif()
tillora_sources(testing_sources FOLDERS ${testing_folders})
if(testing_sources)
  add_library(tillora_testing STATIC ${testing_sources})
  tillora_link(tillora_testing
    tillora_options tillora_win32 tillora_shop tillora_core tillora_windows_libraries gtest)
endif()

file(GLOB_RECURSE all_tests CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/*_test.cpp)
list(FILTER all_tests EXCLUDE REGEX "/tests/testing/")
set(windows_tests ${all_tests})
list(FILTER windows_tests INCLUDE REGEX
  "/tests/(ui/win32|support/win32|component/automation|host/automation|windows)/")
# Behaviour that holds with and without windows is tested on both sides.
set(shared_tests ${all_tests})
list(FILTER shared_tests INCLUDE REGEX "/tests/shared/")
set(native_tests ${all_tests})
if(windows_tests)
  list(REMOVE_ITEM native_tests ${windows_tests})
endif()

if(WIN32)
  tillora_windows_program(drive FOLDER tests/drive LINK tillora_testing)
  tillora_windows_program(com_client FOLDER tests/com_client LINK tillora_core)
  tillora_program(windows_tests
    SOURCES ${windows_tests} ${shared_tests}
    LINK tillora_testing tillora_host_automation tillora_automation
         tillora_shop tillora_win32 tillora_core TilloraOptions_idl TilloraHost_idl
         tillora_windows_libraries gtest_main)
  if(TARGET windows_tests)
    tillora_resources(resources tests/windows
      ${TILLORA_IDL_DIR}/TilloraOptions.tlb
      ${PROJECT_SOURCE_DIR}/docs/type-library.txt ${PROJECT_SOURCE_DIR}/docs/errors.md
      ${PROJECT_SOURCE_DIR}/tests/com_client/com_client.manifest)
    target_sources(windows_tests PRIVATE ${resources})
    # What is tested is optimised; optimising the tests would only take time.
    target_compile_options(windows_tests PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-O0>)
  endif()
else()
  tillora_program(native_tests
    SOURCES ${native_tests}
    LINK tillora_testing tillora_shop tillora_core gtest_main)
  if(TARGET native_tests)
    add_test(NAME native_tests COMMAND native_tests WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  endif()
endif()
