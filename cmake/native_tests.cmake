# What lets memory and disks fail on purpose.
tillora_sources(failures FOLDERS tests/testing/memory tests/reliability)
list(REMOVE_ITEM failures ${native_tests})
tillora_program(native_tests
  SOURCES ${native_tests} ${failures}
  LINK tillora_testing tillora_shop tillora_core GTest::gtest_main)
tillora_together(native_tests REUSE tillora_testing)
tillora_unit_test_shards(native_tests 2)

tillora_long_test(long.disk native_tests "FailingDisk*")
tillora_long_test(long.shop_memory native_tests "FailingMemoryOfShop*")
tillora_long_test(long.dialog_memory native_tests "FailingMemoryTest*:*FailingMemoryOnTab*")
tillora_long_test(long.random_user native_tests "RandomUser*")
tillora_long_test(long.many_dialogs native_tests "ManyDialogsTest*")

# Checks of the sources and documents run once for all presets.
file(GLOB documents RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
  README.md docs/*.md docs/tabs/*.md)
tillora_check(documents.tables document_tables --check ${documents})
add_custom_target(tables COMMAND document_tables ${documents}
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} VERBATIM)
tillora_check(documents.links tools/docs_links.sh)
# The syntax of clients that do not run under Wine, if there is a compiler for them here.
tillora_check(clients.python python3 -c "
import pathlib, sys
for file in sys.argv[1:]: compile(pathlib.Path(file).read_text(), file, 'exec')"
  clients/python/shop_comtypes.py clients/python/shop_win32com.py)
find_program(TILLORA_MCS mcs)
if(TILLORA_MCS)
  tillora_check(clients.csharp ${TILLORA_MCS} -warnaserror -out:${PROJECT_BINARY_DIR}/Program.exe
    -r:Microsoft.CSharp clients/csharp/Program.cs)
endif()
tillora_check(layers tools/layers.py)
tillora_check(callbacks tools/callbacks.py)
tillora_check(formatting tools/format.sh --check)
tillora_check(shell tools/shellcheck.sh)
tillora_lint(native)
