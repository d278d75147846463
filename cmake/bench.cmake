# Built only by its name; optimised, like the product.
if(WIN32)
  tillora_sources(sources FOLDERS bench/windows)
  # The dialog opens with the common controls that the component's library asks for.
  tillora_resources(resources bench/windows ${PROJECT_SOURCE_DIR}/tests/windows/visual_styles.manifest)
  tillora_program(bench_windows
    SOURCES ${sources} ${resources}
    LINK tillora_testing tillora_automation tillora_host_automation tillora_shop tillora_win32 tillora_core
         TilloraOptions_idl TilloraHost_idl tillora_windows_libraries)
  set_target_properties(bench_windows PROPERTIES EXCLUDE_FROM_ALL ON)
endif()
