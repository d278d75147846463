# Run by CPack over the folder of the installed files, which is named after the package. CPack's own archives hold the
# time at which they were made. This one is always the same file for the same content: entries are sorted, and carry one
# date and no owner.
cmake_path(GET CPACK_TEMPORARY_INSTALL_DIRECTORY PARENT_PATH parent)
set(CPACK_EXTERNAL_BUILT_PACKAGES ${CPACK_PACKAGE_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}.zip)
execute_process(
  COMMAND sh -eu -c "
    chmod -R u=rwX,go=rX \"$1\"
    find \"$1\" -exec touch --date 2000-01-01T00:00:00Z {} +
    rm -f \"$2\"
    find \"$1\" -type f | LC_ALL=C sort | TZ=UTC zip -X -9 -q \"$2\" -@"
    sh ${CPACK_PACKAGE_FILE_NAME} ${CPACK_EXTERNAL_BUILT_PACKAGES}
  WORKING_DIRECTORY ${parent}
  COMMAND_ERROR_IS_FATAL ANY)
