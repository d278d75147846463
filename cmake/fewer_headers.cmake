# Most of the compile time goes into headers of the system. So the sources of one folder are compiled together, and
# those headers once for each set of compiler options. Two rules follow: names in anonymous namespaces are unique within
# a folder, and sources still include what they use; tools/lint.py compiles each alone.
option(TILLORA_TOGETHER "Compile the sources of a folder together, with precompiled headers" ON)

set(TILLORA_STANDARD_HEADERS
  <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <set> <span> <sstream> <string>
  <string_view> <utility> <vector>)
set(TILLORA_WINDOWS_HEADERS ${TILLORA_STANDARD_HEADERS} <windows.h> <commctrl.h> <oleauto.h>)
if(WIN32)
  set(TILLORA_TEST_HEADERS ${TILLORA_WINDOWS_HEADERS} <gtest/gtest.h>)
else()
  set(TILLORA_TEST_HEADERS ${TILLORA_STANDARD_HEADERS} <gtest/gtest.h>)
endif()

# tillora_together(<target> HEADERS STANDARD|WINDOWS|TEST | REUSE <target>)
function(tillora_together target how what)
  if(NOT TILLORA_TOGETHER)
    return()
  endif()
  if(how STREQUAL "REUSE")
    target_precompile_headers(${target} REUSE_FROM ${what})
  else()
    target_precompile_headers(${target} PRIVATE ${TILLORA_${what}_HEADERS})
  endif()
  # A folder of sources fills a gigabyte; without collecting garbage before that they compile a twelfth faster.
  target_compile_options(${target} PRIVATE
    "$<$<COMPILE_LANG_AND_ID:CXX,GNU>:SHELL:--param ggc-min-heapsize=1048576>")
  # What ccache needs to see through a precompiled header.
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)

  if(WIN32)
    # As many sections as a folder of sources needs.
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wa,-mbig-obj>)
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    if(source MATCHES "\\.cpp$")
      cmake_path(GET source PARENT_PATH folder)
      cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${PROJECT_SOURCE_DIR})
      string(REPLACE "/" "_" folder ${folder})
      set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${folder})
    endif()
  endforeach()
endfunction()
