# Names and compresses manual pages and change logs of the packages as Debian wants them.
file(GLOB changes "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/CHANGELOG.md")
foreach(file IN LISTS changes)
  cmake_path(REPLACE_FILENAME file changelog OUTPUT_VARIABLE renamed)
  file(RENAME "${file}" "${renamed}")
endforeach()
file(GLOB documents "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/man/man*/*.[1-9]"
  "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/doc/*/changelog*")
foreach(file IN LISTS documents)
  execute_process(COMMAND gzip -9n "${file}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
