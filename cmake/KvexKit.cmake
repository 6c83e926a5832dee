# The kit for hosts: public headers, a CMake package and a pkg-config file. Both find the rest of
# the kit relative to their own place, so the installed tree can be moved.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(kit_libraries "${KVEX_LIBRARY_FOLDER}")
set(kit_package "${CMAKE_INSTALL_LIBDIR}/cmake/KVEXMessageRules")
set(kit_pkgconfig "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_INCLUDEDIR
  BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}/${kit_pkgconfig}"
  OUTPUT_VARIABLE kit_include_from_pkgconfig)

configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/KVEXMessageRulesConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/kit/KVEXMessageRulesConfig.cmake"
  INSTALL_DESTINATION "${kit_package}"
  PATH_VARS CMAKE_INSTALL_INCLUDEDIR kit_libraries
  NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/kit/KVEXMessageRulesConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
configure_file("${CMAKE_CURRENT_LIST_DIR}/kvexmessagerules.pc.in"
  "${PROJECT_BINARY_DIR}/kit/kvexmessagerules.pc" @ONLY)

install(DIRECTORY include/kvex DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT dev)
install(FILES
  "${PROJECT_BINARY_DIR}/kit/KVEXMessageRulesConfig.cmake"
  "${PROJECT_BINARY_DIR}/kit/KVEXMessageRulesConfigVersion.cmake"
  DESTINATION "${kit_package}" COMPONENT dev)
install(FILES "${PROJECT_BINARY_DIR}/kit/kvexmessagerules.pc"
  DESTINATION "${kit_pkgconfig}" COMPONENT dev)
install(DIRECTORY examples/host
  DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/libkvexmessagerules-dev/examples" COMPONENT dev)
