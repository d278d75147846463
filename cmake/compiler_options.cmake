# The options of our own code. Third-party code is compiled without them.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
# Asserts stay on in every configuration; they are few and cheap.
set(CMAKE_C_FLAGS_RELEASE "-O2")
set(CMAKE_CXX_FLAGS_RELEASE "-O2")
# Optimised for size, 32-bit code is a fifth smaller and compiles faster.
if(CMAKE_SYSTEM_PROCESSOR STREQUAL x86)
  set(CMAKE_CXX_FLAGS_RELEASE "-Os")
endif()

option(TILLORA_SANITIZE "Address and undefined-behaviour sanitizers (native compilers only)" OFF)

# Line numbers are enough for the sanitizers' reports, and compile in half the time of full debug information.
set(CMAKE_CXX_FLAGS_DEBUG "-g1")

find_program(TILLORA_CCACHE ccache)
if(TILLORA_CCACHE)
  # The compiler writes no time of day into our objects; the cache cannot know this of a precompiled header.
  set(launcher env CCACHE_SLOPPINESS=pch_defines,time_macros ${TILLORA_CCACHE})
  set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

# What every one of our targets is compiled with.
add_library(tillora_options INTERFACE)
target_compile_options(tillora_options INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Werror>)
# The standard library's own sorting uses what it declares deprecated.
target_compile_options(tillora_options INTERFACE
  $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wno-deprecated-declarations>)
# Bounds checks in the standard containers: an index slip ends the program instead of corrupting it.
target_compile_definitions(tillora_options INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:_GLIBCXX_ASSERTIONS>)
target_include_directories(tillora_options INTERFACE ${PROJECT_SOURCE_DIR})

# The checks for undefined behaviour are for the code that is tested (tillora_checked); in the tests themselves they
# would double the compile time.
add_library(tillora_checked INTERFACE)
if(TILLORA_SANITIZE)
  set(undefined -fsanitize=undefined -fno-sanitize-recover=all)
  target_compile_options(tillora_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-fsanitize=address;-fno-omit-frame-pointer>)
  target_compile_options(tillora_checked INTERFACE $<$<COMPILE_LANGUAGE:CXX>:${undefined}>)
  target_link_options(tillora_options INTERFACE -fsanitize=address ${undefined})
endif()

option(TILLORA_FUZZ "Build the targets of the fuzzer instead of the tests (Clang only)" OFF)
if(TILLORA_FUZZ)
  target_compile_options(tillora_checked INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-O1;-fsanitize=fuzzer-no-link>)
endif()

if(WIN32)
  target_compile_definitions(tillora_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601 WINVER=0x0601)
  # Nothing but Windows is needed where the programs run, and the undecorated names of the .def
  # files find the decorated functions of 32-bit code.
  target_link_options(tillora_options INTERFACE
    -static -static-libgcc -static-libstdc++ -Wl,--enable-stdcall-fixup -Wl,--no-insert-timestamp)
endif()
