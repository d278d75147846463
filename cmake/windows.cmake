# Windows only: real windows, the automation servers and the programs.
enable_language(RC)
include(idl)
include(assembly_manifest)

add_library(tillora_windows_libraries INTERFACE)
target_link_libraries(tillora_windows_libraries INTERFACE
  comctl32 comdlg32 ole32 oleaut32 uuid shell32 shlwapi uxtheme version gdi32 user32 advapi32)

tillora_static_library(tillora_win32
  FOLDERS com platform ui/win32
  LINK tillora_core tillora_windows_libraries)
tillora_together(tillora_win32 HEADERS WINDOWS)

# The version stands in the top CMakeLists.txt; the resources take it from here.
configure_file(${PROJECT_SOURCE_DIR}/cmake/tillora_version.h.in
  ${PROJECT_BINARY_DIR}/version/tillora_version.h)

# tillora_resources(<out> <folder>): the .rc files of a folder, rebuilt when what they embed changes.
function(tillora_resources out folder)
  tillora_sources(resources FOLDERS ${folder} PATTERN "*.rc")
  tillora_sources(embedded FOLDERS ${folder} PATTERN "*.manifest")
  tillora_sources(icons FOLDERS ${folder} PATTERN "*.ico")
  set_source_files_properties(${resources} PROPERTIES
    OBJECT_DEPENDS
      "${embedded};${icons};${PROJECT_BINARY_DIR}/version/tillora_version.h;${ARGN}"
    INCLUDE_DIRECTORIES
      "${TILLORA_IDL_DIR};${PROJECT_BINARY_DIR}/version;${PROJECT_SOURCE_DIR}/${folder};${PROJECT_SOURCE_DIR}")
  set(${out} ${resources} PARENT_SCOPE)
endfunction()

# tillora_automation_server(<name> FOLDER <folder> STATIC <library> [LINK <library>...])
# An in-process automation server <name>.dll from the folder's sources, .def, .rc and <name>.idl. Its
# stripped copy is in the build folder itself, the linker's output in unstripped/. The same code but
# for the library's entry points (dll_entry.cpp) is also a static library, for tests that need no
# registration.
function(tillora_automation_server name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "FOLDER;STATIC" "LINK")
  tillora_idl(${name} ${arg_FOLDER})
  tillora_sources(sources FOLDERS ${arg_FOLDER})

  set(entry ${PROJECT_SOURCE_DIR}/${arg_FOLDER}/dll_entry.cpp)
  list(REMOVE_ITEM sources ${entry})
  set(objects ${arg_STATIC}_objects)
  add_library(${objects} OBJECT ${sources})
  tillora_link(${objects} tillora_options ${name}_idl ${arg_LINK} tillora_windows_libraries)
  tillora_together(${objects} REUSE tillora_win32)

  add_library(${arg_STATIC} STATIC $<TARGET_OBJECTS:${objects}>)
  set_target_properties(${arg_STATIC} PROPERTIES LINKER_LANGUAGE CXX)
  tillora_link(${arg_STATIC} tillora_options ${name}_idl ${arg_LINK} tillora_windows_libraries)

  tillora_sources(exports FOLDERS ${arg_FOLDER} PATTERN "*.def")
  tillora_resources(resources ${arg_FOLDER} ${TILLORA_IDL_DIR}/${name}.tlb)
  add_library(${name} SHARED $<TARGET_OBJECTS:${objects}> ${entry} ${exports} ${resources})
  tillora_link(${name} tillora_options ${name}_idl ${arg_LINK} tillora_windows_libraries)
  set_target_properties(${name} PROPERTIES
    PREFIX ""
    LINKER_LANGUAGE CXX
    LINK_DEPENDS "${exports}"
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/unstripped
    ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/unstripped)
  # Without a date given, the tool would write the time of day into the file.
  add_custom_command(TARGET ${name} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=946684800
      ${CMAKE_STRIP} -o ${PROJECT_BINARY_DIR}/${name}.dll $<TARGET_FILE:${name}>
    BYPRODUCTS ${PROJECT_BINARY_DIR}/${name}.dll
    VERBATIM)
endfunction()

tillora_automation_server(TilloraOptions
  FOLDER component/automation
  STATIC tillora_automation
  LINK tillora_win32 tillora_core)
tillora_assembly_manifest(TilloraOptions component/automation)
tillora_automation_server(TilloraHost
  FOLDER host/automation
  STATIC tillora_host_automation
  LINK tillora_shop tillora_win32 tillora_core TilloraOptions_idl)

# tillora_windows_program(<name> FOLDER <folder> [GUI] [LINK <library>...])
function(tillora_windows_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "GUI" "FOLDER" "LINK")
  tillora_sources(sources FOLDERS ${arg_FOLDER})
  tillora_resources(resources ${arg_FOLDER})
  tillora_program(${name}
    SOURCES ${sources} ${resources}
    LINK ${arg_LINK} TilloraOptions_idl TilloraHost_idl tillora_windows_libraries)
  set_target_properties(${name} PROPERTIES WIN32_EXECUTABLE ${arg_GUI})
endfunction()

tillora_windows_program(TilloraAdministrator GUI
  FOLDER host/app
  LINK tillora_shop tillora_win32 tillora_core)
tillora_together(TilloraAdministrator REUSE tillora_win32)
# The start-up entry that the options dialog writes starts the program named after its title.
set_target_properties(TilloraAdministrator PROPERTIES OUTPUT_NAME "Tillora Administrator")
tillora_windows_program(TilloraTerminal GUI FOLDER host/terminal LINK tillora_core)
tillora_together(TilloraTerminal REUSE tillora_win32)
tillora_windows_program(cpp_client FOLDER clients/cpp)
tillora_windows_program(cpp_late_client FOLDER clients/cpp_late_bound)

# What ./run shows, and nothing else.
add_custom_target(product)
add_dependencies(product TilloraOptions TilloraHost TilloraAdministrator TilloraTerminal drive)
