tillora_windows_program(drive FOLDER tools/drive LINK tillora_testing)
tillora_together(drive REUSE tillora_testing)
target_compile_options(drive PRIVATE ${TILLORA_TEST_OPTIMISATION})
tillora_windows_program(com_client FOLDER tests/com_client LINK tillora_core)
tillora_together(com_client REUSE tillora_win32)
tillora_sources(failures FOLDERS tests/testing/memory tests/reliability/win32)
list(REMOVE_ITEM failures ${windows_tests})
tillora_program(windows_tests
  SOURCES ${windows_tests} ${shared_tests} ${failures}
  LINK tillora_testing tillora_host_automation tillora_automation
       tillora_shop tillora_win32 tillora_core TilloraOptions_idl TilloraHost_idl
       tillora_windows_libraries gtest_main)
# Some tests look at the windows from another program.
add_dependencies(windows_tests drive)
tillora_resources(resources tests/windows
  ${TILLORA_IDL_DIR}/TilloraOptions.tlb
  ${PROJECT_SOURCE_DIR}/docs/type-library.txt ${PROJECT_SOURCE_DIR}/docs/errors.md
  ${PROJECT_SOURCE_DIR}/tests/windows/screen_reader.txt)
target_sources(windows_tests PRIVATE ${resources})
tillora_together(windows_tests REUSE tillora_testing)
target_compile_options(windows_tests PRIVATE ${TILLORA_TEST_OPTIMISATION})

# A desk is a Wine prefix and a display of its own (tools/desk.sh). Tests at one desk run one after the other; desks run
# side by side. A desk closes when ctest ends.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(bits 64)
  set(unit_desks 2)
else()
  set(bits 32)
  set(unit_desks 1)
endif()

# tillora_at_desk(<test> <desk>)
function(tillora_at_desk test desk)
  if(NOT TEST desk-${desk})
    # Desks take the processors in turn, each bitness from another one on: chance would put the longest together.
    set_property(GLOBAL APPEND PROPERTY tillora_desks ${desk})
    get_property(desks GLOBAL PROPERTY tillora_desks)
    list(LENGTH desks turn)
    math(EXPR turn "${turn} + ${bits} / 32")
    add_test(NAME desk-${desk}
      COMMAND ${PROJECT_SOURCE_DIR}/tools/desk.sh ${bits}-${desk} ${bits} ${PROJECT_BINARY_DIR} ${turn})
    set_tests_properties(desk-${desk} PROPERTIES FIXTURES_SETUP desk-${desk} TIMEOUT 600)
  endif()
  set_tests_properties(${test} PROPERTIES
    FIXTURES_REQUIRED desk-${desk} RESOURCE_LOCK desk-${desk})
  set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT DESK=${bits}-${desk})
endfunction()

tillora_unit_test_shards(windows_tests ${unit_desks})
foreach(desk RANGE 1 ${unit_desks})
  tillora_at_desk(windows_tests-${desk} ${desk})
endforeach()

# Long runs, two at a time.
set(long_desk 1)
foreach(long IN ITEMS
    "random_user RandomUser*" "many_dialogs ManyRealDialogsTest*" "host MisbehavingHostTest*"
    "memory ComponentMemoryTest*" "values RandomValuesTest*:RandomHostTest*"
    "numbers *NumberFormatRules*:*NumberRules*")
  string(REPLACE " " ";" long "${long}")
  list(GET long 0 name)
  list(GET long 1 filter)
  tillora_long_test(long.${name} windows_tests "${filter}")
  tillora_at_desk(long.${name} ${long_desk})
  math(EXPR long_desk "${unit_desks} - ${long_desk} + 1")
endforeach()

# Clients in processes of their own, with a person at the dialog.
tillora_windows_program(client_tests FOLDER tests/clients LINK tillora_testing gtest_main)
tillora_together(client_tests REUSE tillora_testing)
target_compile_options(client_tests PRIVATE ${TILLORA_TEST_OPTIMISATION})
tillora_unit_tests(client_tests client_tests)
tillora_at_desk(client_tests scripts)

# A Wine that runs 32-bit programs runs 64-bit ones too.
file(GLOB scripts CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/tests/scripts
  ${PROJECT_SOURCE_DIR}/tests/scripts/*_test.sh
  ${PROJECT_SOURCE_DIR}/tests/scripts/*_test_with_${bits}.sh)
foreach(script IN LISTS scripts)
  string(REGEX REPLACE "_test.*$" "" test ${script})
  add_test(NAME scripts.${test}
    COMMAND ${PROJECT_SOURCE_DIR}/tests/scripts/run.sh ${script})
  set_tests_properties(scripts.${test} PROPERTIES LABELS script TIMEOUT 400
    SKIP_REGULAR_EXPRESSION "(^|\n)skip "
    ENVIRONMENT "BUILD=${PROJECT_BINARY_DIR};BITS=${bits}")
  tillora_at_desk(scripts.${test} scripts)
endforeach()

foreach(server TilloraOptions TilloraHost)
  tillora_check(${server}.imports tools/check_dll.sh ${PROJECT_BINARY_DIR}/${server}.dll imports)
endforeach()
tillora_check(TilloraOptions.size
  tools/check_dll.sh ${PROJECT_BINARY_DIR}/TilloraOptions.dll size 1200000)
if(bits EQUAL 64)
  tillora_lint(windows-x64)
endif()
if(bits EQUAL 32)
  # Of both bitnesses. It builds the libraries again, so nothing may use them meanwhile.
  add_test(NAME package COMMAND tools/check_package.sh WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
  set_tests_properties(package PROPERTIES LABELS package RUN_SERIAL ON TIMEOUT 900)
endif()
include(test_package)
