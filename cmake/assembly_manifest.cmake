# tillora_assembly_manifest(<name> <folder>): <name>.Component.manifest in the build folder, which lets
# programs use <name>.dll without registration. Ids and interfaces are taken from <name>.idl.
function(tillora_assembly_manifest name folder)
  set(idl ${PROJECT_SOURCE_DIR}/${folder}/${name}.idl)
  set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${idl})
  file(READ ${idl} definition)
  # Removes what has a meaning in lists.
  string(REGEX REPLACE "[][;]" "" definition "${definition}")

  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(TILLORA_ARCHITECTURE amd64)
  else()
    set(TILLORA_ARCHITECTURE x86)
  endif()
  set(TILLORA_ASSEMBLY_VERSION ${PROJECT_VERSION}.0)
  string(REGEX MATCH "version\\(([0-9.]+)\\)" version "${definition}")
  set(TILLORA_LIBRARY_VERSION ${CMAKE_MATCH_1})

  set(typed "uuid\\(([0-9a-f-]+)\\)[^{}]*[ \n](library|coclass|dispinterface|interface) ([A-Za-z_]+)")
  string(REGEX MATCHALL "${typed}[^{}]*{" types "${definition}")
  foreach(type IN LISTS types)
    string(REGEX MATCH "${typed}" type "${type}")
    set(id {${CMAKE_MATCH_1}})
    set(kind ${CMAKE_MATCH_2})
    set(type ${CMAKE_MATCH_3})
    if(kind STREQUAL "library")
      set(TILLORA_LIBRARY_ID ${id})
    elseif(kind STREQUAL "coclass")
      if(type STREQUAL "Options")
        set(TILLORA_CLASS_ID ${id})
      endif()
    else()
      # Calls between apartments: the system marshals what the type library describes.
      set(marshaller 00020420)
      if(kind STREQUAL "interface")
        set(marshaller 00020424)
      endif()
      string(APPEND TILLORA_ASSEMBLY_INTERFACES
        "  <comInterfaceExternalProxyStub name=\"${type}\" iid=\"${id}\"\n"
        "    baseInterface=\"{00020400-0000-0000-c000-000000000046}\"\n"
        "    proxyStubClsid32=\"{${marshaller}-0000-0000-c000-000000000046}\"\n"
        "    tlbid=\"${TILLORA_LIBRARY_ID}\"/>\n")
    endif()
  endforeach()
  configure_file(${PROJECT_SOURCE_DIR}/${folder}/${name}.Component.manifest.in
    ${PROJECT_BINARY_DIR}/${name}.Component.manifest @ONLY NEWLINE_STYLE UNIX)
endfunction()
