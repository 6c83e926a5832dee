# kvex_python_tests(NAME FILE file.py LABELS label… [ENVIRONMENT A=B…] [PROPERTIES name value…])
# Makes each test method of a Python unittest file a CTest test: testMethod becomes NAME.Method.
# CMake reads the file when it configures, and configures again when the file changes.

# The system's own interpreter, because the packages that the tests need are installed for it.
find_program(KVEX_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)

function(kvex_python_tests name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "FILE" "LABELS;ENVIRONMENT;PROPERTIES")
  set(file "${CMAKE_CURRENT_SOURCE_DIR}/${arg_FILE}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
  file(STRINGS "${file}" lines REGEX "^(class |    def test)")
  foreach(line IN LISTS lines)
    if(line MATCHES "^class ([A-Za-z]+)")
      set(class "${CMAKE_MATCH_1}")
    elseif(line MATCHES "def test([A-Za-z0-9]+)")
      set(test "${name}.${CMAKE_MATCH_1}")
      add_test(NAME "${test}" COMMAND "${KVEX_PYTHON}" -B "${file}" "${class}.test${CMAKE_MATCH_1}")
      set_tests_properties("${test}" PROPERTIES
        LABELS "${arg_LABELS}" ENVIRONMENT "${arg_ENVIRONMENT}" ${arg_PROPERTIES})
    endif()
  endforeach()
endfunction()
