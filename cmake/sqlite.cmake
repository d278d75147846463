# The embedded database of the reference host: one pinned source file, fetched on the first build.
set(TILLORA_SQLITE_DIR ${PROJECT_SOURCE_DIR}/build/third_party/sqlite
  CACHE PATH "Where sqlite3.c and sqlite3.h are kept, shared by all build folders")

add_custom_command(
  OUTPUT ${TILLORA_SQLITE_DIR}/sqlite3.c ${TILLORA_SQLITE_DIR}/sqlite3.h
  COMMAND ${PROJECT_SOURCE_DIR}/tools/fetch_sqlite.sh ${TILLORA_SQLITE_DIR}
  COMMENT "Fetching SQLite"
  VERBATIM)

add_library(sqlite3 STATIC EXCLUDE_FROM_ALL ${TILLORA_SQLITE_DIR}/sqlite3.c)
add_custom_target(sqlite3_source DEPENDS ${TILLORA_SQLITE_DIR}/sqlite3.h)
add_dependencies(sqlite3 sqlite3_source)
target_include_directories(sqlite3 SYSTEM PUBLIC ${TILLORA_SQLITE_DIR})
# More optimisation takes twice as long, and the reference host's shop is small. For the
# native tests it stays as it is: optimising it with line numbers takes most of a minute.
target_compile_options(sqlite3 PRIVATE $<$<CONFIG:Release>:-Og> -w)
target_compile_definitions(sqlite3 PRIVATE
  SQLITE_THREADSAFE=1
  SQLITE_OMIT_LOAD_EXTENSION
  SQLITE_DQS=0
  SQLITE_DEFAULT_FOREIGN_KEYS=1
  SQLITE_DEFAULT_MEMSTATUS=0
  SQLITE_OMIT_DEPRECATED
  SQLITE_OMIT_SHARED_CACHE)
if(NOT WIN32)
  # Without it older versions wait for a lock in whole seconds, or not at all.
  target_compile_definitions(sqlite3 PRIVATE HAVE_USLEEP=1)
  find_package(Threads REQUIRED)
  target_link_libraries(sqlite3 PUBLIC Threads::Threads m)
endif()
