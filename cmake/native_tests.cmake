tillora_program(native_tests
  SOURCES ${native_tests}
  LINK tillora_testing tillora_shop tillora_core gtest_main)
tillora_together(native_tests REUSE tillora_testing)
tillora_unit_tests(native_tests native_tests)

# Of the sources and documents, once for all presets.
file(GLOB documents RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
  README.md docs/*.md docs/tabs/*.md)
tillora_check(documents.tables document_tables --check ${documents})
tillora_check(documents.links tools/docs_links.sh)
tillora_check(clients.syntax tools/check_clients.sh)
tillora_check(formatting tools/format.sh --check)
tillora_check(shell tools/shellcheck.sh)
tillora_lint(native)
