# The package for host developers (docs/package.md): what `cmake --install` puts into a folder, and CPack, over
# both bitnesses, into TilloraOptions-VERSION.zip (tools/package.sh).
if(WIN32)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(folder x64)
  else()
    set(folder x86)
  endif()
  foreach(server TilloraOptions TilloraHost)
    install(FILES ${PROJECT_BINARY_DIR}/${server}.dll ${TILLORA_IDL_DIR}/${server}.tlb
      DESTINATION ${folder})
    # One header serves both bitnesses; a test compares them.
    install(FILES ${TILLORA_IDL_DIR}/${server}.h ${TILLORA_IDL_DIR}/${server}_i.c
      DESTINATION include)
  endforeach()
  install(FILES ${PROJECT_BINARY_DIR}/TilloraOptions.Component.manifest DESTINATION ${folder})
  install(FILES component/automation/TilloraOptions.idl host/automation/TilloraHost.idl
    DESTINATION idl)
  install(FILES component/contract/option_table.inc component/contract/option_changes.inc DESTINATION idl/component/contract)
  install(DIRECTORY clients docs DESTINATION .)
  file(WRITE ${PROJECT_BINARY_DIR}/package/README.txt
    "docs/package.md says what is here; docs/host-guide.md is where to begin.\n")
  install(FILES ${PROJECT_BINARY_DIR}/package/README.txt DESTINATION .)
  install(FILES /usr/share/common-licenses/GPL-3 DESTINATION licences RENAME GPL-3.txt)
  install(FILES /usr/share/doc/gcc-mingw-w64-base/copyright DESTINATION licences RENAME gcc.txt)
  install(FILES /usr/share/doc/mingw-w64-common/copyright
    DESTINATION licences RENAME mingw-w64.txt)

  set(CPACK_GENERATOR External)
  set(CPACK_EXTERNAL_ENABLE_STAGING ON)
  set(CPACK_EXTERNAL_PACKAGE_SCRIPT ${PROJECT_SOURCE_DIR}/cmake/package_zip.cmake)
  set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION})
  set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build)
  set(CPACK_VERBATIM_VARIABLES ON)
  set(CPACK_MONOLITHIC_INSTALL ON)  # the tests are a component of their own, and not in here
  foreach(preset windows-x64 windows-x86)
    list(APPEND CPACK_INSTALL_CMAKE_PROJECTS
      ${PROJECT_SOURCE_DIR}/build/${preset} ${PROJECT_NAME} ALL /)
  endforeach()
  include(CPack)
endif()
