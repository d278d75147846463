# Shared by both bitnesses; TILLORA_TRIPLE is set by the including file.
set(CMAKE_SYSTEM_NAME Windows)

# The compilers without suffix use the Win32 thread model, which lacks std::mutex and std::thread.
set(CMAKE_C_COMPILER ${TILLORA_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TILLORA_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${TILLORA_TRIPLE}-windres)
set(TILLORA_WIDL ${TILLORA_TRIPLE}-widl)

# Tests start Windows programs with it.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../../tools/wine_exec.sh)

set(CMAKE_FIND_ROOT_PATH /usr/${TILLORA_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
