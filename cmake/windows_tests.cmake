tillora_windows_program(drive FOLDER tools/drive LINK tillora_testing)
tillora_together(drive REUSE tillora_testing)
target_compile_options(drive PRIVATE ${TILLORA_TEST_OPTIMISATION})
tillora_windows_program(com_client FOLDER tests/com_client LINK tillora_core)
tillora_together(com_client REUSE tillora_win32)
tillora_sources(failures FOLDERS tests/testing/memory tests/reliability/win32)
list(REMOVE_ITEM failures ${windows_tests})
tillora_program(windows_tests
  SOURCES ${windows_tests} ${failures}
  LINK tillora_testing tillora_host_automation tillora_automation
       tillora_shop tillora_win32 tillora_core TilloraOptions_idl TilloraHost_idl
       tillora_windows_libraries GTest::gtest_main)
# Some tests look at the windows from another program.
add_dependencies(windows_tests drive)
tillora_resources(resources tests/windows
  ${TILLORA_IDL_DIR}/TilloraOptions.tlb
  ${PROJECT_SOURCE_DIR}/docs/type-library.txt ${PROJECT_SOURCE_DIR}/docs/errors.md
  ${PROJECT_SOURCE_DIR}/tests/windows/screen_reader.txt)
target_sources(windows_tests PRIVATE ${resources})
tillora_together(windows_tests REUSE tillora_testing)
target_compile_options(windows_tests PRIVATE ${TILLORA_TEST_OPTIMISATION})

tillora_program(shared_tests
  SOURCES ${shared_tests}
  LINK tillora_testing tillora_shop tillora_win32 tillora_core tillora_windows_libraries GTest::gtest_main)
tillora_together(shared_tests REUSE tillora_testing)
target_compile_options(shared_tests PRIVATE ${TILLORA_TEST_OPTIMISATION})

# A desk is a Wine prefix, as a rule with a display of its own (tools/desk.sh). Tests at one desk run one after the
# other; desks run side by side. A desk closes when ctest ends.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(bits 64)
else()
  set(bits 32)
endif()

# tillora_desk(<desk> [registered|unseen])
function(tillora_desk desk)
  # Desks take the processors in turn, each bitness from another one on: chance would put the longest together.
  set_property(GLOBAL APPEND PROPERTY tillora_desks ${desk})
  get_property(desks GLOBAL PROPERTY tillora_desks)
  list(LENGTH desks turn)
  math(EXPR turn "${turn} + ${bits} / 32")
  add_test(NAME desk-${desk}
    COMMAND ${PROJECT_SOURCE_DIR}/tools/desk.sh ${bits}-${desk} ${bits} ${PROJECT_BINARY_DIR} ${turn} ${ARGN})
  set_tests_properties(desk-${desk} PROPERTIES FIXTURES_SETUP desk-${desk} TIMEOUT 600)
endfunction()

tillora_desk(windows)
tillora_desk(shared unseen)
tillora_desk(scripts registered)

# tillora_at_desk(<test> <desk>)
function(tillora_at_desk test desk)
  set_tests_properties(${test} PROPERTIES
    FIXTURES_REQUIRED desk-${desk} RESOURCE_LOCK desk-${desk})
  set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT DESK=${bits}-${desk})
endfunction()

# These need the registered component. All others run where it is not registered, as in the test package.
string(JOIN : TILLORA_REGISTERED_TESTS
  OptionsServerTest.TheRegisteredClass* UnloadTest.* ApartmentsTest.* AdministratorTest.*
  MessageBoxesTest.ARegisteredClass* Rows/ErrorsTest.*)
tillora_unit_tests(windows_tests windows_tests GTEST_FILTER=-${TILLORA_REGISTERED_TESTS})
tillora_at_desk(windows_tests windows)
tillora_unit_tests(registered_tests windows_tests GTEST_FILTER=${TILLORA_REGISTERED_TESTS})
tillora_at_desk(registered_tests scripts)
tillora_unit_tests(shared_tests shared_tests)
tillora_at_desk(shared_tests shared)

# Long runs, two at a time.
set(desks windows scripts)
foreach(long IN ITEMS
    "random_user shared_tests RandomUser*" "many_dialogs windows_tests ManyRealDialogsTest*"
    "host windows_tests MisbehavingHostTest*" "memory windows_tests ComponentMemoryTest*:ComponentEntriesTest*"
    "values windows_tests RandomValuesTest*:RandomHostTest*"
    "numbers windows_tests *NumberFormatRules*:*NumberRules*"
    "shortcuts windows_tests MachineTest.AnyShortcut*")
  string(REPLACE " " ";" long "${long}")
  list(POP_FRONT long name program filter)
  tillora_long_test(long.${name} ${program} "${filter}")
  list(POP_FRONT desks desk)
  tillora_at_desk(long.${name} ${desk})
  list(APPEND desks ${desk})
endforeach()

# Clients in processes of their own, with a person at the dialog.
tillora_windows_program(client_tests FOLDER tests/clients LINK tillora_testing TilloraOptions_idl GTest::gtest_main)
tillora_together(client_tests REUSE tillora_testing)
target_compile_options(client_tests PRIVATE ${TILLORA_TEST_OPTIMISATION})
set(TILLORA_MANIFEST_TESTS *AProgramWithAManifest*)
tillora_unit_tests(client_tests client_tests GTEST_FILTER=-${TILLORA_MANIFEST_TESTS})
tillora_at_desk(client_tests scripts)
tillora_unit_tests(manifest_tests client_tests GTEST_FILTER=${TILLORA_MANIFEST_TESTS})
tillora_at_desk(manifest_tests windows)

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
