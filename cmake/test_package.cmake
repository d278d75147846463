# The test package (docs/windows-tests.md): the install component "tests" of both bitnesses, made by
# tools/test_package.sh.
tillora_windows_program(run_tests FOLDER tests/package LINK tillora_testing)
tillora_together(run_tests REUSE tillora_testing)
target_compile_options(run_tests PRIVATE ${TILLORA_TEST_OPTIMISATION})
set(programs
  windows_tests shared_tests client_tests run_tests drive com_client cpp_client cpp_late_client TilloraAdministrator)
target_compile_definitions(run_tests PRIVATE
  TILLORA_REGISTERED_TESTS=L"${TILLORA_REGISTERED_TESTS}" TILLORA_MANIFEST_TESTS=L"${TILLORA_MANIFEST_TESTS}")
add_custom_target(test_package DEPENDS ${programs} TilloraOptions TilloraHost)

# install_tests(<arguments of install>...)
macro(install_tests)
  install(${ARGN} COMPONENT tests EXCLUDE_FROM_ALL)
endmacro()
if(bits EQUAL 64)
  set(folder x64)
else()
  set(folder x86)
endif()
install_tests(TARGETS ${programs} RUNTIME DESTINATION ${folder})
foreach(file TilloraOptions.dll TilloraHost.dll TilloraOptions.Component.manifest)
  install_tests(FILES ${PROJECT_BINARY_DIR}/${file} DESTINATION ${folder})
endforeach()
# The scripts lie where the test programs look for them.
install_tests(DIRECTORY clients/vbscript clients/jscript DESTINATION clients)
install_tests(FILES tests/scripts/bad_inputs.vbs DESTINATION tests/scripts)
configure_file(tests/package/test.cmd test_package/test.cmd @ONLY NEWLINE_STYLE DOS)
configure_file(docs/windows-tests.md test_package/README.txt @ONLY NEWLINE_STYLE DOS)
install_tests(DIRECTORY ${PROJECT_BINARY_DIR}/test_package/ DESTINATION .)
install_tests(FILES /usr/share/common-licenses/GPL-3 DESTINATION licences RENAME GPL-3.txt)
foreach(package gcc-mingw-w64-base mingw-w64-common googletest)
  install_tests(FILES /usr/share/doc/${package}/copyright DESTINATION licences RENAME ${package}.txt)
endforeach()
