# Called by cpack with the staged files: Debian's manual pages are compressed.
file(GLOB pages ${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/man1/*.1)
foreach(page IN LISTS pages)
    execute_process(COMMAND gzip -9n ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
