# Interface definitions: type library, header and interface ids, all in the build tree.
set(TILLORA_IDL_DIR ${PROJECT_BINARY_DIR}/idl)

find_path(TILLORA_STDOLE_DIR stdole2.tlb
  PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/wine/x86_64-windows
  NO_CMAKE_FIND_ROOT_PATH
  DOC "Folder of stdole2.tlb, which every type library imports")

# tillora_idl(<name> <folder>): target <name>_idl, an include path for <name>.h together with the
# constants it declares; <name>.tlb lies beside the header.
function(tillora_idl name folder)
  set(idl ${folder}/${name}.idl)
  if(NOT TILLORA_STDOLE_DIR)
    message(FATAL_ERROR "stdole2.tlb not found: install the package libwine")
  endif()

  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(bitness -m64)
  else()
    set(bitness -m32)
  endif()
  # The definition takes its properties from the option table, so it depends on the tables too.
  file(GLOB tables CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/component/contract/*.inc ${PROJECT_SOURCE_DIR}/component/contract/*.h
    ${PROJECT_SOURCE_DIR}/${folder}/*.inc ${PROJECT_SOURCE_DIR}/${folder}/*.idl)
  set(widl ${TILLORA_WIDL} ${bitness}
    -I ${PROJECT_SOURCE_DIR}/cmake/idl -I ${PROJECT_SOURCE_DIR} -L ${TILLORA_STDOLE_DIR})
  set(tlb ${TILLORA_IDL_DIR}/${name}.tlb)
  set(header ${TILLORA_IDL_DIR}/${name}.h)
  set(ids ${TILLORA_IDL_DIR}/${name}_i.c)
  add_custom_command(
    OUTPUT ${tlb} ${header} ${ids}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${TILLORA_IDL_DIR}
    COMMAND ${widl} -t -o ${tlb} ${idl}
    COMMAND perl ${PROJECT_SOURCE_DIR}/cmake/idl/without_time.pl ${tlb}
    COMMAND ${widl} -h -o ${header} ${idl}
    COMMAND ${widl} -u -o ${ids} ${idl}
    # The header names its source by a relative path, not by one of the machine that built it.
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    DEPENDS ${PROJECT_SOURCE_DIR}/${idl} ${tables} ${PROJECT_SOURCE_DIR}/cmake/idl/oaidl.idl
      ${PROJECT_SOURCE_DIR}/cmake/idl/without_time.pl
    COMMENT "Compiling ${name}.idl"
    VERBATIM)

  add_library(${name}_idl STATIC ${ids} ${header})
  target_include_directories(${name}_idl SYSTEM PUBLIC ${TILLORA_IDL_DIR})
  add_custom_target(${name}_typelib DEPENDS ${tlb} ${header})
  add_dependencies(${name}_idl ${name}_typelib)
endfunction()
