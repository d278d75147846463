# Headers of the system that most sources include, compiled once for each set of compiler options.
# Sources include what they use all the same: tools/lint.sh compiles each without these.
option(TILLORA_PRECOMPILE "Precompile the headers of the system" ON)

set(TILLORA_STANDARD_HEADERS
  <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <set> <span> <sstream> <string>
  <string_view> <utility> <vector>)
set(TILLORA_WINDOWS_HEADERS ${TILLORA_STANDARD_HEADERS} <windows.h> <commctrl.h> <oleauto.h>)
set(TILLORA_TEST_HEADERS ${TILLORA_STANDARD_HEADERS} <gtest/gtest.h>)

# tillora_precompile(<target> STANDARD|WINDOWS|TEST | REUSE <target>)
function(tillora_precompile target kind)
  if(NOT TILLORA_PRECOMPILE OR NOT TARGET ${target})
    return()
  endif()
  if(kind STREQUAL "REUSE")
    target_precompile_headers(${target} REUSE_FROM ${ARGN})
  else()
    target_precompile_headers(${target} PRIVATE ${TILLORA_${kind}_HEADERS})
  endif()
  # What ccache needs to see through a precompiled header.
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
endfunction()
