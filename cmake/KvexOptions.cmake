# The options that every target is built with.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
# Libraries find each other in their own folder, even when the folder is moved. The installed
# program also looks in their private folder, which it knows relative to its own.
include(GNUInstallDirs)
set(KVEX_LIBRARY_FOLDER "${CMAKE_INSTALL_LIBDIR}/kvex")
file(RELATIVE_PATH KVEX_LIBRARIES_FROM_PROGRAM
  "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}/kvex")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN")

find_program(KVEX_CCACHE ccache)
if(KVEX_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${KVEX_CCACHE}")
endif()

set(KVEX_SANITIZE "" CACHE STRING "Sanitizers to build with: address,undefined or thread; fuzzer-no-link for fuzz targets")

# Every library and program includes from the project's root, and public headers from include/.
# All must compile without warnings.
add_library(kvex_options INTERFACE)
target_include_directories(kvex_options INTERFACE
  "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/include")
target_compile_options(kvex_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion $<$<BOOL:${KVEX_WERROR}>:-Werror>
  # When it optimises, GCC 12 wrongly warns that std::string copies overlapping memory.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>)
# A release leaves out code that nothing calls.
add_compile_options($<$<CONFIG:Release>:-ffunction-sections> $<$<CONFIG:Release>:-fdata-sections>)
add_link_options($<$<CONFIG:Release>:LINKER:--gc-sections>)
if(KVEX_SANITIZE)
  add_compile_options(-fsanitize=${KVEX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KVEX_SANITIZE})
else()
  # A missing symbol is an error when a library is linked, not only when a host loads it.
  add_link_options(LINKER:-z,defs)
endif()

function(kvex_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES;PRIVATE_LIBRARIES")
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC kvex_options ${arg_LIBRARIES} PRIVATE ${arg_PRIVATE_LIBRARIES})
endfunction()
