# Benchmarks are built where their numbers mean something: optimised and without sanitizers.
if(NOT CMAKE_BUILD_TYPE STREQUAL "Release")
  return()
endif()

if(WIN32)
  tillora_sources(sources FOLDERS bench/windows)
  tillora_program(bench_windows
    SOURCES ${sources}
    LINK tillora_testing tillora_automation tillora_host_automation tillora_shop tillora_win32 tillora_core
         TilloraOptions_idl TilloraHost_idl tillora_windows_libraries)
else()
  tillora_sources(sources FOLDERS bench)
  if(sources)
    find_package(benchmark REQUIRED)
    tillora_program(native_bench
      SOURCES ${sources}
      LINK tillora_testing tillora_shop tillora_core benchmark::benchmark_main)
  endif()
endif()
