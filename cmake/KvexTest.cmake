# kvex_test(SUBJECT_test [WHOLE] LABELS label… SOURCES file… LIBRARIES library… [ENVIRONMENT A=B…])
# Adds a GoogleTest program. Each of its tests is a CTest test with these labels. With WHOLE the
# program is one CTest test. Use WHOLE when the tests share something that starts slowly.
find_package(GTest REQUIRED)
include(GoogleTest)

function(kvex_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WHOLE" "" "LABELS;SOURCES;LIBRARIES;ENVIRONMENT")
  if(NOT name MATCHES "_test$")
    message(FATAL_ERROR "Name the test program ${name} after its subject: SUBJECT_test.")
  endif()
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE kvex_options ${arg_LIBRARIES} GTest::gtest_main GTest::gmock)
  if(arg_WHOLE)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
      LABELS "${arg_LABELS}" ENVIRONMENT "${arg_ENVIRONMENT}")
    return()
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES)
  # The discovery takes only one value for a property, so a file of its own sets the lists.
  set(properties "${CMAKE_CURRENT_BINARY_DIR}/${name}_properties.cmake")
  file(CONFIGURE OUTPUT "${properties}" @ONLY CONTENT [[
if(@name@_TESTS)
  set_tests_properties(${@name@_TESTS} PROPERTIES
    LABELS "@arg_LABELS@" ENVIRONMENT "@arg_ENVIRONMENT@")
endif()
]])
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${properties}")
endfunction()
