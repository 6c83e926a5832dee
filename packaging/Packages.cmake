# The .deb packages: one for each component of the installation. script/package builds them.
set(KVEX_MAINTAINER "The KVEXMessageRules developers <developers@kvexmessagerules.invalid>"
  CACHE STRING "Who answers for the packages: NAME <ADDRESS>")
set(revision 1)
set(same_version "(= ${PROJECT_VERSION}-${revision})")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kvexmessagerules)
set(CPACK_PACKAGE_CONTACT "${KVEX_MAINTAINER}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/DebianDocuments.cmake")
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${revision})
set(CPACK_DEBIAN_PACKAGE_SOURCE kvexmessagerules)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Where dpkg-shlibdeps finds the libraries that only these packages have.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")

execute_process(COMMAND date --utc -R -d "${KVEX_RELEASE_DATE}" OUTPUT_VARIABLE date
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(changelog.Debian.in changelog.Debian @ONLY)

# kvex_package(COMPONENT NAME SECTION section SUMMARY text CONTENT text
#   [DEPENDS packages] [RECOMMENDS packages] [SUGGESTS packages])
# Makes the package NAME of a component, with the documents that every package has.
macro(kvex_package component name)
  cmake_parse_arguments(package "" "SECTION;SUMMARY;CONTENT;DEPENDS;RECOMMENDS;SUGGESTS" "" ${ARGN})
  string(TOUPPER ${component} key)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${package_SECTION})
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${package_SUMMARY}
A rule says what an SMS notification server does with an incoming message.
The rule editor is a component that every program of the server's suite can
load, and kvexrules is one of these programs.
.
This package has ${package_CONTENT}.")
  foreach(relation DEPENDS RECOMMENDS SUGGESTS)
    set(CPACK_DEBIAN_${key}_PACKAGE_${relation} "${package_${relation}}")
  endforeach()
  install(FILES copyright "${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian"
    DESTINATION "${doc_folder}/${name}" COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES lintian-overrides RENAME ${name}
    DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides"
    COMPONENT ${component} EXCLUDE_FROM_ALL)
endmacro()

kvex_package(library libkvexmessagerules SECTION libs
  SUMMARY "rule editor of an SMS notification server - libraries"
  CONTENT "the component, and the libraries that it and its hosts share"
  RECOMMENDS "kvex-toolkit-qt | kvex-toolkit-terminal, odbc-postgresql, odbc-mariadb"
  SUGGESTS "libsqliteodbc")
kvex_package(kvexrules kvexrules SECTION misc
  SUMMARY "rule editor of an SMS notification server"
  CONTENT "the program, which also serves operators at a terminal"
  DEPENDS "libkvexmessagerules ${same_version}, kvex-toolkit-terminal ${same_version}"
  RECOMMENDS "kvex-toolkit-qt")
kvex_package(qt kvex-toolkit-qt SECTION libs
  SUMMARY "rule editor of an SMS notification server - Qt windows"
  CONTENT "the toolkit that shows the windows with Qt 6"
  DEPENDS "libkvexmessagerules ${same_version}" RECOMMENDS "qt6-wayland")
kvex_package(terminal kvex-toolkit-terminal SECTION libs
  SUMMARY "rule editor of an SMS notification server - terminal windows"
  CONTENT "the toolkit that shows the windows in a terminal"
  DEPENDS "libkvexmessagerules ${same_version}")
kvex_package(dev libkvexmessagerules-dev SECTION libdevel
  SUMMARY "rule editor of an SMS notification server - development files"
  CONTENT "what is needed to compile and link a host of the component"
  DEPENDS "libkvexmessagerules ${same_version}")

include(CPack)
