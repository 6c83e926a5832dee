# Writes the commit of the sources into the header HEADER, which stays as it is when it says so
# already. An archive of the sources holds its commit in Commit.txt; elsewhere git knows it.
#
#   cmake -D HEADER=FILE -P KvexCommit.cmake
file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/Commit.txt" commit LIMIT_COUNT 1)
if(commit MATCHES "Format")
  execute_process(
    COMMAND git describe --always --abbrev=12 --exclude=* --dirty=-changed
    WORKING_DIRECTORY "${CMAKE_CURRENT_LIST_DIR}"
    OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failure)
  if(failure)
    set(commit unknown)
  endif()
else()
  string(SUBSTRING "${commit}" 0 12 commit)
endif()
file(CONFIGURE OUTPUT "${HEADER}" @ONLY CONTENT [[
#pragma once
#define KVEX_COMMIT "@commit@"
]])
