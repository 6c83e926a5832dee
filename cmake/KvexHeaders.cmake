# The target `headers` compiles every header by itself, because each must include what it uses. The
# usual build leaves it out; script/lint builds it.
file(GLOB_RECURSE kvex_headers CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
  ${PROJECT_SOURCE_DIR}/include/*.h ${PROJECT_SOURCE_DIR}/platform/*.h ${PROJECT_SOURCE_DIR}/rules/*.h
  ${PROJECT_SOURCE_DIR}/ui/*.h ${PROJECT_SOURCE_DIR}/component/*.h
  ${PROJECT_SOURCE_DIR}/adapters/*.h ${PROJECT_SOURCE_DIR}/host/*.h
  ${PROJECT_SOURCE_DIR}/tests/*.h ${PROJECT_SOURCE_DIR}/bench/*.h ${PROJECT_SOURCE_DIR}/fuzz/*.h)

foreach(header IN LISTS kvex_headers)
  set(source "${PROJECT_BINARY_DIR}/headers/${header}.cpp")
  file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"${header}\"\n")
  list(APPEND kvex_header_sources "${source}")
endforeach()

find_package(Qt6 REQUIRED COMPONENTS Sql Test Widgets)
add_library(headers OBJECT EXCLUDE_FROM_ALL ${kvex_header_sources})
target_link_libraries(headers PRIVATE kvex_options Qt6::Sql Qt6::Test Qt6::Widgets GTest::gtest GTest::gmock
  benchmark::benchmark)
