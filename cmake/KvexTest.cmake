# kvex_test(NAME LABELS label… SOURCES file… LIBRARIES library… [ENVIRONMENT A=B…])
# One GoogleTest program; each of its tests is a CTest test with these labels.
find_package(GTest REQUIRED)
include(GoogleTest)

# What every test runs with: sanitizers pass over what libraries keep on purpose.
set(KVEX_TEST_ENVIRONMENT "")
if(KVEX_SANITIZE)
  set(KVEX_TEST_ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0")
endif()

function(kvex_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LABELS;SOURCES;LIBRARIES;ENVIRONMENT")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE kvex_options ${arg_LIBRARIES} GTest::gtest_main GTest::gmock)
  gtest_discover_tests(${name}
    DISCOVERY_MODE PRE_TEST NO_PRETTY_VALUES
    PROPERTIES LABELS "${arg_LABELS}" ENVIRONMENT "${KVEX_TEST_ENVIRONMENT};${arg_ENVIRONMENT}")
endfunction()
