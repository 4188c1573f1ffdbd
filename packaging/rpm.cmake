# CPack runs this over the files of each package format before it packs them. An .rpm has its manual
# pages compressed, and one time for all files.
if(NOT CPACK_GENERATOR STREQUAL "RPM")
    return()
endif()

file(GLOB pages ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/*/*)
execute_process(COMMAND gzip -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)
execute_process(
    COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -hd @$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
