# Run by CPack before it packs: every file gets the same date.
execute_process(
  COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch --no-dereference --date 2000-01-01T00:00:00Z {} +
  COMMAND_ERROR_IS_FATAL ANY)
